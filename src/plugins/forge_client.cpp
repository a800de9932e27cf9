#include "plugins/forge_client.h"

#include "plugins/plugin.h"
#include "plugins/plugin_update_error.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <QVersionNumber>

#include <array>
#include <memory>
#include <optional>

namespace ledra {

namespace {

constexpr qint64 largestArchive = qint64{64} << 20;
constexpr int downloadSeconds = 300;
constexpr int noSuchThing = 404;
constexpr int fine = 200;

/// An asset that is a packed plugin is preferred to the sources: it is what the author means to be installed.
QString packedPlugin(const QJsonArray& assets, QStringView address)
{
    for (const auto asset : assets) {
        if (asset[u"name"].toString().endsWith(pluginArchiveEnding, Qt::CaseInsensitive))
            return asset[address].toString();
    }
    return {};
}

PluginSource sourceFrom(const QString& version, const QString& packed, const QString& sources)
{
    return {version, QUrl(packed.isEmpty() ? sources : packed)};
}

/// GitHub and Gitea answer alike.
PluginSource plainRelease(const QJsonValue& release)
{
    return sourceFrom(release[u"tag_name"].toString(),
                      packedPlugin(release[u"assets"].toArray(), u"browser_download_url"),
                      release[u"zipball_url"].toString());
}

PluginSource gitlabRelease(const QJsonValue& releases)
{
    const QJsonValue release = releases[0];
    const QJsonValue assets = release[u"assets"];
    QString sources;
    const QJsonArray archives = assets[u"sources"].toArray();
    for (const auto archive : archives) {
        if (archive[u"format"].toString() == u"zip")
            sources = archive[u"url"].toString();
    }
    const QString packed = packedPlugin(assets[u"links"].toArray(), u"direct_asset_url");
    return sourceFrom(release[u"tag_name"].toString(),
                      packed.isEmpty() ? packedPlugin(assets[u"links"].toArray(), u"url") : packed, sources);
}

/// How one kind of forge is asked. "%1" stands for the repository's path: as it is, or with its slashes
/// encoded.
struct Forge
{
    const char* host; ///< of the forge itself; null where anybody may run one
    const char* base; ///< of its interface; "%1" stands for the host
    bool encodesPath;
    const char* repository; ///< answers with an object that has an "id"; shows that it is this kind of forge
    const char* releases;
    const char* commits;
    const char* archive; ///< of a commit, "%2"
    const char* commitKey;
    PluginSource (*release)(const QJsonValue&);
};

constexpr Forge gitHub = {"github.com",
                          "https://api.github.com",
                          false,
                          "/repos/%1",
                          "/repos/%1/releases/latest",
                          "/repos/%1/commits?per_page=1",
                          "/repos/%1/zipball/%2",
                          "sha",
                          plainRelease};
constexpr Forge gitea = {nullptr,
                         "https://%1/api/v1",
                         false,
                         "/repos/%1",
                         "/repos/%1/releases/latest",
                         "/repos/%1/commits?limit=1",
                         "/repos/%1/archive/%2.zip",
                         "sha",
                         plainRelease};
constexpr Forge gitLab = {nullptr,
                          "https://%1/api/v4",
                          true,
                          "/projects/%1",
                          "/projects/%1/releases?per_page=1",
                          "/projects/%1/repository/commits?per_page=1",
                          "/projects/%1/repository/archive.zip?sha=%2",
                          "id",
                          gitlabRelease};

QString normalVersion(const QString& version)
{
    return version.startsWith(u'v', Qt::CaseInsensitive) ? version.sliced(1) : version;
}

std::optional<QVersionNumber> versionFrom(const QString& text)
{
    constexpr qsizetype longestVersion = 30; // a commit's hash may happen to be all digits
    qsizetype rest = 0;
    const QString normal = normalVersion(text.trimmed());
    const QVersionNumber version = QVersionNumber::fromString(normal, &rest);
    const bool isOne = !version.isNull() && rest == normal.size() && normal.size() <= longestVersion;
    return isOne ? std::optional(version) : std::nullopt;
}

QJsonValue jsonIn(const HttpClient::Result& reply)
{
    if (!reply || reply->status != fine)
        return {};
    const QJsonDocument document = QJsonDocument::fromJson(reply->body);
    return document.isArray() ? QJsonValue(document.array()) : QJsonValue(document.object());
}

/// Whether it is a forge that says that it has no such repository: all of them give a reason, which the pages
/// of other servers do not.
bool deniesAsForge(const HttpClient::Result& reply)
{
    return reply && reply->status == noSuchThing &&
           QJsonDocument::fromJson(reply->body)[u"message"].isString();
}

} // namespace

bool isNewer(const QString& offered, const QString& installed)
{
    const auto newer = versionFrom(offered);
    const auto older = versionFrom(installed);
    return newer && older ? QVersionNumber::compare(*newer, *older) > 0
                          : offered.trimmed() != installed.trimmed();
}

/// A search for the newest source, handed from answer to answer.
struct ForgeClient::Search
{
    QString host;
    QString path;                         ///< "owner/name"
    std::vector<const Forge*> candidates; ///< from the last to the first
    const Forge* forge = nullptr;
    bool isForge = false; ///< known to be one, or has answered as one
    FoundSource found;

    QUrl url(const QUrl& testBase, const char* form, const QString& commit = {}) const
    {
        const QString base = testBase.isEmpty()
                                 ? QString::fromLatin1(forge->base).replace(QStringLiteral("%1"), host)
                                 : testBase.toString();
        const QString name = forge->encodesPath ? QString::fromLatin1(QUrl::toPercentEncoding(path)) : path;
        return QUrl(base + QString::fromLatin1(form)
                               .replace(QStringLiteral("%2"), commit)
                               .replace(QStringLiteral("%1"), name));
    }

    /// Why there is no repository, after the last candidate has answered as well.
    QString refusal(int status) const
    {
        if (status != noSuchThing && status != fine)
            return host + QStringLiteral(": answers with status %1").arg(status);
        return isForge ? errorText(PluginUpdateError::unknownRepository).arg(path, host)
                       : errorText(PluginUpdateError::unsupportedHost);
    }
};

HttpOrder ForgeClient::order(const QUrl& url) const
{
    return {.url = url,
            .mayVisit =
                [isPlain = setting_.allowsPlainHttp](const QUrl& place) {
                    return place.scheme() == u"https" || (isPlain && place.scheme() == u"http");
                },
            .headers = {{"Accept", "application/json"}}};
}

/// The host and the path of a repository; nothing when the link is none of one.
std::shared_ptr<ForgeClient::Search> ForgeClient::searchFor(const QString& repository)
{
    // Names as forges allow them; GitLab has groups in groups.
    static const QRegularExpression form(
        QStringLiteral("^https://([A-Za-z0-9.-]+(?::[0-9]{1,5})?)/([\\w.~-]+(?:/[\\w.~-]+){1,10})/?$"));
    const QRegularExpressionMatch link = form.match(repository.trimmed());
    const QStringList names = link.captured(2).split(u'/');
    const auto search = std::make_shared<Search>();
    search->host = link.captured(1).toLower();
    const bool isGitHub = search->host == QLatin1StringView(gitHub.host);
    if (!link.hasMatch() || names.contains(QStringLiteral("..")) || (isGitHub && names.size() > 2))
        return nullptr;
    search->path = link.captured(2);
    if (search->path.endsWith(QStringLiteral(".git")))
        search->path.chop(4);
    search->isForge = isGitHub || search->host == u"gitlab.com";
    if (isGitHub)
        search->candidates = {&gitHub};
    else if (search->host.startsWith(QStringLiteral("gitlab.")))
        search->candidates = {&gitLab};
    else
        search->candidates = {&gitLab, &gitea};
    return search;
}

void ForgeClient::newestSource(const QString& repository, const FoundSource& found)
{
    const std::shared_ptr<Search> search = searchFor(repository);
    if (!search)
        return found(std::unexpected(errorText(PluginUpdateError::invalidLink)));
    search->found = found;
    tryNextForge(search);
}

void ForgeClient::tryNextForge(const std::shared_ptr<Search>& search)
{
    search->forge = search->candidates.back();
    search->candidates.pop_back();
    http_.send(order(search->url(setting_.base, search->forge->repository)),
               [this, search](const HttpClient::Result& reply) {
                   if (jsonIn(reply)[u"id"].isDouble())
                       return askReleases(search);
                   search->isForge = search->isForge || deniesAsForge(reply);
                   if (!search->candidates.empty())
                       return tryNextForge(search);
                   search->found(std::unexpected(reply ? search->refusal(reply->status) : reply.error()));
               });
}

void ForgeClient::askReleases(const std::shared_ptr<Search>& search)
{
    http_.send(order(search->url(setting_.base, search->forge->releases)),
               [this, search](const HttpClient::Result& reply) {
                   const PluginSource source = search->forge->release(jsonIn(reply));
                   if (!reply)
                       search->found(std::unexpected(reply.error()));
                   else if (source.version.isEmpty() || source.downloadURL.isEmpty())
                       askCommits(search);
                   else
                       search->found(source);
               });
}

void ForgeClient::askCommits(const std::shared_ptr<Search>& search)
{
    http_.send(
        order(search->url(setting_.base, search->forge->commits)),
        [this, search](const HttpClient::Result& reply) {
            static const QRegularExpression hash(QStringLiteral("^[0-9a-fA-F]{7,64}$"));
            const QString commit = jsonIn(reply)[0][QLatin1StringView(search->forge->commitKey)].toString();
            if (!hash.match(commit).hasMatch())
                return search->found(
                    std::unexpected(reply ? errorText(PluginUpdateError::noSource) : reply.error()));
            search->found(PluginSource{commit, search->url(setting_.base, search->forge->archive, commit)});
        });
}

void ForgeClient::download(const QUrl& archive, const Archive& fetched)
{
    HttpOrder wanted = order(archive);
    wanted.headers.clear();
    wanted.mostBytes = largestArchive;
    wanted.seconds = downloadSeconds;
    http_.send(wanted, [fetched](const HttpClient::Result& reply) {
        if (!reply)
            return fetched(std::unexpected(reply.error()));
        if (reply->status != fine)
            return fetched(
                std::unexpected(QStringLiteral("the download ended with status %1").arg(reply->status)));
        fetched(reply->body);
    });
}

} // namespace ledra
