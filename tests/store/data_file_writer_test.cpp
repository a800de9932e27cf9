#include "store/data_file_writer.h"
#include "support/recording_console.h"
#include "support/simulated_device.h"
#include "support/test_suite.h"

#include <QTemporaryDir>

using namespace ledra;

namespace {

const QTemporaryDir folder; // only the lock is really there
const QString support = folder.path();
const QString journal = support + QStringLiteral("/Journal");
const QString path = support + QStringLiteral("/Data/2026-04-01-0D9C9A.json");
const QString pathBefore = support + QStringLiteral("/Data/2026-03-31-0D9C9A.json");
const QString deadProcess = QStringLiteral("an earlier boot:1:1");

QByteArray record(const char* version, int size)
{
    return "{\"" + QByteArray(version) + "\": \"" + QByteArray(size, 'x') + "\"}\n";
}

const QByteArray older = record("older", 100);
const QByteArray newer = record("newer", 70);

/// What a disk may be after the computer has stopped.
std::vector<test::Disk> afterPowerLosses(const test::Disk& disk)
{
    std::vector<test::Disk> all;
    for (const int percentKept : {-1, 0, 50, 100}) {
        for (const int names : {0, 1, 2, 3})
            all.push_back(disk.after({percentKept, (names & 1) != 0, (names & 2) != 0}));
    }
    return all;
}

/// One save, as a row of a test's data.
struct Save
{
    test::Disk before;
    std::optional<QByteArray> old;
    DataFileWriter::Order order;
    bool isAtomic = false;

    static void rows()
    {
        QTest::addColumn<int>("oldSize");
        QTest::addColumn<int>("newSize");
        QTest::newRow("larger") << 40 << 100;
        QTest::newRow("of the same size") << 40 << 40;
        QTest::newRow("smaller") << 100 << 40;
        QTest::newRow("new") << -1 << 40;
        QTest::newRow("under another name") << 40 << 50;
        QTest::newRow("in one step") << 40 << 50;
    }

    Save() : isAtomic(qstrcmp(QTest::currentDataTag(), "in one step") == 0)
    {
        QFETCH(int, oldSize);
        QFETCH(int, newSize);
        const bool moves = qstrcmp(QTest::currentDataTag(), "under another name") == 0;
        order = {path, record("new", newSize), {}, moves ? pathBefore : QString()};
        if (oldSize < 0)
            return;
        old = record("old", oldSize);
        order.known = ContentMark::of(*old);
        before.put(moves ? pathBefore : path, *old);
    }

    auto make(DataFileWriter& writer) const
    {
        return isAtomic ? writer.writeAtomically(order) : writer.write(order);
    }

    /// "old" or "new", which is under one name only then; anything else is a fault.
    QString version(const test::Disk& disk) const
    {
        const auto there = disk.content(path);
        const auto moved = order.moved.isEmpty() ? std::nullopt : disk.content(order.moved);
        if (there == order.content && !moved)
            return QStringLiteral("new");
        const bool isOld = order.moved.isEmpty() ? there == old : !there && moved == old;
        return isOld ? QStringLiteral("old")
                     : QString::fromUtf8(there.value_or("no file") + moved.value_or(""));
    }

    /// The same after the next start, which must find everything in order.
    QString versionAfterStart(test::SimulatedDevice& device) const
    {
        test::RecordingConsole console;
        DataFileWriter(support, device, console).recover();
        return version(device.disk) + (device.files(journal) + console.failures).join(u' ');
    }
};

bool isWhole(const QString& version)
{
    return version == u"old" || version == u"new";
}

} // namespace

class DataFileWriterTest : public test::Suite
{
    Q_OBJECT

private Q_SLOTS:
    void stopsAtAnyMoment_data() { Save::rows(); }

    /// The program only, or the computer; and the computer once more while the first stop is mended.
    void stopsAtAnyMoment()
    {
        const Save save;
        test::RecordingConsole console;
        test::SimulatedDevice device(save.before);
        DataFileWriter writer(support, device, console, deadProcess);
        QVERIFY(save.make(writer));
        for (const test::Disk& stopped : device.history) {
            std::vector<test::Disk> disks = afterPowerLosses(stopped);
            disks.push_back(stopped);
            for (const test::Disk& disk : disks) {
                test::SimulatedDevice restarted(disk);
                const QString seen = save.versionAfterStart(restarted);
                QVERIFY2(&stopped == &device.history.back() ? seen == u"new" : isWhole(seen),
                         qPrintable(seen));
                for (const test::Disk& stoppedAgain : restarted.history) {
                    // What a start has shown stays; only a save in one step leaves no entry that would see to
                    // it.
                    const bool mustStay = &stoppedAgain == &restarted.history.back() && !save.isAtomic;
                    for (const test::Disk& last : afterPowerLosses(stoppedAgain)) {
                        test::SimulatedDevice again(last);
                        const QString version = save.versionAfterStart(again);
                        QVERIFY2(mustStay ? version == seen : isWhole(version),
                                 qPrintable(seen + u' ' + version));
                    }
                }
            }
        }
    }

    void deviceFailsAtAnyOperation_data() { Save::rows(); }

    /// This operation only, or putting things back as well, or everything from then on.
    void deviceFailsAtAnyOperation()
    {
        const Save save;
        for (const int failures : {1, 2, 1000}) {
            bool hasFailed = true;
            for (int first = 0; hasFailed; ++first) {
                test::RecordingConsole console;
                test::SimulatedDevice device(save.before);
                DataFileWriter writer(support, device, console, deadProcess);
                device.failing = {first, first + failures};
                const auto written = save.make(writer);
                hasFailed = device.operations > first;
                QVERIFY(written || hasFailed);
                if (written)
                    QVERIFY(device.disk.content(path) == save.order.content);
                else if (failures == 1 && !save.isAtomic)
                    QVERIFY(save.version(device.disk) == u"old" && device.files(journal).isEmpty());
                device.failing = {};
                for (const test::Disk& disk : afterPowerLosses(device.disk)) {
                    test::SimulatedDevice restarted(disk);
                    const QString version = save.versionAfterStart(restarted);
                    const bool isSecondFileTold = !console.failures.isEmpty();
                    QVERIFY(written ? version == u"new" || isSecondFileTold : isWhole(version));
                }
                QVERIFY(save.make(writer));
                QVERIFY(writer.conflicts().all().empty());
                QCOMPARE(save.versionAfterStart(device), QStringLiteral("new"));
            }
        }
    }

    void recoveryWritesOnlyOverTornFiles_data()
    {
        QTest::addColumn<QByteArray>("found");
        QTest::addColumn<QByteArray>("expected");
        QTest::newRow("a third whole version") << record("third", 30) << record("third", 30);
        QTest::newRow("the old one") << older << older;
        QTest::newRow("half of the new one") << newer.left(30) << newer;
        QTest::newRow("all but the last line feed") << newer.chopped(1) << newer;
        QTest::newRow("zeros") << QByteArray(50, '\0') << newer;
        QTest::newRow("what a living process writes") << newer.left(20) << newer.left(20);
        QTest::newRow("something, and the entries are damaged") << newer.left(20) << newer.left(20);
    }

    void recoveryWritesOnlyOverTornFiles()
    {
        QFETCH(QByteArray, found);
        const bool isAlive = QByteArray(QTest::currentDataTag()).contains("living");
        const bool isDamaged = QByteArray(QTest::currentDataTag()).contains("damaged");
        const QString owner = isAlive ? processIdentity() : deadProcess;
        test::RecordingConsole console;
        test::SimulatedDevice device({});
        RecoveryJournal entries(journal, device, console);
        QVERIFY(entries.begin({path, {}, older, {}, {}, owner}));
        QVERIFY(entries.begin({path, journalHash(older), newer, {}, {}, owner})); // the later one wins
        for (const QString& name : isDamaged ? device.files(journal) : QStringList())
            device.disk.put(journal + u'/' + name,
                            device.disk.content(journal + u'/' + name)->replace("x\"}", "y\"}"));
        device.disk.put(path, found);
        DataFileWriter(support, device, console).recover();
        QTEST(device.disk.content(path).value(), "expected");
        QCOMPARE(device.files(journal).size(), isAlive || isDamaged ? 2 : 0);
        QCOMPARE(console.failures.filter(QStringLiteral("cannot read")).size(), isDamaged ? 2 : 0);
    }

    void foreignVersionsAreKept_data()
    {
        QTest::addColumn<QByteArray>("found");
        QTest::addColumn<bool>("isKept");
        QTest::newRow("the known one") << older << false;
        QTest::newRow("the same content") << newer << false;
        QTest::newRow("another one") << record("foreign", 10) << true;
        QTest::newRow("no JSON") << QByteArray("\xff\0{", 3) << true;
    }

    void foreignVersionsAreKept()
    {
        QFETCH(QByteArray, found);
        QFETCH(bool, isKept);
        bool hasFailed = true;
        for (int failing = 0; hasFailed; ++failing) {
            test::RecordingConsole console;
            test::SimulatedDevice device({});
            device.disk.put(path, found);
            device.failing = {failing, failing + 1};
            DataFileWriter writer(support, device, console);
            const auto written = writer.write({path, newer, ContentMark::of(older)});
            hasFailed = device.operations > failing;
            QVERIFY(written || hasFailed);
            QCOMPARE(device.disk.content(path), written ? newer : found);
            const std::vector<Conflict> kept = writer.conflicts().all();
            QVERIFY(!written || kept.size() == std::size_t{isKept}); // not kept: not overwritten either
            if (!written || !isKept)
                continue;
            QCOMPARE(device.disk.content(kept.front().path), found);
            QCOMPARE(kept.front().target, path);
            QVERIFY(
                console.failures.value(0).startsWith(path + QStringLiteral(": changed by somebody else")));
        }
    }
};

const ledra::test::RegisterSuite<DataFileWriterTest> registration("data_file_writer_test");
#include "data_file_writer_test.moc"
