#pragma once

#include <QByteArray>
#include <QHash>
#include <QUrl>
#include <QWebEngineUrlRequestInterceptor>
#include <QWebEngineUrlSchemeHandler>

namespace ledra {

/// Serves pages and shipped fonts to the web engine from memory.
class DocumentSchemeHandler final : public QWebEngineUrlSchemeHandler
{
    Q_OBJECT

public:
    /// Makes the scheme known to the engine; before the application object is created.
    static void registerScheme();

    /// Keeps a page until it is withdrawn, and says under which address it is served.
    QUrl publish(const QString& html);
    void withdraw(const QUrl& address);

    void requestStarted(QWebEngineUrlRequestJob* job) override;

private:
    QHash<QString, QByteArray> pages_; ///< by path
    quint64 nextPage_ = 1;
};

/// Refuses every request that a page makes to anything but the scheme above and data inside the page.
class RequestGuard final : public QWebEngineUrlRequestInterceptor
{
    Q_OBJECT

public:
    void interceptRequest(QWebEngineUrlRequestInfo& info) override;
};

} // namespace ledra
