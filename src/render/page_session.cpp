#include "render/page_session.h"

#include <QPageLayout>
#include <QPageSize>
#include <QPointer>
#include <QWebEngineScript>

#include <chrono>

namespace ledra {

namespace {

using namespace std::chrono_literals;

constexpr auto timeLimit = 60s; // for one job; a page of three hundred rows takes a second
constexpr auto settleTime = 500ms;

/// The layout at which the engine prints without scaling. It rounds the width of A4 down, which would shrink
/// the page; a sheet a little wider keeps the scale, and the PDF gets its exact size when pages are joined.
QPageLayout printLayout(const Paper& paper)
{
    const QSizeF sheet = paper.format == PageFormat::usLetter ? QSizeF(612, 792) : QSizeF(600, 842);
    const QPageSize size(sheet, QPageSize::Point, QString(), QPageSize::ExactMatch);
    QMarginsF margins = paper.margins;
    if (!margins.isNull())
        margins.setRight(margins.right() + sheet.width() - paperSize(paper.format).width());
    return QPageLayout(size, QPageLayout::Portrait, margins, QPageLayout::Point);
}

} // namespace

PageSession::PageSession(std::unique_ptr<QWebEnginePage> page, DocumentSchemeHandler& handler)
    : page_(std::move(page)), handler_(handler)
{
    limit_.setSingleShot(true);
    connect(&limit_, &QTimer::timeout, this, [this] { giveUp(WebEngineError::timedOut); });
    connect(page_.get(), &QWebEnginePage::renderProcessTerminated, this,
            [this] { giveUp(WebEngineError::rendererDied); });
}

PageSession::~PageSession()
{
    if (!isDeletable()) {
        page_->disconnect();
        page_->setParent(nullptr);
        // Kept for ever on purpose, see isDeletable().
        // NOLINTNEXTLINE(bugprone-unused-return-value)
        static_cast<void>(page_.release());
    }
}

void PageSession::evaluate(const QString& html, const QString& script, Done done)
{
    const auto answered = [session = QPointer(this), job = job_ + 1](const QVariant& answer) {
        if (!session || session->job_ != job)
            return;
        if (answer.typeId() == QMetaType::QString)
            session->finish(answer.toString().toUtf8());
        else
            session->finish(std::unexpected(WebEngineError::scriptFailed));
    };
    start(
        html,
        [this, script, answered] {
            page_->runJavaScript(script, QWebEngineScript::ApplicationWorld, answered);
        },
        std::move(done));
}

void PageSession::print(const QString& html, const Paper& paper, Done done)
{
    start(html, [this, paper] { settleAndPrint(paper); }, std::move(done));
}

void PageSession::settleAndPrint(const Paper& paper)
{
    const auto printed = [session = QPointer(this), job = job_](const QByteArray& pdf) {
        if (!session || session->job_ != job)
            return;
        if (pdf.isEmpty())
            session->finish(std::unexpected(WebEngineError::printFailed));
        else
            session->finish(pdf);
    };
    QTimer::singleShot(settleTime, this, [this, paper, printed, job = job_] {
        if (job == job_ && done_)
            page_->printToPdf(printed, printLayout(paper));
    });
}

void PageSession::start(const QString& html, std::function<void()> whenReady, Done done)
{
    ++job_;
    done_ = std::move(done);
    limit_.start(timeLimit);
    address_ = handler_.publish(html);
    delegate_ = std::make_unique<PDFExportNavigationDelegate>(*page_, address_);
    delegate_->onLoadComplete = std::move(whenReady);
    delegate_->onLoadFailed = [this](WebEngineError error) { finish(std::unexpected(error)); };
    delegate_->load();
}

void PageSession::finish(std::expected<QByteArray, WebEngineError> result)
{
    if (!done_)
        return;
    limit_.stop();
    handler_.withdraw(address_);
    // The answer is delivered from the event loop, so that it may start the session's next job. It is not
    // bound to the session's own life: a session that gave up may be replaced before.
    QTimer::singleShot(0, &handler_,
                       [done = std::exchange(done_, {}), result = std::move(result)] { done(result); });
}

void PageSession::giveUp(WebEngineError error)
{
    isUsable_ = false;
    finish(std::unexpected(error));
}

} // namespace ledra
