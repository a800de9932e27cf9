#include "render/invoice_document.h"
#include "support/invoice_html.h"
#include "support/test_suite.h"

using namespace ledra;
using namespace ledra::test;

using InvoiceChange = void (*)(Invoice& invoice);
Q_DECLARE_METATYPE(InvoiceChange)

/// What a document says.
class InvoiceContentTest : public test::Suite
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
};

void InvoiceContentTest::labelsFollowTheDocumentsLanguage()
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

void InvoiceContentTest::metaTable_data()
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

void InvoiceContentTest::metaTable()
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

void InvoiceContentTest::columns_data()
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

void InvoiceContentTest::columns()
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

void InvoiceContentTest::totals_data()
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

void InvoiceContentTest::totals()
{
    QFETCH(InvoiceChange, change);
    Invoice invoice = oneItem();
    change(invoice);
    QTEST(totalLines(measuringHtml(invoice)), "lines");
}

void InvoiceContentTest::userTextStaysText()
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

const ledra::test::RegisterSuite<InvoiceContentTest> registration("invoice_content_test");

#include "invoice_content_test.moc"
