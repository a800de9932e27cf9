#pragma once

#include "app/ledra_app.h"

#include <QAbstractTableModel>

#include <vector>

namespace ledra {

/// The reminders of the active profile, one a row. They are read when the model is first shown.
class ReminderTableModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column { stage, invoiceNumber, recipient, date, deadline, amount };
    static constexpr int columns = 6;

    explicit ReminderTableModel(LedraApp& app, QObject* parent = nullptr);

    /// Reads the reminders, unless that has been done.
    void open();

    ReminderPtr reminder(const QModelIndex& index) const;
    QModelIndex indexOf(const QUuid& id) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    void sort(int column, Qt::SortOrder order = Qt::AscendingOrder) override;

Q_SIGNALS:
    void reloaded(); ///< after modelReset(), when the views have followed

private:
    void reload();
    void showEdited();
    std::vector<ReminderPtr> ordered() const;
    InvoicePtr invoiceOf(const Reminder& reminder) const;
    QDate deadlineOf(const Reminder& reminder) const;
    QString text(const Reminder& reminder, int column) const;
    bool isUnheard(const Reminder& reminder) const;

    LedraApp& app_;
    bool isOpen_ = false;
    std::vector<ReminderPtr> rows_;
    int sortColumn_ = date;
    Qt::SortOrder sortOrder_ = Qt::DescendingOrder;
};

} // namespace ledra
