#pragma once

#include "store/json_schema.h"

#include <QString>
#include <QStringList>

#include <expected>
#include <optional>
#include <vector>

namespace ledra {

/// The extension of a plugin's folder, and what a packed one ends in.
inline const QString pluginFolderEnding = QStringLiteral(".ledraplugin");
inline const QString pluginArchiveEnding = QStringLiteral(".ledraplugin.zip");

inline const QString manifestFile = QStringLiteral("plugin.json");
inline const QString mainModule = QStringLiteral("main.js");

/// What "plugin.json" says. It comes from strangers: texts are short and without control characters once it
/// has been read, but they stay plain texts, not markup.
struct PluginManifest
{
    std::optional<std::int64_t> specVersion;
    QString name;
    std::optional<QString> description;
    std::optional<QString> version;
    std::optional<QString> url;
    std::optional<QString> author;
    std::optional<QString> authorUrl;
    std::optional<QString> fileExtension;
    std::optional<QString> minLedraVersion;
    std::optional<std::vector<QString>> capabilities;
    std::optional<std::int64_t> timer; ///< minutes

    bool operator==(const PluginManifest&) const = default;
};

// clang-format off: one line a key
template <>
inline constexpr std::tuple jsonSchema<PluginManifest> = {
    JSONKey{"specVersion", &PluginManifest::specVersion},
    JSONRequiredKey{JSONKey{"name", &PluginManifest::name}},
    JSONKey{"description", &PluginManifest::description},
    JSONKey{"version", &PluginManifest::version},
    JSONKey{"url", &PluginManifest::url},
    JSONKey{"author", &PluginManifest::author},
    JSONKey{"authorUrl", &PluginManifest::authorUrl},
    JSONKey{"fileExtension", &PluginManifest::fileExtension},
    JSONKey{"minLedraVersion", &PluginManifest::minLedraVersion},
    JSONKey{"capabilities", &PluginManifest::capabilities},
    JSONKey{"timer", &PluginManifest::timer},
};
// clang-format on

/// An installed plugin.
struct Plugin
{
    PluginManifest manifest;
    QString directory;    ///< its folder, absolute
    QString problem = {}; ///< why it cannot be used; empty when all is well with the manifest

    bool operator==(const Plugin&) const = default;

    /// The folder's name without its extension.
    QString id() const;

    bool asksFor(QStringView capability) const;

    /// The hosts that it wants to talk to: "network:HOST" or "network:HOST:PORT" among the capabilities.
    QStringList wantedHosts() const;
};

// Capabilities that Ledra knows.
inline constexpr QStringView onOpenCapability =
    u"onOpen"; ///< updateInvoices runs when the program has started
inline constexpr QStringView connectorCapability = u"connector"; ///< may call the user's companion script
inline constexpr QStringView networkCapability = u"network:";

/// Whether a text can be the id of a plugin: a file's name of its own, not hidden and not long.
bool isPluginId(const QString& id);

/// Why nothing can be done with a plugin that is not there.
std::unexpected<QString> unknownPlugin(const QString& id);

/// A stranger's text for one line: without control characters, of at most that many characters.
QString plainLine(const QString& text, qsizetype longest);

/// Reads the manifest of a plugin folder and refuses one that this program is too old for. The error is one
/// line.
[[nodiscard]] std::expected<PluginManifest, QString> readManifest(const QString& folder);

} // namespace ledra
