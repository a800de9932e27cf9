#include "app/search_index.h"
#include "model/new_invoices.h"
#include "support/test_suite.h"

using namespace ledra;

class SearchIndexTest : public test::Suite
{
    Q_OBJECT

private Q_SLOTS:
    void words_data();
    void words();
};

namespace {

InvoicePtr record(const char* name, const char* item, std::int64_t number)
{
    Invoice invoice = newInvoice(QUuid::createUuid(), Timestamp(), {});
    invoice.name = QString::fromUtf8(name);
    invoice.number = number;
    invoice.items.push_back({{}, QString::fromUtf8(item), 1, Unit::piece, 1, 0});
    return std::make_shared<InvoiceRecord>(invoice);
}

} // namespace

void SearchIndexTest::words_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("found"); // positions
    QTest::newRow("nothing asked") << " " << "0123";
    QTest::newRow("either case") << "ÖZDEMIR" << "0";
    QTest::newRow("part of a word") << "nsch" << "3";
    QTest::newRow("in several texts of a record") << "zoë tür" << "1";
    QTest::newRow("words of two records") << "zoë özdemir" << "";
    QTest::newRow("across two texts") << "Brücknertür" << "";
    QTest::newRow("number") << "2001-012" << "2";
    QTest::newRow("the last") << "ende" << "3";
    QTest::newRow("outside the basic plane") << "🦊" << "2";
    QTest::newRow("longer than everything") << QString(5000, u'x') << "";
}

void SearchIndexTest::words()
{
    const std::vector<InvoicePtr> records = {record("Aylin Özdemir", "Übersetzung", 10),
                                             record("Zoë Brückner", "Tür und Rahmen\nin Weiß", 11),
                                             record("", "Fuchs 🦊", 12), record("Mensch", "am Ende", 13)};
    SearchIndex index;
    index.build(records, newProfile(QUuid::createUuid(), QStringLiteral("DE")));
    QFETCH(QString, text);
    QString found;
    const std::vector<bool> matches = index.matches(text);
    for (std::size_t i = 0; i < matches.size(); ++i)
        found += matches[i] ? QString::number(i) : QString();
    QTEST(found, "found");
}

const ledra::test::RegisterSuite<SearchIndexTest> registration("search_index_test");

#include "search_index_test.moc"
