// Weighs the data folder: starting up with many invoices beside a bare loop that reads and parses the same
// files, the memory that they take, a single changed file, the next number, and filters of the list. Prints
// lines "name value", which bench/run makes a table of.
//   usage: store_bench FOLDER        an empty scratch folder on a disk

#include "app/invoice_list.h"
#include "app/ledra_app.h"
#include "platform/folder_listing.h"
#include "process_memory.h"
#include "scratch_home.h"
#include "timing.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>

#include <simdjson.h>

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <thread>

namespace {

using namespace ledra;
using bench::median;
using bench::require;
using bench::say;
using bench::secondsOf;

constexpr int rounds = 7;
constexpr int someInvoices = 10'000;
constexpr int manyInvoices = 100'000;

/// Start-up and the list in its order. The application lives on: putting it away is no part of it.
std::vector<InvoicePtr> startAndList(bench::ScratchHome& home, std::unique_ptr<LedraApp>& app)
{
    app = std::make_unique<LedraApp>(LaunchOptions{.console = home.console, .watchesFolders = false});
    return app->filterManager().filtered({});
}

/// Reads and parses the same files on as many threads, and does nothing with them.
std::size_t bareLoop(const QString& folder)
{
    const std::vector<FolderEntry> names = listFolder(folder).value();
    std::atomic<std::size_t> next = 0;
    std::atomic<std::size_t> parsed = 0;
    const auto work = [&] {
        simdjson::dom::parser parser;
        for (std::size_t i = next++; i < names.size(); i = next++) {
            const auto content =
                simdjson::padded_string::load(QFile::encodeName(folder + u'/' + names[i].name).toStdString());
            parsed += !content.error() && !parser.parse(content.value_unsafe()).error();
        }
    };
    {
        std::vector<std::jthread> threads;
        for (unsigned i = 0; i < std::thread::hardware_concurrency(); ++i)
            threads.emplace_back(work);
    }
    return parsed;
}

void measureStart(bench::ScratchHome& home)
{
    std::vector<double> own;
    std::vector<double> text;
    std::vector<double> bare;
    for (int round = 0; round < rounds; ++round) {
        std::size_t parsed = 0;
        bare.push_back(secondsOf([&] { parsed = bareLoop(home.invoices); }));
        std::unique_ptr<LedraApp> app;
        std::vector<InvoicePtr> list;
        own.push_back(secondsOf([&] { list = startAndList(home, app); }));
        require(list.size() == parsed && list.size() > someInvoices * 9 / 10, "not all files were listed");
        const Profile& profile = **app->profileManager().activeProfile();
        text.push_back(secondsOf(
            [&] { require(!listJson(list, profile, app->clock().now()).isEmpty(), "nothing was written"); }));
    }
    say("store_start_own", median(own));
    say("store_list_text", median(text));
    say("store_start_bare", median(bare));
}

/// One file rewritten by somebody else until its change is in the list.
void measureOneChange(bench::ScratchHome& home)
{
    LedraApp app({.console = home.console, .watchesFolders = true});
    const InvoicePtr record = app.invoiceManager().invoices().front();
    const QString path = app.invoiceManager().filePath((*record)->id);
    std::vector<double> times;
    for (int round = 0; round < rounds; ++round) {
        Invoice changed = **record;
        changed.note = QStringLiteral("Fassung %1").arg(round);
        QFile file(path);
        require(file.open(QIODevice::WriteOnly) && file.write(fileText(changed)) > 0, "cannot write");
        file.close();
        times.push_back(secondsOf([&] {
            while ((*record)->note != changed.note)
                QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        }));
    }
    say("store_one_change", median(times));
}

void measureMany(bench::ScratchHome& home)
{
    const std::int64_t before = bench::proportionalMemory().value_or(0);
    std::unique_ptr<LedraApp> app;
    const double seconds =
        secondsOf([&] { app = std::make_unique<LedraApp>(LaunchOptions{.console = home.console}); });
    say("store_many_count", static_cast<double>(app->invoiceManager().invoices().size()));
    say("store_many_start", seconds);
    say("store_many_memory", static_cast<double>(bench::proportionalMemory().value_or(0) - before) / 1024);

    FilterManager& filters = app->filterManager();
    // What passes a filter is kept until another one is asked for.
    const auto forget = [&] { (void)filters.passing({.year = 1970}); };
    const auto measure = [&](const char* name, const auto& work) {
        std::vector<double> times;
        for (int round = 0; round < rounds; ++round) {
            forget();
            times.push_back(secondsOf(work));
        }
        say(name, median(times));
    };
    measure("store_next_number",
            [&] { require(app->invoiceManager().nextNumber(InvoiceType::invoice) > 0, "no next number"); });
    const auto filter = [&](const char* name, const InvoiceFilter& wanted) {
        std::size_t found = 0;
        measure(name, [&] { found = filters.filtered(wanted).size(); });
        require(found > 0, name);
    };
    filter("store_filter_year", {.status = Status::sent, .year = 2025});
    filter("store_filter_overdue", {.overdueOnly = true});
    say("store_index", secondsOf([&] { filters.prepareSearch(); }));
    filter("store_filter_search", {.search = QStringLiteral("auftrag 4711")});
    filter("store_filter_words", {.search = QStringLiteral("özdemir kaffeetüten")});
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    require(argc == 2, "usage: store_bench FOLDER");
    bench::ScratchHome home(QDir(QString::fromLocal8Bit(argv[1])).absolutePath());
    home.fill(someInvoices);
    measureStart(home);
    measureOneChange(home);
    home.fill(manyInvoices);
    measureMany(home);
    return EXIT_SUCCESS;
}
