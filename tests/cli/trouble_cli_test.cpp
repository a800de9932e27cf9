#include "support/program_run.h"
#include "support/test_suite.h"

#include <QJsonArray>

using namespace ledra;
using test::filesBelow;
using test::ProgramRun;

/// What goes wrong around the program, and what users do wrong.
class TroubleCliTest : public test::Suite
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void wrongInput_data();
    void wrongInput();
    void unwritableFolder();
    void recordsOfOneNumber();
    void twoFilesOfOneRecord();
    void damagedFileAmongGoodOnes();
    void folderThatCannotBeReached();
    void filesNamedLikeCommands();

private:
    QString file(const char* name) const { return invoices_ + QString::fromLatin1(name); }
    bool add(const char* name, const QString& id, const char* before = "-", const char* after = "-") const;

    test::ProgramHome home_;
    QString invoices_ = home_.data(QStringLiteral("1_Default/Invoices/"));
    QString id_;      ///< of the invoice "I"
    QByteArray text_; ///< of its file
};

void TroubleCliTest::initTestCase()
{
    for (const auto& [name, line] :
         {std::pair("Q", "new quote"), std::pair("I", "new invoice --item a;1;;9")})
        home_.ids[QString::fromLatin1(name)] = id_ = QString::fromLatin1(home_.run(line).output).trimmed();
    const QStringList names = QDir(invoices_).entryList({u'*' + id_.left(6) + u'*'});
    text_ = test::contentOf(invoices_ + names.value(0));
    home_.ids[QStringLiteral("LOGO")] = home_.path(QStringLiteral("logo.svg"));
    QVERIFY(test::writeFile(home_.path(QStringLiteral("logo.svg")),
                            "<svg xmlns=\"http://www.w3.org/2000/svg\"/>"));
}

/// Adds a file of an invoice like "I" with another id and one piece replaced.
bool TroubleCliTest::add(const char* name, const QString& id, const char* before, const char* after) const
{
    QByteArray text = text_;
    text.replace(id_.toLatin1(), id.toLatin1()).replace(before, after);
    return text.contains(after) && test::writeFile(file(name), text);
}

void TroubleCliTest::wrongInput_data()
{
    QTest::addColumn<int>("exitCode");
    const auto rows = [](const char* command, const char* wrongUsage, const char* failing) {
        for (const auto& [inputs, exitCode] : {std::pair(wrongUsage, 2), std::pair(failing, 1)}) {
            for (const QByteArray& input : QByteArray(inputs).split('|'))
                QTest::newRow((QByteArray(command) + ' ' + input).trimmed()) << exitCode;
        }
    };
    rows("profile", "|use|fly|create A B|set Default name",
         "use Nobody|set Default x=1|set Default daysToPay=1.5");
    rows("data", "|move|show it", "reset|move /dev/null");
    rows("settings", "|get|set showBadge", "get x|set showBadge maybe");
    rows("new", "|bill|invoice --set x", "invoice --set x=1|invoice --item a;b|invoice --item a;1;kg");
    rows("list", "this|--type bill|--year 26x|--status lost", "--profile Nobody");
    rows("set", "|{I}|{I} note|{I} status=Paid|{I} id=1",
         "nothing note=x|{I} date=2026-02-30|{I} items.1.unit=Day");
    rows("status", "|{I}|{I} lost|{I} sent paid", "nothing sent");
    rows("duplicate", "|{I} {Q}|{I} --force", "nothing");
    rows("cancel", "|{I} {Q}", "nothing|{Q}");
    rows("convert", "|{I} {Q}", "nothing|{I}");
    rows("delete", "|{I} {Q}|{I} --all", "nothing");
    rows("trash", "|restore|empty", "restore {I}");
    rows("conflicts", "|take|take 1 2", "take 1|show x");
    rows("styling", "|set|set x|logo", "set x=1|logo /nowhere.svg|css /etc/passwd");
}

void TroubleCliTest::wrongInput()
{
    static const auto before = filesBelow(home_.data());
    const ProgramRun run = home_.run(QTest::currentDataTag());
    QTEST(run.exitCode, "exitCode");
    QVERIFY(run.errors.size() == 1 && run.output.isEmpty());
    const QString command = QString::fromLatin1(QTest::currentDataTag()).section(u' ', 0, 0);
    const QString begin = QStringLiteral("ledra: ") + (run.exitCode == 2 ? command + u':' : QString());
    QVERIFY2(run.errors.front().startsWith(begin), qPrintable(run.errors.front()));
    QCOMPARE(filesBelow(home_.data()), before);
}

void TroubleCliTest::unwritableFolder()
{
    QVERIFY(home_.handOver(false));
    const auto before = filesBelow(home_.path());
    QCOMPARE(home_.runUnprivileged("list").exitCode, 0);
    for (const char* command : {"new invoice", "new quote", "set {I} note=x", "set {I} date=2020-02-29",
                                "status {I} sent", "duplicate {I}", "cancel {I}", "convert {Q}", "delete {I}",
                                "profile set Default name=x", "profile create B", "profile rename Default C",
                                "styling set primaryColor=112233", "styling logo {LOGO}"}) {
        const ProgramRun run = home_.runUnprivileged(command);
        const QByteArray told = QByteArray(command) + ": " + run.errors.join(u'|').toUtf8();
        QVERIFY2(run.exitCode == 1 && run.errors.size() == 1 && run.output.isEmpty(), told);
        QVERIFY2(run.errors.front().contains(home_.data().chopped(1)), told); // names the place
        QVERIFY2(filesBelow(home_.path()) == before, told);
    }
    QVERIFY(home_.handOver(true));
}

void TroubleCliTest::recordsOfOneNumber()
{
    const QString twin = id_.chopped(1) + (id_.endsWith(u'0') ? u'1' : u'0');
    const QString number = QDate::currentDate().toString(QStringLiteral("yyyy'-001'"));
    QVERIFY(add("twin.json", twin));
    for (const QString& text : {number, id_.left(20)}) {
        const ProgramRun shown = home_.run("show", {text});
        QVERIFY(shown.exitCode == 1 && shown.errors.size() == 3);
        QVERIFY(shown.errors.filter(id_).size() == 1 && shown.errors.filter(twin).size() == 1);
    }
    const auto exported = [&](const char* line) {
        const QTemporaryDir folder;
        const int code =
            home_.run(line, {QStringLiteral("-o"), folder.filePath(QStringLiteral("out"))}).exitCode;
        const QString names = QDir(folder.filePath(QStringLiteral("out"))).entryList(QDir::Files).join(u' ');
        return QString::number(code) + u' ' +
               QString(names).replace(number, QStringLiteral("N")).replace(id_.left(6), QStringLiteral("I"));
    };
    QCOMPARE(exported("export --format html {I} {Q}"), QStringLiteral("0 N.html AN-N.html"));
    QCOMPARE(exported("export --format html --all"), QStringLiteral("0 N-I.html N.html AN-N.html"));
    QCOMPARE(exported("export --format html {Q} nothing"), QStringLiteral("1 AN-N.html"));
    QCOMPARE(exported("export --type quote"), QStringLiteral("0 AN-N.pdf"));
}

void TroubleCliTest::twoFilesOfOneRecord()
{
    QVERIFY(add("second file.json", id_, "\"note\": \"\"", "\"note\": \"other\""));
    const auto before = filesBelow(home_.data());
    const ProgramRun run = home_.run("list --json");
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(QJsonDocument::fromJson(run.output).array().size(), 3);
    QVERIFY(run.errors.size() == 1 && run.errors.front().contains(file("second file.json")));
    QCOMPARE(home_.json("conflicts list --json")[0][QStringLiteral("keptAs")].toString(),
             file("second file.json"));
    QCOMPARE(filesBelow(home_.data()), before);
    QVERIFY(home_.run("conflicts take 1").exitCode == 0);
    QCOMPARE(home_.json("show --json {I}")[QStringLiteral("note")].toString(), QStringLiteral("other"));
    QCOMPARE(home_.json("conflicts list --json").array().size(), 1); // the one that gave way
}

void TroubleCliTest::damagedFileAmongGoodOnes()
{
    const QString idEnd = QStringLiteral("00-1111-4111-8111-111111111111");
    for (int i = 100'003; i < 100'100; ++i)
        QVERIFY(add(QByteArray::number(i) + ".json", QString::number(i) + idEnd));
    QVERIFY(
        add("damaged.json", QStringLiteral("ABCDEF") + idEnd, "\"daysToPay\": 14", "\"daysToPay\": \"x\""));
    const auto before = filesBelow(home_.data());
    const ProgramRun run = home_.run("list --json");
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(QJsonDocument::fromJson(run.output).array().size(), 100);
    QVERIFY(run.errors.size() == 1 && run.errors.front().contains(file("damaged.json: daysToPay: ")));
    QCOMPARE(filesBelow(home_.data()), before);
}

/// What settles where the data lie works all the same.
void TroubleCliTest::folderThatCannotBeReached()
{
    test::ProgramHome home;
    QVERIFY(QDir().mkdir(home.path(QStringLiteral("stick"))));
    home.ids[QStringLiteral("DATA")] = home.path(QStringLiteral("stick/Ledra"));
    QCOMPARE(home.run("data move {DATA}").exitCode, 0);
    QVERIFY(QDir().rename(home.path(QStringLiteral("stick")), home.path(QStringLiteral("pulled"))));
    QVERIFY(test::writeFile(home.path(QStringLiteral("stick")), "in the way"));

    const ProgramRun refused = home.run("list");
    QVERIFY(refused.exitCode == 1 && refused.output.isEmpty());
    QVERIFY2(refused.errors.constLast().contains(QStringLiteral("ledra data reset")),
             qPrintable(refused.errors.join(u'|')));
    QCOMPARE(home.run("new invoice").exitCode, 1);
    for (const char* command : {"data show", "settings list", "backup list", "data reset", "list"})
        QVERIFY2(home.run(command).exitCode == 0, command);
}

/// With a display, files are opened in the window; a command stays one.
void TroubleCliTest::filesNamedLikeCommands()
{
    const QString before = QDir::currentPath();
    QVERIFY(QDir(home_.path()).mkdir(QStringLiteral("list")) && QDir::setCurrent(home_.path()));
    test::RunSetting setting;
    setting.variables = home_.variables();
    setting.variables.insert(QStringLiteral("DISPLAY"), QStringLiteral(":nowhere"));
    const ProgramRun run = test::runProgram({QStringLiteral("list")}, setting);
    QDir::setCurrent(before);
    QVERIFY(run.exitCode == 0 && run.output.contains("Draft"));
}

const ledra::test::RegisterSuite<TroubleCliTest> registration("trouble_cli_test");

#include "trouble_cli_test.moc"
