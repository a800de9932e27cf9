#pragma once

#include <QString>

namespace ledra {

/// Why a plugin cannot be brought up to date from its repository. What the network or the file system has to
/// say beside that is a line of its own.
enum class PluginUpdateError {
    invalidLink,
    unsupportedHost,   ///< no forge that is known answers there
    unknownRepository, ///< the forge answers, but has none of that name that everybody may see
    noSource,
    noManifest,
    noMainModule,
};

/// The message for users; of an unknown repository with places for its path and its host.
QString errorText(PluginUpdateError error);

} // namespace ledra
