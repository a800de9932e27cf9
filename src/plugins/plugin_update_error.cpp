#include "plugins/plugin_update_error.h"

#include <algorithm>
#include <array>
#include <utility>

namespace ledra {

namespace {

constexpr std::array texts = {
    std::pair{PluginUpdateError::invalidLink, "Plugin URL is not a valid repository link."},
    std::pair{PluginUpdateError::unsupportedHost,
              "Plugin updates are not supported for this repository host."},
    std::pair{PluginUpdateError::unknownRepository, "The repository %1 was not found on %2."},
    std::pair{PluginUpdateError::noSource, "Repository has no release or commits to update from."},
    std::pair{PluginUpdateError::noManifest, "Downloaded archive does not contain a plugin.json."},
    std::pair{PluginUpdateError::noMainModule, "Installed plugin is missing main.js."},
};

} // namespace

QString errorText(PluginUpdateError error)
{
    const auto row = std::ranges::find(texts, error, &std::pair<PluginUpdateError, const char*>::first);
    return row == texts.end() ? QString() : QString::fromUtf8(row->second);
}

} // namespace ledra
