#pragma once

#include "ui/reminders/reminder_table_model.h"

#include <QTableView>

namespace ledra {

/// The list of reminders.
class ReminderListView : public QTableView
{
    Q_OBJECT

public:
    explicit ReminderListView(ReminderTableModel& model, QWidget* parent = nullptr);

    /// The chosen reminders, in the order of the list.
    std::vector<ReminderPtr> selected() const;

    /// Chooses one reminder and scrolls to it, if it is there.
    void reveal(const QUuid& id);

Q_SIGNALS:
    void chosenChanged();
    void opened(); ///< by a double click or Enter

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void followModel();
    void setUpColumns();

    ReminderTableModel& model_;
    QList<QUuid> kept_; ///< what was chosen before the list changed
    int keptRow_ = 0;
};

} // namespace ledra
