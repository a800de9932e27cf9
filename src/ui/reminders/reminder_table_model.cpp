#include "ui/reminders/reminder_table_model.h"

#include "app/invoice_list.h"
#include "app/reader_language.h"
#include "model/amount_text.h"
#include "model/displayed_number.h"
#include "ui/look/status_colors.h"
#include "ui/reminders/reminder_words.h"

#include <QCollator>
#include <QLocale>

namespace ledra {

namespace {

constexpr std::array<const char*, ReminderTableModel::columns> titles = {
    QT_TRANSLATE_NOOP("ledra::ReminderTableModel", "Reminder"),
    QT_TRANSLATE_NOOP("ledra::ReminderTableModel", "Invoice"),
    QT_TRANSLATE_NOOP("ledra::ReminderTableModel", "Recipient"),
    QT_TRANSLATE_NOOP("ledra::ReminderTableModel", "Date"),
    QT_TRANSLATE_NOOP("ledra::ReminderTableModel", "Pay by"),
    QT_TRANSLATE_NOOP("ledra::ReminderTableModel", "To pay"),
};

constexpr std::array<const char*, ReminderTableModel::columns> explanations = {
    QT_TRANSLATE_NOOP("ledra::ReminderTableModel", "Stage of the reminder"),
    QT_TRANSLATE_NOOP("ledra::ReminderTableModel", "Number of the invoice"),
    "",
    QT_TRANSLATE_NOOP("ledra::ReminderTableModel", "Date of the reminder"),
    QT_TRANSLATE_NOOP("ledra::ReminderTableModel", "Payment deadline"),
    QT_TRANSLATE_NOOP("ledra::ReminderTableModel", "Total of the invoice with interest and fee"),
};

QString dayOf(QDate day)
{
    return QLocale().toString(day, QLocale::ShortFormat);
}

Qt::Alignment alignmentOf(int column)
{
    return (column == ReminderTableModel::amount ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter;
}

/// Puts reminders in the order of a key; equal keys keep their order.
template <class Key>
void sortBy(std::vector<ReminderPtr>& reminders, bool isDescending, const Key& key)
{
    std::vector<std::pair<decltype(key(**reminders.front())), ReminderPtr>> keys;
    keys.reserve(reminders.size());
    for (const ReminderPtr& reminder : reminders)
        keys.emplace_back(key(**reminder), reminder);
    std::ranges::stable_sort(keys, [isDescending](const auto& a, const auto& b) {
        return isDescending ? b.first < a.first : a.first < b.first;
    });
    std::ranges::transform(keys, reminders.begin(), [](const auto& each) { return each.second; });
}

} // namespace

ReminderTableModel::ReminderTableModel(LedraApp& app, QObject* parent)
    : QAbstractTableModel(parent), app_(app)
{
    connect(&app.reminderManager(), &ReminderManager::refreshed, this, &ReminderTableModel::reload);
    connect(&app.invoiceManager(), &InvoiceManager::refreshed, this, &ReminderTableModel::reload);
    connect(&app.invoiceManager(), &InvoiceManager::edited, this, &ReminderTableModel::showEdited);
}

void ReminderTableModel::open()
{
    isOpen_ = true;
    reload();
}

/// Where the rows stay, as while somebody writes a letter, only their texts are shown anew.
void ReminderTableModel::reload()
{
    if (!isOpen_)
        return;
    std::vector<ReminderPtr> rows = ordered();
    if (rows == rows_ && !rows.empty()) {
        showEdited();
        return;
    }
    beginResetModel();
    rows_ = std::move(rows);
    endResetModel();
    Q_EMIT reloaded();
}

void ReminderTableModel::showEdited()
{
    if (!rows_.empty())
        Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, columns - 1));
}

void ReminderTableModel::sort(int column, Qt::SortOrder order)
{
    sortColumn_ = column;
    sortOrder_ = order;
    reload();
}

std::vector<ReminderPtr> ReminderTableModel::ordered() const
{
    std::vector<ReminderPtr> rows = app_.reminderManager().reminders();
    if (rows.empty())
        return rows;
    const bool isDescending = sortOrder_ == Qt::DescendingOrder;
    QCollator collator;
    collator.setNumericMode(true);
    switch (sortColumn_) {
    case stage:
        sortBy(rows, isDescending, [](const Reminder& each) { return each.number; });
        break;
    case invoiceNumber:
    case recipient:
        sortBy(rows, isDescending,
               [&](const Reminder& each) { return collator.sortKey(text(each, sortColumn_)); });
        break;
    case amount:
        sortBy(rows, isDescending, [&](const Reminder& each) {
            const InvoicePtr invoice = invoiceOf(each);
            return invoice ? amountToPay(each, **invoice) : 0.0;
        });
        break;
    default: // the deadline comes the same number of days after each date
        sortBy(rows, isDescending, [](const Reminder& each) { return each.date; });
    }
    return rows;
}

InvoicePtr ReminderTableModel::invoiceOf(const Reminder& reminder) const
{
    return app_.invoiceManager().find(reminder.invoiceId);
}

QDate ReminderTableModel::deadlineOf(const Reminder& reminder) const
{
    return reminder.date.addDays(app_.settings().number("paymentDeadlineDays"));
}

ReminderPtr ReminderTableModel::reminder(const QModelIndex& index) const
{
    return index.isValid() ? rows_.at(static_cast<std::size_t>(index.row())) : nullptr;
}

QModelIndex ReminderTableModel::indexOf(const QUuid& id) const
{
    const auto found =
        std::ranges::find_if(rows_, [&](const ReminderPtr& each) { return (*each)->id == id; });
    return found == rows_.end() ? QModelIndex() : index(static_cast<int>(found - rows_.begin()), 0);
}

int ReminderTableModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int ReminderTableModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : columns;
}

QString ReminderTableModel::text(const Reminder& reminder, int column) const
{
    const InvoicePtr invoice = invoiceOf(reminder); // null when it has been deleted
    switch (column) {
    case stage:
        return headlineText(reminder.number);
    case invoiceNumber:
        return invoice ? displayedNumber(**invoice, **app_.profileManager().activeProfile()) : tr("Deleted");
    case recipient:
        return invoice ? recipientName(**invoice) : QString();
    case date:
        return dayOf(reminder.date);
    case deadline:
        return dayOf(deadlineOf(reminder));
    case amount:
        return invoice ? amountText(amountToPay(reminder, **invoice), (*invoice)->currency, readerLanguage())
                       : QString();
    default:
        return {};
    }
}

/// Whether its deadline has passed without the invoice being paid.
bool ReminderTableModel::isUnheard(const Reminder& reminder) const
{
    const InvoicePtr invoice = invoiceOf(reminder);
    return invoice && (*invoice)->status == Status::sent &&
           deadlineOf(reminder) < app_.clock().now().localDate();
}

QVariant ReminderTableModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid())
        return {};
    const ReminderPtr row = reminder(index);
    const bool isLate = index.column() == deadline && isUnheard(**row);
    switch (role) {
    case Qt::DisplayRole:
        return text(**row, index.column());
    case Qt::TextAlignmentRole:
        return QVariant(alignmentOf(index.column()));
    case Qt::ForegroundRole:
        return isLate ? QVariant(warningLook().ink()) : QVariant();
    case Qt::ToolTipRole:
        return isLate ? QVariant(tr("The payment deadline has passed.")) : QVariant();
    default:
        return {};
    }
}

QVariant ReminderTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || section < 0 || section >= columns)
        return {};
    const auto place = static_cast<std::size_t>(section);
    if (role == Qt::DisplayRole)
        return tr(titles.at(place));
    if (role == Qt::ToolTipRole)
        return tr(explanations.at(place));
    return role == Qt::TextAlignmentRole ? QVariant(alignmentOf(section)) : QVariant();
}

} // namespace ledra
