#pragma once

#include "render/qt_web_engine.h"

#include <QUrl>
#include <QWebEngineView>

namespace ledra {

/// Shows a page of HTML that needs nothing else. Scripts are off, nothing is fetched, and nothing that is
/// dropped on it is opened in its place. A page that takes the place of another keeps the reader's place. It
/// is not loaded before the view is seen, since each page needs a process.
class ViewerWebView : public QWebEngineView
{
    Q_OBJECT

public:
    ViewerWebView(QtWebEngine& engine, QWidget* parent);
    ~ViewerWebView() override;

    const QString& html() const { return html_; }

    /// Hides the engine's own way, which takes two megabytes at most.
    void setHtml(const QString& html);

    void setZoom(double factor);

    /// Whether the HTML that was set last is to be seen.
    bool isShown() const { return isShown_; }

Q_SIGNALS:
    void shown();

protected:
    void contextMenuEvent(QContextMenuEvent* event) override;
    void changeEvent(QEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void load();
    void loaded();
    void recover();

    QtWebEngine& engine_;
    QString html_;
    QUrl address_;
    double zoom_ = 1;
    double scrollTop_ = 0;   ///< to go back to
    int recoveries_ = 0;     ///< since the last success
    bool isWaiting_ = false; ///< to be seen, before it loads
    bool isShown_ = false;
};

} // namespace ledra
