#pragma once

#include "app/plugin_operations.h"
#include "ui/window_parts.h"

#include <QObject>

#include <memory>
#include <optional>

namespace ledra {

/// Has a plugin do what a user asks for in a window, one run at a time: asks for files, hands over records,
/// puts away or shows what comes back. The window goes on meanwhile.
class PluginRuns : public QObject
{
    Q_OBJECT

public:
    explicit PluginRuns(const WindowParts& parts);

    using Records = std::vector<InvoicePtr>;
    void start(const QString& plugin, PluginOperation operation, const Records& selected);

    bool isBusy() const { return current_ != nullptr; }
    void cancel();

Q_SIGNALS:
    void advanced(const QString& line);       ///< how far it is; empty when it has ended
    void made(const QUuid& id);               ///< the last of the records that were imported together
    void pluginWanted(const QString& plugin); ///< the user wants to see why it failed

private:
    /// What is being done.
    struct Run
    {
        QString plugin;
        PluginOperation operation;
        std::vector<Invoice> records;
        QString name = {}; ///< of the plugin
        std::optional<PluginInput> input = {};
        std::size_t next = 0; ///< of the records, where each is exported by itself
        std::vector<PluginOutput> outputs = {};
        QStringList failures = {};
        PluginTicket ticket = 0;
        bool isCancelled = false;
    };

    void askForInput(const Run& run);
    void begin(Run run);
    void exportNext();
    void exportTogether();
    void importInvoices();
    void updateInvoices();
    void takeOutput(const QString& label, const std::expected<PluginOutput, QString>& output);
    void endExport();
    void endChange(const std::expected<PluginChanges, QString>& changes);
    void tellChanges(const Run& run, const PluginChanges& changes);
    void tellFailure(const Run& run, const QString& error);

    const WindowParts& parts_;
    std::unique_ptr<Run> current_;
};

} // namespace ledra
