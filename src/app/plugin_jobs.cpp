#include "app/plugin_jobs.h"

#include "app/reader_language.h"
#include "exchange/imported_draft.h"
#include "model/displayed_number.h"
#include "platform/version.h"

#include <QCoreApplication>
#include <QSet>

namespace ledra {

namespace {

constexpr qsizetype longestNumber = 100;

std::unexpected<QString> unreadable(const DecodingError& error)
{
    return std::unexpected(QStringLiteral("the plugin returned what cannot be used: ") +
                           plainLine(error.text(), 300));
}

QString textOf(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

} // namespace

PluginJobs::PluginJobs(StoreContext& context, PluginManager& plugins, InvoiceJobs& jobs,
                       InvoiceManager& invoices, const ProfileManager& profiles)
    : context_(context), plugins_(plugins), jobs_(jobs), invoices_(invoices), profiles_(profiles)
{
    connect(&plugins, &PluginManager::updateDue, this, &PluginJobs::runDueUpdate);
}

QByteArray PluginJobs::context(const QString& plugin, const std::optional<PluginInput>& input) const
{
    QJsonObject context = {{QStringLiteral("version"), textOf(shortVersion)},
                           {QStringLiteral("profile"), profile().displayName()},
                           {QStringLiteral("language"), textOf(rawValue(readerLanguage()))},
                           {QStringLiteral("settings"), plugins_.settings(plugin)}};
    if (input)
        context[QStringLiteral("input")] = inputObject(input->fileName, input->content);
    return jsonText(context);
}

QString PluginJobs::nameOf(const QString& plugin) const
{
    const Plugin* found = plugins_.find(plugin);
    return found ? found->manifest.name : plugin;
}

// ---- out

PluginTicket PluginJobs::runExport(const QString& plugin, const char* operation, const QByteArray& records,
                                   const QString& baseName, const Exported& done)
{
    const Plugin* found = plugins_.find(plugin);
    const QString extension = found ? found->manifest.fileExtension.value_or(QString()) : QString();
    const QString proposed = baseName + u'.' + (extension.isEmpty() ? QStringLiteral("txt") : extension);
    const auto take = [this, plugin, proposed, done](const std::expected<QByteArray, QString>& json) {
        if (!json) {
            plugins_.addToLog(plugin, json.error());
            return done(std::unexpected(json.error()));
        }
        const auto output = outputFrom(*json, proposed);
        if (!output) {
            plugins_.noteError(plugin, output.error());
            plugins_.addToLog(plugin, output.error());
            context_.console.failure(
                QStringLiteral("AppCommands: failed to prepare plugin output for sharing: ") +
                output.error());
        }
        done(output);
    };
    return plugins_.call(plugin, QString::fromLatin1(operation), argumentList({records, context(plugin)}),
                         take);
}

PluginTicket PluginJobs::exportInvoice(const QString& plugin, const Invoice& invoice, const Exported& done)
{
    return runExport(plugin, "exportInvoice", recordJson(invoice, profile()),
                     displayedNumber(invoice, profile()), done);
}

PluginTicket PluginJobs::exportInvoices(const QString& plugin, const std::vector<Invoice>& invoices,
                                        const Exported& done)
{
    return runExport(plugin, "exportInvoices", recordsJson(invoices, profile()), plugin, done);
}

// ---- in

PluginTicket PluginJobs::runChange(const QString& plugin, const char* operation, const QByteArray& arguments,
                                   const Patched& take, const Changed& done)
{
    const auto answer = [this, plugin, take, done,
                         asked = profile().id](const std::expected<QByteArray, QString>& json) {
        std::expected<PluginChanges, QString> changes;
        if (!json)
            changes = std::unexpected(json.error());
        else if (profile().id != asked)
            changes = std::unexpected(QStringLiteral(
                "another profile came into use while the plugin was at work, so nothing was changed"));
        else if (changes = take(*json); !changes)
            plugins_.noteError(plugin, changes.error());
        addToLog(plugin, changes);
        done(changes);
    };
    return plugins_.call(plugin, QString::fromLatin1(operation), arguments, answer);
}

void PluginJobs::addToLog(const QString& plugin, const std::expected<PluginChanges, QString>& changes)
{
    if (!changes)
        return plugins_.addToLog(plugin, changes.error());
    plugins_.addToLog(plugin, QStringLiteral("records made or changed: %1").arg(changes->records.size()));
    for (const QString& problem : changes->problems)
        plugins_.addToLog(plugin, problem);
}

PluginTicket PluginJobs::importInvoices(const QString& plugin, const std::optional<PluginInput>& input,
                                        const Changed& done)
{
    const QByteArray file = input ? jsonText(inputObject(input->fileName, input->content)) : "null";
    return runChange(
        plugin, "importInvoices", argumentList({file, context(plugin)}),
        [this, plugin](const QByteArray& json) { return takeImport(plugin, json); }, done);
}

std::expected<PluginChanges, QString> PluginJobs::takeImport(const QString& plugin, const QByteArray& json)
{
    const auto patches = patchListFrom(json);
    if (!patches)
        return unreadable(patches.error());
    PluginChanges changes;
    UndoStep step(invoices_, QCoreApplication::translate("UndoText", "Import with %1").arg(nameOf(plugin)));
    for (const ImportPatch& patch : *patches)
        makeDraft(patch, step, changes);
    return changes;
}

void PluginJobs::makeDraft(const ImportPatch& patch, UndoStep& step, PluginChanges& changes)
{
    const auto fill = [&](Invoice& invoice) {
        applyContent(patch, invoice, context_.ids);
        applyStatus(patch, invoice, context_.clock.now());
        if (patch.number)
            setLiteralNumber(invoice, plainLine(*patch.number, longestNumber));
    };
    const JobResult<InvoicePtr> made = jobs_.create(InvoiceType::invoice, fill);
    if (!made) {
        changes.problems += made.error().text;
        return;
    }
    step.made(***made);
    changes.records.push_back((**made)->id);
}

PluginTicket PluginJobs::updateInvoices(const QString& plugin, const std::vector<Invoice>& invoices,
                                        const std::optional<PluginInput>& input, const Changed& done)
{
    QSet<QUuid> offered;
    for (const Invoice& invoice : invoices)
        offered.insert(invoice.id);
    return runChange(
        plugin, "updateInvoices", argumentList({summariesJson(invoices, profile()), context(plugin, input)}),
        [this, plugin, offered](const QByteArray& json) { return takeUpdate(plugin, offered, json); }, done);
}

std::expected<PluginChanges, QString>
PluginJobs::takeUpdate(const QString& plugin, const QSet<QUuid>& offered, const QByteArray& json)
{
    const auto patches = patchMapFrom(json);
    if (!patches)
        return unreadable(patches.error());
    PluginChanges changes;
    UndoStep step(invoices_, QCoreApplication::translate("UndoText", "Update with %1").arg(nameOf(plugin)));
    for (const auto& [text, patch] : *patches) {
        if (const QUuid id(text); offered.contains(id))
            apply(id, patch, step, changes);
        else
            changes.problems += QStringLiteral("the plugin was not asked about the record “%1”")
                                    .arg(plainLine(text, longestNumber));
    }
    return changes;
}

/// An edit as a plugin may make it: to a record that is cancelled none at all.
JobResult<void> PluginJobs::edit(const QUuid& id, const std::function<void(Invoice&)>& change)
{
    const InvoicePtr record = invoices_.find(id);
    if (!record || (*record)->status != Status::cancelled)
        return jobs_.edit(id, change, Force::no);
    Invoice wanted = **record;
    change(wanted);
    return wanted == **record ? JobResult<void>() : std::unexpected(jobs_.guarded(record));
}

/// All of the patch, or its status alone where the record's content is not to be changed any more.
void PluginJobs::apply(const QUuid& id, const ImportPatch& patch, UndoStep& step, PluginChanges& changes)
{
    const InvoicePtr record = invoices_.find(id);
    const Invoice before = record ? **record : Invoice();
    const auto setStatus = [&](Invoice& invoice) { applyStatus(patch, invoice, context_.clock.now()); };
    const auto setAll = [&](Invoice& invoice) {
        applyContent(patch, invoice, context_.ids);
        setStatus(invoice);
    };
    JobResult<void> edited = edit(id, setAll);
    QString problem = edited ? QString() : edited.error().text;
    const bool isGuarded = !edited && edited.error().kind == JobFailure::Kind::guarded;
    if (isGuarded && !(edited = edit(id, setStatus)))
        problem = edited.error().text;
    const InvoicePtr after = invoices_.find(id);
    const bool isChanged = edited && after && **after != before;
    if (isGuarded && isChanged)
        problem = QStringLiteral("%1 is %2: only its status was changed")
                      .arg(displayedNumber(before, profile()), displayText(before.status).toLower());
    if (!problem.isEmpty())
        changes.problems += problem;
    if (isChanged) {
        step.edited(before, **after);
        changes.records.push_back(id);
    }
}

/// Nobody waits for it: what it could not do is logged, and its failure told once.
void PluginJobs::runDueUpdate(const QString& plugin)
{
    if (running_.contains(plugin)) // one that takes longer than its interval is not run twice
        return;
    running_.insert(plugin);
    std::vector<Invoice> all;
    for (const InvoicePtr& record : invoices_.invoices())
        all.push_back(**record);
    updateInvoices(plugin, all, {}, [this, plugin](const std::expected<PluginChanges, QString>& changes) {
        running_.remove(plugin);
        if (!changes && changes.error() != pluginCancelled)
            context_.console.failure(plugin + QStringLiteral(": ") + changes.error());
        for (const QString& problem : changes ? changes->problems : QStringList())
            context_.console.information(plugin + QStringLiteral(": ") + problem);
    });
}

} // namespace ledra
