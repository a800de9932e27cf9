#include "cli/export_command.h"

#include "app/export_batch.h"
#include "model/region.h"
#include "render/qt_web_engine.h"

#include <QDir>
#include <QEventLoop>
#include <QFileInfo>

#include <unistd.h>

#include <cstdio>

namespace ledra {

namespace {

constexpr std::array options = {
    OptionSpec{"format", "", "pdf|html", "The form of the documents; pdf unless said otherwise."},
    OptionSpec{"output", "o", "FILE|FOLDER",
               "Where to write; the current folder unless said otherwise, - for stdout."},
    OptionSpec{"styling", "", "FILE", "A styling.json; logo and style sheet beside it are taken too."},
    OptionSpec{"profile-file", "", "FILE", "A profile.json for what the invoices themselves leave open."},
    OptionSpec{"force", "", "", "Overwrite existing files."},
};

constexpr CommandSpec exportSpec = {"export", "FILE.json…",
                                    "Write invoices, quotes and cancellations as documents.", options, true};

/// Tells on the terminal how a batch goes.
class TerminalReport final : public ExportObserver
{
public:
    TerminalReport(std::size_t total, bool quiet)
        : total_(total), quiet_(quiet), showsProgress_(!quiet && total > 1 && ::isatty(STDERR_FILENO) == 1)
    {}

    void written(const QString&, const QString& target) override
    {
        if (!quiet_ && target != u"-")
            line([&] { writeOutput(target + u'\n'); });
        advance();
    }

    void warned(const QString& text) override
    {
        line([&] { sayFailure(text); });
    }

    void failed(const QString& text) override
    {
        line([&] { sayFailure(text); });
        advance();
    }

    void content(const QByteArray& bytes) override { writeOutput(bytes); }

private:
    template <class Write>
    void line(Write write)
    {
        if (showsProgress_)
            std::fputs("\r\033[K", stderr); // the progress makes room
        write();
    }

    void advance()
    {
        ++done_;
        if (showsProgress_ && done_ < total_)
            std::fprintf(stderr, "\r\033[K%zu of %zu", done_, total_);
    }

    std::size_t total_;
    std::size_t done_ = 0;
    bool quiet_;
    bool showsProgress_;
};

/// Makes the folder that several documents go into; says why it cannot.
std::optional<QString> prepareFolder(const QString& target)
{
    const QFileInfo info(target);
    if (info.exists() && !info.isDir())
        return target + QStringLiteral(": not a folder");
    if (!QDir().mkpath(target))
        return target + QStringLiteral(": the folder cannot be made");
    if (::access(target.toLocal8Bit().constData(), W_OK) != 0)
        return target + QStringLiteral(": the folder cannot be written to");
    return std::nullopt;
}

bool namesFolder(const QString& target, std::size_t documents)
{
    return documents > 1 || target.endsWith(u'/') || QFileInfo(target).isDir();
}

/// What the arguments order; the error is one line.
std::expected<ExportOrder, QString> orderOf(const CommandArguments& arguments, BareFiles& files)
{
    ExportOrder order;
    const QStringList positional = arguments.positional();
    order.files.assign(positional.begin(), positional.end());
    order.overwrite = arguments.has("force") ? Overwrite::replace : Overwrite::refuse;
    order.target = arguments.has("output") ? arguments.value("output") : QStringLiteral(".");
    order.format =
        enumFromRawValue<ExportFormat>(arguments.value("format").toStdString()).value_or(order.format);

    std::expected<Styling, QString> styling = files.defaultStyling();
    if (arguments.has("styling"))
        styling = files.styling(arguments.value("styling"));
    if (!styling)
        return std::unexpected(styling.error());
    order.styling = *styling;

    std::expected<Profile, QString> profile = files.defaultProfile();
    if (arguments.has("profile-file"))
        profile = files.profile(arguments.value("profile-file"));
    if (!profile)
        return std::unexpected(profile.error());
    order.profile = *profile;
    return order;
}

std::optional<QString> usageProblem(const CommandArguments& arguments)
{
    const auto count = arguments.positional().size();
    if (count == 0)
        return QStringLiteral("no file given");
    if (arguments.has("format") && !enumFromRawValue<ExportFormat>(arguments.value("format").toStdString()))
        return QStringLiteral("unknown format \"%1\"").arg(arguments.value("format"));
    if (arguments.value("output") == u"-" && count > 1)
        return QStringLiteral("only one document can go to the standard output");
    return std::nullopt;
}

ExitCode runBatch(ExportOrder order, BareFiles& files, Console& console, bool quiet)
{
    TerminalReport report(order.files.size(), quiet);
    QtWebEngine engine;
    WebFontManager fonts;
    ExportBatch batch(std::move(order), files, engine, fonts, console, report);
    QEventLoop loop;
    QObject::connect(&batch, &ExportBatch::finished, &loop, &QEventLoop::quit);
    batch.start();
    loop.exec();
    return batch.hasFailures() ? ExitCode::failed : ExitCode::done;
}

} // namespace

const CommandSpec& ExportCommand::spec() const
{
    return exportSpec;
}

ExitCode ExportCommand::run(const CommandArguments& arguments)
{
    if (const std::optional<QString> problem = usageProblem(arguments))
        return wrongUsage(spec(), *problem);

    CommandConsole console(arguments.has("verbose") ? CommandConsole::Verbosity::verbose
                                                    : CommandConsole::Verbosity::normal);
    const SystemClock clock;
    RandomIdSource ids;
    BareFiles files(clock, ids, systemRegion(), console);
    const std::expected<ExportOrder, QString> order = orderOf(arguments, files);
    if (!order) {
        sayFailure(order.error());
        return ExitCode::failed;
    }
    if (order->target != u"-" && namesFolder(order->target, order->files.size())) {
        if (const std::optional<QString> problem = prepareFolder(order->target)) {
            sayFailure(*problem);
            return ExitCode::failed;
        }
    }
    return runBatch(*order, files, console, arguments.has("quiet"));
}

} // namespace ledra
