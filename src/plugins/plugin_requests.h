#pragma once

#include "plugins/http_client.h"

#include <QJsonObject>
#include <QObject>
#include <QStringList>

#include <expected>
#include <functional>

namespace ledra {

/// What a plugin may ask of the program in a call.
struct PluginGrants
{
    QStringList hosts;         ///< "HOST" or "HOST:PORT"; wanted by the plugin and confirmed by the user
    bool hasConnector = false; ///< the user's companion script
    QString connectorFolder;
    bool allowsPlainHttp = false; ///< for tests on this computer only
};

/// Answers what a plugin asks in the course of one call, after checking all of it. What is under way ends
/// with the object.
class PluginRequests : public QObject
{
    Q_OBJECT

public:
    explicit PluginRequests(PluginGrants grants) : grants_(std::move(grants)) {}

    using Result = std::expected<QJsonObject, QString>;
    using Answer = std::function<void(const Result&)>;

    /// The answer may come at once.
    void ask(const QString& kind, const QJsonObject& detail, const Answer& answer);

private:
    void fetch(const QJsonObject& detail, const Answer& answer);
    void runConnector(const QJsonObject& detail, const Answer& answer);
    bool mayVisit(const QUrl& url) const;

    PluginGrants grants_;
    HttpClient http_;
    int asked_ = 0;
};

} // namespace ledra
