#include "ui/reminders/reminder_actions.h"

#include "render/reminder_document.h"

#include <QCoreApplication>
#include <QMessageBox>
#include <QPushButton>

namespace ledra {

namespace {

struct Reminders
{
    Q_DECLARE_TR_FUNCTIONS(Reminders)
};

// In the order of Status; a sent invoice is reminded of without a question.
constexpr std::array reasons = {
    QT_TRANSLATE_NOOP("Reminders", "It is a draft: nobody has been asked to pay it."),
    "",
    QT_TRANSLATE_NOOP("Reminders", "It has been paid."),
    QT_TRANSLATE_NOOP("Reminders", "It has been cancelled."),
};

bool mayRemind(const WindowParts& parts, Status status)
{
    QMessageBox question(QMessageBox::Question, Reminders::tr("Create Payment Reminder"),
                         Reminders::tr("This invoice is not overdue."), QMessageBox::NoButton, &parts.window);
    question.setInformativeText(Reminders::tr(reasons.at(static_cast<std::size_t>(status))));
    const QPushButton* create = question.addButton(Reminders::tr("Create Anyway"), QMessageBox::AcceptRole);
    question.setDefaultButton(question.addButton(QMessageBox::Cancel));
    question.exec();
    return question.clickedButton() == create;
}

} // namespace

void createReminder(const WindowParts& parts, const QUuid& invoiceId,
                    const std::function<void(const ReminderPtr&)>& show)
{
    UndoableReminderJobs jobs = parts.app.undoableReminderJobs();
    JobResult<ReminderPtr> made = jobs.create(invoiceId, Force::no);
    if (!made && made.error().kind == JobFailure::Kind::guarded) {
        const InvoicePtr invoice = parts.app.invoiceManager().find(invoiceId);
        if (!invoice || !mayRemind(parts, (*invoice)->status))
            return;
        made = jobs.create(invoiceId, Force::yes);
    }
    if (parts.succeeded(made))
        show(*made);
}

void removeReminders(const WindowParts& parts, const std::vector<ReminderPtr>& reminders)
{
    if (reminders.empty())
        return;
    QUndoStack& stack = parts.app.undoStack();
    const bool areSeveral = reminders.size() > 1;
    if (areSeveral)
        stack.beginMacro(Reminders::tr("Delete Reminders"));
    for (const ReminderPtr& reminder : reminders)
        (void)parts.succeeded(parts.app.undoableReminderJobs().remove((*reminder)->id));
    if (areSeveral)
        stack.endMacro();
}

std::shared_ptr<const PaginatedDocument> reminderLetter(const WindowParts& parts, const ReminderPtr& reminder)
{
    const InvoicePtr invoice = parts.app.invoiceManager().find((*reminder)->invoiceId);
    if (!invoice)
        return nullptr;
    parts.fonts.loadFor(**parts.app.stylingManager().styling());
    return std::make_shared<const ReminderDocument>(**reminder, **invoice, parts.app.documentSetting(),
                                                    parts.fonts);
}

} // namespace ledra
