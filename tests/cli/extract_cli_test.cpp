#include "support/model_answer.h"
#include "support/program_run.h"
#include "support/test_suite.h"

#include <QTest>

#include <csignal>

using namespace ledra;
using test::HttpResponse;
using test::modelServer;
using test::ProgramRun;
using test::ScriptedServer;

namespace {

const QString answer =
    QStringLiteral("{'recipient':{'name':'Jule Ahlers','city':'Lübeck','countryCode':'XX'},'items':["
                   "{'description':'Beratung','quantity':12.5,'unit':'hour','unitPrice':1234.5},"
                   "{'description':'Anfahrt'}],'note':null,'serviceDateStart':'2026-03-01'}")
        .replace(u'\'', u'"');

} // namespace

class ExtractCliTest : public test::Suite
{
    Q_OBJECT

private Q_SLOTS:
    void fieldsAsText();
    void fieldsForPrograms();
    void draftOfAText();
    void failures();
    void wrongUsage_data();
    void wrongUsage();
    void interruptionEndsIt();

private:
    void use(const ScriptedServer& server) const
    {
        QVERIFY(home_.succeeds("settings set textParserEndpoint", {server.address(QStringLiteral("/v1"))}));
    }
    /// Runs the program while the server answers.
    ProgramRun run(const char* line, const QByteArray& input = {}) const;

    test::ProgramHome home_;
};

ProgramRun ExtractCliTest::run(const char* line, const QByteArray& input) const
{
    const auto process =
        test::startProgram(home_.words(line), {.input = input, .variables = home_.variables()});
    if (!QTest::qWaitFor([&] { return process->state() == QProcess::NotRunning; }, 60'000))
        return {};
    const QStringList errors =
        QString::fromUtf8(process->readAllStandardError()).split(u'\n', Qt::SkipEmptyParts);
    return {process->exitCode(), process->readAllStandardOutput(), errors};
}

void ExtractCliTest::fieldsAsText()
{
    ScriptedServer server(modelServer(test::streamed(test::eventsOf(answer), 100)));
    use(server);
    const ProgramRun shown = run("extract -", "M\xfcller"); // Latin-1
    QCOMPARE(QString::fromUtf8(shown.output), QStringLiteral("recipient.name         Jule Ahlers\n"
                                                             "recipient.city         Lübeck\n"
                                                             "recipient.countryCode  XX\n"
                                                             "items.0.description    Beratung\n"
                                                             "items.0.quantity       12.5\n"
                                                             "items.0.unit           Hour\n"
                                                             "items.0.unitPrice      1234.5\n"
                                                             "items.1.description    Anfahrt\n"
                                                             "serviceDateStart       2026-03-01\n"));
    QVERIFY(shown.exitCode == 0 && shown.errors.isEmpty());
    QVERIFY(server.requests.back().body.contains("\"content\":\"Müller\""));
    QVERIFY(!QDir(home_.data()).exists(QStringLiteral("1_Default/Invoices")) ||
            QDir(home_.data(QStringLiteral("1_Default/Invoices"))).isEmpty());
}

void ExtractCliTest::fieldsForPrograms()
{
    const ScriptedServer server(modelServer(test::streamed(test::eventsOf(answer))));
    use(server);
    const QJsonDocument shown = QJsonDocument::fromJson(run("extract --json Text").output);
    QJsonObject expected = QJsonDocument::fromJson(answer.toUtf8()).object();
    expected.remove(QStringLiteral("note"));
    QCOMPARE(shown.object(), expected);
}

void ExtractCliTest::draftOfAText()
{
    const ScriptedServer server(modelServer(test::streamed(test::eventsOf(answer))));
    use(server);
    QVERIFY(home_.succeeds("profile set Default vatPercentage=19 hourlyRate=95"));
    const ProgramRun made = run("extract --create Text");
    QVERIFY2(made.exitCode == 0, qPrintable(made.errors.join(u'|')));
    QCOMPARE(made.errors, QStringList{QStringLiteral("ledra: country “XX”: there is no such code")});
    const QString id = QString::fromUtf8(made.output).trimmed();
    const QJsonObject record = QJsonDocument::fromJson(home_.run("show --json", {id}).output).object();
    QCOMPARE(record[QStringLiteral("total")].toDouble(), 18363.19); // 12.5 × 1234.5 + 19 %
    QCOMPARE(record[QStringLiteral("status")].toString(), QStringLiteral("Draft"));
}

void ExtractCliTest::failures()
{
    const auto before = test::filesBelow(home_.data());
    const QString unit = QStringLiteral(R"({"items":[{"unit":"box"}]})");
    for (const auto& [response, problem] :
         {std::pair(test::streamed(test::eventsOf(unit)), "Unexpected rawValue \"box\" for ExtractedUnit"),
          std::pair(test::streamed(test::eventsOf(QStringLiteral("{}"))), "nothing was found"),
          std::pair(HttpResponse{.status = 503}, "Try again in a little while.")}) {
        const ScriptedServer server(modelServer(response));
        use(server);
        const ProgramRun failed = run("extract --create Text");
        QVERIFY(failed.exitCode == 1 && failed.errors.size() == 1 && failed.output.isEmpty());
        QVERIFY2(failed.errors.front().startsWith(QStringLiteral("ledra: ")) &&
                     failed.errors.front().contains(QString::fromLatin1(problem)),
                 qPrintable(failed.errors.front()));
    }
    QCOMPARE(run("extract Text").errors, // the last server has gone
             QStringList{QStringLiteral("ledra: The on-device model isn’t available right now.")});
    QCOMPARE(test::filesBelow(home_.data()), before);
}

void ExtractCliTest::wrongUsage_data()
{
    QTest::addColumn<int>("exitCode");
    for (const char* usage :
         {"extract", "extract a b", "extract \"\"", "extract -"}) // which has no input here
        QTest::newRow(usage) << 2;
    for (const char* refused : {"settings set textParserEndpoint http://example.com/v1",
                                "settings set textParserTimeout 0", "settings set textParserModel \"a\nb\""})
        QTest::newRow(refused) << 1;
}

void ExtractCliTest::wrongUsage()
{
    const ProgramRun run = home_.run(QTest::currentDataTag());
    QTEST(run.exitCode, "exitCode");
    QVERIFY(run.errors.size() >= 1 && run.output.isEmpty());
}

void ExtractCliTest::interruptionEndsIt()
{
    const auto before = test::filesBelow(home_.data());
    HttpResponse endless{.type = "text/event-stream", .ending = HttpResponse::Ending::never};
    ScriptedServer server(modelServer(endless));
    use(server);
    const auto process =
        test::startProgram(home_.words("extract --create Text"), {.variables = home_.variables()});
    QTRY_COMPARE_WITH_TIMEOUT(server.requests.size(), 2, 30'000);
    QCOMPARE(::kill(static_cast<pid_t>(process->processId()), SIGINT), 0);
    const ProgramRun ended = test::endOf(*process);
    QCOMPARE(ended.exitCode, 1);
    QCOMPARE(ended.errors, QStringList{QStringLiteral("ledra: interrupted")});
    QTRY_COMPARE(server.hangUps, 1);
    QCOMPARE(test::filesBelow(home_.data()), before);
}

const ledra::test::RegisterSuite<ExtractCliTest> registration("extract_cli_test");

#include "extract_cli_test.moc"
