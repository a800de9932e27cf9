#include "plugins/plugin.h"

#include "platform/file_io.h"
#include "platform/version.h"

#include <QFileInfo>
#include <QVersionNumber>

#include <algorithm>

namespace ledra {

namespace {

constexpr qint64 largestManifest = qint64{256} * 1024;
constexpr qsizetype longestName = 80;
constexpr qsizetype longestField = 400;
constexpr std::size_t mostCapabilities = 50;
constexpr std::int64_t longestInterval = std::int64_t{14} * 24 * 60; // minutes

bool isUnwanted(QChar character)
{
    const QChar::Category category = character.category();
    return category == QChar::Other_Control || category == QChar::Other_Format ||
           category == QChar::Separator_Line || category == QChar::Separator_Paragraph;
}

void clean(PluginManifest& manifest)
{
    manifest.name = plainLine(manifest.name, longestName);
    for (const auto field : {&PluginManifest::description, &PluginManifest::version, &PluginManifest::url,
                             &PluginManifest::author, &PluginManifest::authorUrl,
                             &PluginManifest::fileExtension, &PluginManifest::minLedraVersion}) {
        if (std::optional<QString>& text = manifest.*field)
            text = plainLine(*text, longestField);
    }
    if (!manifest.capabilities)
        return;
    manifest.capabilities->resize(std::min(manifest.capabilities->size(), mostCapabilities));
    for (QString& capability : *manifest.capabilities)
        capability = plainLine(capability, longestField);
}

/// Why the plugin cannot be used by this program.
QString problemOf(const PluginManifest& manifest)
{
    if (manifest.name.isEmpty())
        return QStringLiteral("the name is empty");
    if (manifest.timer && (*manifest.timer < 1 || *manifest.timer > longestInterval))
        return QStringLiteral("timer: not a number of minutes from 1 to %1").arg(longestInterval);
    if (!manifest.minLedraVersion)
        return {};
    const QString own = QString::fromUtf8(shortVersion.data(), static_cast<qsizetype>(shortVersion.size()));
    const QVersionNumber needed = QVersionNumber::fromString(*manifest.minLedraVersion);
    if (needed.isNull())
        return QStringLiteral("minLedraVersion: not a version");
    if (needed > QVersionNumber::fromString(own))
        return QStringLiteral("the plugin needs Ledra %1 or newer, and this is %2")
            .arg(*manifest.minLedraVersion, own);
    return {};
}

} // namespace

QString plainLine(const QString& text, qsizetype longest)
{
    QString line = text.left(4 * longest);
    std::ranges::replace_if(line, isUnwanted, QChar(u' '));
    line = line.simplified();
    return line.size() > longest ? line.first(longest - 1) + u'…' : line;
}

std::unexpected<QString> unknownPlugin(const QString& id)
{
    return std::unexpected(QStringLiteral("no plugin is called \"%1\"").arg(id));
}

bool isPluginId(const QString& id)
{
    constexpr qsizetype longestId = 100;
    return !id.isEmpty() && id.size() <= longestId && !id.startsWith(u'.') && !id.contains(u'/') &&
           !id.contains(u'\\') && !id.startsWith(QStringLiteral("ledraplugin-backup-")) &&
           std::ranges::none_of(id, isUnwanted);
}

QString Plugin::id() const
{
    return QFileInfo(directory).completeBaseName();
}

bool Plugin::asksFor(QStringView capability) const
{
    return manifest.capabilities && std::ranges::count(*manifest.capabilities, capability) > 0;
}

QStringList Plugin::wantedHosts() const
{
    QStringList hosts;
    for (const QString& capability : manifest.capabilities.value_or(std::vector<QString>())) {
        if (capability.startsWith(networkCapability))
            hosts += capability.sliced(networkCapability.size()).trimmed().toLower();
    }
    hosts.removeDuplicates();
    return hosts;
}

std::expected<PluginManifest, QString> readManifest(const QString& folder)
{
    const QString path = folder + u'/' + manifestFile;
    if (!QFileInfo(path).isFile())
        return std::unexpected(QStringLiteral("The selected plugin is missing a plugin.json manifest."));
    const auto content = readFile(path, largestManifest);
    if (!content)
        return std::unexpected(manifestFile + QStringLiteral(": ") + content.error().reason);
    PluginManifest manifest;
    JSONReader reader;
    if (const Decoded<void> decoded = decodeDocument(manifest, *content, reader); !decoded)
        return std::unexpected(manifestFile + QStringLiteral(": ") +
                               plainLine(decoded.error().text(), longestField));
    clean(manifest);
    if (const QString problem = problemOf(manifest); !problem.isEmpty())
        return std::unexpected(manifestFile + QStringLiteral(": ") + problem);
    return manifest;
}

} // namespace ledra
