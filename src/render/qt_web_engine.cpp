#include "render/qt_web_engine.h"

#include "render/document_address.h"

#include <QCoreApplication>
#include <QLoggingCategory>
#include <QWebEngineSettings>

#include <unistd.h>

#include <algorithm>

namespace ledra {

namespace {

/// Pages in flight side by side. Each waits half a second for its page to settle, so the more there are the
/// less the wait counts; beyond this many, memory grows and speed does not.
constexpr std::size_t mostPrinters = 16;

// The measuring canvas is 4000 points high. The zoom makes one CSS pixel one point wide.
constexpr double screenPixelsPerPoint = 4.0 / 3.0;
constexpr int canvasHeight = 5334;

// The engine shows with its new layout code and prints with the old one unless told otherwise; only with the
// same code for both do blocks stand on paper where they were measured.
constexpr const char* engineSwitches =
    "--enable-blink-features=LayoutNGPrinting,LayoutNGTableFragmentation,LayoutNGFlexFragmentation,"
    "LayoutNGGridFragmentation --log-level=3";

void configure(QWebEngineSettings& settings)
{
    for (const auto attribute :
         {QWebEngineSettings::JavascriptEnabled, QWebEngineSettings::PluginsEnabled,
          QWebEngineSettings::LocalContentCanAccessRemoteUrls,
          QWebEngineSettings::LocalContentCanAccessFileUrls, QWebEngineSettings::LocalStorageEnabled,
          QWebEngineSettings::ErrorPageEnabled, QWebEngineSettings::ShowScrollBars})
        settings.setAttribute(attribute, false);
    settings.setAttribute(QWebEngineSettings::PrintElementBackgrounds, true);
}

} // namespace

void QtWebEngine::prepare(bool needsDisplay)
{
    DocumentSchemeHandler::registerScheme();
    QCoreApplication::setAttribute(Qt::AA_ShareOpenGLContexts); // the engine will not start without
    QByteArray switches = qgetenv("QTWEBENGINE_CHROMIUM_FLAGS") + ' ' + engineSwitches;
    if (::geteuid() == 0)
        switches += " --no-sandbox"; // the sandbox does not work for the superuser
    qputenv("QTWEBENGINE_CHROMIUM_FLAGS", switches);
    if (!needsDisplay && !qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    // It describes at length that it draws without a graphics card, which is what is wanted here, and what
    // pages were refused, which is for nobody to act on.
    QLoggingCategory::setFilterRules(QStringLiteral("qt.webenginecontext=false\njs=false"));
}

QtWebEngine::QtWebEngine() : profile_(std::make_unique<QWebEngineProfile>())
{
    profile_->setUrlRequestInterceptor(&guard_);
    profile_->installUrlSchemeHandler(documentScheme, &handler_);
    configure(*profile_->settings());
}

QtWebEngine::~QtWebEngine()
{
    measuringView_.reset();
    drop(measuring_);
    for (std::unique_ptr<PageSession>& printer : printers_)
        drop(printer);
    if (hasLostPages_) {
        // A page that could not be deleted still refers to it.
        // NOLINTNEXTLINE(bugprone-unused-return-value)
        static_cast<void>(profile_.release());
    }
}

void QtWebEngine::drop(std::unique_ptr<PageSession>& session)
{
    hasLostPages_ = hasLostPages_ || (session && !session->isDeletable());
    session.reset();
}

std::unique_ptr<QWebEnginePage> QtWebEngine::newPage()
{
    auto page = std::make_unique<QWebEnginePage>(profile_.get());
    page->setBackgroundColor(Qt::white);
    return page;
}

PageSession& QtWebEngine::measuringSession(PageFormat format)
{
    // A view that is never shown takes its size only once, before its first page is loaded.
    if (!measuring_ || !measuring_->isUsable() || measuringFormat_ != format) {
        measuringView_.reset();
        drop(measuring_);
        measuringFormat_ = format;
        measuringView_ = std::make_unique<QWebEngineView>();
        auto page = newPage();
        measuringView_->setPage(page.get());
        page->setZoomFactor(screenPixelsPerPoint);
        measuring_ = std::make_unique<PageSession>(std::move(page), handler_);
        measuringView_->resize(qCeil(paperSize(format).width() * screenPixelsPerPoint), canvasHeight);
    }
    return *measuring_;
}

void QtWebEngine::measure(const QString& html, PageFormat format, const QString& script, Answered answered)
{
    measuringJobs_.push_back({html, format, script, std::move(answered)});
    if (measuringJobs_.size() == 1)
        startMeasuring();
}

void QtWebEngine::startMeasuring()
{
    const MeasuringJob& next = measuringJobs_.front();
    measuringSession(next.format)
        .evaluate(next.html, next.script, [this](const std::expected<QByteArray, WebEngineError>& result) {
            const MeasuringJob job = std::move(measuringJobs_.front());
            measuringJobs_.pop_front();
            if (!measuringJobs_.empty())
                startMeasuring();
            if (result)
                job.answered(QString::fromUtf8(*result));
            else
                job.answered(std::unexpected(result.error()));
        });
}

void QtWebEngine::print(const QString& html, const Paper& paper, Printed printed)
{
    waiting_.push_back({html, paper, std::move(printed)});
    startPrinting();
}

PageSession* QtWebEngine::idlePrinter()
{
    for (std::unique_ptr<PageSession>& printer : printers_) {
        if (!printer->isUsable()) {
            drop(printer);
            printer = std::make_unique<PageSession>(newPage(), handler_);
        }
        if (!printer->isBusy())
            return printer.get();
    }
    if (printers_.size() == mostPrinters)
        return nullptr;
    printers_.push_back(std::make_unique<PageSession>(newPage(), handler_));
    return printers_.back().get();
}

void QtWebEngine::startPrinting()
{
    while (!waiting_.empty()) {
        PageSession* printer = idlePrinter();
        if (!printer)
            return;
        PrintJob job = std::move(waiting_.front());
        waiting_.pop_front();
        printer->print(
            job.html, job.paper,
            [this, printed = std::move(job.printed)](const std::expected<QByteArray, WebEngineError>& pdf) {
                startPrinting();
                printed(pdf);
            });
    }
}

} // namespace ledra
