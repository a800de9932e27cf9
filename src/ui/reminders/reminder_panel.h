#pragma once

#include "ui/reminders/reminder_list_view.h"
#include "ui/window_parts.h"

#include <QMenu>
#include <QStackedWidget>

namespace ledra {

class EmptyState;

/// The middle of the window where reminders are chosen: their list, or what to do where there are none.
class ReminderPanel : public QWidget
{
    Q_OBJECT

public:
    explicit ReminderPanel(const WindowParts& parts, QWidget* parent = nullptr);

    ReminderListView& list() { return *list_; }
    ReminderTableModel& model() { return *model_; }

    /// The chosen reminders, in the order of the list.
    std::vector<ReminderPtr> selected() const { return list_->selected(); }

    /// Chooses a reminder, which may have been made just now.
    void reveal(const QUuid& id);

    void exportSelected();
    void removeSelected();

Q_SIGNALS:
    void chosenChanged();
    void editWanted();
    void showInvoiceWanted(const QUuid& invoiceId);

protected:
    void showEvent(QShowEvent* event) override;

private:
    void addActions();
    QAction* add(const char* icon, const QString& text, void (ReminderPanel::*run)());
    void updateActions();
    void showListOrHint();
    void showInvoice();

    const WindowParts& parts_;
    ReminderTableModel* model_;
    ReminderListView* list_;
    EmptyState* empty_;
    QStackedWidget* stack_;
    QMenu* menu_;
    QAction* edit_ = nullptr;
    QAction* export_ = nullptr;
    QAction* remove_ = nullptr;
    QAction* showInvoice_ = nullptr;
};

} // namespace ledra
