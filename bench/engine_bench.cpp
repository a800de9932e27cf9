// The web engine's share of an export. Prints lines "name value" (seconds, or kilobytes), which bench/run
// makes a table of.
//
//   engine_bench parts FILE.json        one cold start, load for measuring, load and print; the settling is
//   left out engine_bench print N FILE.json…     loads and prints the page of each invoice, N side by side
//   engine_bench memory FOLDER FILE.json…   exports all into the folder and weighs the processes on the way

#include "app/export_sources.h"
#include "bare_engine.h"
#include "model/region.h"
#include "process_memory.h"
#include "render/measuring_script.h"
#include "render/qt_web_engine.h"
#include "render/style_sheet.h"

#include <QApplication>
#include <QEventLoop>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <numeric>

namespace {

using namespace ledra;
using Clock = std::chrono::steady_clock;

const Clock::time_point programStart = Clock::now();

double secondsSince(Clock::time_point start)
{
    return std::chrono::duration<double>(Clock::now() - start).count();
}

/// Runs a piece of work that says later that it is done; the seconds it took.
template <class Work>
double waitFor(Work work)
{
    const Clock::time_point start = Clock::now();
    QEventLoop loop;
    work([&loop] { loop.quit(); });
    loop.exec();
    return secondsSince(start);
}

/// What the three measurements read the invoices with.
struct Records
{
    CommandConsole console{CommandConsole::Verbosity::quiet};
    SystemClock clock;
    RandomIdSource ids;
    BareFiles files{clock, ids, systemRegion(), console};
    WebFontManager fonts;

    std::unique_ptr<InvoiceDocument> document(const QString& path)
    {
        DocumentSetting setting;
        setting.profile = files.defaultProfile();
        setting.styling = files.defaultStyling();
        return std::make_unique<InvoiceDocument>(files.invoice(path).value(), setting, fonts);
    }
};

/// The page that is printed for an invoice of one page, without empty rows.
QString onlyPage(const PaginatedDocument& document)
{
    std::vector<int> blocks(static_cast<std::size_t>(document.expectedBlockCount()));
    std::iota(blocks.begin(), blocks.end(), 0);
    return document.pageHtml(PagePosition::single, blocks, 0, 1);
}

int measureParts(const QStringList& arguments)
{
    bench::BareEngine engine;
    Records records;
    const std::unique_ptr<InvoiceDocument> document = records.document(arguments.value(0));
    const QString script = measuringScript(document->blockSelectors(), document->headerSelector(),
                                           pageGeometry(document->pageFormat()).height);
    const QString measuringHtml = document->measuringHtml();
    const QString html = onlyPage(*document);
    std::printf("parts_start %.6f\n", secondsSince(programStart));
    std::printf("parts_measure %.6f\n",
                waitFor([&](auto done) { engine.measure(measuringHtml, script, done); }));
    std::printf("parts_print %.6f\n", waitFor([&](auto done) { engine.loadAndPrint(html, done); }));
    return EXIT_SUCCESS;
}

int measurePrinting(const QStringList& arguments)
{
    Records records;
    std::vector<QString> pages;
    for (const QString& path : arguments.sliced(1))
        pages.push_back(onlyPage(*records.document(path)));
    bench::BareEngine engine;
    const auto inFlight = arguments.front().toULongLong();
    std::printf("bare_print %.6f\n", waitFor([&](auto done) { engine.printAll(pages, inFlight, done); }) /
                                         static_cast<double>(pages.size()));
    return EXIT_SUCCESS;
}

/// Weighs the processes after the documents of these numbers.
class WeighingObserver final : public ExportObserver
{
public:
    void written(const QString&, const QString&) override
    {
        constexpr std::array weighed = {50, 200, 500};
        ++count_;
        if (std::ranges::find(weighed, count_) != weighed.end())
            std::printf("pss_%d %lld\n", count_,
                        static_cast<long long>(bench::proportionalMemory().value_or(0)));
    }
    void warned(const QString& source, const QString& line) override { failed(source, line); }
    void failed(const QString&, const QString& line) override
    {
        std::fprintf(stderr, "engine_bench: %s\n", line.toUtf8().constData());
        hasFailed_ = true;
    }
    void content(const QByteArray&) override {}

    bool hasFailed() const { return hasFailed_; }

private:
    int count_ = 0;
    bool hasFailed_ = false;
};

int measureMemory(const QStringList& arguments)
{
    Records records;
    WeighingObserver observer;
    QtWebEngine engine;
    ExportOrder order;
    order.target = arguments.front();
    order.sources = fileSources(arguments.mid(1), records.files, records.files.defaultProfile(),
                                records.files.defaultStyling());
    ExportBatch batch(order, engine, records.fonts, records.console, observer);
    waitFor([&](auto done) {
        QObject::connect(&batch, &ExportBatch::finished, done);
        batch.start();
    });
    return observer.hasFailed() ? EXIT_FAILURE : EXIT_SUCCESS;
}

struct Measurement
{
    QStringView name;
    qsizetype fewestArguments;
    int (*run)(const QStringList& arguments);
};

constexpr std::array measurements = {
    Measurement{u"parts", 1, measureParts},
    Measurement{u"print", 2, measurePrinting},
    Measurement{u"memory", 2, measureMemory},
};

} // namespace

int main(int argc, char** argv)
{
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments += QString::fromLocal8Bit(argv[i]);
    const auto wanted = std::ranges::find(measurements, arguments.value(0), &Measurement::name);
    if (wanted == measurements.end() || arguments.size() <= wanted->fewestArguments) {
        std::fputs("usage: engine_bench parts FILE | print N FILE… | memory FOLDER FILE…\n", stderr);
        return EXIT_FAILURE;
    }
    argc = 1; // the engine reads the program's arguments; it is shown none of ours
    QtWebEngine::prepare(false);
    const QApplication application(argc, argv);
    return wanted->run(arguments.sliced(1));
}
