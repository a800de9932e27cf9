#include "render/invoice_document.h"
#include "support/invoice_html.h"
#include "support/test_suite.h"

#include <numeric>

using namespace ledra;
using namespace ledra::test;

/// How a document is divided into blocks and pages.
class InvoiceDocumentTest : public test::Suite
{
    Q_OBJECT

private Q_SLOTS:
    void blocks_data();
    void blocks();
    void emptyRows_data();
    void emptyRows();
    void pagesShowTheirBlocks();
    void bodyClassesOfTheLayout();
    void continuationOffset();
    void cacheKeyCoversWhatItMust();
};

void InvoiceDocumentTest::blocks_data()
{
    QTest::addColumn<int>("items");
    QTest::addColumn<QString>("note");
    QTest::addColumn<int>("blocks");
    QTest::newRow("nothing") << 0 << "" << 1;
    QTest::newRow("items only") << 4 << "" << 5;
    QTest::newRow("note of one line") << 0 << "a" << 2;
    QTest::newRow("line feed at the end") << 2 << "a\n" << 5;
    QTest::newRow("empty lines") << 1 << "\n\n" << 5;
}

void InvoiceDocumentTest::blocks()
{
    QFETCH(int, items);
    QFETCH(QString, note);
    Invoice invoice = test::sampleInvoice();
    test::addItems(invoice, items, true);
    invoice.note = note;
    const InvoiceDocument document(invoice, settingOf(), fonts());
    QTEST(document.expectedBlockCount(), "blocks");
    QCOMPARE(tableRows(document.measuringHtml()).size(), document.expectedBlockCount());
    QCOMPARE(document.blockSelectors(), QStringList{QStringLiteral(".main-table tbody tr")});
    QCOMPARE(document.headerSelector(), QStringLiteral(".main-table thead"));
}

void InvoiceDocumentTest::emptyRows_data()
{
    QTest::addColumn<int>("items");
    QTest::addColumn<double>("space"); ///< of 10 pixels a rem: 8 a row
    QTest::addColumn<bool>("wanted");
    QTest::addColumn<int>("rows");
    QTest::newRow("filled up to eleven") << 3 << 1000.0 << true << 8;
    QTest::newRow("no further than the page") << 3 << 39.9 << true << 4;
    QTest::newRow("exactly to its end") << 3 << 40.0 << true << 5;
    QTest::newRow("eleven items") << 11 << 1000.0 << true << 0;
    QTest::newRow("more than eleven") << 12 << 1000.0 << true << 0;
    QTest::newRow("no space left") << 3 << -5.0 << true << 0;
    QTest::newRow("not wanted") << 3 << 1000.0 << false << 0;
}

void InvoiceDocumentTest::emptyRows()
{
    QFETCH(int, items);
    QFETCH(double, space);
    QFETCH(bool, wanted);
    Invoice invoice = test::sampleInvoice();
    test::addItems(invoice, items, false);
    Styling styling;
    styling.emptyItemRows = wanted;
    const InvoiceDocument document(invoice, settingOf(styling), fonts());
    std::vector<int> all(static_cast<std::size_t>(document.expectedBlockCount()));
    std::iota(all.begin(), all.end(), 0);
    const QStringList rows = tableRows(document.pageHtml(PagePosition::single, all, space, 10));
    QTEST(static_cast<int>(rows.filter(QStringLiteral("empty-row:")).size()), "rows");
    QCOMPARE(rows.indexOf(QRegularExpression(QStringLiteral("^totals-row.*"))), rows.size() - 1);
    if (const auto first = rows.indexOf(QStringLiteral("empty-row: | | |")); first >= 0)
        QCOMPARE(static_cast<int>(first), items);
}

void InvoiceDocumentTest::pagesShowTheirBlocks()
{
    Invoice invoice = test::sampleInvoice();
    test::addItems(invoice, 3, false);
    invoice.note = QStringLiteral("one\ntwo");
    const InvoiceDocument document(invoice, settingOf(), fonts());

    const QString first = document.pageHtml(PagePosition::first, {0, 1}, 500, 10);
    QCOMPARE(bodyClasses(first), QStringLiteral("has-sidebar no-totals page-first"));
    QVERIFY(first.contains(QStringLiteral("Page <!--page-number--> of <!--page-count-->")));
    QCOMPARE(tableRows(first).filter(QStringLiteral("item:")).size(), 2);
    QVERIFY(tableRows(first).filter(QStringLiteral("empty-row")).isEmpty());

    const QString middle = document.pageHtml(PagePosition::middle, {2, 3, 4}, 500, 10);
    QCOMPARE(bodyClasses(middle), QStringLiteral("has-sidebar page-middle"));
    QCOMPARE(tableRows(middle).last(), QStringLiteral("note-row: one"));

    const QString last = document.pageHtml(PagePosition::last, {5}, 500, 10);
    QCOMPARE(bodyClasses(last), QStringLiteral("has-sidebar no-items no-totals page-last"));
    QCOMPARE(tableRows(last).last(), QStringLiteral("note-row: two"));
    QVERIFY(!last.contains(QStringLiteral("<html lang=\"en\" class=\"unmeasured\"")));

    const QString single = document.pageHtml(PagePosition::single, {0, 1, 2, 3, 4, 5}, 100, 10);
    QCOMPARE(bodyClasses(single), QStringLiteral("has-sidebar page-single"));
    QVERIFY(!single.contains(pageNumberMarker));
    QCOMPARE(bodyClasses(document.measuringHtml()), QStringLiteral("has-sidebar measuring page-single"));
    const QString fallback = document.pageHtml(PagePosition::single, {0, 1, 2, 3, 4, 5}, unmeasuredSpace, 1);
    QVERIFY(fallback.contains(QStringLiteral("<html lang=\"en\" class=\"unmeasured\"")));
}

void InvoiceDocumentTest::bodyClassesOfTheLayout()
{
    Styling styling;
    styling.marginalColumn = false;
    QCOMPARE(bodyClasses(measuringHtml(oneItem(), settingOf(styling))),
             QStringLiteral("measuring page-single"));
    styling.logo = QStringLiteral("<svg viewBox='0 0 1 1'/>");
    QCOMPARE(bodyClasses(measuringHtml(oneItem(), settingOf(styling))),
             QStringLiteral("has-footer-logo measuring page-single"));
    styling.marginalColumn = true;
    QCOMPARE(bodyClasses(measuringHtml(oneItem(), settingOf(styling))),
             QStringLiteral("has-sidebar measuring page-single"));
}

void InvoiceDocumentTest::continuationOffset()
{
    Styling styling;
    styling.logoSize = 2.5;
    const auto offset = [&] {
        return InvoiceDocument(oneItem(), settingOf(styling), fonts()).continuationOffset(10);
    };
    styling.marginalColumn = false;
    QCOMPARE(offset(), 0.0);
    styling.logo = QStringLiteral("<svg viewBox='0 0 1 1'/>");
    QCOMPARE(offset(), 35.0);
    styling.marginalColumn = true;
    QCOMPARE(offset(), 0.0);
}

void InvoiceDocumentTest::cacheKeyCoversWhatItMust()
{
    const auto keyOf = [](const Invoice& invoice, const DocumentSetting& setting) {
        return InvoiceDocument(invoice, setting, fonts()).cacheKey();
    };
    const Invoice invoice = oneItem();
    const DocumentSetting setting = settingOf();
    const std::size_t key = keyOf(invoice, setting);
    QCOMPARE(keyOf(invoice, setting), key);

    Invoice otherInvoice = invoice;
    otherInvoice.note = QStringLiteral("x");
    QVERIFY(keyOf(otherInvoice, setting) != key);
    DocumentSetting other = setting;
    other.styling.accentColor = QStringLiteral("000000");
    QVERIFY(keyOf(invoice, other) != key);
    other = setting;
    other.styling.css = QString();
    QVERIFY(keyOf(invoice, other) != key);
    other = setting;
    other.colorScheme = ColorScheme::dark;
    QVERIFY(keyOf(invoice, other) != key);
}

const ledra::test::RegisterSuite<InvoiceDocumentTest> registration("invoice_document_test");

#include "invoice_document_test.moc"
