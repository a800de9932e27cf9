#pragma once

#include "app/undoable_jobs.h"
#include "plugins/import_patch.h"
#include "plugins/plugin_data.h"
#include "plugins/plugin_manager.h"

#include <QObject>
#include <QSet>

#include <expected>
#include <functional>
#include <optional>
#include <vector>

namespace ledra {

/// A file that a plugin is to read.
struct PluginInput
{
    QString fileName;
    QByteArray content;
};

/// What came of an import or an update.
struct PluginChanges
{
    std::vector<QUuid> records; ///< made or changed
    QStringList problems;       ///< a line for each patch that could not be taken, or not all of it
};

/// What plugins do to invoices. Their patches go the way of all edits: a record that others hold keeps its
/// content, and only its status follows; one that is cancelled keeps that as well. What one run has changed
/// is one step back. Nothing is changed when another profile is in use by the time the plugin answers.
class PluginJobs : public QObject
{
    Q_OBJECT

public:
    PluginJobs(StoreContext& context, PluginManager& plugins, InvoiceJobs& jobs, InvoiceManager& invoices,
               const ProfileManager& profiles);

    using Exported = std::function<void(const std::expected<PluginOutput, QString>&)>;
    using Changed = std::function<void(const std::expected<PluginChanges, QString>&)>;

    // Answers come later, in the thread that asks; errors are one line. Until then the run can be cancelled
    // at the manager of the plugins.
    PluginTicket exportInvoice(const QString& plugin, const Invoice& invoice, const Exported& done);
    PluginTicket exportInvoices(const QString& plugin, const std::vector<Invoice>& invoices,
                                const Exported& done);

    /// Makes drafts; without an input the plugin fetches what it imports itself.
    PluginTicket importInvoices(const QString& plugin, const std::optional<PluginInput>& input,
                                const Changed& done);

    /// Changes records among those given. What the plugin reads for it is in the context under "input".
    PluginTicket updateInvoices(const QString& plugin, const std::vector<Invoice>& invoices,
                                const std::optional<PluginInput>& input, const Changed& done);

private:
    QByteArray context(const QString& plugin, const std::optional<PluginInput>& input = {}) const;
    PluginTicket runExport(const QString& plugin, const char* operation, const QByteArray& records,
                           const QString& baseName, const Exported& done);

    using Patched = std::function<std::expected<PluginChanges, QString>(const QByteArray& json)>;
    PluginTicket runChange(const QString& plugin, const char* operation, const QByteArray& arguments,
                           const Patched& take, const Changed& done);
    std::expected<PluginChanges, QString> takeImport(const QString& plugin, const QByteArray& json);
    std::expected<PluginChanges, QString> takeUpdate(const QString& plugin, const QSet<QUuid>& offered,
                                                     const QByteArray& json);
    void makeDraft(const ImportPatch& patch, UndoStep& step, PluginChanges& changes);
    void apply(const QUuid& id, const ImportPatch& patch, UndoStep& step, PluginChanges& changes);
    JobResult<void> edit(const QUuid& id, const std::function<void(Invoice&)>& change);
    void addToLog(const QString& plugin, const std::expected<PluginChanges, QString>& changes);
    void runDueUpdate(const QString& plugin);
    QString nameOf(const QString& plugin) const;
    const Profile& profile() const { return **profiles_.activeProfile(); }

    StoreContext& context_;
    PluginManager& plugins_;
    InvoiceJobs& jobs_;
    InvoiceManager& invoices_;
    const ProfileManager& profiles_;
    QSet<QString> running_; ///< whose due update has not ended yet
};

} // namespace ledra
