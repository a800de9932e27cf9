#include "platform/folder_watcher.h"
#include "support/test_suite.h"

#include <QElapsedTimer>
#include <QProcess>
#include <QSignalSpy>
#include <QTemporaryDir>

#include <filesystem>
#include <fstream>
#include <thread>

using namespace ledra;

namespace {
/// A folder that is in use, something to move into it, and what a watcher reports.
struct Place
{
    QTemporaryDir root;
    std::filesystem::directory_iterator inUse;
    std::unique_ptr<FolderWatcher> watcher;
    std::unique_ptr<QSignalSpy> reports;

    explicit Place(const QString& watched = QStringLiteral("at/folder"))
    {
        run("mkdir -p at/folder; touch at/folder/old other");
        inUse = std::filesystem::directory_iterator(root.filePath(QStringLiteral("at/folder")).toStdString());
        watcher = std::make_unique<FolderWatcher>(root.filePath(watched));
        reports = std::make_unique<QSignalSpy>(watcher.get(), &FolderWatcher::changed);
    }

    /// Another program does something while the event loop stands still.
    void run(const QByteArray& commands) const
    {
        const QString script = QString::fromUtf8("cd " + root.path().toUtf8() + "; " + commands);
        QCOMPARE(QProcess::execute(QStringLiteral("sh"), {QStringLiteral("-ec"), script}), 0);
    }

    /// The names in the next report, or "rescan".
    [[nodiscard]] QString next() const
    {
        const bool isAny = !reports->isEmpty() || reports->wait();
        const auto changes =
            isAny ? reports->takeFirst().constFirst().value<FolderChanges>() : FolderChanges();
        return QLatin1String(changes.rescan ? "rescan" : "") + QStringList(changes.names.values()).join(u' ');
    }
};

} // namespace

class FolderWatcherTest : public test::Suite
{
    Q_OBJECT

private Q_SLOTS:
    void changesAreReported_data()
    {
        QTest::addColumn<QList<QByteArray>>("steps");
        QTest::addColumn<QString>("report"); // the one that each step ends in
        const auto row = [](const char* title, const char* report, const QList<QByteArray>& steps) {
            QTest::newRow(title) << steps << QString::fromUtf8(report);
        };
        row("new, sub-folder", ".ü", {"echo > at/folder/.ü", "rm at/folder/.ü", "mkdir at/folder/.ü"});
        row("rewritten in place", "old", {"echo 1 > at/folder/old", "echo 2 >> at/folder/old"});
        row("replaced", "old", {"mv other at/folder/old", "rm at/folder/old"});
        row("moved", "old", {"mv at/folder/old new", "mv new at/folder/old"});
        row("hard link that stays alone", "new", {"ln other at/folder/new; rm other"});
        row("the folder itself", "rescan", {"rm -r at/folder", "mkdir at/folder; echo > at/folder/new"});
        row("a folder above", "rescan",
            {"mv at away", "mv away at", "mv at away; mkdir -p at/folder", "rm -r at", "mkdir -p at/folder"});
        row("a link above", "rescan",
            {"mv at a; ln -s a at", "mkdir -p b/folder; rm at; ln -s b at", "rm -r b", "mkdir -p b/folder"});
        const QByteArray storm = "; do echo > at/folder/$((i % 300)); done; ";
        row("10,000 rewrites", "rescan", {"for i in $(seq 10000)" + storm});
        row("lost events", "rescan", {"for i in $(seq 20000)" + storm + "mv at away; mkdir -p at/folder"});
    }

    /// The last comparison shows that the step before had no second report.
    void changesAreReported()
    {
        QFETCH(QList<QByteArray>, steps);
        const Place place;
        for (const QByteArray& step : steps) {
            place.run(step);
            QTEST(place.next(), "report");
        }
        place.run("echo > at/folder/last");
        QCOMPARE(place.next(), QStringLiteral("last"));
    }

    void aMissingFolderIsAwaited()
    {
        const Place place(QStringLiteral("a/b/c"));
        for (const char* other : {"mkdir a", "mkdir a/b", "mkdir a/b/d b", "echo > a/b/c", "rm a/b/c"}) {
            place.run(other);
            QCoreApplication::processEvents();
            QVERIFY(place.reports->isEmpty());
        }
        place.run("mkdir a/b/c");
        QCOMPARE(place.next(), QStringLiteral("rescan"));
    }

    /// Who follows the reports sees the last write. Within 100 ms come at most eight reports and a rescan.
    void anEndlessStormEndsInFewReports()
    {
        const Place place;
        const std::string old = place.watcher->folder().toStdString() + "/old";
        QElapsedTimer time;
        time.start();
        std::jthread writer([old](const std::stop_token& stop) {
            while (!stop.stop_requested()) {
                std::ofstream(old) << "more";
            }
            std::ofstream(old) << "last";
        });
        std::string seen;
        connect(place.watcher.get(), &FolderWatcher::changed, this, [&](const FolderChanges& changes) {
            std::getline(std::ifstream(old), seen);
            if (changes.rescan) {
                writer.request_stop();
            }
        });
        QTRY_COMPARE_WITH_TIMEOUT(seen, "last", 20'000);
        QVERIFY(place.reports->count() <= 9 * (time.elapsed() / 100 + 1));
    }
};

const ledra::test::RegisterSuite<FolderWatcherTest> registration("folder_watcher_test");

#include "folder_watcher_test.moc"
