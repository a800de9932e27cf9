#include "ui/reminders/reminder_panel.h"

#include "ui/look/empty_state.h"
#include "ui/look/icons.h"
#include "ui/reminders/reminder_actions.h"
#include "ui/reminders/reminder_export.h"

#include <QAction>
#include <QVBoxLayout>

namespace ledra {

ReminderPanel::ReminderPanel(const WindowParts& parts, QWidget* parent)
    : QWidget(parent),
      parts_(parts),
      model_(new ReminderTableModel(parts.app, this)),
      list_(new ReminderListView(*model_, this)),
      empty_(new EmptyState(this)),
      stack_(new QStackedWidget(this)),
      menu_(new QMenu(this))
{
    empty_->setContent("reminder", tr("No reminders yet"),
                       tr("Choose a sent invoice that is overdue, then “Create Payment Reminder”. The letter "
                          "is written for you, and you can change every word of it."));
    stack_->addWidget(list_);
    stack_->addWidget(empty_);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(stack_);
    setMinimumWidth(300);
    addActions();
    connect(model_, &ReminderTableModel::reloaded, this, &ReminderPanel::showListOrHint);
    connect(list_, &ReminderListView::chosenChanged, this, [this] {
        updateActions();
        Q_EMIT chosenChanged();
    });
    connect(list_, &ReminderListView::opened, this, &ReminderPanel::editWanted);
    connect(list_, &QWidget::customContextMenuRequested, this, [this](const QPoint& place) {
        if (!selected().empty())
            menu_->popup(list_->viewport()->mapToGlobal(place));
    });
    updateActions();
    showListOrHint();
}

QAction* ReminderPanel::add(const char* icon, const QString& text, void (ReminderPanel::*run)())
{
    QAction* action = menu_->addAction(lineIcon(icon), text);
    connect(action, &QAction::triggered, this, run);
    return action;
}

void ReminderPanel::addActions()
{
    edit_ = add("edit", tr("Edit"), &ReminderPanel::editWanted);
    showInvoice_ = add("new-invoice", tr("Show Invoice"), &ReminderPanel::showInvoice);
    menu_->addSeparator();
    export_ = add("export", tr("Export as PDF…"), &ReminderPanel::exportSelected);
    menu_->addSeparator();
    remove_ = add("delete", tr("Delete"), &ReminderPanel::removeSelected);
    remove_->setShortcuts({QKeySequence(Qt::Key_Delete), QKeySequence(Qt::CTRL | Qt::Key_Backspace)});
    remove_->setShortcutContext(Qt::WidgetShortcut);
    list_->addAction(remove_);
}

void ReminderPanel::updateActions()
{
    const std::vector<ReminderPtr> reminders = selected();
    const auto hasInvoice = [this](const ReminderPtr& reminder) {
        return parts_.app.invoiceManager().find((*reminder)->invoiceId) != nullptr;
    };
    edit_->setEnabled(reminders.size() == 1);
    showInvoice_->setEnabled(reminders.size() == 1 && hasInvoice(reminders.front()));
    export_->setEnabled(std::ranges::any_of(reminders, hasInvoice));
    remove_->setEnabled(!reminders.empty());
}

void ReminderPanel::showEvent(QShowEvent* event)
{
    model_->open();
    QWidget::showEvent(event);
}

void ReminderPanel::showListOrHint()
{
    stack_->setCurrentWidget(model_->rowCount() > 0 ? static_cast<QWidget*>(list_) : empty_);
}

void ReminderPanel::reveal(const QUuid& id)
{
    model_->open();
    list_->reveal(id);
}

void ReminderPanel::showInvoice()
{
    if (const std::vector<ReminderPtr> reminders = selected(); !reminders.empty())
        Q_EMIT showInvoiceWanted((*reminders.front())->invoiceId);
}

void ReminderPanel::exportSelected()
{
    exportReminders(parts_, selected());
}

void ReminderPanel::removeSelected()
{
    removeReminders(parts_, selected());
}

} // namespace ledra
