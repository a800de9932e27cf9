#include "support/pdf_text.h"
#include "support/program_run.h"
#include "support/test_suite.h"

#include <QJsonArray>
#include <QJsonObject>

#include <algorithm>

using namespace ledra;
using test::contentOf;
using test::ProgramRun;

namespace {

/// Whether words of a page stand on each other.
bool hasCollision(const test::PdfPage& page)
{
    for (auto word = page.words.begin(); word != page.words.end(); ++word) {
        const QRectF core = word->box.adjusted(1, 3, -1, -3); // lines may touch
        if (std::any_of(std::next(word), page.words.end(),
                        [&](const test::PdfWord& other) { return other.box.intersects(core); }))
            return true;
    }
    return false;
}

} // namespace

/// Reminders and lists, as from a shell.
class ReminderCliTest : public test::Suite
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void stagesAndLetters();
    void longLetter();
    void listing();
    void editing();
    void csv();
    void wrongInput_data();
    void wrongInput();

private:
    test::ProgramHome home_;
};

void ReminderCliTest::initTestCase()
{
    home_.ids[QStringLiteral("DIR")] = home_.path();
    QVERIFY(home_.succeeds("profile set Default language=de latePaymentInterestRate=9 currency=EUR "
                           "name=\"Mia Petersen\" businessName=\"Studio Nord\" address.country=DE"));
    QVERIFY(home_.succeeds("new invoice -q --set recipient.name=\"Jonas Ahlers\" --set "
                           "recipient.address.country=DE --set date=2026-08-26 --set daysToPay=14 --item "
                           "Entwurf;1;\"lump sum\";1000;0"));
    const ProgramRun draft = home_.run("reminder create 2026-001");
    QCOMPARE(draft.exitCode, 1);
    QVERIFY(draft.errors.value(0).contains(u"only a sent one"));
    QVERIFY(home_.succeeds("status 2026-001 sent"));
    for (int stage = 0; stage < 4; ++stage)
        QVERIFY(home_.succeeds("reminder create -q 2026-001 --set date=2026-11-21"));
}

void ReminderCliTest::stagesAndLetters()
{
    QVERIFY(home_.succeeds("reminder export -q 2026-001:0 2026-001:1 2026-001:2 2026-001:3 -o {DIR}/de/"));
    QVERIFY(home_.succeeds("set 2026-001 language=en --force"));
    QVERIFY(home_.succeeds("styling set marginalColumn=false")); // where long headlines have the least room
    QVERIFY(home_.succeeds("reminder export -q 2026-001:0 2026-001:1 2026-001:2 2026-001:3 -o {DIR}/en/"));
    const auto headlines = [&](const char* folder, const QString& deadline) {
        QStringList found;
        const QDir letters(home_.path(QString::fromLatin1(folder)));
        for (const QString& name : letters.entryList(QDir::Files, QDir::Name)) {
            const auto pages = test::pagesOfPdf(contentOf(letters.filePath(name)));
            const QString headline = QFileInfo(name).completeBaseName().chopped(9); // " 2026-001"
            const bool isWhole = pages.size() == 1 && pages[0].text().contains(headline) &&
                                 pages[0].text().contains(deadline) &&
                                 pages[0].text().contains(u"Jonas Ahlers") && !hasCollision(pages[0]);
            found += isWhole ? headline : QStringLiteral("? ") + name;
        }
        return found.join(u'|');
    };
    QCOMPARE(headlines("de", QStringLiteral("5 Dezember 2026")),
             QStringLiteral("Letzte Mahnung|Mahnung|Zahlungserinnerung|Zweite Mahnung"));
    QCOMPARE(headlines("en", QStringLiteral("5 December 2026")),
             QStringLiteral("Final Payment Reminder|Friendly Reminder|Payment Reminder|Second Payment "
                            "Reminder"));
    QVERIFY(home_.run("reminder text 2026-001:1").output.contains("18.00")); // 9 % for 73 days
    // No copy of a record is inside: a reminder is no invoice to be taken in.
    const ProgramRun import = home_.run("import {DIR}/en/\"Payment Reminder 2026-001.pdf\"");
    QVERIFY(import.exitCode == 1 && import.errors.value(0).contains(u"Only PDFs exported by Ledra"));
}

void ReminderCliTest::longLetter()
{
    QStringList lines;
    for (int i = 0; i < 110; ++i)
        lines += QStringLiteral("Zeile%1 <b>&amp; **fett**").arg(i);
    QVERIFY(home_.succeeds("reminder set 2026-001:0", {QStringLiteral("text=") + lines.join(u'\n')}));
    const ProgramRun run = home_.run("reminder export 2026-001:0 -o -");
    QCOMPARE(run.exitCode, 0);
    const auto pages = test::pagesOfPdf(run.output);
    QCOMPARE(pages.size(), std::size_t{3});
    QString text;
    for (const test::PdfPage& page : pages)
        text += page.text() + u' ';
    for (int i = 0; i < 110; ++i) {
        const QString line = QStringLiteral("Zeile%1 <b>&amp; fett").arg(i);
        QVERIFY2(text.count(line + u' ') == 1, qPrintable(line));
    }
    QVERIFY(pages[2].text().contains(u"Page 3 of 3"));
}

void ReminderCliTest::listing()
{
    const QByteArray list = home_.run("reminder list").output;
    QCOMPARE(list.count('\n'), 4);
    QVERIFY2(list.startsWith("2026-001  3  2026-11-21  Final Payment Reminder "), list.constData());
    const QJsonArray json = home_.json("reminder list 2026-001 --json").array();
    QCOMPARE(json.size(), 4);
    const QJsonObject first = json[1].toObject();
    QCOMPARE(first[u"number"].toInt(), 1);
    QCOMPARE(first[u"interestAmount"].toDouble(), 18.0);
    QCOMPARE(first[u"paymentDeadline"].toString(), QStringLiteral("2026-12-05"));
    QCOMPARE(first[u"fee"].toDouble(), 40.0);
}

void ReminderCliTest::editing()
{
    QVERIFY(home_.succeeds("settings set paymentDeadlineDays 7"));
    const QJsonObject changed = home_.json("reminder set 2026-001:3 fee=0 date=2026-12-01 --json").object();
    QCOMPARE(changed[u"paymentDeadline"].toString(), QStringLiteral("2026-12-08"));
    QVERIFY(!changed.contains(u"fee"));
    QVERIFY(home_.succeeds("reminder delete 2026-001")); // the latest
    QCOMPARE(home_.run("reminder list").output.count('\n'), 3);
    QVERIFY(home_.run("trash list").output.contains("reminder-3.json"));
    QVERIFY(home_.succeeds("reminder create -q 2026-001"));
    const QString other = home_.json("reminder list --json")[0][u"id"].toString();
    QVERIFY(home_.run("reminder text", {other.left(8)}).output.contains("2026-001"));
}

void ReminderCliTest::csv()
{
    test::RunSetting german{.locale = QStringLiteral("de_DE.UTF-8"), .variables = home_.variables()};
    const auto run = test::runProgram(
        {QStringLiteral("csv"), QStringLiteral("--columns"), QStringLiteral("gross,invoiceNumber,status")},
        german);
    QCOMPARE(run.output, QByteArray("Rechnungsnummer;Brutto;Status\n\"2026-001\";1.000,00;\"Versendet\"\n"));
    QVERIFY(home_.succeeds("csv --status paid -q -o {DIR}/list.csv"));
    QCOMPARE(contentOf(home_.path(QStringLiteral("list.csv"))).count('\n'), 1);
    const ProgramRun again = home_.run("csv -o {DIR}/list.csv");
    QVERIFY(again.exitCode == 1 && again.errors.size() == 1 &&
            again.errors.front().startsWith(QStringLiteral("Error writing CSV: ")));
    const ProgramRun told = home_.run("csv --force --verbose -o {DIR}/list.csv");
    QVERIFY(
        told.errors.contains(QStringLiteral("CSV exported to: ") + home_.path(QStringLiteral("list.csv"))));
}

void ReminderCliTest::wrongInput_data()
{
    QTest::addColumn<int>("exitCode");
    for (const char* line : {"reminder", "reminder remind 2026-001", "reminder create", "reminder text",
                             "reminder set 2026-001:0", "reminder set 2026-001:0 id=1",
                             "reminder export 2026-001 --format zugferd", "csv name", "csv --columns price",
                             "csv --columns ,", "csv --status lost"})
        QTest::newRow(line) << 2;
    for (const char* line :
         {"reminder list 2026-009", "reminder create nothing", "reminder create 2026-001 --set date=soon",
          "reminder set 2026-001:0 fee=much", "reminder text 2026-001:9", "reminder delete ABCDEF12",
          "reminder export 2026-001:8 -o x.pdf", "settings set paymentDeadlineDays 9999",
          "csv -o /nowhere/list.csv"})
        QTest::newRow(line) << 1;
}

void ReminderCliTest::wrongInput()
{
    QFETCH(int, exitCode);
    const ProgramRun run = home_.run(QTest::currentDataTag());
    QCOMPARE(run.exitCode, exitCode);
    QVERIFY2(run.output.isEmpty() && run.errors.size() == 1, qPrintable(run.errors.join(u'\n')));
}

const ledra::test::RegisterSuite<ReminderCliTest> registration("reminder_cli_test");

#include "reminder_cli_test.moc"
