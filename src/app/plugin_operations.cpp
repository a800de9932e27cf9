#include "app/plugin_operations.h"

#include "platform/file_io.h"

#include <QFileInfo>

#include <algorithm>
#include <array>

namespace ledra {

namespace {

constexpr qint64 largestInput = qint64{16} << 20;

bool fetches(const Plugin& plugin)
{
    return !plugin.wantedHosts().isEmpty() || plugin.asksFor(connectorCapability);
}

/// One that has its invoices from elsewhere and no kind of file has no use for a file.
bool readsFiles(const Plugin& plugin)
{
    return plugin.manifest.fileExtension.has_value() || !fetches(plugin);
}

struct OperationRow
{
    PluginOperation operation;
    bool PluginRuntimeState::* flag;
    bool needsSelection = false;
    bool (*isUseful)(const Plugin& plugin) = [](const Plugin&) { return true; };
};

constexpr std::array operations = {
    OperationRow{PluginOperation::exportEach, &PluginRuntimeState::hasExportInvoice, true},
    OperationRow{PluginOperation::exportSelected, &PluginRuntimeState::hasExportInvoices, true},
    OperationRow{PluginOperation::exportAll, &PluginRuntimeState::hasExportInvoices},
    OperationRow{PluginOperation::importFile, &PluginRuntimeState::hasImportInvoices, false, readsFiles},
    OperationRow{PluginOperation::importFetched, &PluginRuntimeState::hasImportInvoices, false, fetches},
    OperationRow{PluginOperation::updateSelected, &PluginRuntimeState::hasUpdateInvoices, true},
    OperationRow{PluginOperation::updateAll, &PluginRuntimeState::hasUpdateInvoices},
    OperationRow{PluginOperation::updateFromFile, &PluginRuntimeState::hasUpdateInvoices, false, readsFiles},
};

/// Renames those whose names are not free, each by a number behind its stem.
void rename(std::vector<PluginOutput>& outputs, const std::function<bool(const QString&)>& isFree)
{
    QStringList taken; // in lower case, since some folders do not tell cases apart
    for (PluginOutput& output : outputs) {
        const QFileInfo name(output.fileName);
        const QString ending = name.suffix().isEmpty() ? QString() : u'.' + name.suffix();
        QString wanted = output.fileName;
        for (int number = 2; taken.contains(wanted.toLower()) || !isFree(wanted); ++number)
            wanted = QStringLiteral("%1 %2%3").arg(name.completeBaseName()).arg(number).arg(ending);
        taken += wanted.toLower();
        output.fileName = wanted;
    }
}

} // namespace

std::vector<PluginOperation> offeredOperations(const Plugin& plugin, const PluginRuntimeState& runtime)
{
    std::vector<PluginOperation> offered;
    for (const OperationRow& row : operations) {
        if (runtime.*row.flag && row.isUseful(plugin))
            offered.push_back(row.operation);
    }
    return offered;
}

bool needsSelection(PluginOperation operation)
{
    const auto row = std::ranges::find(operations, operation, &OperationRow::operation);
    return row != operations.end() && row->needsSelection;
}

QString filePattern(const Plugin& plugin)
{
    QString extension = plugin.manifest.fileExtension.value_or(QString());
    extension.removeIf([](QChar letter) { return !letter.isLetterOrNumber(); });
    return extension.isEmpty() ? QStringLiteral("*") : QStringLiteral("*.") + extension;
}

std::expected<PluginInput, QString> readPluginInput(const QString& path)
{
    const auto content = readFile(path, largestInput);
    if (!content)
        return std::unexpected(content.error().text());
    return PluginInput{QFileInfo(path).fileName(), *content};
}

bool writePluginOutput(const PluginOutput& output, const QString& target, Overwrite overwrite,
                       Console& console)
{
    const auto written = writeExport(target, output.content, overwrite);
    if (!written)
        console.failure(QStringLiteral("AppCommands: failed to write plugin output: ") +
                        written.error().text());
    return written.has_value();
}

void tellApart(std::vector<PluginOutput>& outputs)
{
    rename(outputs, [](const QString&) { return true; });
}

void keepBoth(std::vector<PluginOutput>& outputs, const QString& folder)
{
    rename(outputs, [&](const QString& name) { return !QFileInfo::exists(folder + u'/' + name); });
}

QStringList existingFiles(const std::vector<PluginOutput>& outputs, const QString& folder)
{
    QStringList files;
    for (const PluginOutput& output : outputs) {
        if (const QString path = folder + u'/' + output.fileName; QFileInfo::exists(path))
            files += path;
    }
    return files;
}

} // namespace ledra
