// Weighs plugins: how long fifty of them take to load, the runner's start included, and what they cost once
// they have been idle. Prints lines "name value", which bench/run makes a table of.
//   usage: plugin_bench FOLDER         an empty scratch folder

#include "process_memory.h"
#include "scratch_home.h"

#include <QCoreApplication>
#include <QDir>
#include <QEventLoop>
#include <QFileInfo>

namespace {

using namespace ledra;
using bench::require;
using bench::say;

constexpr int rounds = 5;
constexpr int plugins = 50;

void write(const QString& path, const QByteArray& content)
{
    QFile file(path);
    require(file.open(QIODevice::WriteOnly) && file.write(content) == content.size(), "cannot write");
}

void putPlugins(const QString& folder)
{
    for (int number = 0; number < plugins; ++number) {
        const QString plugin = folder + QStringLiteral("/p%1.ledraplugin").arg(number);
        require(QDir().mkpath(plugin + QStringLiteral("/lib")), "no folder");
        write(plugin + QStringLiteral("/plugin.json"), R"({"name":"Plugin","version":"1.0"})");
        write(plugin + QStringLiteral("/main.js"),
              "const { sum } = require('lib/sum'); exports.exportInvoices = (list) => String(sum(list));");
        write(plugin + QStringLiteral("/lib/sum.js"),
              "exports.sum = (list) => list.reduce((sum, invoice) => sum + invoice.summary.total, 0);");
    }
}

/// Loads all of them in a new process.
double secondsToLoad(PluginManager& manager)
{
    return bench::secondsOf([&] {
        QEventLoop loop;
        manager.loadRuntimes([&] { loop.quit(); });
        loop.exec();
        for (const Plugin& plugin : manager.plugins())
            require(manager.runtime(plugin.id()).hasExportInvoices, "a plugin was not loaded");
    });
}

void waitUntilIdle(const PluginManager& manager)
{
    while (manager.runner().isRunning())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

} // namespace

int main(int argc, char** argv)
{
    require(argc == 2, "usage: plugin_bench FOLDER");
    const QCoreApplication application(argc, argv);
    const QString folder = QFileInfo(QString::fromLocal8Bit(argv[1])).absoluteFilePath();
    bench::ScratchHome home(folder);
    LaunchOptions options{.console = home.console, .watchesFolders = false};
    options.plugins.runner =
        QCoreApplication::applicationDirPath() + QStringLiteral("/../ledra-plugin-runner");
    options.plugins.limits.idle = std::chrono::milliseconds(100); // instead of a minute
    const LedraApp without(options); // what the program needs without plugins is laid out
    const auto before = bench::proportionalMemory();
    putPlugins(folder + QStringLiteral("/data/Ledra/Plugins"));
    LedraApp app(options);
    PluginManager& manager = app.pluginManager();
    require(manager.plugins().size() == plugins, "not all plugins are there");
    std::vector<double> times;
    for (int round = 0; round < rounds; ++round) {
        times.push_back(secondsToLoad(manager));
        waitUntilIdle(manager);
    }
    const auto after = bench::proportionalMemory();
    require(before && after, "the kernel does not tell how much memory is in use");
    say("plugins_load", bench::median(times));
    say("plugins_idle_memory", static_cast<double>(*after - *before) / 1024);
    return EXIT_SUCCESS;
}
