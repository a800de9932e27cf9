#include "cli/reminder_command.h"

#include "app/export_sources.h"
#include "app/invoice_list.h"
#include "app/record_lookup.h"
#include "app/reminder_summary.h"
#include "cli/assignments.h"
#include "cli/export_run.h"
#include "cli/json_output.h"
#include "cli/record_command.h"
#include "cli/text_table.h"
#include "model/amount_text.h"
#include "model/displayed_number.h"
#include "store/reminder_json.h"

namespace ledra {

namespace {

constexpr std::array options = {
    OptionSpec{"set", "", "KEY=VALUE", "create: set a field of the new reminder; again for each field."},
    OptionSpec{"format", "", "pdf|html", "export: the form of the letters; pdf unless said otherwise."},
    OptionSpec{"output", "o", "FILE|FOLDER",
               "export: where to write; the current folder unless said otherwise, - for stdout."},
    OptionSpec{"force", "", "",
               "create: remind of an invoice that is not sent. export: overwrite existing files."},
};

constexpr CommandSpec reminderSpec = {
    "reminder",
    "list [ID…] | create ID | set R KEY=VALUE… | text R | export R… | delete R\n\n"
    "R is a reminder's id, INVOICE:STAGE such as 2026-042:1, or an invoice for its latest reminder.",
    "Remind of invoices that have not been paid.", options, false};

QStringList fixedReminderKeys()
{
    return {QStringLiteral("version"), QStringLiteral("id"), QStringLiteral("invoiceId")};
}

InvoicePtr invoiceOf(Session& session, const ReminderPtr& reminder)
{
    return session.app().invoiceManager().find((*reminder)->invoiceId);
}

ReminderSummary summaryOf(Session& session, const ReminderPtr& reminder)
{
    const InvoicePtr invoice = invoiceOf(session, reminder); // the store keeps it
    return {**reminder, invoice ? &**invoice : nullptr, session.profile(),
            session.app().settings().number("paymentDeadlineDays")};
}

std::expected<ReminderPtr, QString> lookUp(Session& session, const QString& text)
{
    LedraApp& app = session.app();
    return lookUpReminder(app.reminderManager(), app.invoiceManager(), app.profileManager(), text);
}

/// The reminders of the named invoices, or all.
std::expected<std::vector<ReminderPtr>, QString> listed(Session& session, const QStringList& names)
{
    LedraApp& app = session.app();
    if (names.isEmpty())
        return app.reminderManager().reminders();
    std::vector<ReminderPtr> reminders;
    for (const QString& name : names) {
        const auto invoice = lookUpInvoice(app.invoiceManager(), app.profileManager(), name);
        if (!invoice)
            return std::unexpected(invoice.error());
        std::ranges::copy(app.reminderManager().remindersOf((**invoice)->id), std::back_inserter(reminders));
    }
    return reminders;
}

ExitCode list(Session& session, const QStringList& operands, const CommandArguments& arguments)
{
    const auto reminders = listed(session, operands);
    if (!reminders)
        return failed(reminders.error());
    std::vector<ReminderSummary> summaries;
    std::vector<QStringList> rows;
    for (const ReminderPtr& reminder : *reminders) {
        const ReminderSummary& summary = summaries.emplace_back(summaryOf(session, reminder));
        const Invoice* invoice = summary.invoice;
        rows.push_back(
            {invoice ? displayedNumber(*invoice, session.profile()) : QStringLiteral("(deleted invoice)"),
             QString::number((*reminder)->number), dayText((*reminder)->date),
             reminderHeadline((*reminder)->number), invoice ? recipientName(*invoice) : QString(),
             invoice ? amountText(invoice->total(), invoice->currency, Language::english) : QString()});
    }
    if (arguments.has("json"))
        writeJson(summaries);
    else
        writeOutput(textTable(
            rows, {Align::left, Align::right, Align::left, Align::left, Align::left, Align::right}));
    return ExitCode::done;
}

void tell(Session& session, const ReminderPtr& reminder, const CommandArguments& arguments, bool isNew)
{
    if (arguments.has("json"))
        writeJson(summaryOf(session, reminder));
    else if (isNew && !arguments.has("quiet"))
        writeOutput(idText((*reminder)->id) + u'\n');
}

ExitCode create(Session& session, const QStringList& operands, const CommandArguments& arguments)
{
    LedraApp& app = session.app();
    const auto assignments = assignmentsFrom(arguments.values("set"), fixedReminderKeys());
    if (!assignments)
        return wrongUsage(reminderSpec, assignments.error());
    Reminder trial;
    if (const Assigned assigned = applyAll(trial, *assignments, Session::reading()); !assigned)
        return failed(assigned.error());
    const auto invoice = lookUpInvoice(app.invoiceManager(), app.profileManager(), operands.front());
    if (!invoice)
        return failed(invoice.error());
    const auto reminder =
        app.reminderJobs().create((**invoice)->id, forceFrom(arguments), [&](Reminder& fresh) {
            (void)applyAll(fresh, *assignments, Session::reading());
        }); // tried above
    if (!reminder)
        return failed(reminder.error());
    tell(session, *reminder, arguments, true);
    return ExitCode::done;
}

ExitCode set(Session& session, const QStringList& operands, const CommandArguments& arguments)
{
    const auto assignments = assignmentsFrom(operands.mid(1), fixedReminderKeys());
    if (!assignments)
        return wrongUsage(reminderSpec, assignments.error());
    const auto reminder = lookUp(session, operands.front());
    if (!reminder)
        return failed(reminder.error());
    Reminder trial = ***reminder;
    if (const Assigned assigned = applyAll(trial, *assignments, Session::reading()); !assigned)
        return failed(assigned.error());
    const auto done = session.app().reminderJobs().edit((**reminder)->id, [&](Reminder& changed) {
        (void)applyAll(changed, *assignments, Session::reading()); // tried above
    });
    if (!done)
        return failed(done.error());
    tell(session, *reminder, arguments, false);
    return ExitCode::done;
}

/// The letter's text as the recipient reads it.
ExitCode text(Session& session, const QStringList& operands, const CommandArguments&)
{
    const auto reminder = lookUp(session, operands.front());
    if (!reminder)
        return failed(reminder.error());
    const InvoicePtr invoice = invoiceOf(session, *reminder);
    if (!invoice)
        return failed(QStringLiteral("the invoice of this reminder has been deleted"));
    writeOutput(expandedReminderText({***reminder, **invoice, session.profile(),
                                      session.app().settings().number("paymentDeadlineDays")}) +
                u'\n');
    return ExitCode::done;
}

std::optional<QString> exportProblem(const QStringList& operands, const CommandArguments& arguments)
{
    const auto format = enumFromRawValue<ExportFormat>(arguments.value("format").toStdString());
    if (arguments.has("format") && format != ExportFormat::pdf && format != ExportFormat::html)
        return QStringLiteral("reminders are written as pdf or html");
    if (arguments.value("output") == standardStream && (operands.size() > 1 || arguments.has("json")))
        return QStringLiteral("only one letter can go to the standard output, and without --json");
    return std::nullopt;
}

ExitCode exportLetters(Session& session, const QStringList& operands, const CommandArguments& arguments)
{
    if (const auto problem = exportProblem(operands, arguments))
        return wrongUsage(reminderSpec, *problem);
    std::vector<ReminderPtr> reminders;
    bool hasMissing = false;
    for (const QString& name : operands) {
        const auto reminder = lookUp(session, name);
        if (reminder && invoiceOf(session, *reminder))
            reminders.push_back(*reminder);
        else
            hasMissing = failed(reminder ? name + QStringLiteral(": its invoice has been deleted")
                                         : reminder.error()) == ExitCode::failed;
    }
    if (reminders.empty())
        return ExitCode::failed;
    const ExitCode code = runExport(reminderSources(reminders, session.app()),
                                    static_cast<std::size_t>(operands.size()), arguments, session.console());
    return hasMissing ? ExitCode::failed : code;
}

ExitCode remove(Session& session, const QStringList& operands, const CommandArguments&)
{
    const auto reminder = lookUp(session, operands.front());
    if (!reminder)
        return failed(reminder.error());
    const auto done = session.app().reminderJobs().remove((**reminder)->id);
    return done ? ExitCode::done : failed(done.error());
}

constexpr std::array verbs = {
    Verb{"list", 0, anyNumber, list}, Verb{"create", 1, 1, create},
    Verb{"set", 2, anyNumber, set},   Verb{"text", 1, 1, text},
    Verb{"delete", 1, 1, remove},     Verb{"export", 1, anyNumber, exportLetters, true},
};

} // namespace

ReminderCommand::ReminderCommand() : GroupCommand(reminderSpec, verbs, Session::Needs::invoices) {}

} // namespace ledra
