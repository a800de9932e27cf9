#pragma once

#include "render/web_engine.h"

#include <QObject>
#include <QUrl>
#include <QWebEnginePage>

#include <functional>

namespace ledra {

/// Follows one load of a page until its fonts are in place. One of the two callbacks runs, once; later events
/// of the page are ignored.
class PDFExportNavigationDelegate : public QObject
{
    Q_OBJECT

public:
    PDFExportNavigationDelegate(QWebEnginePage& page, const QUrl& address);

    /// Starts the load; set the callbacks before.
    void load();

    std::function<void()> onLoadComplete;
    std::function<void(WebEngineError)> onLoadFailed;
    bool hasFinished = false;

private:
    void loadFinished(bool succeeded);
    void titleChanged(const QString& title);
    void finish(const std::function<void()>& callback);

    QWebEnginePage& page_;
    QUrl address_;
};

} // namespace ledra
