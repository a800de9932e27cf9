#include "ui/viewer/viewer_web_view.h"

#include "ui/preview/web_content.h"

#include <QContextMenuEvent>
#include <QMenu>
#include <QTimer>
#include <QWebEnginePage>
#include <QWebEngineScript>
#include <QWebEngineSettings>

namespace ledra {

ViewerWebView::ViewerWebView(QtWebEngine& engine, QWidget* parent) : QWebEngineView(parent), engine_(engine)
{
    QWebEnginePage* page = engine.newPage().release();
    page->setParent(this); // it goes with the view
    page->settings()->setAttribute(QWebEngineSettings::ShowScrollBars, true);
    page->setBackgroundColor(palette().color(QPalette::Window));
    setPage(page);
    setAcceptDrops(false);
    connect(page, &QWebEnginePage::loadFinished, this, [this](bool succeeded) {
        if (succeeded) // else another load has taken its place
            loaded();
    });
    connect(page, &QWebEnginePage::renderProcessTerminated, this, [this] {
        QTimer::singleShot(0, this, &ViewerWebView::recover); // not while the page is telling
    });
}

ViewerWebView::~ViewerWebView()
{
    page()->disconnect(this);
    engine_.pages().withdraw(address_);
}

void ViewerWebView::setHtml(const QString& html)
{
    if (html == html_)
        return;
    html_ = html;
    isShown_ = false;
    isWaiting_ = !isVisible();
    if (!isWaiting_)
        load();
}

void ViewerWebView::showEvent(QShowEvent* event)
{
    QWebEngineView::showEvent(event);
    if (std::exchange(isWaiting_, false))
        load();
}

void ViewerWebView::load()
{
    engine_.pages().withdraw(address_);
    scrollTop_ = page()->scrollPosition().y() / page()->zoomFactor();
    address_ = engine_.pages().publish(html_);
    page()->load(address_);
}

void ViewerWebView::loaded()
{
    recoveries_ = 0;
    isShown_ = true;
    page()->setZoomFactor(zoom_);
    page()->runJavaScript(QStringLiteral("window.scrollTo(0, %1)").arg(scrollTop_),
                          QWebEngineScript::ApplicationWorld);
    describeWebContent(*focusProxy(), accessibleName());
    Q_EMIT shown();
}

/// What ends the engine's process again and again is given up.
void ViewerWebView::recover()
{
    constexpr int attempts = 3;
    if (++recoveries_ <= attempts)
        load();
}

void ViewerWebView::setZoom(double factor)
{
    zoom_ = factor;
    page()->setZoomFactor(factor);
}

/// Of the engine's own menu what makes sense for a document.
void ViewerWebView::contextMenuEvent(QContextMenuEvent* event)
{
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    QAction* copy = menu->addAction(tr("Copy"), this, [this] { triggerPageAction(QWebEnginePage::Copy); });
    copy->setEnabled(hasSelection());
    menu->addAction(tr("Select All"), this, [this] { triggerPageAction(QWebEnginePage::SelectAll); });
    menu->popup(event->globalPos());
}

void ViewerWebView::changeEvent(QEvent* event)
{
    QWebEngineView::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && page())
        page()->setBackgroundColor(palette().color(QPalette::Window));
}

} // namespace ledra
