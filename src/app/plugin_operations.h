#pragma once

#include "app/plugin_jobs.h"

#include <vector>

namespace ledra {

/// What users can have a plugin do. Each entry point of its main module gives some of these.
enum class PluginOperation {
    exportEach,     ///< exportInvoice for each of the selected records, a file each
    exportSelected, ///< exportInvoices for the selected ones, one file
    exportAll,      ///< exportInvoices for all of them
    importFile,     ///< importInvoices with a file
    importFetched,  ///< importInvoices without one; the plugin fetches what it imports
    updateSelected, ///< updateInvoices for the selected records
    updateAll,
    updateFromFile, ///< updateInvoices for all, with a file that says what is new
};

/// The operations that a plugin offers, in their usual order: those of the entry points that it has.
std::vector<PluginOperation> offeredOperations(const Plugin& plugin, const PluginRuntimeState& runtime);

/// Whether an operation works on what is selected.
bool needsSelection(PluginOperation operation);

/// The name filter of a panel for the files of a plugin: "*.csv", or "*" when it does not say.
QString filePattern(const Plugin& plugin);

/// A file for a plugin to read, of at most 16 MiB; the error is one line.
[[nodiscard]] std::expected<PluginInput, QString> readPluginInput(const QString& path);

/// Writes what a plugin has exported. What fails is told on the console.
[[nodiscard]] bool writePluginOutput(const PluginOutput& output, const QString& target, Overwrite overwrite,
                                     Console& console);

/// Gives each output a name of its own within its folder, where plugins give the same one twice.
void tellApart(std::vector<PluginOutput>& outputs);

/// The same, and a name that no file in the folder has.
void keepBoth(std::vector<PluginOutput>& outputs, const QString& folder);

/// The paths of those that are in the folder already.
QStringList existingFiles(const std::vector<PluginOutput>& outputs, const QString& folder);

} // namespace ledra
