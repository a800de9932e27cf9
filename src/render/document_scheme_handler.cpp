#include "render/document_scheme_handler.h"

#include "render/document_address.h"

#include <QBuffer>
#include <QFile>
#include <QWebEngineUrlRequestInfo>
#include <QWebEngineUrlRequestJob>
#include <QWebEngineUrlScheme>

namespace ledra {

namespace {

constexpr QStringView pagesPath = u"/pages/";
constexpr QStringView fontsPath = u"/fonts/";

std::optional<QByteArray> fontFile(const QString& path)
{
    const QString name = path.sliced(fontsPath.size());
    QFile file(QStringLiteral(":/fonts/") + name);
    if (name.contains(u'/') || !file.open(QIODevice::ReadOnly))
        return std::nullopt;
    return file.readAll();
}

} // namespace

void DocumentSchemeHandler::registerScheme()
{
    QWebEngineUrlScheme scheme(documentScheme);
    scheme.setSyntax(QWebEngineUrlScheme::Syntax::Host);
    // Not a local scheme: the engine gives each local document an origin of its own, and then every page
    // would fetch and decode its fonts again instead of taking them over from the page before.
    scheme.setFlags(QWebEngineUrlScheme::SecureScheme | QWebEngineUrlScheme::CorsEnabled);
    QWebEngineUrlScheme::registerScheme(scheme);
}

QUrl DocumentSchemeHandler::publish(const QString& html)
{
    const QString path = pagesPath.toString() + QString::number(nextPage_++);
    pages_.insert(path, html.toUtf8());
    return QUrl(documentBase()).resolved(QUrl(path));
}

void DocumentSchemeHandler::withdraw(const QUrl& address)
{
    pages_.remove(address.path());
}

void DocumentSchemeHandler::requestStarted(QWebEngineUrlRequestJob* job)
{
    const QString path = job->requestUrl().path();
    const bool isFont = path.startsWith(fontsPath);
    std::optional<QByteArray> content;
    if (isFont)
        content = fontFile(path);
    else if (const auto page = pages_.constFind(path); page != pages_.constEnd())
        content = *page;
    if (!content) {
        job->fail(QWebEngineUrlRequestJob::UrlNotFound);
        return;
    }
    auto* reply = new QBuffer(job); // goes with the job
    reply->setData(*content);
    job->reply(isFont ? "font/woff2" : "text/html", reply);
}

void RequestGuard::interceptRequest(QWebEngineUrlRequestInfo& info)
{
    const QString scheme = info.requestUrl().scheme();
    const bool isOwn = scheme == QLatin1StringView(documentScheme) || scheme == u"data";
    info.block(!isOwn);
}

} // namespace ledra
