#include "support/opened_stores.h"
#include "support/program_run.h"
#include "support/recording_console.h"
#include "support/test_suite.h"
#include "support/wait_for.h"

using namespace ledra;
using test::OpenedStores;

/// Programs that work on the same data at the same time.
class TwoProcessesCliTest : public test::Suite
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { home_.enter(); }
    void numbersAreGivenOnce();
    void openWindowFollows();
    void changesOfOneRecordAreAllKept();

private:
    bool follows(const OpenedStores& open);

    test::ProgramHome home_;
    test::RecordingConsole console_;
};

void TwoProcessesCliTest::numbersAreGivenOnce()
{
    for (int round = 0; round < 10; ++round) { // the first on a home without anything
        std::vector<std::unique_ptr<QProcess>> processes(4);
        for (auto& process : processes)
            process = home_.start("new invoice");
        for (const auto& process : processes) {
            const test::ProgramRun run = test::endOf(*process);
            QVERIFY2(run.exitCode == 0 && run.errors.isEmpty(), qPrintable(run.errors.join(u'|')));
        }
    }
    QCOMPARE(OpenedStores(console_).profiles->profiles().size(), std::size_t{1});
    std::set<qint64> numbers;
    for (const Invoice& invoice : OpenedStores(console_).view())
        numbers.insert(invoice.number);
    QVERIFY(numbers.size() == 40 && *numbers.rbegin() == 40);
}

/// Waits until open stores show what newly opened ones do.
bool TwoProcessesCliTest::follows(const OpenedStores& open)
{
    const std::vector<Invoice> fresh = OpenedStores(console_).view();
    test::Waiting waiting;
    const auto look = [&] { return open.view() == fresh ? waiting.done() : void(); };
    const QObject context; // the connection ends with it
    connect(open.invoices.get(), &InvoiceManager::refreshed, &context, look);
    look();
    return waiting.wait();
}

void TwoProcessesCliTest::openWindowFollows()
{
    const OpenedStores open(console_, true);
    home_.ids[QStringLiteral("I")] = idText(open.view().front().id);
    for (const char* command :
         {"set {I} note=x", "set {I} date=2020-02-29", "status {I} sent", "duplicate {I}", "cancel {I}",
          "new quote --item Work", "delete {I} --force", "trash restore {I}"}) {
        const std::vector<Invoice> before = open.view();
        test::Waiting end;
        const auto process = home_.start(command);
        connect(process.get(), &QProcess::finished, this, [&] { end.done(); });
        QVERIFY2(end.wait() && follows(open) && open.view() != before, command); // looking on meanwhile
    }
    for (const char* command : {"set {I} --force date=2026-02-01", "new invoice", "delete {I} --force"})
        QVERIFY2(home_.succeeds(command), command); // looking away meanwhile
    QVERIFY(follows(open));
    QCOMPARE(console_.failures.join(u'|'), QString());
}

void TwoProcessesCliTest::changesOfOneRecordAreAllKept()
{
    OpenedStores open(console_, true);
    const QUuid id = open.view().front().id;
    home_.ids[QStringLiteral("I")] = idText(id);
    const auto stored = [&] { return Invoice(**OpenedStores(console_).invoices->find(id)); };
    QVERIFY(home_.succeeds("set {I} note=theirs"));
    QVERIFY(open.invoices->edit(id, [](Invoice& invoice) { invoice.reference = QStringLiteral("ours"); }));
    // It had not heard of the other one, but an edit starts from what lies on disk.
    QVERIFY(stored().note == u"theirs" && stored().reference == u"ours");

    open.invoices->editSoon(id, [](Invoice& invoice) { invoice.note = QStringLiteral("typed here"); });
    QVERIFY(home_.succeeds("set {I} note=there"));
    open.invoices->flush();
    QCOMPARE(stored().note, QStringLiteral("typed here"));
    QCOMPARE(home_.json("conflicts show 1")[QStringLiteral("note")].toString(), QStringLiteral("there"));
    QCOMPARE(console_.failures.filter(QStringLiteral("kept as conflict 1")).size(), 1);
    QVERIFY(follows(open));
}

const ledra::test::RegisterSuite<TwoProcessesCliTest> registration("two_processes_cli_test");

#include "two_processes_cli_test.moc"
