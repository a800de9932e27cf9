#include "einvoice/cii_rules.h"
#include "einvoice/xml_generator.h"
#include "store/invoice_json.h"
#include "support/test_suite.h"

#include <QDir>
#include <QFile>

using namespace ledra;

namespace {

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// "NAME: RULE RULE …" by name, as the official validation found them; see scripts/check-einvoices.
QMap<QString, QStringList> knownRules()
{
    QMap<QString, QStringList> known;
    const QString list =
        QString::fromUtf8(contentOf(QStringLiteral(LEDRA_TEST_FILES "/einvoice/broken-rules.txt")));
    for (const QString& line : list.split(u'\n', Qt::SkipEmptyParts)) {
        const QStringList parts = line.split(QStringLiteral(": "));
        if (!line.startsWith(u'#') && parts.size() == 2)
            known[parts.front()] = parts.back().split(u' ');
    }
    return known;
}

} // namespace

/// The application tells its users exactly the rules that the official validation finds broken.
class BrokenRulesTest : public test::Suite
{
    Q_OBJECT

private Q_SLOTS:
    void caseFiles_data();
    void caseFiles();
};

void BrokenRulesTest::caseFiles_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QStringList>("rules");
    QMap<QString, QStringList> known = knownRules();
    for (const char* folder : {LEDRA_TEST_FILES "/einvoice", LEDRA_EXAMPLES}) {
        const QFileInfoList files = QDir(QString::fromUtf8(folder)).entryInfoList({QStringLiteral("*.json")});
        QVERIFY(files.size() > 5);
        for (const QFileInfo& file : files) {
            if (file.completeBaseName() !=
                u"invoice-consulting-us") // it lacks an account, and is refused before
                QTest::newRow(qPrintable(file.completeBaseName()))
                    << file.filePath() << known.take(file.completeBaseName());
        }
    }
    QVERIFY2(known.isEmpty(), "the list names a case that is not there");
}

void BrokenRulesTest::caseFiles()
{
    QFETCH(QString, path);
    QFETCH(QStringList, rules);
    RandomIdSource ids;
    const Decoded<Invoice> invoice = decodeInvoice(contentOf(path), {Timestamp(), ids, QStringLiteral("DE")});
    QVERIFY(invoice);
    const auto xml = XMLGenerator::generate(*invoice, Profile(), [](const QUuid&) { return std::nullopt; });
    const auto document = XMLDocument::parse(xml.value().toStdString());
    QStringList found;
    for (const BrokenRule& rule : brokenRules(*document->root))
        found += rule.id;
    found.sort();
    rules.sort();
    QCOMPARE(found, rules);
}

static const test::RegisterSuite<BrokenRulesTest> registered("broken_rules_test");

#include "broken_rules_test.moc"
