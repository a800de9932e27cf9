#include "app/plugin_jobs.h"

#include "app/reader_language.h"
#include "exchange/imported_draft.h"
#include "model/displayed_number.h"
#include "platform/version.h"

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
                       const InvoiceManager& invoices, const ProfileManager& profiles)
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

// ---- out

void PluginJobs::runExport(const QString& plugin, const char* operation, const QByteArray& records,
                           const QString& baseName, const Exported& done)
{
    const Plugin* found = plugins_.find(plugin);
    const QString extension = found ? found->manifest.fileExtension.value_or(QString()) : QString();
    const QString proposed = baseName + u'.' + (extension.isEmpty() ? QStringLiteral("txt") : extension);
    plugins_.call(plugin, QString::fromLatin1(operation), argumentList({records, context(plugin)}),
                  [this, proposed, done](const std::expected<QByteArray, QString>& json) {
                      if (!json)
                          return done(std::unexpected(json.error()));
                      const auto output = outputFrom(*json, proposed);
                      if (!output)
                          context_.console.failure(
                              QStringLiteral("AppCommands: failed to prepare plugin output for sharing: ") +
                              output.error());
                      done(output);
                  });
}

void PluginJobs::exportInvoice(const QString& plugin, const Invoice& invoice, const Exported& done)
{
    runExport(plugin, "exportInvoice", recordJson(invoice, profile()), displayedNumber(invoice, profile()),
              done);
}

void PluginJobs::exportInvoices(const QString& plugin, const std::vector<Invoice>& invoices,
                                const Exported& done)
{
    runExport(plugin, "exportInvoices", recordsJson(invoices, profile()), plugin, done);
}

// ---- in

void PluginJobs::importInvoices(const QString& plugin, const std::optional<PluginInput>& input,
                                const Changed& done)
{
    const QByteArray file = input ? jsonText(inputObject(input->fileName, input->content)) : "null";
    plugins_.call(plugin, QStringLiteral("importInvoices"), argumentList({file, context(plugin)}),
                  [this, done](const std::expected<QByteArray, QString>& json) {
                      if (!json)
                          return done(std::unexpected(json.error()));
                      const auto patches = patchListFrom(*json);
                      done(patches ? std::expected<PluginChanges, QString>(makeDrafts(*patches))
                                   : unreadable(patches.error()));
                  });
}

PluginChanges PluginJobs::makeDrafts(const std::vector<ImportPatch>& patches)
{
    PluginChanges changes;
    for (const ImportPatch& patch : patches) {
        const auto fill = [&](Invoice& invoice) {
            applyContent(patch, invoice, context_.ids);
            applyStatus(patch, invoice, context_.clock.now());
            if (patch.number)
                setLiteralNumber(invoice, plainLine(*patch.number, longestNumber));
        };
        const JobResult<InvoicePtr> made = jobs_.create(InvoiceType::invoice, fill);
        if (made)
            changes.records.push_back((**made)->id);
        else
            changes.problems += made.error().text;
    }
    return changes;
}

void PluginJobs::updateInvoices(const QString& plugin, const std::vector<Invoice>& invoices,
                                const std::optional<PluginInput>& input, const Changed& done)
{
    QSet<QUuid> offered;
    for (const Invoice& invoice : invoices)
        offered.insert(invoice.id);
    const QByteArray arguments = argumentList({summariesJson(invoices, profile()), context(plugin, input)});
    plugins_.call(plugin, QStringLiteral("updateInvoices"), arguments,
                  [this, offered, done](const std::expected<QByteArray, QString>& json) {
                      if (!json)
                          return done(std::unexpected(json.error()));
                      const auto patches = patchMapFrom(*json);
                      if (!patches)
                          return done(unreadable(patches.error()));
                      PluginChanges changes;
                      for (const auto& [text, patch] : *patches) {
                          if (const QUuid id(text); offered.contains(id))
                              apply(id, patch, changes);
                          else
                              changes.problems +=
                                  QStringLiteral("the plugin was not asked about the record “%1”")
                                      .arg(plainLine(text, longestNumber));
                      }
                      done(changes);
                  });
}

/// All of the patch, or its status alone where the record's content is not to be changed any more.
void PluginJobs::apply(const QUuid& id, const ImportPatch& patch, PluginChanges& changes)
{
    const InvoicePtr record = invoices_.find(id);
    const Invoice before = record ? **record : Invoice();
    const auto setStatus = [&](Invoice& invoice) { applyStatus(patch, invoice, context_.clock.now()); };
    const auto setAll = [&](Invoice& invoice) {
        applyContent(patch, invoice, context_.ids);
        setStatus(invoice);
    };
    JobResult<void> edited = jobs_.edit(id, setAll, Force::no);
    if (!edited && edited.error().kind == JobFailure::Kind::guarded) {
        changes.problems += edited.error().text;
        edited = jobs_.edit(id, setStatus, Force::no);
    }
    if (!edited)
        changes.problems += edited.error().text;
    else if (**invoices_.find(id) != before)
        changes.records.push_back(id);
}

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
        const QStringList problems = changes ? changes->problems : QStringList{changes.error()};
        for (const QString& problem : problems)
            context_.console.failure(plugin + QStringLiteral(": ") + problem);
    });
}

} // namespace ledra
