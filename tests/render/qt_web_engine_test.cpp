#include "render/qt_web_engine.h"
#include "support/pdf_text.h"
#include "support/sample_invoice.h"
#include "support/test_suite.h"
#include "support/wait_for.h"

#include <QDir>
#include <QTcpServer>
#include <QTemporaryFile>

#include <csignal>

using namespace ledra;

namespace {

constexpr auto a4 = PageFormat::a4;

/// The parent of a process; 0 when it is gone.
qint64 parentOf(qint64 process)
{
    QFile file(QStringLiteral("/proc/%1/stat").arg(process));
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    const QByteArray stat = file.readAll();
    return stat.mid(stat.lastIndexOf(')') + 2).split(' ').value(1).toLongLong(); // state, then parent
}

bool descendsFromHere(qint64 process)
{
    while (process > 1 && process != QCoreApplication::applicationPid())
        process = parentOf(process);
    return process > 1;
}

bool isZygote(qint64 process)
{
    QFile file(QStringLiteral("/proc/%1/cmdline").arg(process));
    return file.open(QIODevice::ReadOnly) && file.readAll().contains("--type=zygote");
}

/// Ends the render processes of this program, as the system does when memory runs out. They are forked from a
/// process that waits for that, and keep its command line.
int killRenderers()
{
    int killed = 0;
    for (const QString& name : QDir(QStringLiteral("/proc")).entryList(QDir::Dirs)) {
        const qint64 process = name.toLongLong();
        const bool isRenderer = process > 1 && isZygote(process) && isZygote(parentOf(process));
        if (isRenderer && descendsFromHere(process) && ::kill(static_cast<pid_t>(process), SIGKILL) == 0)
            ++killed;
    }
    return killed;
}

/// A page of one word.
QString pageOf(const QString& word)
{
    return QStringLiteral("<!DOCTYPE html><html><body>%1</body></html>").arg(word);
}

/// The words of a printed page.
QString textOf(const std::expected<QByteArray, WebEngineError>& pdf)
{
    const std::vector<test::PdfPage> pages = pdf ? test::pagesOfPdf(*pdf) : std::vector<test::PdfPage>();
    return pages.size() == 1 ? pages.front().text() : QString();
}

QString measured(QtWebEngine& engine, const QString& html, const QString& script, PageFormat format = a4)
{
    QString text;
    test::Waiting waiting;
    engine.measure(html, format, script, [&](const std::expected<QString, WebEngineError>& answer) {
        text = answer ? *answer : QStringLiteral("error: ") + errorText(answer.error());
        waiting.done();
    });
    const bool isAnswered = waiting.wait();
    return isAnswered ? text : QStringLiteral("no answer");
}

/// The words of a page after it was printed.
QString printed(QtWebEngine& engine, const QString& html)
{
    QString text;
    test::Waiting waiting;
    engine.print(html, a4, [&](const std::expected<QByteArray, WebEngineError>& pdf) {
        text = textOf(pdf);
        waiting.done();
    });
    const bool isAnswered = waiting.wait();
    return isAnswered ? text : QStringLiteral("no answer");
}

} // namespace

class QtWebEngineTest : public test::Suite
{
    Q_OBJECT

private Q_SLOTS:
    void measuringCanvas();
    void scriptsThatFail_data();
    void scriptsThatFail();
    void manyPrintsSideBySide();
    void pagesReachNothing();
    void deathWhileMeasuring();
    void deathWhilePrinting();
    void engineGoesWithPrintsUnderWay();

private:
    QtWebEngine engine_;
};

void QtWebEngineTest::measuringCanvas()
{
    const QString script = QStringLiteral("innerWidth + ' x ' + innerHeight");
    QCOMPARE(measured(engine_, pageOf(QString()), script), QStringLiteral("595 x 4000"));
    QCOMPARE(measured(engine_, pageOf(QString()), script, PageFormat::usLetter),
             QStringLiteral("612 x 4000"));
    QCOMPARE(measured(engine_, pageOf(QString()), script), QStringLiteral("595 x 4000"));
}

void QtWebEngineTest::scriptsThatFail_data()
{
    QTest::addColumn<QString>("script");
    QTest::newRow("throws") << "throw new Error('x')";
    QTest::newRow("does not parse") << "((";
    QTest::newRow("gives no text") << "42";
    QTest::newRow("gives nothing") << "undefined";
}

void QtWebEngineTest::scriptsThatFail()
{
    QFETCH(QString, script);
    QCOMPARE(measured(engine_, pageOf(QString()), script),
             QStringLiteral("error: the page could not be measured"));
    QCOMPARE(
        measured(engine_, pageOf(QStringLiteral("still there")), QStringLiteral("document.body.textContent")),
        QStringLiteral("still there"));
}

void QtWebEngineTest::manyPrintsSideBySide()
{
    constexpr int count = 40; // more than the engine prints at a time
    std::vector<QStringList> texts(count);
    int remaining = count;
    test::Waiting waiting;
    for (int i = 0; i < count; ++i) {
        engine_.print(pageOf(test::token("PAGE", i)), i % 2 == 0 ? a4 : PageFormat::usLetter,
                      [&, i](const std::expected<QByteArray, WebEngineError>& pdf) {
                          texts[static_cast<std::size_t>(i)] += textOf(pdf);
                          if (--remaining == 0)
                              waiting.done();
                      });
    }
    QVERIFY(waiting.wait());
    for (int i = 0; i < count; ++i)
        QCOMPARE(texts[static_cast<std::size_t>(i)], QStringList{test::token("PAGE", i)});
}

void QtWebEngineTest::pagesReachNothing()
{
    QTemporaryFile secret;
    QVERIFY(secret.open() && secret.write("<p>SECRET</p>") > 0 && secret.flush());
    QTcpServer server;
    QVERIFY(server.listen(QHostAddress::LocalHost));
    const QString html =
        QStringLiteral(
            "<!DOCTYPE html><html><head><link rel='stylesheet' href='http://127.0.0.1:%1/a.css'>"
            "<link rel='preconnect' href='http://127.0.0.1:%1/'><script "
            "src='http://127.0.0.1:%1/b.js'></script>"
            "<script>document.write('RAN');</script></head><body onload=\"document.body.append('RAN')\">HERE"
            "<img src='http://127.0.0.1:%1/c.png' onerror=\"document.body.append('RAN')\">"
            "<iframe src='http://127.0.0.1:%1/d.html'></iframe><iframe src='file://%2'></iframe>"
            "<object data='file://%2'></object><a href='javascript:x()'></a></body></html>")
            .arg(server.serverPort())
            .arg(secret.fileName());
    QCOMPARE(measured(engine_, html, QStringLiteral("document.body.innerText.trim()")),
             QStringLiteral("HERE"));
    QCOMPARE(printed(engine_, html), QStringLiteral("HERE"));
    QVERIFY(!server.hasPendingConnections());
}

void QtWebEngineTest::deathWhileMeasuring()
{
    QString answered;
    test::Waiting waiting;
    QTimer killer; // until one of them is there
    connect(&killer, &QTimer::timeout, &killer, [] { killRenderers(); });
    killer.start(20);
    engine_.measure(pageOf(QString()), a4, QStringLiteral("for (;;) {}"),
                    [&](const std::expected<QString, WebEngineError>& answer) {
                        answered += answer ? *answer : errorText(answer.error());
                        waiting.done();
                    });
    QVERIFY(waiting.wait(30'000));
    killer.stop();
    QCOMPARE(answered, errorText(WebEngineError::rendererDied));
    // Until the system has told of all those deaths, a new page may be given to a dead process.
    QTRY_COMPARE(
        measured(engine_, pageOf(QStringLiteral("again")), QStringLiteral("document.body.textContent")),
        QStringLiteral("again"));
}

// Every print is answered, even one whose page is replaced before its answer was delivered.
void QtWebEngineTest::deathWhilePrinting()
{
    auto engine = std::make_unique<QtWebEngine>();
    constexpr int count = 40;
    std::vector<int> answers(count);
    int failed = 0;
    int remaining = count;
    test::Waiting waiting;
    for (int i = 0; i < count; ++i) {
        engine->print(pageOf(test::token("PAGE", i)), a4,
                      [&, i](const std::expected<QByteArray, WebEngineError>& pdf) {
                          ++answers[static_cast<std::size_t>(i)];
                          failed += pdf ? 0 : 1;
                          if (--remaining == 0)
                              waiting.done();
                      });
    }
    QTimer killer;
    connect(&killer, &QTimer::timeout, &killer, [&] {
        if (killRenderers() > 0)
            killer.stop();
    });
    killer.start(300);
    QVERIFY2(waiting.wait(30'000),
             qPrintable(QStringLiteral("%1 prints were never answered").arg(remaining)));
    QCOMPARE(answers, std::vector<int>(count, 1));
    QVERIFY(failed > 0);

    QTRY_COMPARE(printed(*engine, pageOf(QStringLiteral("AGAIN"))), QStringLiteral("AGAIN"));
    engine.reset(); // without a complaint about the pages of the dead processes
}

// As when a program ends in the middle of a batch: nothing is answered any more, and nothing breaks.
void QtWebEngineTest::engineGoesWithPrintsUnderWay()
{
    auto engine = std::make_unique<QtWebEngine>();
    int answers = 0;
    test::Waiting first;
    for (int i = 0; i < 20; ++i) {
        engine->print(pageOf(QStringLiteral("x")), a4, [&](const auto&) {
            ++answers;
            first.done();
        });
    }
    QVERIFY(first.wait());
    engine.reset();
    const int before = answers;
    QCOMPARE(measured(engine_, pageOf(QStringLiteral("alive")), QStringLiteral("document.body.textContent")),
             QStringLiteral("alive"));
    QCOMPARE(answers, before);
}

const ledra::test::RegisterSuite<QtWebEngineTest> registration("qt_web_engine_test");

#include "qt_web_engine_test.moc"
