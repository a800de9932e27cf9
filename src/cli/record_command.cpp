#include "cli/record_command.h"

#include "app/invoice_summary.h"
#include "app/record_lookup.h"

namespace ledra {

std::optional<QString> RecordCommand::usageProblem(const QStringList& rest, const CommandArguments&) const
{
    return rest.isEmpty() ? std::nullopt : std::optional(QStringLiteral("exactly one record is needed"));
}

ExitCode RecordCommand::run(const CommandArguments& arguments)
{
    const QStringList positional = arguments.positional();
    if (positional.isEmpty())
        return wrongUsage(spec(), QStringLiteral("which record? Give its number or its id"));
    if (const std::optional<QString> problem = usageProblem(positional.mid(1), arguments))
        return wrongUsage(spec(), *problem);
    const auto session = Session::start(arguments);
    if (!session)
        return session.error();
    LedraApp& app = (*session)->app();
    const auto record = lookUpInvoice(app.invoiceManager(), app.profileManager(), positional.front());
    if (!record)
        return failed(record.error());
    const JobResult<InvoicePtr> result = perform(**session, *record, arguments);
    if (!result)
        return failed(result.error());
    if (*result)
        tellRecord(**session, *result, arguments, makesRecord());
    return ExitCode::done;
}

void tellRecord(Session& session, const InvoicePtr& record, const CommandArguments& arguments, bool isNew)
{
    if (arguments.has("json"))
        writeOutput(summaryJson(**record, session.profile(), session.now()));
    else if (isNew && !arguments.has("quiet"))
        writeOutput(idText((*record)->id) + u'\n');
}

Force forceFrom(const CommandArguments& arguments)
{
    return arguments.has("force") ? Force::yes : Force::no;
}

} // namespace ledra
