#include "ui/plugins/output_saving.h"

#include "ui/jobs/export_flow.h"
#include "ui/jobs/file_panels.h"
#include "ui/jobs/question.h"

#include <QCoreApplication>
#include <QFileInfo>

namespace ledra {

namespace {

struct OutputSaving
{
    Q_DECLARE_TR_FUNCTIONS(OutputSaving)
};

QString filterOf(const PluginOutput& output)
{
    const QString ending = QFileInfo(output.fileName).suffix();
    const bool isPlain = std::ranges::all_of(ending, [](QChar letter) { return letter.isLetterOrNumber(); });
    return ending.isEmpty() || !isPlain ? OutputSaving::tr("All Files (*)")
                                        : QStringLiteral("%1 (*.%2)").arg(ending.toUpper(), ending);
}

void writeInto(const WindowParts& parts, const std::vector<PluginOutput>& outputs, const QString& folder)
{
    QStringList files;
    for (const PluginOutput& output : outputs) {
        const QString target = folder + u'/' + output.fileName;
        if (!writePluginOutput(output, target, Overwrite::replace, parts.app.console()))
            break; // the next one would fail like it
        files += target;
    }
    tellFiles(parts, files);
}

/// Asks once what becomes of files that are there already.
void saveInto(const WindowParts& parts, std::vector<PluginOutput> outputs, const QString& folder)
{
    std::vector<PluginOutput> apart = outputs;
    tellApart(apart);
    const QStringList existing = existingFiles(apart, folder);
    if (existing.isEmpty()) {
        writeInto(parts, apart, folder);
        return;
    }
    ask(parts.window,
        {OutputSaving::tr("%n of the files exist already.", nullptr, static_cast<int>(existing.size())),
         OutputSaving::tr("Replacing a file in “%1” overwrites what is in it.")
             .arg(QFileInfo(folder).fileName()),
         {OutputSaving::tr("Replace"), OutputSaving::tr("Keep Both")},
         QMessageBox::Warning},
        [&parts, outputs, apart, folder](int answer) mutable {
            if (answer == 1)
                keepBoth(outputs, folder);
            writeInto(parts, answer == 1 ? outputs : apart, folder);
        });
}

} // namespace

void saveOutputs(const WindowParts& parts, const QString& title, std::vector<PluginOutput> outputs)
{
    if (outputs.empty())
        return;
    if (outputs.size() > 1) {
        askForFolder(parts, title, [&parts, outputs = std::move(outputs)](const QString& folder) {
            saveInto(parts, outputs, folder);
        });
        return;
    }
    const PluginOutput& output = outputs.front();
    askForTarget(parts, {title, output.fileName, filterOf(output)}, [&parts, output](const QString& target) {
        if (writePluginOutput(output, target, Overwrite::replace, parts.app.console())) // the panel has asked
            tellFiles(parts, {target});
    });
}

} // namespace ledra
