#include "render/invoice_document.h"
#include "support/sample_invoice.h"
#include "support/test_suite.h"

#include <QRegularExpression>

#include <numeric>

using namespace ledra;
using test::sampleItem;

namespace {

const WebFontManager& fonts()
{
    static const WebFontManager manager;
    return manager;
}

DocumentSetting settingOf(const Styling& styling = {})
{
    DocumentSetting setting;
    setting.styling = styling;
    return setting;
}

QString measuringHtml(const Invoice& invoice, const DocumentSetting& setting = settingOf())
{
    return InvoiceDocument(invoice, setting, fonts()).measuringHtml();
}

/// The text between two markers; null when there is none.
QString between(const QString& html, const QString& before, const QString& after)
{
    const auto start = html.indexOf(before);
    const auto end = start < 0 ? -1 : html.indexOf(after, start + before.size());
    return end < 0 ? QString() : html.mid(start + before.size(), end - start - before.size());
}

/// In the order of the alphabet.
QString bodyClasses(const QString& html)
{
    QStringList classes = between(html, QStringLiteral("<body class=\""), QStringLiteral("\"")).split(u' ');
    classes.sort();
    return classes.join(u' ');
}

/// The rows of the main table's body, "class: cell | cell", tags inside cells left out but for line breaks.
QStringList tableRows(const QString& html)
{
    static const QRegularExpression row(QStringLiteral("<tr class=\"([^\"]*)\">(.*?)</tr>"),
                                        QRegularExpression::DotMatchesEverythingOption);
    static const QRegularExpression tag(QStringLiteral("<(?!br>|strong|/strong|em>|/em>)[^>]*>"));
    QString body = between(html, QStringLiteral("<table class=\"main-table\">"), QStringLiteral("</table>"));
    body = between(body, QStringLiteral("<tbody>"), QStringLiteral("</tbody>"));
    QStringList rows;
    for (auto match = row.globalMatch(body); match.hasNext();) {
        const QRegularExpressionMatch found = match.next();
        QString cells = found.captured(2);
        cells.replace(QStringLiteral("</td><td"), QStringLiteral("</td> | <td"));
        rows += found.captured(1) + QStringLiteral(": ") + cells.remove(tag).simplified();
    }
    return rows;
}

/// The meta table as "label=value" in order.
QString metaRows(const QString& html)
{
    static const QRegularExpression row(QStringLiteral("<tr>\\s*<th>(.*?)</th>\\s*<td>(.*?)</td>\\s*</tr>"));
    QStringList rows;
    const QString table = between(html, QStringLiteral("<table class=\"meta\">"), QStringLiteral("</table>"));
    for (auto match = row.globalMatch(table); match.hasNext();) {
        const QRegularExpressionMatch found = match.next();
        rows += found.captured(1) + u'=' + found.captured(2);
    }
    return rows.join(u';');
}

/// The heads of the item table, "class=label".
QString headCells(const QString& html)
{
    static const QRegularExpression cell(QStringLiteral("<th class=\"([^\"]*)\">(.*?)</th>"));
    QStringList cells;
    for (auto match = cell.globalMatch(html); match.hasNext();) {
        const QRegularExpressionMatch found = match.next();
        cells += found.captured(1) + u'=' + found.captured(2);
    }
    return cells.join(u';');
}

/// The lines of the totals, "label=amount", the closing one marked with "!".
QString totalLines(const QString& html)
{
    static const QRegularExpression line(
        QStringLiteral("<div class=\"line([^\"]*)\"><span class=\"label\">(.*?)</span><span "
                       "class=\"amount\">(.*?)</span></div>"));
    QStringList lines;
    for (auto match = line.globalMatch(html); match.hasNext();) {
        const QRegularExpressionMatch found = match.next();
        const bool closes = found.captured(1).contains(QStringLiteral("grand-total"));
        lines += found.captured(2) + u'=' + found.captured(3) + (closes ? QStringLiteral("!") : QString());
    }
    return lines.join(u';').replace(QChar::Nbsp, u'_');
}

Invoice oneItem(double price = 100, double vat = 19)
{
    Invoice invoice = test::sampleInvoice();
    invoice.items = {sampleItem(QStringLiteral("Work"), 2, Unit::day, price, vat)};
    return invoice;
}

} // namespace

using InvoiceChange = void (*)(Invoice& invoice);
Q_DECLARE_METATYPE(InvoiceChange)

class InvoiceDocumentTest : public test::Suite
{
    Q_OBJECT

private Q_SLOTS:
    void labelsFollowTheDocumentsLanguage();
    void metaTable_data();
    void metaTable();
    void columns_data();
    void columns();
    void totals_data();
    void totals();
    void userTextStaysText();
    void blocks_data();
    void blocks();
    void emptyRows_data();
    void emptyRows();
    void pagesShowTheirBlocks();
    void bodyClassesOfTheLayout();
    void continuationOffset();
    void cacheKeyCoversWhatItMust();
};

void InvoiceDocumentTest::labelsFollowTheDocumentsLanguage()
{
    Invoice invoice = oneItem(1234.5);
    invoice.language = Language::german;
    const QString html = measuringHtml(invoice);
    QVERIFY(html.contains(QStringLiteral("<html lang=\"de\"")));
    QCOMPARE(metaRows(html),
             QStringLiteral("Rechnungsnummer=2026-007;Datum=1 April 2026;Leistungsdatum=1 April 2026"));
    QCOMPARE(headCells(html),
             QStringLiteral("description=Beschreibung;quantity=Tage;price=Preis;total=Gesamt"));
    QCOMPARE(totalLines(html),
             QStringLiteral("Zwischensumme=2.469,00_€;USt. 19_%=469,11_€;Gesamtbetrag=2.938,11_€!"));
    QVERIFY(html.simplified().contains(QStringLiteral("innerhalb von 14 Tagen")));

    // Without a language of its own the profile's applies.
    invoice.language.reset();
    DocumentSetting setting = settingOf();
    setting.profile.language = Language::german;
    QCOMPARE(measuringHtml(invoice, setting), html);
}

void InvoiceDocumentTest::metaTable_data()
{
    QTest::addColumn<InvoiceChange>("change");
    QTest::addColumn<QString>("rows");
    const auto row = [](const char* name, InvoiceChange change, const char* rows) {
        QTest::newRow(name) << change << QString::fromUtf8(rows);
    };
    row("invoice", [](Invoice&) {}, "Invoice Number=2026-007;Date=1 April 2026;Service Date=1 April 2026");
    row(
        "period within a year", [](Invoice& i) { i.serviceDateEnd = test::noon(2026, 5, 31); },
        "Invoice Number=2026-007;Date=1 April 2026;Service Period=1 April – 31 May 2026");
    row(
        "period over new year",
        [](Invoice& i) {
            i.serviceDateStart = test::noon(2025, 12, 1);
            i.serviceDateEnd = test::noon(2026, 1, 31);
        },
        "Invoice Number=2026-007;Date=1 April 2026;Service Period=1 December 2025 – 31 January 2026");
    row(
        "period of one day", [](Invoice& i) { i.serviceDateEnd = i.serviceDateStart; },
        "Invoice Number=2026-007;Date=1 April 2026;Service Date=1 April 2026");
    row(
        "cancellation",
        [](Invoice& i) {
            i.type = InvoiceType::cancellation;
            i.cancellationPrefix = QStringLiteral("STO-");
            i.cancelledInvoiceId = QUuid::fromString(QStringLiteral("aaaaaaaa-0000-4000-8000-000000000001"));
        },
        "Cancellation Invoice Number=STO-2026-007;Date=1 April 2026;Service Date=1 April 2026;"
        "Original Invoice=F-99");
    row(
        "cancellation of an unknown invoice",
        [](Invoice& i) {
            i.type = InvoiceType::cancellation;
            i.cancellationPrefix = QString();
            i.cancelledInvoiceId = QUuid::createUuid();
        },
        "Cancellation Invoice Number=2026-007;Date=1 April 2026;Service Date=1 April 2026");
    row(
        "an invoice that was cancelled names no other",
        [](Invoice& i) {
            i.cancelledInvoiceId = QUuid::fromString(QStringLiteral("aaaaaaaa-0000-4000-8000-000000000001"));
        },
        "Invoice Number=2026-007;Date=1 April 2026;Service Date=1 April 2026");
    row(
        "quote",
        [](Invoice& i) {
            i.type = InvoiceType::quote;
            i.quotePrefix = QStringLiteral("Q<");
        },
        "Quote Number=Q&lt;2026-007;Date=1 April 2026;Service Date=1 April 2026");
    row(
        "from a quote, with a reference",
        [](Invoice& i) {
            i.quoteId = QUuid::fromString(QStringLiteral("aaaaaaaa-0000-4000-8000-000000000001"));
            i.reference = QStringLiteral("A & B");
        },
        "Invoice Number=2026-007;Date=1 April 2026;Service Date=1 April 2026;Quote Number=F-99;Reference=A "
        "&amp; B");
}

void InvoiceDocumentTest::metaTable()
{
    QFETCH(InvoiceChange, change);
    Invoice invoice = oneItem();
    change(invoice);
    DocumentSetting setting = settingOf();
    setting.invoices = [](const QUuid& id) -> std::optional<Invoice> {
        if (id != QUuid::fromString(QStringLiteral("aaaaaaaa-0000-4000-8000-000000000001")))
            return std::nullopt;
        Invoice other;
        other.id = id;
        other.number = 99;
        other.numberFormat = QStringLiteral("F-{N}");
        return other;
    };
    QTEST(metaRows(measuringHtml(invoice, setting)), "rows");
}

void InvoiceDocumentTest::columns_data()
{
    QTest::addColumn<InvoiceChange>("change");
    QTest::addColumn<QString>("heads");
    QTest::addColumn<QString>("row"); ///< of the first item
    const auto row = [](const char* name, InvoiceChange change, const char* heads, const char* first) {
        QTest::newRow(name) << change << QString::fromUtf8(heads) << QString::fromUtf8(first);
    };
    row(
        "one unit heads the column", [](Invoice&) {},
        "description=Description;quantity=Days;price=Price;total=Total",
        "item: Work | 2 | €100.00 | €200.00");
    row(
        "mixed units stand with the numbers",
        [](Invoice& i) {
            i.items[0].quantity = 1;
            i.items.push_back(sampleItem(QStringLiteral("B"), 2, Unit::hour, 1, 19));
        },
        "description=Description;quantity with-unit=Quantity;price=Price;total=Total",
        "item: Work | 1Day | €100.00 | €100.00");
    row(
        "rates differ",
        [](Invoice& i) { i.items.push_back(sampleItem(QStringLiteral("B"), 2, Unit::day, 1, 7)); },
        "description=Description;quantity=Days;price=Price;vat=VAT;total=Total",
        "item: Work | 2 | €100.00 | 19% | €200.00");
    row(
        "lump sums need no quantity",
        [](Invoice& i) { i.items = {sampleItem(QStringLiteral("All of it"), 1, Unit::lumpSum, 50, 19)}; },
        "description=Description;price=Price", "item: All of it | €50.00");
    row(
        "two lump sums of one line do",
        [](Invoice& i) { i.items = {sampleItem(QStringLiteral("Each"), 2, Unit::lumpSum, 50, 19)}; },
        "description=Description;quantity=Lump Sums;price=Price;total=Total",
        "item: Each | 2 | €50.00 | €100.00");
    row(
        "several lines, markup and a negative price",
        [](Invoice& i) {
            i.items = {sampleItem(QStringLiteral("<b>&\r\nmore\n"), 0.25, Unit::day, -1000, 19)};
        },
        "description=Description;quantity=Days;price=Price;total=Total",
        "item: &lt;b&gt;&amp;<br>more<br> | 0.25 | −€1,000.00 | −€250.00");
}

void InvoiceDocumentTest::columns()
{
    QFETCH(InvoiceChange, change);
    Invoice invoice = oneItem();
    change(invoice);
    const QString html = measuringHtml(invoice);
    QTEST(headCells(html), "heads");
    const QStringList rows = tableRows(html);
    QTEST(rows.value(0), "row");
    const auto columns = headCells(html).count(u'=');
    QCOMPARE(rows.value(0).count(QStringLiteral(" | ")) + 1, columns);
    QVERIFY(html.contains(QStringLiteral("<td colspan=\"%1\">").arg(columns)));
}

void InvoiceDocumentTest::totals_data()
{
    QTest::addColumn<InvoiceChange>("change");
    QTest::addColumn<QString>("lines");
    const auto row = [](const char* name, InvoiceChange change, const char* lines) {
        QTest::newRow(name) << change << QString::fromUtf8(lines);
    };
    row("one rate", [](Invoice&) {}, "Subtotal=€200.00;VAT 19%=€38.00;Total with VAT=€238.00!");
    row(
        "no VAT: the sum is the last word", [](Invoice& i) { i.items[0].vatPercentage = 0; },
        "Total=€200.00!");
    row(
        "a percentage off", [](Invoice& i) { i.discountPercentage = 10; },
        "Subtotal=€200.00;Discount 10%=&minus;€20.00;VAT 19%=€34.20;Total with VAT=€214.20!");
    row(
        "an amount off, no VAT",
        [](Invoice& i) {
            i.discountAmount = 12.5;
            i.items[0].vatPercentage = 0;
        },
        "Subtotal=€200.00;Discount=&minus;€12.50;Total=€187.50!");
    row(
        "a discount of nothing is none", [](Invoice& i) { i.discountPercentage = i.discountAmount = 0; },
        "Subtotal=€200.00;VAT 19%=€38.00;Total with VAT=€238.00!");
    row(
        "several rates, ascending, and their sum",
        [](Invoice& i) { i.items.push_back(sampleItem(QStringLiteral("Book"), 1, Unit::piece, 50, 7)); },
        "Subtotal=€250.00;VAT 7%=€3.50;VAT 19%=€38.00;Total VAT=€41.50;Total with VAT=€291.50!");
    row(
        "a cancellation turns all signs",
        [](Invoice& i) {
            i.items[0].unitPrice = -100;
            i.discountPercentage = 10;
        },
        "Subtotal=−€200.00;Discount 10%=€20.00;VAT 19%=−€34.20;Total with VAT=−€214.20!");
    row(
        "another currency", [](Invoice& i) { i.currency.code = QStringLiteral("CHF"); },
        "Subtotal=CHF_200.00;VAT 19%=CHF_38.00;Total with VAT=CHF_238.00!");
    row("no items", [](Invoice& i) { i.items.clear(); }, "Total=€0.00!");
}

void InvoiceDocumentTest::totals()
{
    QFETCH(InvoiceChange, change);
    Invoice invoice = oneItem();
    change(invoice);
    QTEST(totalLines(measuringHtml(invoice)), "lines");
}

void InvoiceDocumentTest::userTextStaysText()
{
    const QString hostile = QStringLiteral("<u>&\"{{number-row}}</style>");
    const QString escaped = QStringLiteral("&lt;u&gt;&amp;\"{{number-row}}&lt;/style&gt;");
    Invoice invoice = oneItem();
    for (QString* field :
         {&invoice.name, &invoice.businessName, &invoice.addressLineOne, &invoice.addressCity,
          &invoice.senderName, &invoice.senderBusinessName, &invoice.senderPhone, &invoice.senderIban,
          &invoice.senderBic, &invoice.senderTaxNumber, &invoice.senderVatNumber,
          &invoice.senderAdditionalNumbers, &invoice.marginalNote, &invoice.note, &invoice.numberVariable})
        *field = hostile;
    invoice.items[0].item = hostile;
    invoice.numberFormat = QStringLiteral("{VARIABLE}");
    invoice.reference = hostile;
    const QString html = measuringHtml(invoice);
    QVERIFY(!html.contains(QStringLiteral("<u>")));
    QVERIFY(html.count(escaped) >= 14);
    QCOMPARE(html.count(QStringLiteral("</style>")), 2); // of the shell's own two sheets
    QVERIFY(tableRows(html).contains(QStringLiteral("note-row: ") + escaped));

    Invoice note = oneItem();
    note.note = QStringLiteral("**2 < 3** and *x*\n\n \n**not\nclosed**");
    const QStringList rows = tableRows(measuringHtml(note)).mid(2);
    QCOMPARE(rows, (QStringList{QStringLiteral("note-row: <strong>2 &lt; 3</strong> and <em>x</em>"),
                                QStringLiteral("note-row: &nbsp;"), QStringLiteral("note-row: &nbsp;"),
                                QStringLiteral("note-row: **not"), QStringLiteral("note-row: closed**")}));
}

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
