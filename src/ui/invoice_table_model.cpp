#include "ui/invoice_table_model.h"

#include "app/invoice_list.h"
#include "app/reader_language.h"
#include "model/amount_text.h"
#include "model/displayed_number.h"
#include "model/document_labels.h"

#include <QLocale>

namespace ledra {

namespace {

constexpr std::array<const char*, InvoiceTableModel::columns> titles = {
    QT_TRANSLATE_NOOP("InvoiceTableModel", "Number"), QT_TRANSLATE_NOOP("InvoiceTableModel", "Recipient"),
    QT_TRANSLATE_NOOP("InvoiceTableModel", "Date"),   QT_TRANSLATE_NOOP("InvoiceTableModel", "Due"),
    QT_TRANSLATE_NOOP("InvoiceTableModel", "Total"),  QT_TRANSLATE_NOOP("InvoiceTableModel", "Status"),
};

QString dayOf(QDate day)
{
    return QLocale::system().toString(day, QLocale::ShortFormat);
}

} // namespace

InvoiceTableModel::InvoiceTableModel(LedraApp& app, QObject* parent) : QAbstractTableModel(parent), app_(app)
{
    connect(&app.invoiceManager(), &InvoiceManager::refreshed, this, &InvoiceTableModel::reload);
    connect(&app.filterManager(), &FilterManager::changed, this, &InvoiceTableModel::reload);
    reload();
}

void InvoiceTableModel::reload()
{
    beginResetModel();
    invoices_ = app_.filterManager().filtered();
    order();
    endResetModel();
}

void InvoiceTableModel::order()
{
    const Profile& profile = **app_.profileManager().activeProfile();
    const auto less = [&](const InvoicePtr& left, const InvoicePtr& right) {
        const Invoice& a = **left;
        const Invoice& b = **right;
        switch (sortColumn_) {
        case number:
            return displayedNumber(a, profile) < displayedNumber(b, profile);
        case recipient:
            return recipientName(a).localeAwareCompare(recipientName(b)) < 0;
        case due:
            return a.dueDay() < b.dueDay();
        case total:
            return a.total() < b.total();
        case status:
            return a.status < b.status;
        default:
            return a.date < b.date;
        }
    };
    if (sortOrder_ == Qt::AscendingOrder)
        std::ranges::stable_sort(invoices_, less);
    else
        std::ranges::stable_sort(invoices_, [&](const auto& a, const auto& b) { return less(b, a); });
}

void InvoiceTableModel::sort(int column, Qt::SortOrder order)
{
    sortColumn_ = column;
    sortOrder_ = order;
    reload();
}

InvoicePtr InvoiceTableModel::invoice(const QModelIndex& index) const
{
    return index.isValid() ? invoices_.at(static_cast<std::size_t>(index.row())) : nullptr;
}

QModelIndex InvoiceTableModel::indexOf(const QUuid& id) const
{
    const auto found = std::ranges::find(invoices_, id, [](const InvoicePtr& each) { return (*each)->id; });
    return found == invoices_.end() ? QModelIndex() : index(static_cast<int>(found - invoices_.begin()), 0);
}

int InvoiceTableModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(invoices_.size());
}

int InvoiceTableModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : columns;
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
        return invoice.isOverdue(app_.clock().now()) && invoice.type != InvoiceType::quote
                   ? tr("Overdue")
                   : documentLabel(displayText(invoice.status), readerLanguage());
    default:
        return {};
    }
}

QVariant InvoiceTableModel::data(const QModelIndex& index, int role) const
{
    const InvoicePtr record = invoice(index);
    if (!record)
        return {};
    if (role == Qt::DisplayRole)
        return text(**record, index.column());
    if (role == Qt::TextAlignmentRole && index.column() == total)
        return QVariant(Qt::AlignRight | Qt::AlignVCenter);
    return {};
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
