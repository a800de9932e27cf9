#include "ui/reminders/reminder_desk.h"

#include "ui/list/side_bar.h"
#include "ui/preview/preview_panel.h"
#include "ui/reminders/invoice_reminders_bar.h"
#include "ui/reminders/reminder_actions.h"
#include "ui/reminders/reminder_editor.h"
#include "ui/reminders/reminder_list_view.h"
#include "ui/reminders/reminder_panel.h"
#include "ui/reminders/reminder_table_model.h"

namespace ledra {

ReminderDesk::ReminderDesk(const WindowParts& parts, SideBar& sideBar, PreviewPanel& preview)
    : QObject(&parts.window),
      parts_(parts),
      sideBar_(sideBar),
      preview_(preview),
      panel_(new ReminderPanel(parts)),
      editor_(new ReminderEditor(parts)),
      bar_(new InvoiceRemindersBar(parts.app))
{
    editor_->hide();
    connect(&sideBar, &SideBar::remindersPicked, this, [this] { show(true); });
    connect(&sideBar, &SideBar::recordsPicked, this, [this] { show(false); });
    connect(panel_, &ReminderPanel::chosenChanged, this, &ReminderDesk::showSelected);
    connect(panel_, &ReminderPanel::editWanted, editor_, qOverload<>(&QWidget::setFocus));
    connect(panel_, &ReminderPanel::showInvoiceWanted, this, [this](const QUuid& id) {
        sideBar_.showAll();
        Q_EMIT invoiceWanted(id);
    });
    connect(editor_, &ReminderEditor::changed, this, [this] { showLetter(false); });
    connect(bar_, &InvoiceRemindersBar::createWanted, this, &ReminderDesk::remind);
    connect(bar_, &InvoiceRemindersBar::reminderPicked, this, &ReminderDesk::reveal);
}

void ReminderDesk::show(bool isShown)
{
    if (isShown_ == isShown)
        return;
    isShown_ = isShown;
    Q_EMIT shownChanged(isShown);
    if (!isShown_) {
        editor_->hide();
        return;
    }
    if (panel_->selected().empty() && panel_->model().rowCount() > 0)
        panel_->list().selectRow(0);
    showSelected();
}

void ReminderDesk::showSelected()
{
    if (!isShown_)
        return;
    bar_->setInvoice(nullptr);
    const std::vector<ReminderPtr> chosen = panel_->selected();
    const ReminderPtr one = chosen.size() == 1 ? chosen.front() : nullptr;
    const bool isOther = one != editor_->reminder();
    editor_->setVisible(one != nullptr);
    editor_->setReminder(one);
    showLetter(isOther);
}

void ReminderDesk::showLetter(bool isOther)
{
    if (!isShown_)
        return;
    const ReminderPtr& reminder = editor_->reminder();
    if (!reminder)
        preview_.showHint(tr("No reminder selected"));
    else if (auto letter = reminderLetter(parts_, reminder))
        preview_.show(std::move(letter), isOther);
    else
        preview_.showHint(tr("The invoice has been deleted."), tr("Without it there is no letter."));
}

void ReminderDesk::remind(const QUuid& invoiceId)
{
    createReminder(parts_, invoiceId, [this](const ReminderPtr& made) { reveal((*made)->id); });
}

void ReminderDesk::reveal(const QUuid& reminderId)
{
    sideBar_.showReminders();
    panel_->reveal(reminderId);
}

} // namespace ledra
