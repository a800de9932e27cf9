#include "store/json_reader.h"
#include "support/opened_stores.h"
#include "support/program_run.h"
#include "support/recording_console.h"
#include "support/test_suite.h"

#include <QDir>
#include <QProcess>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QThread>

using namespace ledra;

namespace {

constexpr int usualRounds = 40;
constexpr unsigned longestLife = 30'000; ///< microseconds after the first save

} // namespace

/// A program that saves all the time is killed; whatever it was doing, the next start finds one whole
/// version. The number of rounds can be given as LEDRA_KILL_ROUNDS, the seed of the moments as
/// LEDRA_KILL_SEED.
class KillTest : public test::Suite
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void nothingIsLost();

private:
    void killOnce(unsigned life);
    void checkNextStart();
    void countWhatWasLeft();

    const QTemporaryDir home_;
    int lastSaved_ = 0;
    int interrupted_ = 0; ///< rounds that left an entry in the journal
    int torn_ = 0;        ///< rounds that left a file that is no whole version
    int doubled_ = 0;     ///< rounds that left the record under two names
};

void KillTest::initTestCase()
{
    qputenv("XDG_DATA_HOME", home_.filePath(QStringLiteral("data")).toUtf8());
    qputenv("XDG_CONFIG_HOME", home_.filePath(QStringLiteral("config")).toUtf8());
}

void KillTest::nothingIsLost()
{
    bool isNumber = false;
    const int given = qEnvironmentVariableIntValue("LEDRA_KILL_ROUNDS");
    const int rounds = given > 0 ? given : usualRounds;
    const uint seedGiven = qEnvironmentVariable("LEDRA_KILL_SEED").toUInt(&isNumber);
    const uint seed = isNumber ? seedGiven : QRandomGenerator::global()->generate();
    qInfo("LEDRA_KILL_SEED=%u", seed);
    QRandomGenerator random(seed);
    for (int round = 0; round < rounds && !QTest::currentTestFailed(); ++round) {
        killOnce(random.bounded(longestLife));
        if (!QTest::currentTestFailed())
            checkNextStart();
    }
    qInfo("%d rounds, %d saves; left behind: %d entries, %d torn files, %d second files", rounds, lastSaved_,
          interrupted_, torn_, doubled_);
    QVERIFY(interrupted_ > 0 || rounds < 100); // otherwise the moments were badly chosen
}

void KillTest::killOnce(unsigned life)
{
    QProcess program;
    program.start(QStringLiteral(LEDRA_SAVE_LOOP), QStringList());
    QVERIFY2(program.waitForReadyRead(), program.readAllStandardError().constData());
    QThread::usleep(life);
    program.kill();
    QVERIFY(program.waitForFinished());
    QVERIFY2(program.exitStatus() == QProcess::CrashExit, program.readAllStandardError().constData());
    lastSaved_ = program.readAllStandardOutput().trimmed().split('\n').last().toInt();
    QVERIFY(lastSaved_ > 0);
    countWhatWasLeft();
}

void KillTest::countWhatWasLeft()
{
    const QDir journal(test::supportFolder() + QStringLiteral("/Journal"));
    const QDir invoices(test::supportFolder() + QStringLiteral("/Data/1_Default/Invoices"));
    const QStringList files = invoices.entryList(QDir::Files);
    interrupted_ += static_cast<int>(journal.entryList({QStringLiteral("*.entry")}).size());
    torn_ += static_cast<int>(std::ranges::count_if(
        files, [&](const QString& name) { return !isWholeJson(test::contentOf(invoices.filePath(name))); }));
    doubled_ += static_cast<int>(files.size()) - 1;
}

void KillTest::checkNextStart()
{
    test::RecordingConsole console;
    const test::OpenedStores stores(console);
    QCOMPARE(console.failures, QStringList());
    QCOMPARE(stores.invoices->invoices().size(), std::size_t{1});
    const Invoice& invoice = **stores.invoices->invoices().front();
    const QString version = invoice.reference.value();
    QVERIFY2(version.toInt() == lastSaved_ || version.toInt() == lastSaved_ + 1, qPrintable(version));
    QCOMPARE(invoice.note, version.repeated(invoice.note.size() / version.size()));
    QCOMPARE(stores.invoices->secondFiles().size(), std::size_t{0});
    QCOMPARE(QDir(stores.context.support + QStringLiteral("/Journal")).entryList(QDir::Files),
             QStringList(QStringLiteral("lock")));
    const QString folder = QFileInfo(stores.invoices->filePath(invoice.id)).path();
    QCOMPARE(QDir(folder).entryList(QDir::Files | QDir::Hidden).size(), 1);
}

const ledra::test::RegisterSuite<KillTest> registration("kill_test");
#include "kill_test.moc"
