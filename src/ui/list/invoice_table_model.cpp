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
    return QLocale().toString(day, QLocale::ShortFormat);
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
    list_ = app_.invoiceManager().list();
    insertHeadings(ordered(app_.filterManager().passing(app_.filterManager().filter())));
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
    ranks_ = {revision, sortColumn_, std::vector<std::uint32_t>(all.size())};
    for (std::uint32_t rank = 0; rank < order.size(); ++rank)
        ranks_.ranks[order[rank]] = rank;
}

/// Distributes the records to their ranks, which is faster than comparing them.
std::vector<std::uint32_t> InvoiceTableModel::ordered(std::vector<std::uint32_t> places)
{
    const bool isDescending = sortOrder_ == Qt::DescendingOrder;
    if (sortColumn_ == date) {
        if (!isDescending) // the list has the newest first
            std::ranges::reverse(places);
        return places;
    }
    rankAll();
    constexpr std::uint32_t none = 0xFFFFFFFF;
    std::vector<std::uint32_t> byRank(list_->size(), none);
    for (const std::uint32_t place : places) {
        const std::size_t rank = ranks_.ranks[place];
        byRank[isDescending ? byRank.size() - 1 - rank : rank] = place;
    }
    std::erase(byRank, none);
    return byRank;
}

bool InvoiceTableModel::prepareRows(QDeadlineTimer end)
{
    if (sortColumn_ == date)
        readMonths(app_.invoiceManager().list());
    else
        rankAll();
    return !end.hasExpired();
}

void InvoiceTableModel::readMonths(const InvoiceList& list)
{
    const std::uint64_t revision = app_.invoiceManager().contentRevision();
    if (months_.revision == revision && months_.list == list)
        return;
    months_ = {list, revision, {}};
    months_.months.reserve(list->size());
    Timestamp begin;
    Timestamp end;
    std::int32_t month = 0;
    for (const InvoicePtr& record : *list) {
        const Timestamp moment = (*record)->date;
        if (months_.months.empty() || moment < begin || moment >= end) {
            const QDate day = moment.localDate();
            const QDate first(day.year(), day.month(), 1);
            begin = Timestamp::fromDateTime(first.startOfDay());
            end = Timestamp::fromDateTime(first.addMonths(1).startOfDay());
            month = day.year() * 12 + day.month();
        }
        months_.months.push_back(month);
    }
}

void InvoiceTableModel::insertHeadings(const std::vector<std::uint32_t>& places)
{
    recordCount_ = places.size();
    headings_.clear();
    if (sortColumn_ != date) {
        rows_ = places;
        return;
    }
    readMonths(list_);
    rows_.clear();
    constexpr std::size_t monthsOfManyYears = 240;
    rows_.reserve(places.size() + monthsOfManyYears);
    for (const std::uint32_t place : places) {
        if (rows_.empty() || months_.months[place] != months_.months[rows_.back()]) {
            headings_.push_back(static_cast<int>(rows_.size()));
            rows_.push_back(headingRow);
        }
        rows_.push_back(place);
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
    return index.isValid() && !isHeading(index.row()) ? record(index.row()) : nullptr;
}

bool InvoiceTableModel::isHeading(int row) const
{
    return rows_.at(static_cast<std::size_t>(row)) == headingRow;
}

QModelIndex InvoiceTableModel::indexOf(const QUuid& id) const
{
    const InvoicePtr record = app_.invoiceManager().find(id);
    return record ? indexOf(record) : QModelIndex();
}

QModelIndex InvoiceTableModel::indexOf(const InvoicePtr& record) const
{
    const auto found = std::ranges::find_if(
        rows_, [&](std::uint32_t place) { return place != headingRow && (*list_)[place] == record; });
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
    const InvoicePtr& first = record(row + 1); // a heading has records below it
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
