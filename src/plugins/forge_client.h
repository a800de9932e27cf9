#pragma once

#include "plugins/http_client.h"

#include <QString>
#include <QUrl>

#include <expected>
#include <functional>
#include <memory>

namespace ledra {

/// What a repository has newest.
struct PluginSource
{
    QString version;  ///< of a release its tag, else a commit's hash
    QUrl downloadURL; ///< of a ZIP archive
};

/// Where forges are reached. For tests the interfaces of all of them lie below one address, without
/// encryption.
struct ForgeSetting
{
    QUrl base = {};
    bool allowsPlainHttp = false;
};

/// Whether a repository's version is to be offered in place of the one that is installed.
bool isNewer(const QString& offered, const QString& installed);

/// Asks the forge of a repository (GitHub, GitLab or Gitea, the latter two also on hosts of anybody's) for
/// its newest release or, when it has none, for its newest commit, and fetches archives.
class ForgeClient : public QObject
{
    Q_OBJECT

public:
    explicit ForgeClient(ForgeSetting setting) : setting_(std::move(setting)) {}

    using FoundSource = std::function<void(const std::expected<PluginSource, QString>&)>;
    using Archive = std::function<void(const std::expected<QByteArray, QString>&)>;

    /// @param repository the link that the plugin's manifest gives
    void newestSource(const QString& repository, const FoundSource& found);

    void download(const QUrl& archive, const Archive& fetched);

private:
    struct Search;

    static std::shared_ptr<Search> searchFor(const QString& repository);
    void tryNextForge(const std::shared_ptr<Search>& search);
    void askReleases(const std::shared_ptr<Search>& search);
    void askCommits(const std::shared_ptr<Search>& search);
    HttpOrder order(const QUrl& url) const;

    ForgeSetting setting_;
    HttpClient http_;
};

} // namespace ledra
