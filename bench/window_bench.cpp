// Weighs the window: from the start of the program's own work until it is painted and answers, a key stroke
// in the search field, scrolling, and the preview after a key stroke in the editor. Prints lines "name value"
// in seconds, which bench/run makes a table of.
//   usage: window_bench FOLDER        an empty scratch folder

#include "render/qt_web_engine.h"
#include "render/web_font_manager.h"
#include "scratch_home.h"
#include "timing.h"
#include "ui/editor/editor_panel.h"
#include "ui/list/list_panel.h"
#include "ui/main_window.h"
#include "ui/preview/preview_panel.h"

#include <QApplication>
#include <QLineEdit>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QThread>

namespace {

using namespace ledra;
using bench::median;
using bench::require;
using bench::say;
using bench::secondsOf;

constexpr int someInvoices = 10'000;
constexpr int manyInvoices = 100'000;

/// The program's start without the loading of its libraries.
struct Running
{
    explicit Running(Console& console) : app({.console = console}), window(app, engine, fonts)
    {
        window.resize(1360, 840);
        window.show();
        require(QTest::qWaitForWindowExposed(&window), "the window does not show");
        window.repaint();
    }

    LedraApp app;
    QtWebEngine engine;
    WebFontManager fonts;
    MainWindow window;
};

/// Until nothing is left to be done at once.
void settle()
{
    QTest::qWait(2000);
}

void measureStart(Console& console)
{
    constexpr int rounds = 3;
    std::vector<double> times;
    for (int round = 0; round < rounds; ++round) {
        std::unique_ptr<Running> running;
        times.push_back(secondsOf([&] { running = std::make_unique<Running>(console); }));
        require(running->window.listPanel().model().recordCount() > someInvoices * 9 / 10,
                "the list is not full");
        settle();
    }
    say("window_start", median(times));
}

/// The longest time for which the window does not answer while it is scrolled page by page.
void measureScrolling(Running& running)
{
    QScrollBar* bar = running.window.listPanel().list().verticalScrollBar();
    double worst = 0;
    std::vector<double> times;
    for (int position = 0; position < bar->maximum(); position += bar->maximum() / 200) {
        const double time = secondsOf([&] {
            bar->setValue(position);
            running.window.listPanel().list().viewport()->repaint();
        });
        times.push_back(time);
        worst = std::max(worst, time);
    }
    require(bar->maximum() > 1000, "there is nothing to scroll");
    say("window_scroll_frame", median(times));
    say("window_scroll_worst", worst);
}

/// The longest time for which the window does not answer within a while.
double longestWait()
{
    constexpr std::chrono::seconds aWhile(2);
    double longest = 0;
    const QDeadlineTimer end(aWhile);
    for (; !end.hasExpired(); QThread::usleep(200))
        longest = std::max(longest, secondsOf([] { QApplication::processEvents(); }));
    return longest;
}

/// What one letter in the search field costs until the list has changed and is painted.
void measureSearch(Running& running)
{
    auto* search = running.window.listPanel().findChild<QLineEdit*>();
    search->setFocus();
    const auto press = [&](const QString& letter) {
        return secondsOf([&] {
            QTest::keyClicks(search, letter);
            running.window.listPanel().list().viewport()->repaint();
        });
    };
    std::vector<double> times;
    const auto type = [&](const char* word) {
        search->selectAll();
        for (const char* letter = word; *letter; ++letter)
            times.push_back(press(QString(QLatin1Char(*letter))));
    };
    // Of each stroke the median of some rounds: a single time says how busy the machine was with others. A
    // search is long forgotten when it is typed again.
    constexpr int roundsOfTyping = 5;
    std::vector<std::vector<double>> strokes;
    for (int round = 0; round < roundsOfTyping; ++round) {
        times.clear();
        for (const char* word : {"berlin", "muster", "rechnung", "4711", "auftrag 47", "xyz"})
            type(word);
        strokes.resize(times.size());
        for (std::size_t i = 0; i < times.size(); ++i)
            strokes[i].push_back(times[i]);
    }
    times.clear();
    std::ranges::transform(strokes, std::back_inserter(times), median);
    say("window_search_key", median(times));
    say("window_search_worst", *std::ranges::max_element(times));

    // After a change lists are added up and what changed is read again, while nobody waits.
    times.clear();
    double wait = 0;
    constexpr int rounds = 5;
    for (int round = 0; round < rounds; ++round) {
        const QUuid id =
            (*running.app.invoiceManager().invoices().at(static_cast<std::size_t>(round) * 1000))->id;
        require(running.app.jobs()
                    .editSoon(
                        id, [](Invoice& invoice) { invoice.note += u'.'; }, Force::yes)
                    .has_value(),
                "no edit");
        wait = std::max(wait, longestWait());
        times.push_back(secondsOf([&] {
            search->setText(QString::number(round));
            while (running.app.filterManager().filter().search != search->text())
                QApplication::processEvents(QEventLoop::WaitForMoreEvents);
            running.window.listPanel().list().viewport()->repaint();
        }));
        settle();
    }
    say("window_search_first", median(times));
    say("window_edit_wait", wait);
}

/// From the last key stroke in the editor until the preview shows it.
void measurePreview(Running& running)
{
    constexpr int strokes = 20;
    MainWindow& window = running.window;
    const JobResult<InvoicePtr> made = window.jobs().create(InvoiceType::invoice);
    require(made.has_value(), "no invoice was made");
    window.reveal((**made)->id);
    window.openEditor();
    DocumentPreview& preview = window.previewPanel().preview();
    QSignalSpy shown(&preview, &DocumentPreview::shown);
    settle();
    auto* field = qobject_cast<QLineEdit*>(QApplication::focusWidget());
    require(field, "no field has the focus");
    std::vector<double> times;
    for (int stroke = 0; stroke < strokes; ++stroke) {
        times.push_back(secondsOf([&] {
            QTest::keyClicks(field, QStringLiteral("x"));
            require(shown.wait(), "the preview does not follow");
        }));
        QTest::qWait(50);
    }
    say("window_preview", median(times));
}

} // namespace

int main(int argc, char** argv)
{
    require(argc == 2, "usage: window_bench FOLDER");
    QtWebEngine::prepare(false);
    const QString folder = QString::fromLocal8Bit(argv[1]);
    int engineArgc = 1; // the engine reads the arguments of the program
    const QApplication application(engineArgc, argv);
    {
        bench::ScratchHome home(folder + QStringLiteral("/some"));
        home.fill(someInvoices);
        measureStart(home.console);
        Running running(home.console);
        settle();
        measureScrolling(running);
        measurePreview(running);
    }
    bench::ScratchHome home(folder + QStringLiteral("/many"));
    home.fill(manyInvoices);
    Running running(home.console);
    settle();
    measureSearch(running);
    return 0;
}
