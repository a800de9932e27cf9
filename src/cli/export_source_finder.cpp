#include "cli/export_source_finder.h"

#include "app/record_lookup.h"
#include "cli/list_options.h"

namespace ledra {

bool choosesAll(const CommandArguments& arguments)
{
    return arguments.has("all") || hasFilter(arguments);
}

std::expected<std::vector<ExportSource>, ExitCode> ExportSourceFinder::find(const QStringList& arguments)
{
    QStringList paths;
    QStringList names;
    for (const QString& argument : arguments)
        (namesFile(argument) ? paths : names) += argument;
    auto sources = paths.isEmpty() ? std::vector<ExportSource>() : fromFiles(paths);
    if (!sources || (names.isEmpty() && !choosesAll(arguments_)))
        return sources;
    auto records = fromRecords(names);
    if (!records)
        return records;
    std::ranges::move(*records, std::back_inserter(*sources));
    return sources;
}

std::expected<std::vector<ExportSource>, ExitCode> ExportSourceFinder::fromFiles(const QStringList& paths)
{
    std::expected<Profile, QString> profile = files_.defaultProfile();
    if (arguments_.has("profile-file"))
        profile = files_.profile(arguments_.value("profile-file"));
    std::expected<Styling, QString> styling = files_.defaultStyling();
    if (arguments_.has("styling"))
        styling = files_.styling(arguments_.value("styling"));
    if (!profile || !styling)
        return std::unexpected(failed(profile ? styling.error() : profile.error()));
    return fileSources(paths, files_, *profile, *styling);
}

std::expected<std::vector<ExportSource>, ExitCode> ExportSourceFinder::fromRecords(const QStringList& names)
{
    auto session = Session::start(arguments_);
    if (!session)
        return std::unexpected(session.error());
    session_ = std::move(*session);
    LedraApp& app = session_->app();
    std::vector<InvoicePtr> records;
    if (choosesAll(arguments_))
        records =
            app.filterManager().filtered(filterFrom(arguments_).value()); // usageProblem() has looked at it
    for (const QString& name : names) {
        if (const auto record = lookUpInvoice(app.invoiceManager(), app.profileManager(), name))
            records.push_back(*record);
        else
            hasMissing_ = failed(record.error()) == ExitCode::failed;
    }
    std::vector<ExportSource> sources = recordSources(records, app);
    auto styled = withOwnStyling(std::move(sources));
    if (!styled)
        return std::unexpected(failed(styled.error()));
    return *styled;
}

/// With --styling the records are shown in that one.
std::expected<std::vector<ExportSource>, QString>
ExportSourceFinder::withOwnStyling(std::vector<ExportSource> sources)
{
    if (!arguments_.has("styling") || sources.empty())
        return sources;
    const auto styling = files_.styling(arguments_.value("styling"));
    if (!styling)
        return std::unexpected(styling.error());
    const auto setting = std::make_shared<DocumentSetting>(*sources.front().setting);
    setting->styling = *styling;
    for (ExportSource& source : sources)
        source.setting = setting;
    return sources;
}

} // namespace ledra
