#include "render/pdf_export_navigation_delegate.h"

#include <QWebEngineScript>

namespace ledra {

namespace {

// A promise cannot be waited for from outside the page, but a change of its title is heard. Reading a box
// forces the layout that asks for the fonts.
QString fontsReadyScript(const QString& title)
{
    return QStringLiteral("document.body.offsetHeight;"
                          "document.fonts.ready.then(function() { document.title = '%1'; });")
        .arg(title);
}

QString readyTitle(const QUrl& address)
{
    return QStringLiteral("fonts ready ") + address.path();
}

} // namespace

PDFExportNavigationDelegate::PDFExportNavigationDelegate(QWebEnginePage& page, const QUrl& address)
    : page_(page), address_(address)
{
    connect(&page, &QWebEnginePage::loadFinished, this, &PDFExportNavigationDelegate::loadFinished);
    connect(&page, &QWebEnginePage::titleChanged, this, &PDFExportNavigationDelegate::titleChanged);
}

void PDFExportNavigationDelegate::load()
{
    page_.load(address_);
}

void PDFExportNavigationDelegate::loadFinished(bool succeeded)
{
    if (hasFinished || page_.requestedUrl() != address_)
        return;
    if (succeeded)
        page_.runJavaScript(fontsReadyScript(readyTitle(address_)), QWebEngineScript::ApplicationWorld);
    else
        finish([this] { onLoadFailed(WebEngineError::loadFailed); });
}

void PDFExportNavigationDelegate::titleChanged(const QString& title)
{
    if (title == readyTitle(address_))
        finish(onLoadComplete);
}

void PDFExportNavigationDelegate::finish(const std::function<void()>& callback)
{
    if (hasFinished)
        return;
    hasFinished = true;
    callback();
}

} // namespace ledra
