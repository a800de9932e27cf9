#include "cli/extract_command.h"

#include "app/extraction_jobs.h"
#include "cli/json_output.h"
#include "cli/record_command.h"
#include "cli/text_table.h"
#include "platform/interruption.h"

#include <QEventLoop>

#include <unistd.h>

#include <array>
#include <cstdio>

namespace ledra {

namespace {

constexpr std::array options = {
    OptionSpec{"create", "", "", "Make a draft invoice of it; prints its id."},
};

constexpr CommandSpec extractSpec = {
    "extract", "TEXT|-", "Find the fields of an invoice in a text, with a model on this computer.", options,
    false};

std::expected<QString, QString> textFrom(const QString& argument)
{
    if (argument != standardStream)
        return argument;
    return textOfFile(argument);
}

/// Shows on a terminal that something is going on.
class Progress
{
public:
    explicit Progress(const CommandArguments& arguments)
        : isShown_(::isatty(STDERR_FILENO) == 1 && !arguments.has("quiet"))
    {}
    ~Progress() { show(QString()); }
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    void show(const QString& text) const
    {
        if (isShown_)
            std::fprintf(stderr, "\r\033[K%s", text.toUtf8().constData());
    }

private:
    bool isShown_;
};

/// What one run of the command is about.
struct Order
{
    QString text;
    const CommandArguments& arguments;
    const Interruption interruption = {}; // made first: the session and the network start threads
};

/// Asks the model and waits for its answer.
TextParser::Extraction extracted(const Order& order, const Settings& settings, IdSource& ids)
{
    const Progress progress(order.arguments);
    TextParser parser(textParserSetting(settings), ids);
    TextParser::Extraction result = std::unexpected(QStringLiteral("interrupted"));
    QEventLoop loop;
    QObject::connect(&parser, &TextParser::finished, &loop, [&](const TextParser::Extraction& extraction) {
        result = extraction;
        loop.quit();
    });
    QObject::connect(&parser, &TextParser::arrived, &loop, [&](const PartialInvoice& partial) {
        progress.show(QStringLiteral("%1 fields …").arg(extractedTexts(partial.fields).size()));
    });
    QObject::connect(&order.interruption, &Interruption::requested, &loop, [&] {
        parser.cancel();
        loop.quit();
    });
    progress.show(QStringLiteral("The model is reading …"));
    parser.extract(order.text);
    loop.exec();
    return result;
}

void print(const ExtractedInvoice& invoice, const CommandArguments& arguments)
{
    if (arguments.has("json"))
        return writeJson(invoice);
    std::vector<QStringList> rows;
    for (const ExtractedText& field : extractedTexts(invoice))
        rows.push_back({field.path, field.text});
    writeOutput(textTable(rows, {Align::left, Align::left}));
}

ExitCode show(const Order& order)
{
    FileUserDefaults defaults;
    const Settings settings(defaults);
    RandomIdSource ids;
    const TextParser::Extraction extraction = extracted(order, settings, ids);
    if (!extraction)
        return failed(extraction.error());
    print(*extraction, order.arguments);
    return ExitCode::done;
}

ExitCode create(const Order& order)
{
    const auto session = Session::start(order.arguments);
    if (!session)
        return session.error();
    LedraApp& app = (*session)->app();
    if (const std::optional<JobFailure> problem = app.jobs().writeProblem()) // before anybody waits
        return failed(*problem);
    const TextParser::Extraction extraction = extracted(order, app.settings(), app.ids());
    if (!extraction)
        return failed(extraction.error());
    if (*extraction == ExtractedInvoice())
        return failed(QStringLiteral("nothing was found in the text"));
    std::vector<UnusedText> unused;
    const JobResult<InvoicePtr> made = app.jobs().create(InvoiceType::invoice, [&](Invoice& invoice) {
        unused = apply(*extraction, invoice, {(*session)->profile(), app.ids()});
    });
    if (!made)
        return failed(made.error());
    tellRecord(**session, *made, order.arguments, true);
    for (const UnusedText& each : unused)
        sayFailure(each.line());
    return ExitCode::done;
}

} // namespace

const CommandSpec& ExtractCommand::spec() const
{
    return extractSpec;
}

ExitCode ExtractCommand::run(const CommandArguments& arguments)
{
    if (arguments.positional().size() != 1)
        return wrongUsage(spec(), QStringLiteral("exactly one text is needed, or - for the standard input"));
    const std::expected<QString, QString> text = textFrom(arguments.positional().front());
    if (!text)
        return failed(text.error());
    if (text->trimmed().isEmpty())
        return wrongUsage(spec(), QStringLiteral("the text is empty"));
    const Order order{*text, arguments};
    return arguments.has("create") ? create(order) : show(order);
}

} // namespace ledra
