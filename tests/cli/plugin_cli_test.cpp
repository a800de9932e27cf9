#include "support/program_run.h"
#include "support/test_suite.h"

#include <QJsonArray>
#include <QJsonObject>

using namespace ledra;
using test::contentOf;
using test::ProgramRun;
using test::writeFile;

namespace {

constexpr auto statement = R"(<?xml version="1.0" encoding="UTF-8"?>
<Document xmlns="urn:iso:std:iso:20022:tech:xsd:camt.053.001.08"><BkToCstmrStmt><Stmt><Bal><Amt Ccy="EUR">5000.00</Amt></Bal>
<Ntry><Amt Ccy="EUR">1010.50</Amt><CdtDbtInd>CRDT</CdtDbtInd><BookgDt><Dt>2026-03-20</Dt></BookgDt><NtryDtls><TxDtls>
<Amt Ccy="EUR">1010.50</Amt><RmtInf><Ustrd>Rechnung 2026-0</Ustrd><Ustrd>01 M&#252;ller &amp; S&#xF6;hne</Ustrd></RmtInf></TxDtls></NtryDtls></Ntry>
<Ntry><Amt Ccy="EUR">95.20</Amt><CdtDbtInd>DBIT</CdtDbtInd><BookgDt><Dt>2026-03-20</Dt></BookgDt>
<NtryDtls><TxDtls><RmtInf><Ustrd>2026-002</Ustrd></RmtInf></TxDtls></NtryDtls></Ntry>
<Ntry><Amt Ccy="EUR">95.21</Amt><CdtDbtInd>CRDT</CdtDbtInd><BookgDt><Dt>2026-03-20</Dt></BookgDt>
<NtryDtls><TxDtls><RmtInf><Ustrd>2026-002</Ustrd></RmtInf></TxDtls></NtryDtls></Ntry>
<Ntry><Amt Ccy="EUR">95.20</Amt><CdtDbtInd>CRDT</CdtDbtInd><BookgDt><Dt>2026-03-20</Dt></BookgDt>
<NtryDtls><TxDtls><RmtInf><Ustrd>2026-0023</Ustrd></RmtInf></TxDtls></NtryDtls></Ntry>
</Stmt></BkToCstmrStmt></Document>)";

} // namespace

/// Plugins by command, the examples among them; each test goes on where the one before it ended.
class PluginCliTest : public test::Suite
{
    Q_OBJECT

private Q_SLOTS:
    void nothingInstalled();
    void examplesAreInstalled();
    void bookkeeping();
    void bankStatement();
    void timesheet();
    void patchesOfGuardedRecords();
    void outputThatCannotBeWritten();
    void wrongUse_data();
    void wrongUse();
    void removed();

private:
    QJsonObject record(const QString& number) const
    {
        return QJsonDocument::fromJson(home_.run("show --json", {number}).output).object();
    }
    bool installScript(const QByteArray& main, const QByteArray& manifest = R"({"name":"Script"})") const
    {
        const QString folder = home_.path(QStringLiteral("script.ledraplugin"));
        QDir().mkpath(folder);
        return writeFile(folder + QStringLiteral("/plugin.json"), manifest) &&
               writeFile(folder + QStringLiteral("/main.js"), main) &&
               home_.run("plugin install -q", {folder}).exitCode == 0;
    }

    test::ProgramHome home_;
};

void PluginCliTest::nothingInstalled()
{
    QVERIFY(home_.succeeds(
        "profile set Default \"businessName=Studio Meridian\" numberFormat={YYYY}-{NNN} language=de"));
    QCOMPARE(home_.run("plugin list").output,
             "No plugins installed.\nAdd a .ledraplugin folder to get started.\n");
    QVERIFY(!QFileInfo::exists(home_.path(QStringLiteral("data/Ledra/Plugins"))));
}

void PluginCliTest::examplesAreInstalled()
{
    for (const char* name : {"bookkeeping", "timesheet", "bank-statement"}) {
        const QString path = QStringLiteral("plugins/%1.ledraplugin").arg(QString::fromLatin1(name));
        QVERIFY(home_.succeeds("plugin install", {test::example(path)}));
    }
    QStringList found;
    for (const QJsonValue& row : home_.json("plugin list --json").array())
        found += row[QStringLiteral("id")].toString() + u':' +
                 row[QStringLiteral("operations")][0].toString() + row[QStringLiteral("error")].toString();
    QCOMPARE(found, (QStringList{QStringLiteral("bank-statement:updateInvoices"),
                                 QStringLiteral("bookkeeping:exportInvoices"),
                                 QStringLiteral("timesheet:importInvoices")}));
}

void PluginCliTest::bookkeeping()
{
    for (
        const char* line :
        {R"(new invoice --set date=2026-03-05 --set "recipient.name=Jana Müller" --set "recipient.businessName=Müller """&""" Söhne" --item "Entwurf;10;hour;80;19" --item "Buch;1;piece;53.7383;7")",
         R"(new invoice --set date=2026-03-06 --set recipient.name=Berg --set discountPercentage=20 --item "Beratung;1;hour;100;19")",
         R"(new invoice --set recipient.name=Draft --item "Beratung;1;hour;100;19")",
         R"(new quote --set recipient.name=Quote --item "Beratung;1;hour;100;19")"})
        QVERIFY2(home_.run(line).exitCode == 0, line);
    QVERIFY(home_.succeeds("status 2026-001 sent") && home_.succeeds("status 2026-002 sent"));
    QVERIFY(home_.succeeds("plugin set bookkeeping debtor=12345 key7=2"));
    const ProgramRun run = home_.run("plugin run bookkeeping exportInvoices -o -");
    QVERIFY2(run.errors.isEmpty(), qPrintable(run.errors.join(u'\n')));
    const QStringList lines = QString::fromUtf8(run.output).split(QStringLiteral("\r\n"));
    QCOMPARE(lines[0],
             QStringLiteral(
                 "Umsatz;Soll/Haben;Konto;Gegenkonto;BU-Schlüssel;Belegdatum;Belegfeld 1;Buchungstext"));
    QVERIFY2(lines[1].startsWith(QStringLiteral("952,00;S;12345;8400;;0503;\"2026-001\";")),
             qPrintable(lines[1]));
    QVERIFY2(lines[2].startsWith(QStringLiteral("57,50;S;12345;8300;2;0503;")), qPrintable(lines[2]));
    QCOMPARE(lines[3], QStringLiteral("95,20;S;12345;8400;;0603;\"2026-002\";\"Berg\""));
    QCOMPARE(lines.size(), 5); // drafts and quotes are no bookings

    const QString file = home_.path(QStringLiteral("bookings.csv"));
    QCOMPARE(home_.run("plugin run bookkeeping exportInvoices 2026-002 -o", {home_.path()}).output,
             file.toUtf8() + '\n');
    QCOMPARE(contentOf(file).count("\r\n"), 2);
    QCOMPARE(home_.run("plugin run bookkeeping exportInvoices -o", {home_.path()}).exitCode,
             1); // it is there already
    QCOMPARE(contentOf(file).count("\r\n"), 2);
}

void PluginCliTest::bankStatement()
{
    QCOMPARE(record(QStringLiteral("2026-001"))[QStringLiteral("total")].toDouble(), 1009.5);
    const QString file = home_.path(QStringLiteral("statement.xml"));
    QByteArray text = statement;
    QVERIFY(writeFile(file, text));
    QCOMPARE(home_.run("plugin run bank-statement updateInvoices", {file}).output, ""); // one euro too many
    QVERIFY(writeFile(file, text.replace("1010.50", "1009.50")));
    const ProgramRun run = home_.run("plugin run bank-statement updateInvoices", {file});
    QVERIFY2(run.exitCode == 0 && run.errors.isEmpty(), qPrintable(run.errors.join(u'\n')));
    QJsonObject paid = record(QStringLiteral("2026-001"));
    QCOMPARE(run.output.trimmed(), paid[QStringLiteral("id")].toString().toLatin1());
    QCOMPARE(paid[QStringLiteral("status")].toString(), QStringLiteral("Paid"));
    QCOMPARE(paid[QStringLiteral("statusUpdateDate")].toDouble(), 795697200.0); // noon in Berlin
    QCOMPARE(record(QStringLiteral("2026-002"))[QStringLiteral("status")].toString(), QStringLiteral("Sent"));

    const QString table = home_.path(QStringLiteral("statement.csv"));
    QVERIFY(writeFile(table, "\xef\xbb\xbf\"Buchungstag\";\"Verwendungszweck\";\"Betrag\";\"Währung\"\r\n"
                             "\"21.03.2026\";\"RE 2026-002, danke \"\"Berg\"\"\";\"95,20\";\"EUR\"\r\n"));
    QVERIFY(home_.succeeds("plugin run bank-statement updateInvoices", {table}));
    QCOMPARE(record(QStringLiteral("2026-002"))[QStringLiteral("status")].toString(), QStringLiteral("Paid"));
    QCOMPARE(home_.run("plugin run bank-statement updateInvoices").exitCode, 1); // without a statement
}

void PluginCliTest::timesheet()
{
    const QString file = home_.path(QStringLiteral("times.csv"));
    QVERIFY(writeFile(
        file,
        "Date,Client,Project,Description,Duration,Rate\n2026-02-03,\"Adler, Inc.\",Site,Design,01:30:00,88\n"
        "2026-02-01,\"Adler, Inc.\",Site,Design,0:45,88\n2026-02-02,Berg,,Talk,2.5,\n"
        "2026-02-04,\"Adler, Inc.\",Site,Test,1,80\n"));
    const QByteArray command = "plugin run timesheet importInvoices";
    QVERIFY(home_.run(command.constData(), {file})
                .errors.value(0)
                .contains(QStringLiteral("An entry has no rate")));
    QVERIFY(home_.succeeds("plugin set timesheet rate=100 vat=7"));
    const ProgramRun run = home_.run(command.constData(), {file});
    QVERIFY2(run.exitCode == 0 && run.errors.isEmpty(), qPrintable(run.errors.join(u'\n')));
    const QStringList ids = QString::fromLatin1(run.output).split(u'\n', Qt::SkipEmptyParts);
    QCOMPARE(ids.size(), 2);
    const QJsonObject adler = record(ids[0]);
    QCOMPARE(adler[QStringLiteral("recipient")][QStringLiteral("name")].toString(),
             QStringLiteral("Adler, Inc."));
    QCOMPARE(adler[QStringLiteral("status")].toString(), QStringLiteral("Draft"));
    QCOMPARE(adler[QStringLiteral("items")].toArray().size(), 2);
    QCOMPARE(adler[QStringLiteral("items")][0][QStringLiteral("quantity")].toDouble(), 2.25);
    QCOMPARE(adler[QStringLiteral("total")].toDouble(), 297.46); // (2.25 · 88 + 80) · 1.07
    QCOMPARE(adler[QStringLiteral("serviceDateEnd")].toDouble() -
                 adler[QStringLiteral("serviceDateStart")].toDouble(),
             3 * 86400.0);
    QCOMPARE(record(ids[1])[QStringLiteral("total")].toDouble(), 267.5);
}

void PluginCliTest::patchesOfGuardedRecords()
{
    const QByteArray main = R"(
        exports.updateInvoices = (summaries, context) => {
            if (Object.keys(summaries[0]).join() !== "id,number,formattedNumber,status,total,currency,date,reference,name")
                throw new Error(Object.keys(summaries[0]).join());
            if (!context.version || context.profile === undefined || context.language !== "en" || context.settings.a !== "b=c")
                throw new Error(JSON.stringify(context));
            const patches = { "not-an-id": {} };
            for (const { id, status } of summaries)
                patches[id] = status === "Cancelled" ? { status: "Paid" } : { recipient: { name: "New", address: { city: "Ulm" } }, status: "Cancelled", statusDate: "2026-04-01" };
            return patches;
        };
        exports.importInvoices = () => [{ number: "EXT-{7}", currency: "CHF", date: "2026-01-02",
            items: [{ description: "Work", quantity: 2, unit: "Day", unitPrice: 500, vatPercentage: 0 }] }, { status: "Unknown" }];
    )";
    QVERIFY(installScript(main));
    QVERIFY(home_.succeeds("plugin set script a=b=c"));
    const ProgramRun run = home_.run("plugin run script updateInvoices 2026-001 2026-003");
    QCOMPARE(run.exitCode, 1);
    QCOMPARE(run.errors,
             (QStringList{QStringLiteral("ledra: the plugin was not asked about the record “not-an-id”"),
                          QStringLiteral("ledra: 2026-001 is paid: only its status was changed")}));
    const QJsonObject guarded = record(QStringLiteral("2026-001"));
    QCOMPARE(guarded[QStringLiteral("status")].toString(), QStringLiteral("Cancelled"));
    QCOMPARE(guarded[QStringLiteral("recipient")][QStringLiteral("name")].toString(),
             QStringLiteral("Jana Müller"));
    const QJsonValue free = record(QStringLiteral("2026-003"))[QStringLiteral("recipient")];
    QCOMPARE(free[QStringLiteral("name")].toString() +
                 free[QStringLiteral("address")][QStringLiteral("city")].toString(),
             QStringLiteral("NewUlm"));

    // Of what is cancelled not even the status is changed.
    const ProgramRun closed = home_.run("plugin run script updateInvoices 2026-001");
    QVERIFY(closed.exitCode == 1 && closed.output.isEmpty());
    QCOMPARE(closed.errors.value(1),
             QStringLiteral("ledra: 2026-001 is cancelled and is not to be changed any more"));
    QCOMPARE(record(QStringLiteral("2026-001")), guarded);

    // One patch that cannot be read, and nothing of the import is made.
    const auto count = [&] { return home_.json("list --json").array().size(); };
    const auto before = count();
    const ProgramRun broken = home_.run("plugin run script importInvoices");
    QVERIFY2(broken.exitCode == 1 && broken.errors.value(0).contains(QStringLiteral("1.status")),
             qPrintable(broken.errors.join(u'\n')));
    QCOMPARE(count(), before);
    QVERIFY(installScript(QByteArray(
        "exports.importInvoices = () => [{ number: 'EXT-{7}', currency: 'CHF', date: '2026-01-02', "
        "items: [{ description: 'Work', quantity: 2, unit: 'Day', unitPrice: 500, vatPercentage: 0 }] }]")));
    QVERIFY(home_.succeeds("plugin run script importInvoices"));
    const QJsonObject made = record(QStringLiteral("EXT-{7}"));
    QCOMPARE(made[QStringLiteral("total")].toDouble(), 1000.0);
    QCOMPARE(made[QStringLiteral("currency")].toString(), QStringLiteral("CHF"));
}

void PluginCliTest::outputThatCannotBeWritten()
{
    const QByteArray main =
        R"(exports.exportInvoice = (invoice) => ({ fileName: "../../" + invoice.summary.formattedNumber + ".bin",
            content: invoice.note || "/w==", encoding: "base64" });
        exports.exportInvoices = () => "text")";
    QVERIFY(installScript(main, "{\"name\":\"Script\",\"fileExtension\":\"xml\"}"));
    const QString out = home_.path(QStringLiteral("out"));
    QDir().mkpath(out);
    QVERIFY(home_.succeeds("plugin run script exportInvoice 2026-001 2026-002 -o", {out}));
    QVERIFY(home_.succeeds("plugin run script exportInvoices -o", {out}));
    QCOMPARE(QDir(out).entryList(QDir::Files),
             (QStringList{QStringLiteral("2026-001.bin"), QStringLiteral("2026-002.bin"),
                          QStringLiteral("script.xml")}));
    QCOMPARE(contentOf(out + QStringLiteral("/2026-001.bin")), "\xff");
    const ProgramRun unwritten = home_.run("plugin run script exportInvoice 2026-001 -o /none/x");
    QVERIFY2(unwritten.exitCode == 1 && unwritten.errors.value(0).startsWith(QStringLiteral(
                                            "AppCommands: failed to write plugin output: /none")),
             qPrintable(unwritten.errors.join(u'\n')));
    QVERIFY(home_.succeeds("set 2026-001 note=%%%"));
    const ProgramRun unprepared = home_.run("plugin run script exportInvoice 2026-001 -o", {out});
    QVERIFY2(unprepared.exitCode == 1 && unprepared.errors.value(0).startsWith(QStringLiteral(
                                             "AppCommands: failed to prepare plugin output for sharing: ")),
             qPrintable(unprepared.errors.join(u'\n')));
}

void PluginCliTest::wrongUse_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<QString>("error");
    const auto row = [](const char* line, int code, const char* error) {
        QTest::newRow(line) << code << QString::fromUtf8(error);
    };
    row("plugin", 2, "what shall it do?");
    row("plugin install", 2, "too few arguments");
    row("plugin run script", 2, "too few arguments");
    row("plugin run script fly", 1, "there is no operation \"fly\"");
    row("plugin run script exportInvoice", 1, "exportInvoice takes records");
    row("plugin run script importInvoices 2026-001", 1, "importInvoices takes a file");
    row("plugin run none exportInvoices", 1, "no plugin is called \"none\"");
    row("plugin run timesheet exportInvoices", 1, "the plugin has no exportInvoices");
    row("plugin run script importInvoices ./none.csv", 1, "none.csv");
    row("plugin install ./none.ledraplugin", 1, "no such file");
    row("plugin update script", 1, "Plugin URL is not a valid repository link.");
    row("plugin enable none", 1, "no plugin is called \"none\"");
    row("plugin set script x", 2, "\"x\" is no KEY=VALUE");
}

void PluginCliTest::wrongUse()
{
    QFETCH(int, code);
    QFETCH(QString, error);
    const ProgramRun run = home_.run(QTest::currentDataTag());
    QCOMPARE(run.exitCode, code);
    QVERIFY2(run.errors.size() == 1 && run.errors[0].contains(error), qPrintable(run.errors.join(u'\n')));
}

void PluginCliTest::removed()
{
    const QString folder = home_.path(QStringLiteral("script.ledraplugin"));
    QVERIFY(writeFile(folder + QStringLiteral("/plugin.json"),
                      "{\"name\":\"x\",\"capabilities\":[\"network:api.example.org\"]}"));
    const ProgramRun installed = home_.run("plugin install", {folder});
    QCOMPARE(installed.errors, QStringList{QStringLiteral(
                                   "ledra: script is installed without network; it would like to talk to "
                                   "api.example.org (--allow-hosts lets it)")});
    QVERIFY(home_.succeeds("plugin install --allow-hosts", {folder}));
    QVERIFY(home_.succeeds("plugin disable timesheet") && home_.succeeds("plugin remove script"));
    const QJsonArray rows = home_.json("plugin list --json").array();
    QCOMPARE(rows.size(), 3);
    QVERIFY(!rows[2][QStringLiteral("enabled")].toBool(true) && rows[1][QStringLiteral("enabled")].toBool());
    QVERIFY(QFileInfo::exists(home_.path(QStringLiteral("data/Trash/files/script.ledraplugin/main.js"))));
}

const test::RegisterSuite<PluginCliTest> registration("plugin_cli_test");

#include "plugin_cli_test.moc"
