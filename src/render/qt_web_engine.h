#pragma once

#include "render/page_session.h"
#include "render/web_engine.h"

#include <QWebEngineProfile>
#include <QWebEngineView>

#include <deque>
#include <memory>
#include <vector>

namespace ledra {

/// The web engine of Qt. It never shows a window and needs no display; pages see no network, no disk and no
/// scripts of their own.
class QtWebEngine final : public WebEngine
{
public:
    /// What must be said to the engine before the application object is created: its scheme, its switches
    /// and, for a program without windows, the platform without a display.
    static void prepare(bool needsDisplay);

    QtWebEngine();
    ~QtWebEngine() override;

    void measure(const QString& html, PageFormat format, const QString& script, Answered answered) override;
    void print(const QString& html, const Paper& paper, Printed printed) override;

    /// A page for a view of the user interface. It must go before the engine.
    std::unique_ptr<QWebEnginePage> newPage();

    /// Serves what such pages show.
    DocumentSchemeHandler& pages() { return handler_; }

private:
    struct MeasuringJob
    {
        QString html;
        PageFormat format;
        QString script;
        Answered answered;
    };

    struct PrintJob
    {
        QString html;
        Paper paper;
        Printed printed;
    };

    PageSession& measuringSession(PageFormat format);
    PageSession* idlePrinter();

    /// Deletes a session. A page that it must leave behind keeps the profile.
    void drop(std::unique_ptr<PageSession>& session);

    void startMeasuring();
    void startPrinting();

    RequestGuard guard_;
    DocumentSchemeHandler handler_;
    // Pages must go before their profile, and a view before the page that it shows.
    std::unique_ptr<QWebEngineProfile> profile_;
    std::unique_ptr<PageSession> measuring_;
    std::unique_ptr<QWebEngineView> measuringView_;
    PageFormat measuringFormat_ = PageFormat::a4;
    std::vector<std::unique_ptr<PageSession>> printers_;
    std::deque<MeasuringJob> measuringJobs_; ///< the first of them is under way
    std::deque<PrintJob> waiting_;
    bool hasLostPages_ = false;
};

} // namespace ledra
