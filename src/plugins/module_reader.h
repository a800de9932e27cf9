#pragma once

#include <QString>

namespace ledra {

/// What a plugin gets for a path that it requires.
struct ModuleAnswer
{
    enum class Kind { found, missing, escapes };

    Kind kind = Kind::missing;
    QString path; ///< standardised; names the module in the cache
    QString source = {};
};

/// Reads a module of a plugin folder. The path is the plugin's own and not to be trusted: what lies outside
/// of the folder, be it by ".." or behind a link, is never read.
ModuleAnswer readModule(const QString& directory, const QString& path);

} // namespace ledra
