#include "bare_engine.h"

#include "render/document_address.h"

#include <QPageLayout>
#include <QWebEngineScript>
#include <QWebEngineSettings>

#include <cstdlib>

namespace ledra::bench {

namespace {

constexpr QSize canvas{794, 5334};

QPageLayout sheet()
{
    const QPageSize size(QSizeF(600, 842), QPageSize::Point, QString(), QPageSize::ExactMatch);
    return QPageLayout(size, QPageLayout::Portrait, QMarginsF());
}

[[noreturn]] void fail(const char* what)
{
    std::fprintf(stderr, "engine_bench: %s\n", what);
    std::_Exit(EXIT_FAILURE);
}

} // namespace

struct BareEngine::Queue
{
    const std::vector<QString>& pages;
    std::size_t next = 0;
    std::size_t printed = 0;
    std::function<void()> done;
};

BareEngine::BareEngine()
{
    profile_.installUrlSchemeHandler(documentScheme, &handler_);
    profile_.settings()->setAttribute(QWebEngineSettings::JavascriptEnabled, false);
    profile_.settings()->setAttribute(QWebEngineSettings::PrintElementBackgrounds, true);
    measuring_ = newPage();
    view_.setPage(measuring_.get());
    view_.resize(canvas);
}

BareEngine::~BareEngine() = default;

std::unique_ptr<QWebEnginePage> BareEngine::newPage()
{
    return std::make_unique<QWebEnginePage>(&profile_);
}

void BareEngine::load(QWebEnginePage& page, const QString& html, std::function<void()> loaded)
{
    const QUrl address = handler_.publish(html);
    QObject::connect(
        &page, &QWebEnginePage::loadFinished, &page,
        [this, address, loaded = std::move(loaded)](bool succeeded) {
            if (!succeeded)
                fail("a page could not be loaded");
            handler_.withdraw(address);
            loaded();
        },
        Qt::SingleShotConnection);
    page.load(address);
}

void BareEngine::measure(const QString& html, const QString& script, std::function<void()> done)
{
    load(*measuring_, html, [this, script, done = std::move(done)] {
        measuring_->runJavaScript(script, QWebEngineScript::ApplicationWorld, [done](const QVariant& answer) {
            if (answer.toString().isEmpty())
                fail("a page could not be measured");
            done();
        });
    });
}

void BareEngine::loadAndPrint(const QString& html, std::function<void()> done)
{
    print(*measuring_, html, std::move(done));
}

void BareEngine::print(QWebEnginePage& page, const QString& html, std::function<void()> done)
{
    load(page, html, [&page, done = std::move(done)] {
        page.printToPdf(
            [done](const QByteArray& pdf) {
                if (!pdf.startsWith("%PDF"))
                    fail("a page could not be printed");
                done();
            },
            sheet());
    });
}

void BareEngine::printAll(const std::vector<QString>& pages, std::size_t inFlight, std::function<void()> done)
{
    const auto queue = std::make_shared<Queue>(Queue{pages, 0, 0, std::move(done)});
    while (printers_.size() < std::min(inFlight, pages.size()))
        printers_.push_back(newPage());
    for (const std::unique_ptr<QWebEnginePage>& printer : printers_)
        printNext(*printer, queue);
}

void BareEngine::printNext(QWebEnginePage& page, const std::shared_ptr<Queue>& queue)
{
    if (queue->next == queue->pages.size())
        return;
    print(page, queue->pages[queue->next++], [this, &page, queue] {
        if (++queue->printed == queue->pages.size())
            queue->done();
        printNext(page, queue);
    });
}

} // namespace ledra::bench
