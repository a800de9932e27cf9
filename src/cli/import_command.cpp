#include "cli/import_command.h"

#include "cli/record_command.h"

namespace ledra {

namespace {

constexpr CommandSpec importSpec = {"import",
                                    "FILE.pdf|FILE.xml…",
                                    "Take in exported PDFs and e-invoices; prints the ids of the records.",
                                    {},
                                    false};

/// Imports one file; what goes wrong has been said.
bool importOne(const QString& path, Session& session, const CommandArguments& arguments)
{
    const JobResult<ImportedInvoice> imported = session.app().jobs().importFile(path);
    if (!imported) {
        if (!imported.error().isReported)
            sayFailure(path + QStringLiteral(": ") + imported.error().text);
        return false;
    }
    const Currency& currency = (*imported->record)->currency;
    for (const StatedDifference& difference : imported->differences)
        sayFailure(path + QStringLiteral(": the document states another total: ") +
                   statedText(difference, currency, Language::english));
    tellRecord(session, imported->record, arguments, true);
    return true;
}

} // namespace

const CommandSpec& ImportCommand::spec() const
{
    return importSpec;
}

ExitCode ImportCommand::run(const CommandArguments& arguments)
{
    const QStringList paths = arguments.positional();
    if (paths.isEmpty())
        return wrongUsage(spec(), QStringLiteral("which files? Give PDFs or XML files"));
    const auto session = Session::start(arguments);
    if (!session)
        return session.error();
    ExitCode code = ExitCode::done;
    for (const QString& path : paths) {
        if (!importOne(path, **session, arguments))
            code = ExitCode::failed;
    }
    return code;
}

} // namespace ledra
