#include "support/program_run.h"
#include "support/test_suite.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using namespace ledra;
using test::example;
using test::ProgramRun;

class ShowCliTest : public test::Suite
{
    Q_OBJECT

private Q_SLOTS:
    void json_data();
    void json();
    void text();
    void failures_data();
    void failures();
};

// The sums were added up by hand.
void ShowCliTest::json_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("number");
    QTest::addColumn<double>("subtotal");
    QTest::addColumn<double>("discount");
    QTest::addColumn<QString>("vatAmounts");
    QTest::addColumn<double>("total");
    QTest::addColumn<QString>("dueDate");
    QTest::newRow("discount, two rates")
        << "invoice-workshop-en.json" << "WS-2026-031" << 3294.0 << 329.4
        << R"([{"amount":9.95,"rate":7},{"amount":536.26,"rate":19}])" << 3510.81 << "2026-06-25";
    QTest::newRow("cancellation") << "cancellation-design-de.json" << "STO-2026-003" << -4311.25 << 0.0
                                  << R"([{"amount":-819.14,"rate":19}])" << -5130.39 << "2026-04-28";
    QTest::newRow("gross prices, no language")
        << "invoice-gross-de.json" << "RE-2026-0208-LADEN" << 366.64 << 20.0
        << R"([{"amount":65.86,"rate":19}])" << 412.5 << "2026-02-24";
    QTest::newRow("no VAT") << "invoice-consulting-us.json" << "INV-2026-0112" << 8061.4 << 0.0 << "[]"
                            << 8061.4 << "2026-05-30";
}

void ShowCliTest::json()
{
    QFETCH(QString, file);
    const ProgramRun run =
        test::runProgram({QStringLiteral("show"), QStringLiteral("--json"), example(file)});
    QCOMPARE(run.exitCode, 0);
    QVERIFY(run.errors.isEmpty());
    QJsonObject shown = QJsonDocument::fromJson(run.output).object();
    const auto take = [&](const char* key) { return shown.take(QString::fromLatin1(key)); };
    QTEST(take("formattedNumber").toString(), "number");
    const auto near = [&](const char* key, double expected) {
        return std::abs(take(key).toDouble(1e9) - expected) < 1e-9;
    };
    QFETCH(double, subtotal);
    QFETCH(double, discount);
    QFETCH(double, total);
    QVERIFY(near("subtotal", subtotal));
    QVERIFY(near("discount", discount));
    QVERIFY(near("total", total));
    QFETCH(QString, vatAmounts);
    QCOMPARE(QJsonDocument(take("vatAmounts").toArray()), QJsonDocument::fromJson(vatAmounts.toUtf8()));
    QTEST(take("dueDate").toString(), "dueDate");
    QVERIFY(take("isOverdue").isBool()); // of a sent invoice it depends on today
    // The rest is the record as it stands in its file.
    QCOMPARE(shown, QJsonDocument::fromJson(test::contentOf(example(file))).object());
}

void ShowCliTest::text()
{
    const ProgramRun run =
        test::runProgram({QStringLiteral("show"), example(QStringLiteral("invoice-workshop-en.json"))});
    QCOMPARE(run.exitCode, 0);
    const QString text = QString::fromUtf8(run.output);
    for (const char* part :
         {"Invoice WS-2026-031\n", "2026-06-25", "−€329.40", "VAT 7%", "€536.26", "€3,510.81"})
        QVERIFY2(text.contains(QString::fromUtf8(part)), part);
}

void ShowCliTest::failures_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<int>("exitCode");
    QTest::addColumn<QString>("named");
    const QString good = example(QStringLiteral("invoice-design-de.json"));
    QTest::newRow("no file") << QStringList{} << 2 << "exactly one record or file";
    QTest::newRow("two files") << QStringList{good, good} << 2 << "exactly one record or file";
    QTest::newRow("unknown option") << QStringList{good, QStringLiteral("--colour")} << 2 << "colour";
    QTest::newRow("missing file") << QStringList{QStringLiteral("/nowhere/x.json")} << 1 << "/nowhere/x.json";
    QTest::newRow("a folder") << QStringList{QStringLiteral("/")} << 1 << "not a file";
    QTest::newRow("missing profile") << QStringList{good, QStringLiteral("--profile-file"),
                                                    QStringLiteral("/nowhere/p.json")}
                                     << 1 << "/nowhere/p.json";
}

void ShowCliTest::failures()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, named);
    const ProgramRun run = test::runProgram(QStringList{QStringLiteral("show")} + arguments);
    QTEST(run.exitCode, "exitCode");
    QCOMPARE(run.errors.size(), 1);
    QVERIFY2(run.errors.front().contains(named), qPrintable(run.errors.front()));
    QVERIFY(run.output.isEmpty());
}

const ledra::test::RegisterSuite<ShowCliTest> registration("show_cli_test");

#include "show_cli_test.moc"
