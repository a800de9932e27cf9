#include "support/program_run.h"
#include "support/test_suite.h"

#include <QJsonArray>
#include <QJsonObject>

using namespace ledra;
using test::contentOf;
using test::ProgramRun;
using test::writeFile;

namespace {

/// An example without something that e-invoices need, and with a character that no font has.
QByteArray incompleteInvoice()
{
    QByteArray json = contentOf(test::example(QStringLiteral("invoice-design-de.json")));
    json.replace("buchhaltung.ahlers@example.com", "");
    return json.replace("Geschäftsausstattung", "Geschäft \xf0\x9f\xaf\xbf");
}

QByteArray text(const ProgramRun& run)
{
    return run.output + '|' + run.errors.join(u'\n').toUtf8();
}

} // namespace

/// E-invoices written, checked, shown and taken in, as from a shell.
class EInvoiceCliTest : public test::Suite
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void missingFieldsStopTheExport();
    void missingFieldsMayBeAllowed();
    void validates();
    void views();
    void showsOnlyWhatIsStated();
    void imports();
    void wrongInput_data();
    void wrongInput();

private:
    QString file(const char* name) const { return home_.path(QString::fromLatin1(name)); }

    test::ProgramHome home_;
};

void EInvoiceCliTest::initTestCase()
{
    home_.ids[QStringLiteral("DIR")] = home_.path();
    home_.ids[QStringLiteral("GOOD")] = test::example(QStringLiteral("invoice-design-de.json"));
    home_.ids[QStringLiteral("US")] = test::example(QStringLiteral("invoice-consulting-us.json"));
    QVERIFY(incompleteInvoice() != contentOf(home_.ids[QStringLiteral("GOOD")]));
    QVERIFY(writeFile(file("incomplete.json"), incompleteInvoice()));
    const ProgramRun logged = home_.run("export {GOOD} --verbose --format xrechnung -o {DIR}/logged.xml");
    QVERIFY(logged.errors.contains(QStringLiteral("XML saved to ") + file("logged.xml")));
    QVERIFY(home_.succeeds("export {GOOD} -q --format xrechnung -o {DIR}/good.xml"));
    QVERIFY(home_.succeeds("export {GOOD} -q --format zugferd -o {DIR}/good.pdf"));
    QByteArray charged = contentOf(file("good.xml"));
    charged.replace(">5130.39</", ">5199.99</");
    QVERIFY(writeFile(file("other-total.xml"), charged));
    QVERIFY(writeFile(file("empty.xml"), {}));
    QVERIFY(writeFile(file("half.xml"), charged.first(charged.size() / 2)));
    QVERIFY(writeFile(file("half.pdf"), contentOf(file("good.pdf")).first(900)));
    QFile large(file("large.xml")); // of 200 MB, none of which is on the disk
    QVERIFY(large.open(QIODevice::WriteOnly) && large.resize(qint64{200} * 1024 * 1024));
}

void EInvoiceCliTest::missingFieldsStopTheExport()
{
    for (const char* format : {"xrechnung", "zugferd"}) {
        const QByteArray line =
            "export {DIR}/incomplete.json -o {DIR}/incomplete.out --format " + QByteArray(format);
        const ProgramRun run = home_.run(line.constData());
        QCOMPARE(run.exitCode, 1);
        QCOMPARE(run.output, QByteArray());
        QVERIFY(run.errors.value(0).endsWith(
            QStringLiteral("incomplete.json: The following required fields for e-invoices are empty:")));
        QCOMPARE(run.errors.mid(1), QStringList({QStringLiteral("–\u2002Recipient email"),
                                                 QStringLiteral("The exported invoice may not be valid.")}));
        QVERIFY(!QFile::exists(file("incomplete.out")));
    }
}

void EInvoiceCliTest::missingFieldsMayBeAllowed()
{
    const ProgramRun run =
        home_.run("export {DIR}/incomplete.json --format zugferd --allow-missing -o {DIR}/incomplete.pdf");
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.output, (file("incomplete.pdf") + u'\n').toUtf8());
    const QByteArray said = text(run);
    for (const char* part : {"Recipient email", "no installed font can show \"\xf0\x9f\xaf\xbf\" (U+1FBFF)"})
        QVERIFY2(said.contains(part), said.constData());
    // As JSON, the same is said in the report.
    const QJsonObject report =
        home_.json("export {DIR}/incomplete.json --format xrechnung --allow-missing --json -o {DIR}/i.xml")[0]
            .toObject();
    QVERIFY2(report[u"message"].toString().contains(u"Recipient email"),
             QJsonDocument(report).toJson().constData());
}

void EInvoiceCliTest::validates()
{
    const ProgramRun good = home_.run("validate {DIR}/good.xml {DIR}/good.pdf {GOOD}");
    QVERIFY2(good.exitCode == 0 && good.errors.isEmpty() && good.output.count(": ok\n") == 3,
             good.output.constData());
    QCOMPARE(home_.run("validate -q {DIR}/good.pdf").output, QByteArray());

    const ProgramRun wrong = home_.run("validate -q {DIR}/incomplete.json {DIR}/other-total.xml {US}");
    QCOMPARE(wrong.exitCode, 1);
    for (const char* part :
         {"incomplete.json: error missing-field: Recipient email\n",
          "other-total.xml: error BR-CO-15: ", "us.json: error missing-field: Sender IBAN\n"})
        QVERIFY2(wrong.output.contains(part), wrong.output.constData());

    const QJsonObject report = home_.json("validate --json {DIR}/other-total.xml")[0].toObject();
    QCOMPARE(report[u"file"].toString(), file("other-total.xml"));
    QStringList codes;
    for (const QJsonValue& finding : report[u"findings"].toArray())
        codes += finding[u"level"].toString() + u' ' + finding[u"code"].toString();
    QVERIFY2(codes.contains(u"error BR-CO-15") && codes.contains(u"warning totals"),
             qPrintable(codes.join(u'|')));
}

void EInvoiceCliTest::views()
{
    const ProgramRun shown = home_.run("view {DIR}/good.pdf {DIR}/other-total.xml");
    QVERIFY(shown.exitCode == 0 && shown.errors.isEmpty());
    QCOMPARE(shown.output.count("Invoice 2026-014"), 2);
    QCOMPARE(shown.output.count("\u20ac5,130.39"), 4); // the second twice more, beside the stated ones
    QCOMPARE(shown.output.count("\u20ac5,199.99"), 2);
    QCOMPARE(home_.json("view --json {DIR}/good.xml")[u"number"].toString(), QStringLiteral("2026-014"));

    QVERIFY(QDir(home_.path()).mkdir(QStringLiteral("pages")));
    QVERIFY(home_.succeeds("view {DIR}/good.pdf {DIR}/other-total.xml --dark -o {DIR}/pages"));
    const QByteArray page = contentOf(file("pages/other-total.html"));
    QVERIFY(page.contains("5.130,39") || page.contains("5,130.39"));
    QVERIFY(page.contains("dark"));
    const ProgramRun again = home_.run("view {DIR}/good.pdf -o {DIR}/pages");
    QVERIFY(again.exitCode == 1 && again.errors.size() == 1); // the page there is kept
    QVERIFY(home_.succeeds("view {DIR}/good.pdf -o {DIR}/pages --force"));
    QVERIFY(contentOf(file("pages/good.html")).startsWith("<!DOCTYPE html>"));
}

void EInvoiceCliTest::showsOnlyWhatIsStated()
{
    const QByteArray invoice = contentOf(file("good.xml"));
    QVERIFY(writeFile(file("credit.xml"), QByteArray(invoice).replace(">380<", ">381<")));
    const QByteArray credit = home_.run("view {DIR}/credit.xml").output;
    QVERIFY2(credit.startsWith("Credit Note 2026-014\n") && !credit.contains("\nDue"), credit.constData());
    const QJsonDocument report = home_.json("view --json {DIR}/credit.xml");
    QCOMPARE(report[u"invoice"][u"type"].toString(), QStringLiteral("cancellation"));
    QCOMPARE(report[u"invoice"][u"formattedNumber"].toString(), QStringLiteral("2026-014"));
    QVERIFY(report[u"invoice"][u"dueDate"].isUndefined() && report[u"invoice"][u"daysToPay"].isUndefined());

    QByteArray silent = invoice;
    for (const char* date : {"DueDateDateTime>", "OccurrenceDateTime>"})
        silent.replace(date, "OtherDateTime>");
    QVERIFY(home_.run("view {DIR}/good.xml").output.contains("\nDue "));
    QVERIFY(writeFile(file("silent.xml"), silent));
    const QByteArray shown = home_.run("view {DIR}/silent.xml").output;
    QVERIFY2(shown.contains("\nDate ") && !shown.contains("\nDue "), shown.constData());
    const QJsonObject record = home_.json("view --json {DIR}/silent.xml")[u"invoice"].toObject();
    for (const char* key : {"serviceDateStart", "daysToPay", "dueDate"})
        QVERIFY2(!record.contains(QLatin1StringView(key)), key);
    QVERIFY(record.contains(u"date"));
}

void EInvoiceCliTest::imports()
{
    const ProgramRun taken = home_.run("import {DIR}/good.pdf {DIR}/other-total.xml");
    QCOMPARE(taken.exitCode, 0);
    QVERIFY2(taken.errors.filter(QStringLiteral(": the document states another total: ")).size() == 2,
             qPrintable(taken.errors.join(u'\n')));
    const QList<QByteArray> ids = taken.output.trimmed().split('\n');
    QCOMPARE(ids.size(), 2);
    home_.ids[QStringLiteral("DRAFT")] = QString::fromLatin1(ids[1]);
    const QJsonObject draft = home_.json("show --json {DRAFT}").object();
    QCOMPARE(draft[u"status"].toString(), QStringLiteral("Draft"));
    QCOMPARE(draft[u"formattedNumber"].toString(), QStringLiteral("2026-014"));
    // The profile's own data is not touched by what a stranger's document says.
    QVERIFY(!home_.run("profile show").output.contains("Nordlicht"));

    const ProgramRun again = home_.run("import {DIR}/good.pdf");
    QCOMPARE(again.exitCode, 1);
    QVERIFY(again.errors.size() == 1 && again.errors.front().contains(u"already another version"));
    QCOMPARE(home_.json("list --json").array().size(), 2);
}

void EInvoiceCliTest::wrongInput_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<int>("exitCode");
    for (const char* line :
         {"view", "validate", "import", "view {DIR}/good.xml --json -o x.html",
          "view {DIR}/good.xml {DIR}/good.pdf -o -", "view {DIR}/good.xml {DIR}/good.pdf -o {DIR}/x.html",
          "export {GOOD} --format ubl"})
        QTest::newRow(line) << QByteArray(line) << 2;
    for (const char* command : {"view", "validate", "import"}) {
        for (const char* name : {"none.xml", "none.pdf", "empty.xml", "half.xml", "half.pdf", "large.xml"}) {
            const QByteArray line = QByteArray(command) + " {DIR}/" + name;
            QTest::newRow(line.constData()) << line << 1;
        }
    }
}

void EInvoiceCliTest::wrongInput()
{
    QFETCH(QByteArray, line);
    QFETCH(int, exitCode);
    const ProgramRun run = home_.run(line.constData());
    QCOMPARE(run.exitCode, exitCode);
    const QByteArray said = run.output + run.errors.join(u'\n').toUtf8();
    const bool isOneLine = run.errors.size() + run.output.count('\n') == 1;
    QVERIFY2(isOneLine, said.constData());
    QVERIFY2(said.contains(exitCode == 2 ? "--help" : line.mid(line.lastIndexOf('/') + 1)), said.constData());
}

const ledra::test::RegisterSuite<EInvoiceCliTest> registration("einvoice_cli_test");

#include "einvoice_cli_test.moc"
