#pragma once

#include "plugins/plugin.h"

#include <expected>

namespace ledra {

/// Where a version of a plugin comes from; kept in the installed folder.
inline const QString sourceVersionFile = QStringLiteral(".ledra-source-version");

/// Looks at a whole plugin folder before any of it is used, and refuses what no honest package holds: links
/// and other things that are no files, names that differ only in the case of their letters, too many or too
/// large files. Returns its manifest; the error is one line.
[[nodiscard]] std::expected<PluginManifest, QString> inspectPackage(const QString& folder);

/// Refuses a folder without a main module.
[[nodiscard]] std::expected<void, QString> requireMainModule(const QString& folder);

/// A package that was handed over, ready to be installed: a folder, or an archive unpacked into the working
/// folder.
struct OpenedPackage
{
    QString id;
    QString folder;
};

/// Unpacks an archive into an empty folder and finds the plugin in it: its own folder, or at the top.
[[nodiscard]] std::expected<OpenedPackage, QString> unpackPackage(const QString& archive,
                                                                  const QString& working);

/// A package by its path, which ends in ".ledraplugin" for a folder and in ".ledraplugin.zip" for an archive.
[[nodiscard]] std::expected<OpenedPackage, QString> openPackage(const QString& path, const QString& working);

} // namespace ledra
