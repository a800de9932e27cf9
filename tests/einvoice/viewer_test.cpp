#include "cii_documents.h"
#include "einvoice/cii_rules.h"
#include "einvoice/viewer_html_generator.h"
#include "einvoice/xml_encoding.h"
#include "einvoice/xml_generator.h"
#include "support/sample_invoice.h"
#include "support/test_suite.h"

#include <QRegularExpression>
#include <QXmlStreamReader>

using namespace ledra;

namespace {

OpenedEInvoice opened(const QByteArray& xml)
{
    const SystemClock clock;
    RandomIdSource ids;
    return ViewerXMLParser(clock, ids).parse(QStringLiteral("file.xml"), xml).value();
}

Invoice sample()
{
    Invoice invoice = test::sampleInvoice();
    invoice.items = {test::sampleItem(QStringLiteral("Design\nlogo"), 2, Unit::hour, 80, 19),
                     test::sampleItem(QStringLiteral("Print"), 1, Unit::piece, 20, 0)};
    invoice.reference = QStringLiteral("REF-1");
    return invoice;
}

QByteArray written(const Invoice& invoice)
{
    return XMLGenerator::generate(invoice, Profile(), [](const QUuid&) { return std::nullopt; }).value();
}

/// What an independent reader finds: the number and how many lines there are.
struct Counted
{
    QString number;
    qsizetype lines = 0;
};

Counted counted(const QByteArray& xml)
{
    Counted found;
    QXmlStreamReader reader(xml);
    QStringList path;
    while (!reader.atEnd()) {
        const QXmlStreamReader::TokenType token = reader.readNext();
        if (token == QXmlStreamReader::StartElement) {
            path += reader.name().toString();
            found.lines += reader.name() == u"IncludedSupplyChainTradeLineItem" ? 1 : 0;
        } else if (token == QXmlStreamReader::EndElement) {
            path.removeLast();
        } else if (token == QXmlStreamReader::Characters && path.size() == 3 &&
                   path[1] == u"ExchangedDocument" && path[2] == u"ID") {
            found.number += reader.text();
        }
    }
    return found;
}

} // namespace

class ViewerTest : public test::Suite
{
    Q_OBJECT

private Q_SLOTS:
    void showsTheInvoice();
    void creditNote();
    void markupIsText();
    void foreignValues_data();
    void foreignValues();
    void datesThatAreNotStated();
    void statedTotals();
    void embeddedFiles();
    void templateIsMissing();
    void anyDocumentOfTheSchema_data();
    void anyDocumentOfTheSchema();
};

void ViewerTest::showsTheInvoice()
{
    OpenedEInvoice invoice = opened(written(sample()));
    invoice.attachments = {QStringLiteral("<times>.pdf")};
    QVERIFY(invoice.differences.empty());
    const QString light = ViewerHTMLGenerator::html(invoice, {});
    for (const char* part :
         {"Invoice 2026-007", "1 April 2026",
          "<tr><td>Design<br>logo</td><td>2\u00a0Hours</td><td>€80.00</td><td>€160.00</td></tr>",
          "<tr><th>19.0&hairsp;%</th><td>€30.40</td></tr><tr><th>Total</th><td>€210.40</td></tr>", "REF-1",
          "Please pay the invoice within 14 days.", "&lt;times&gt;.pdf", "HASPDEHHXXX", "48/123/45678"})
        QVERIFY2(light.contains(QString::fromUtf8(part)), part);
    QVERIFY(!light.contains(QStringLiteral("{{")));
    const QString dark = ViewerHTMLGenerator::html(invoice, {Language::german, ViewerAppearance::dark});
    QVERIFY(dark.contains(QStringLiteral("#161616")) && !light.contains(QStringLiteral("#161616")));
    QVERIFY(dark.contains(QStringLiteral("Rechnung 2026-007")) &&
            dark.contains(QStringLiteral("19,0&hairsp;%")));
}

void ViewerTest::creditNote()
{
    Invoice cancellation = sample();
    cancellation.type = InvoiceType::cancellation;
    for (Invoice::Item& item : cancellation.items)
        item.unitPrice = -item.unitPrice;
    const OpenedEInvoice invoice = opened(written(cancellation));
    const QString html = ViewerHTMLGenerator::html(invoice, {});
    QVERIFY(html.contains(QStringLiteral("Credit Note 2026-007")) &&
            html.contains(QStringLiteral("−2\u00a0Hours")));
    QVERIFY(!html.contains(QStringLiteral("Please pay")));
    QCOMPARE(invoice.viewer.typeCode, qint64{381});
}

void ViewerTest::markupIsText()
{
    Invoice invoice = sample();
    const QString attack = QStringLiteral("</title></style><img src=x onerror=alert(1)>\"' {{items}}");
    for (QString Invoice::* field :
         {&Invoice::name, &Invoice::senderName, &Invoice::note, &Invoice::senderIban,
          &Invoice::senderTaxNumber, &Invoice::addressCity, &Invoice::senderEmail, &Invoice::senderBic,
          &Invoice::senderAdditionalNumbers, &Invoice::businessName})
        invoice.*field = attack;
    invoice.reference = attack;
    invoice.currency.code = attack;
    invoice.addressCountry.code = attack;
    invoice.numberFormat = attack;
    invoice.items.front().item = attack;
    OpenedEInvoice received = opened(written(invoice));
    received.viewer.fileName = attack;
    received.attachments = {attack};
    const QString html = ViewerHTMLGenerator::html(received, {});
    QVERIFY(!html.contains(QStringLiteral("<img")));
    QCOMPARE(html.count(QStringLiteral("</style>")), qsizetype{1});
    QCOMPARE(html.count(QStringLiteral("</title>")), qsizetype{1});
    static const QRegularExpression values(QStringLiteral("data-value=\"([^\"]*)\"[^>]*>"));
    for (auto match = values.globalMatch(html); match.hasNext();)
        QVERIFY(!match.next().captured(0).contains(u'\'' + QStringLiteral(" {{items}}\"'")));
}

void ViewerTest::foreignValues_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QByteArray>("after");
    QTest::addColumn<QString>("shown");
    QTest::newRow("unknown unit") << QByteArray("unitCode=\"HUR\">2.0") << QByteArray("unitCode=\"KGM\">2.0")
                                  << QStringLiteral("<td>2\u00a0Pieces</td>");
    QTest::newRow("no order number") << QByteArray("REF-1") << QByteArray("Keine Bestellnummer") << QString();
    QTest::newRow("quantity that is no number")
        << QByteArray("\"HUR\">2.0") << QByteArray("\"HUR\">two") << QStringLiteral("<td>0\u00a0Hours</td>");
    QTest::newRow("exponent") << QByteArray("\"HUR\">2.0") << QByteArray("\"HUR\">2e3")
                              << QStringLiteral("<td>0\u00a0Hours</td>");
    QTest::newRow("plus and blanks") << QByteArray("\"HUR\">2.0") << QByteArray("\"HUR\"> +2.50 ")
                                     << QStringLiteral("<td>2.5\u00a0Hours</td>");
    QTest::newRow("no due date") << QByteArray("20260415") << QByteArray("soon") << QString();
    QTest::newRow("due tomorrow") << QByteArray("20260415") << QByteArray("20260402")
                                  << QStringLiteral("Please pay the invoice within 1 day.");
}

void ViewerTest::foreignValues()
{
    QFETCH(QByteArray, before);
    QFETCH(QByteArray, after);
    QFETCH(QString, shown);
    const QByteArray xml = written(sample());
    QVERIFY(xml.contains(before));
    const QString html = ViewerHTMLGenerator::html(opened(QByteArray(xml).replace(before, after)), {});
    QVERIFY(html.contains(shown));
    QVERIFY(!html.contains(QString::fromUtf8(after.trimmed()) + u'<'));
}

/// Nothing is made up for what a document leaves out.
void ViewerTest::datesThatAreNotStated()
{
    const QByteArray whole = written(sample());
    QVERIFY(ViewerHTMLGenerator::html(opened(whole), {}).contains(QStringLiteral("<dt>Service Date</dt>")));
    QByteArray xml = whole;
    xml.replace("OccurrenceDateTime>", "OtherDateTime>");
    const QString withoutService = ViewerHTMLGenerator::html(opened(xml), {});
    QVERIFY(withoutService.contains(QStringLiteral("<div data-value=\"\"><dt></dt><dd></dd></div>")));
    QVERIFY(withoutService.contains(QStringLiteral("<dd>1 April 2026</dd>")));
    xml.replace("IssueDateTime>", "OtherDateTime>");
    const QString dateless = ViewerHTMLGenerator::html(opened(xml), {});
    QVERIFY(dateless.contains(QStringLiteral("<div data-value=\"\"><dt>Date</dt><dd></dd></div>")));
    QVERIFY(!dateless.contains(QStringLiteral("Please pay"))); // within days from when?
}

void ViewerTest::statedTotals()
{
    QByteArray xml = written(sample());
    xml.replace("<ram:GrandTotalAmount>210.40",
                "<ram:TotalPrepaidAmount>100.00</ram:TotalPrepaidAmount><ram:GrandTotalAmount>211.40");
    xml.replace("<ram:DuePayableAmount>210.40", "<ram:DuePayableAmount>111.4");
    const OpenedEInvoice invoice = opened(xml);
    const std::vector<StatedDifference> expected = {
        {"Total", 211.4, 210.4}, {"Already Paid", 100, std::nullopt}, {"Amount Due", 111.4, 210.4}};
    QVERIFY(invoice.differences.size() == expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i)
        QCOMPARE(statedText(invoice.differences[i], Currency(), Language::english),
                 statedText(expected[i], Currency(), Language::english));
    const QString html = ViewerHTMLGenerator::html(invoice, {});
    QVERIFY(html.contains(QStringLiteral("The document itself states another total:")));
    QVERIFY(html.contains(QStringLiteral("Amount Due: €111.40 (here €210.40)")));
    QVERIFY(html.contains(QStringLiteral("<td>€210.40</td>"))); // the page keeps to its own sums
}

void ViewerTest::embeddedFiles()
{
    const auto reference = [](const QByteArray& attributes, const QByteArray& content) {
        return "<ram:AdditionalReferencedDocument><ram:IssuerAssignedID>R-1</ram:IssuerAssignedID>"
               "<ram:AttachmentBinaryObject " +
               attributes + ">" + content +
               "</ram:AttachmentBinaryObject></ram:AdditionalReferencedDocument>";
    };
    QByteArray xml = written(sample());
    xml.replace("</ram:ApplicableHeaderTradeAgreement>",
                reference("filename=\"a.pdf\"", "JVBE\r\n  Ri0=") + reference("filename=\"a.pdf\"", "AAAA") +
                    reference("mimeCode=\"text/csv\"", "YTti") +
                    reference("filename=\"bad.pdf\"", "JVBE*Ri0=") + "</ram:ApplicableHeaderTradeAgreement>");
    QCOMPARE(opened(xml).attachments.join(u'|'), QStringLiteral("a.pdf|R-1|bad.pdf"));
    QCOMPARE(attachedFile(xml, QStringLiteral("a.pdf")), QByteArray("%PDF-")); // the first of its name
    QCOMPARE(attachedFile(xml, QStringLiteral("R-1")), QByteArray("a;b"));
    QVERIFY(!attachedFile(xml, QStringLiteral("bad.pdf")) && !attachedFile(xml, QStringLiteral("b")));
    QVERIFY(!attachedFile("no document", QStringLiteral("a.pdf")));
}

void ViewerTest::templateIsMissing()
{
    QCOMPARE(ViewerHTMLGenerator::html(opened(written(sample())), {}, std::nullopt),
             QStringLiteral("<h1>Error Loading Template</h1>"));
}

void ViewerTest::anyDocumentOfTheSchema_data()
{
    QTest::addColumn<int>("presence");
    QTest::addColumn<quint32>("count");
    QTest::newRow("only what must be there") << static_cast<int>(test::Presence::required) << quint32{20};
    QTest::newRow("everything") << static_cast<int>(test::Presence::all) << quint32{3};
    QTest::newRow("by chance") << static_cast<int>(test::Presence::random) << quint32{80};
}

void ViewerTest::anyDocumentOfTheSchema()
{
    QFETCH(int, presence);
    QFETCH(quint32, count);
    for (quint32 seed = 1; seed <= count; ++seed) {
        const QByteArray xml = QByteArray::fromStdString(
            test::ciiDocument({seed, static_cast<test::Presence>(presence), 1 + static_cast<int>(seed % 3)}));
        const OpenedEInvoice invoice = opened(xml);
        const Counted expected = counted(xml);
        QCOMPARE(invoice.viewer.originalNumber, expected.number);
        QCOMPARE(static_cast<qsizetype>(invoice.viewer.invoice.items.size()), expected.lines);
        QVERIFY(ViewerHTMLGenerator::html(invoice, {}).contains(QStringLiteral("</html>")));
        // Nothing adds up in these, which the check must survive and notice.
        const auto document = XMLDocument::parse(decodeXml(xml).value());
        QVERIFY(!brokenRules(*document->root).empty());
    }
}

static const test::RegisterSuite<ViewerTest> registered("viewer_test");

#include "viewer_test.moc"
