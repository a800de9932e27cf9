#include "support/program_run.h"
#include "support/test_suite.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QRandomGenerator>

using namespace ledra;
using test::contentOf;
using test::filesBelow;
using test::ProgramHome;
using test::ProgramRun;

namespace {

/// A home with two profiles, records in both, and a styling.
bool fill(const ProgramHome& home)
{
    return home.succeeds("profile create Werkstatt -q") &&
           home.succeeds("profile set Default language=de name=\"Mia Petersen\" email=mia@example.de "
                         "phone=+49401234 address.postcode=20457 address.city=Hamburg address.country=DE "
                         "taxNumber=22/333/44444 iban=DE02120300000000202051 bic=BYLADEM1001") &&
           home.succeeds("new invoice -q --set recipient.name=\"Jonas Ahlers\" --set "
                         "recipient.email=jonas@example.de --set recipient.address.postcode=23552 --set "
                         "recipient.address.city=Bremen --set reference=A7 --item Entwurf;2;hour;80;19") &&
           home.succeeds("new invoice -q --set recipient.name=Entwurf --item Druck;1;piece;5;19") &&
           home.succeeds("new quote -q --profile Werkstatt --item Tisch;1;piece;900;19") &&
           home.succeeds("status 2026-001 sent") && home.succeeds("styling set primaryColor=112233");
}

QStringList namesBelow(const ProgramHome& home, const char* folder)
{
    return QDir(home.path(QString::fromLatin1(folder))).entryList(QDir::Files, QDir::Name);
}

} // namespace

/// Data files, style files, backups and the automatic export, as from a shell.
class ArchiveCliTest : public test::Suite
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void profilesMove();
    void stylingsMove();
    void backupsComeBack();
    void killedBackup();
    void unwritableBackups();
    void automaticExport();
    void wrongInput_data();
    void wrongInput();

private:
    ProgramHome home_;
};

void ArchiveCliTest::initTestCase()
{
    home_.ids[QStringLiteral("DIR")] = home_.path();
    QVERIFY(fill(home_));
    QVERIFY(test::writeFile(home_.path(QStringLiteral("text.txt")), "no archive"));
}

void ArchiveCliTest::profilesMove()
{
    QVERIFY(home_.succeeds("profile export --all -q -o {DIR}/all.ledradata"));
    const ProgramRun one = home_.run("profile export Werkstatt -o {DIR}");
    QVERIFY(
        QString::fromUtf8(one.output)
            .contains(QRegularExpression(QStringLiteral("/Werkstatt \\d{4}-\\d\\d-\\d\\d\\.ledradata\n$"))));
    ProgramHome other;
    other.ids = home_.ids;
    const ProgramRun imported = other.run("profile import {DIR}/all.ledradata");
    QCOMPARE(imported.output, QByteArray("Default Copy\nWerkstatt\n"));
    QCOMPARE(other.run("list --json --profile \"Default Copy\"").output, home_.run("list --json").output);
    QCOMPARE(other.json("profile list --json").array().size(), 3);
    QVERIFY(other.json("profile list --json")[0][u"active"].toBool()); // what was active stays it
}

void ArchiveCliTest::stylingsMove()
{
    QVERIFY(home_.succeeds("styling export -q -o {DIR}/look.ledrastyle"));
    const ProgramRun none = home_.run("styling export --profile Werkstatt -o {DIR}/none.ledrastyle");
    QCOMPARE(none.errors, QStringList{QStringLiteral("ledra: This profile has no styling to export yet.")});
    QVERIFY(home_.succeeds("styling import {DIR}/look.ledrastyle --profile Werkstatt"));
    QCOMPARE(home_.json("styling show --json --profile Werkstatt")[u"primaryColor"].toString(),
             QStringLiteral("112233"));
    QVERIFY(home_.run("styling import {DIR}/look.ledrastyle").errors.value(0).contains(u"--force"));
    QVERIFY(home_.succeeds("styling import {DIR}/look.ledrastyle --force"));
}

void ArchiveCliTest::backupsComeBack()
{
    const ProgramRun made = home_.run("backup if-due");
    const QString file = QString::fromUtf8(made.output).trimmed();
    QVERIFY2(QFile::exists(file) && file.endsWith(QStringLiteral(".ledradata")), made.output.constData());
    QCOMPARE(home_.run("backup if-due").output, QByteArray()); // not due any more
    const ProgramRun again = home_.run("backup run");
    QVERIFY(again.exitCode == 0 && again.errors.value(0).contains(u"of today already"));
    QCOMPARE(home_.json("backup list --json")[0][u"file"].toString(), file);

    ProgramHome fresh;
    fresh.ids[QStringLiteral("FILE")] = file;
    fresh.ids[QStringLiteral("DIR")] = fresh.path();
    QCOMPARE(fresh.run("backup restore {FILE}").output, QByteArray("Default\nWerkstatt\n"));
    for (const char* line : {"list --json", "list --json --profile Werkstatt", "styling show"})
        QCOMPARE(fresh.run(line).output, home_.run(line).output);
    // Once there are data, they stay what they are, and the others come beside them.
    const auto before = filesBelow(fresh.data());
    QCOMPARE(fresh.run("backup restore {FILE}").output, QByteArray("Default Copy\nWerkstatt Copy\n"));
    const auto after = filesBelow(fresh.data());
    for (const auto& [path, content] : before.asKeyValueRange())
        QCOMPARE(after.value(path), content);
    // Unpacked somewhere else, they are a data folder of their own.
    QVERIFY(fresh.succeeds("backup restore {FILE} -q --to {DIR}/elsewhere"));
    const auto original = filesBelow(home_.data());
    QCOMPARE(filesBelow(fresh.path(QStringLiteral("elsewhere"))).size(), original.size());
    QCOMPARE(fresh.run("backup restore {FILE} --to {DIR}/elsewhere").exitCode, 1);
}

void ArchiveCliTest::killedBackup()
{
    ProgramHome home;
    QVERIFY(home.succeeds("list"));
    QByteArray noise(400'000, '\0'); // takes long to pack, so that the backup is met half-way
    QRandomGenerator generator(1);
    generator.generate(noise.begin(), noise.end());
    for (int i = 0; i < 150; ++i)
        QVERIFY(test::writeFile(home.data(QStringLiteral("1_Default/%1.txt").arg(i)), noise));
    QVERIFY(QDir().mkpath(home.path(QStringLiteral("tmp"))));
    auto variables = home.variables();
    variables.insert(QStringLiteral("TMPDIR"), home.path(QStringLiteral("tmp")));
    const auto process = test::startProgram(home.words("backup run"), {.variables = variables});
    const auto copies = [&] { return filesBelow(home.path(QStringLiteral("tmp"))).size(); };
    while (copies() < 151 && process->state() != QProcess::NotRunning) // with profile.json
        process->waitForFinished(1);
    process->kill(); // all is copied, now it is being packed
    QVERIFY(process->waitForFinished());
    QVERIFY2(process->exitStatus() == QProcess::CrashExit, "the backup was over too soon");
    QCOMPARE(home.run("backup list").output, QByteArray()); // half a backup is none
    const QString file = QString::fromUtf8(home.run("backup if-due").output).trimmed();
    QVERIFY(QFile::exists(file));
    QCOMPARE(QFileInfo(file).dir().entryList(QDir::Files), QStringList{QFileInfo(file).fileName()});
}

void ArchiveCliTest::unwritableBackups()
{
    ProgramHome home;
    QVERIFY(home.succeeds("list"));
    QVERIFY(test::writeFile(home.path(QStringLiteral("data/Ledra/Backups")), "not a folder"));
    const ProgramRun run = home.run("backup if-due");
    QCOMPARE(run.exitCode, 1);
    QVERIFY(run.errors.size() == 1 &&
            run.errors.front().startsWith(QStringLiteral("BackupManager: Backup failed: ")));
    const ProgramRun list = home.run("backup list");
    QVERIFY(list.exitCode == 1 && list.output.isEmpty() && list.errors.size() == 1);
}

void ArchiveCliTest::automaticExport()
{
    const ProgramRun off = home_.run("autoexport run");
    QVERIFY(off.exitCode == 1 && off.errors.value(0).contains(u"no format is switched on"));
    for (const char* setting :
         {"autoExportInvoicesEnabled", "autoExportInvoicesXMLEnabled", "autoExportInvoicesZUGFeRDEnabled"})
        QVERIFY(home_.succeeds("settings set", {QString::fromLatin1(setting), QStringLiteral("true")}));
    QVERIFY(home_.run("autoexport run").errors.value(0).contains(u"no folder is chosen"));
    QVERIFY(QDir().mkpath(home_.path(QStringLiteral("office"))));
    QVERIFY(home_.succeeds("autoexport folder {DIR}/office"));
    QCOMPARE(home_.run("autoexport show").output,
             home_.path(QStringLiteral("office")).toUtf8() + "\nPDF, XRechnung, ZUGFeRD PDF\n");

    for (int turn = 0; turn < 2; ++turn) { // the second replaces what the first wrote
        const ProgramRun run = home_.run("autoexport run --verbose");
        QVERIFY2(run.exitCode == 0, qPrintable(run.errors.join(u'\n')));
        QCOMPARE(run.output.count('\n'), 3); // drafts stay at home
        const QString log = run.errors.join(u'\n');
        for (const char* line : {"Auto-export: PDF saved to ", "Auto-export: e-invoice XML saved to ",
                                 "Auto-export: ZUGFeRD PDF saved to "})
            QVERIFY2(log.contains(QLatin1StringView(line)), qPrintable(log));
        QCOMPARE(
            namesBelow(home_, "office"), // the hybrid is told from the plain PDF by its name
            QStringList({QStringLiteral("E-Rechnung 2026-001.pdf"), QStringLiteral("E-Rechnung 2026-001.xml"),
                         QStringLiteral("Rechnung 2026-001.pdf")}));
    }
    QVERIFY(QDir(home_.path(QStringLiteral("office"))).removeRecursively());
    const ProgramRun gone = home_.run("autoexport run");
    QVERIFY(gone.exitCode == 1 && gone.errors.value(0).startsWith(
                                      QStringLiteral("AutoExportHelper: Failed to resolve bookmark: ")));
}

void ArchiveCliTest::wrongInput_data()
{
    QTest::addColumn<int>("exitCode");
    for (const char* line : {"profile import", "profile export Default --all", "styling import", "backup",
                             "backup restore", "backup again", "autoexport", "autoexport folder"})
        QTest::newRow(line) << 2;
    for (const char* line : {"profile import {DIR}/text.txt", "profile import {DIR}/none.ledradata",
                             "profile export Nobody", "profile export -o /nowhere/x.ledradata",
                             "profile export -o {DIR}/text.txt", "styling import {DIR}/text.txt --force",
                             "backup restore {DIR}/text.txt", "autoexport folder {DIR}/none"})
        QTest::newRow(line) << 1;
}

void ArchiveCliTest::wrongInput()
{
    QFETCH(int, exitCode);
    const ProgramRun run = home_.run(QTest::currentDataTag());
    QCOMPARE(run.exitCode, exitCode);
    QVERIFY2(run.output.isEmpty() && run.errors.size() == 1, qPrintable(run.errors.join(u'\n')));
    const QByteArray line = QTest::currentDataTag();
    const bool isImport = line.startsWith("profile import {") || line.startsWith("backup restore {");
    QCOMPARE(run.errors.front().startsWith(u"Import failed: "), isImport);
    QVERIFY(test::contentOf(home_.path(QStringLiteral("text.txt"))) == "no archive");
}

const ledra::test::RegisterSuite<ArchiveCliTest> registration("archive_cli_test");

#include "archive_cli_test.moc"
