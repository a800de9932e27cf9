#include "ui/plugins/plugin_runs.h"

#include "model/displayed_number.h"
#include "ui/jobs/file_panels.h"
#include "ui/jobs/question.h"
#include "ui/plugins/output_saving.h"

#include <QPointer>

namespace ledra {

PluginRuns::PluginRuns(const WindowParts& parts) : QObject(&parts.window), parts_(parts) {}

void PluginRuns::start(const QString& plugin, PluginOperation operation, const Records& selected)
{
    const Plugin* found = parts_.app.pluginManager().find(plugin);
    if (!found || isBusy())
        return;
    Run run{plugin, operation, {}, found->manifest.name};
    const auto& all = parts_.app.invoiceManager().invoices();
    for (const InvoicePtr& record : needsSelection(operation) ? selected : Records(all.begin(), all.end()))
        run.records.push_back(**record);
    if (operation == PluginOperation::importFile || operation == PluginOperation::updateFromFile)
        askForInput(run);
    else
        begin(std::move(run));
}

void PluginRuns::askForInput(const Run& run)
{
    const Plugin& plugin = *parts_.app.pluginManager().find(run.plugin);
    const QString pattern = filePattern(plugin);
    const QString all = tr("All Files (*)");
    const QString filter =
        pattern == u"*" ? all : QStringLiteral("%1 (%2);;%3").arg(pattern.sliced(2).toUpper(), pattern, all);
    askForFile(parts_, {run.name, filter}, [this, run](const QString& path) {
        auto input = readPluginInput(path);
        if (!input) {
            parts_.messages.warn(input.error());
            return;
        }
        Run ready = run;
        ready.input = std::move(*input);
        begin(std::move(ready));
    });
}

void PluginRuns::begin(Run run)
{
    struct Row
    {
        PluginOperation operation;
        void (PluginRuns::*start)();
    };
    static constexpr std::array rows = {
        Row{PluginOperation::exportEach, &PluginRuns::exportNext},
        Row{PluginOperation::exportSelected, &PluginRuns::exportTogether},
        Row{PluginOperation::exportAll, &PluginRuns::exportTogether},
        Row{PluginOperation::importFile, &PluginRuns::importInvoices},
        Row{PluginOperation::importFetched, &PluginRuns::importInvoices},
        Row{PluginOperation::updateSelected, &PluginRuns::updateInvoices},
        Row{PluginOperation::updateAll, &PluginRuns::updateInvoices},
        Row{PluginOperation::updateFromFile, &PluginRuns::updateInvoices},
    };
    if (isBusy()) // another was started while the user looked for a file
        return;
    const auto row = std::ranges::find(rows, run.operation, &Row::operation);
    current_ = std::make_unique<Run>(std::move(run));
    Q_EMIT advanced(tr("%1 is at work…").arg(current_->name));
    (this->*row->start)();
}

void PluginRuns::cancel()
{
    if (!current_)
        return;
    current_->isCancelled = true;
    parts_.app.pluginManager().cancel(current_->ticket);
}

// ---- out

void PluginRuns::exportNext()
{
    Run& run = *current_;
    if (run.isCancelled || run.next == run.records.size()) {
        endExport();
        return;
    }
    const Invoice& invoice = run.records[run.next++];
    if (run.records.size() > 1)
        Q_EMIT advanced(
            tr("%1: %2 of %3").arg(run.name, QString::number(run.next), QString::number(run.records.size())));
    const QString label = displayedNumber(invoice, **parts_.app.profileManager().activeProfile());
    run.ticket = parts_.app.pluginJobs().exportInvoice(run.plugin, invoice,
                                                       [self = QPointer(this), label](const auto& output) {
                                                           if (!self)
                                                               return;
                                                           self->takeOutput(label, output);
                                                           self->exportNext();
                                                       });
}

void PluginRuns::exportTogether()
{
    current_->ticket = parts_.app.pluginJobs().exportInvoices(current_->plugin, current_->records,
                                                              [self = QPointer(this)](const auto& output) {
                                                                  if (!self)
                                                                      return;
                                                                  self->takeOutput({}, output);
                                                                  self->endExport();
                                                              });
}

void PluginRuns::takeOutput(const QString& label, const std::expected<PluginOutput, QString>& output)
{
    if (output)
        current_->outputs.push_back(*output);
    else if (!current_->isCancelled)
        current_->failures +=
            label.isEmpty() ? output.error() : label + QStringLiteral(": ") + output.error();
}

void PluginRuns::endExport()
{
    const std::unique_ptr<Run> ended = std::move(current_);
    const Run& run = *ended;
    Q_EMIT advanced({});
    if (run.isCancelled) {
        parts_.messages.note(tr("%1: cancelled").arg(run.name));
        return;
    }
    if (!run.failures.isEmpty())
        tellFailure(run, run.failures.size() == 1 ? run.failures.front()
                                                  : tr("%n records were not exported. %1", nullptr,
                                                       static_cast<int>(run.failures.size()))
                                                        .arg(run.failures.front()));
    saveOutputs(parts_, run.name, run.outputs);
}

// ---- in

void PluginRuns::importInvoices()
{
    current_->ticket = parts_.app.pluginJobs().importInvoices(current_->plugin, current_->input,
                                                              [self = QPointer(this)](const auto& changes) {
                                                                  if (self)
                                                                      self->endChange(changes);
                                                              });
}

void PluginRuns::updateInvoices()
{
    current_->ticket = parts_.app.pluginJobs().updateInvoices(
        current_->plugin, current_->records, current_->input, [self = QPointer(this)](const auto& changes) {
            if (self)
                self->endChange(changes);
        });
}

void PluginRuns::endChange(const std::expected<PluginChanges, QString>& changes)
{
    const std::unique_ptr<Run> ended = std::move(current_);
    const Run& run = *ended;
    Q_EMIT advanced({});
    if (changes)
        tellChanges(run, *changes);
    else if (run.isCancelled)
        parts_.messages.note(tr("%1: cancelled").arg(run.name));
    else
        tellFailure(run, changes.error());
}

void PluginRuns::tellChanges(const Run& run, const PluginChanges& changes)
{
    const int count = static_cast<int>(changes.records.size());
    const bool isImport =
        run.operation == PluginOperation::importFile || run.operation == PluginOperation::importFetched;
    const QString done =
        isImport ? tr("%n drafts were made", nullptr, count) : tr("%n records were changed", nullptr, count);
    const QString line = tr("%1: %2").arg(run.name, count == 0 ? tr("nothing has changed") : done);
    const QStringList& problems = changes.problems;
    if (problems.isEmpty())
        parts_.messages.note(line);
    else if (problems.size() == 1)
        parts_.messages.warn(tr("%1. %2").arg(line, problems.front()));
    else
        parts_.messages.warn(
            tr("%1; %n parts of it were refused", nullptr, static_cast<int>(problems.size())).arg(line),
            {{tr("Show"), [this, name = run.name, problems] {
                  constexpr qsizetype most = 20;
                  QStringList shown = problems.mid(0, most);
                  if (problems.size() > most)
                      shown += QStringLiteral("…");
                  alert(parts_.window, name, shown.join(u'\n'));
              }}});
    if (isImport && count > 0)
        Q_EMIT made(changes.records.back());
}

void PluginRuns::tellFailure(const Run& run, const QString& error)
{
    parts_.messages.warn(tr("%1: %2").arg(run.name, error),
                         {{tr("Show Plugin"), [this, plugin = run.plugin] { Q_EMIT pluginWanted(plugin); }}});
}

} // namespace ledra
