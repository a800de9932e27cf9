#include "ui/list/invoice_table_model.h"

#include "app/invoice_list.h"
#include "app/reader_language.h"
#include "model/amount_text.h"
#include "model/displayed_number.h"
#include "ui/look/status_colors.h"

#include <QCollator>
#include <QLocale>

namespace ledra {

namespace {

constexpr std::array<const char*, InvoiceTableModel::columns> titles = {
    QT_TRANSLATE_NOOP("ledra::InvoiceTableModel", "Number"),
    QT_TRANSLATE_NOOP("ledra::InvoiceTableModel", "Recipient"),
    QT_TRANSLATE_NOOP("ledra::InvoiceTableModel", "Date"),
    QT_TRANSLATE_NOOP("ledra::InvoiceTableModel", "Due"),
    QT_TRANSLATE_NOOP("ledra::InvoiceTableModel", "Total"),
    QT_TRANSLATE_NOOP("ledra::InvoiceTableModel", "Status"),
};

QString dayOf(QDate day)
{
    return QLocale::system().toString(day, QLocale::ShortFormat);
}

/// The records' places in the order of a key; equal keys keep the order of the list.
template <class Key>
std::vector<std::uint32_t> orderBy(const std::vector<InvoicePtr>& records, const Key& key)
{
    std::vector<std::pair<decltype(key(**records.front())), std::uint32_t>> keys;
    keys.reserve(records.size());
    for (std::uint32_t i = 0; i < records.size(); ++i)
        keys.emplace_back(key(**records[i]), i);
    std::ranges::stable_sort(keys, [](const auto& a, const auto& b) { return a.first < b.first; });
    std::vector<std::uint32_t> order;
    order.reserve(keys.size());
    for (const auto& each : keys)
        order.push_back(each.second);
    return order;
}

} // namespace

InvoiceTableModel::InvoiceTableModel(LedraApp& app, QObject* parent) : QAbstractTableModel(parent), app_(app)
{
    connect(&app.invoiceManager(), &InvoiceManager::refreshed, this, &InvoiceTableModel::reload);
    connect(&app.invoiceManager(), &InvoiceManager::edited, this, &InvoiceTableModel::showEdited);
    connect(&app.invoiceManager(), &InvoiceManager::saved, this, &InvoiceTableModel::showEdited);
    connect(&app.filterManager(), &FilterManager::changed, this, &InvoiceTableModel::reload);
    reload();
}

void InvoiceTableModel::reload()
{
    beginResetModel();
    insertHeadings(ordered(app_.filterManager().filtered()));
    endResetModel();
    Q_EMIT reloaded();
}

/// The row stays where it is while somebody types; the next reload puts it in its place.
void InvoiceTableModel::showEdited(const QUuid& id)
{
    const QModelIndex first = indexOf(id);
    if (first.isValid())
        Q_EMIT dataChanged(first, first.siblingAtColumn(columns - 1));
}

void InvoiceTableModel::rankAll()
{
    const std::uint64_t revision = app_.invoiceManager().contentRevision();
    const std::vector<InvoicePtr>& all = app_.invoiceManager().invoices();
    if ((ranks_.revision == revision && ranks_.column == sortColumn_) || all.empty())
        return;
    const Profile& profile = **app_.profileManager().activeProfile();
    QCollator collator;
    collator.setNumericMode(true);
    const auto order = [&]() -> std::vector<std::uint32_t> {
        switch (sortColumn_) {
        case number:
            return orderBy(all,
                           [&](const Invoice& i) { return collator.sortKey(displayedNumber(i, profile)); });
        case recipient:
            return orderBy(all, [&](const Invoice& i) { return collator.sortKey(recipientName(i)); });
        case due:
            return orderBy(all, [](const Invoice& i) { return i.dueDay(); });
        case total:
            return orderBy(all, [](const Invoice& i) { return i.total(); });
        default:
            return orderBy(all, [](const Invoice& i) { return i.status; });
        }
    }();
    ranks_ = {revision, sortColumn_, {}};
    ranks_.places.reserve(all.size());
    for (std::uint32_t place = 0; place < order.size(); ++place)
        ranks_.places.emplace(all[order[place]].get(), place);
}

/// Distributes the records to their places, which is faster than comparing them.
std::vector<InvoicePtr> InvoiceTableModel::ordered(std::vector<InvoicePtr> records)
{
    const bool isDescending = sortOrder_ == Qt::DescendingOrder;
    if (sortColumn_ == date) {
        if (!isDescending) // the list has the newest first
            std::ranges::reverse(records);
        return records;
    }
    rankAll();
    std::vector<InvoicePtr> places(app_.invoiceManager().invoices().size());
    for (InvoicePtr& record : records) {
        const std::size_t place = ranks_.places.at(record.get());
        places[isDescending ? places.size() - 1 - place : place] = std::move(record);
    }
    std::erase(places, nullptr);
    return places;
}

void InvoiceTableModel::insertHeadings(std::vector<InvoicePtr> records)
{
    recordCount_ = records.size();
    headings_.clear();
    if (sortColumn_ != date) {
        rows_ = std::move(records);
        return;
    }
    rows_.clear();
    constexpr std::size_t monthsOfManyYears = 240;
    rows_.reserve(records.size() + monthsOfManyYears);
    Timestamp begin;
    Timestamp end;
    for (InvoicePtr& record : records) {
        const Timestamp moment = (*record)->date;
        if (rows_.empty() || moment < begin || moment >= end) {
            const QDate day = moment.localDate();
            const QDate first(day.year(), day.month(), 1);
            begin = Timestamp::fromDateTime(first.startOfDay());
            end = Timestamp::fromDateTime(first.addMonths(1).startOfDay());
            headings_.push_back(static_cast<int>(rows_.size()));
            rows_.push_back(nullptr);
        }
        rows_.push_back(std::move(record));
    }
}

void InvoiceTableModel::sort(int column, Qt::SortOrder order)
{
    sortColumn_ = column;
    sortOrder_ = order;
    reload();
}

InvoicePtr InvoiceTableModel::invoice(const QModelIndex& index) const
{
    return index.isValid() ? rows_.at(static_cast<std::size_t>(index.row())) : nullptr;
}

bool InvoiceTableModel::isHeading(int row) const
{
    return !rows_.at(static_cast<std::size_t>(row));
}

QModelIndex InvoiceTableModel::indexOf(const QUuid& id) const
{
    const auto found =
        std::ranges::find_if(rows_, [&](const InvoicePtr& each) { return each && (*each)->id == id; });
    return found == rows_.end() ? QModelIndex() : index(static_cast<int>(found - rows_.begin()), 0);
}

QModelIndex InvoiceTableModel::firstRecord() const
{
    if (recordCount_ == 0)
        return {};
    return index(isHeading(0) ? 1 : 0, 0);
}

int InvoiceTableModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int InvoiceTableModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : columns;
}

Qt::ItemFlags InvoiceTableModel::flags(const QModelIndex& index) const
{
    if (!index.isValid() || isHeading(index.row()))
        return Qt::NoItemFlags;
    return Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsDragEnabled | Qt::ItemNeverHasChildren;
}

QString InvoiceTableModel::text(const Invoice& invoice, int column) const
{
    switch (column) {
    case number:
        return displayedNumber(invoice, **app_.profileManager().activeProfile());
    case recipient:
        return recipientName(invoice);
    case date:
        return dayOf(invoice.date.localDate());
    case due:
        return invoice.type == InvoiceType::cancellation ? QString() : dayOf(invoice.dueDay());
    case total:
        return amountText(invoice.total(), invoice.currency, readerLanguage());
    case status:
        return statusLook(invoice, app_.clock().now()).displayText();
    default:
        return {};
    }
}

QString InvoiceTableModel::heading(int row) const
{
    const InvoicePtr& first = rows_.at(static_cast<std::size_t>(row) + 1); // a heading has records below it
    return QLocale(documentLocale(readerLanguage())).toString((*first)->date.localDate(), u"MMMM yyyy");
}

QVariant InvoiceTableModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid())
        return {};
    const InvoicePtr record = invoice(index);
    if (!record)
        return role == Qt::DisplayRole && index.column() == 0 ? heading(index.row()) : QVariant();
    switch (role) {
    case Qt::DisplayRole:
        return text(**record, index.column());
    case Qt::UserRole:
        return static_cast<int>(&statusLook(**record, app_.clock().now()) - statusLooks().data());
    case Qt::ToolTipRole:
        return index.column() == recipient ? (*record)->email : QVariant();
    case Qt::TextAlignmentRole:
        return QVariant((index.column() == total ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
    default:
        return {};
    }
}

QVariant InvoiceTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || section < 0 || section >= columns)
        return {};
    if (role == Qt::DisplayRole)
        return tr(titles.at(static_cast<std::size_t>(section)));
    if (role == Qt::TextAlignmentRole)
        return QVariant((section == total ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
    return {};
}

} // namespace ledra
