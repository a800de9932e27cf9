#include "einvoice/missing_fields.h"
#include "einvoice/xml_generator.h"
#include "support/sample_invoice.h"
#include "support/test_suite.h"

using namespace ledra;
using test::sampleItem;

namespace {

Invoice withItems(std::vector<Invoice::Item> items)
{
    Invoice invoice = test::sampleInvoice();
    invoice.items = std::move(items);
    return invoice;
}

Invoice::Item line(double vat)
{
    return sampleItem(QStringLiteral("Work"), 3, Unit::hour, 12.5, vat);
}

XMLDocument
generated(const Invoice& invoice, const InvoiceLookup& invoices = [](const QUuid&) { return std::nullopt; })
{
    const QByteArray xml = XMLGenerator::generate(invoice, Profile(), invoices).value();
    return std::move(XMLDocument::parse(xml.toStdString()).value());
}

/// The texts of all elements of a name, in order.
QByteArray texts(const Element& root, std::string_view name)
{
    QByteArrayList found;
    root.forEach(name, [&](const Element& element) { found += QByteArray::fromStdString(element.text()); });
    return found.join(' ');
}

} // namespace

class XmlGeneratorTest : public test::Suite
{
    Q_OBJECT

private Q_SLOTS:
    void ratesAndCategories();
    void numbersOfALine();
    void exemptionReason();
    void cancellation();
    void allowances();
    void emptyFieldsVanish();
    void templateThatCannotBeRead();
    void missingFields();
};

void XmlGeneratorTest::ratesAndCategories()
{
    const XMLDocument document = generated(withItems({line(19), line(7), line(0), line(19)}));
    const Element& settlement = *document.root->find("ApplicableHeaderTradeSettlement");
    QCOMPARE(texts(settlement, "CategoryCode"), QByteArray("E S S"));
    QCOMPARE(texts(settlement, "RateApplicablePercent"), QByteArray("0.00 7.00 19.00"));
    QCOMPARE(texts(settlement, "CalculatedAmount"), QByteArray("0.00 2.63 14.25"));
    QCOMPARE(texts(*document.root, "LineID"), QByteArray("1 2 3 4"));
}

void XmlGeneratorTest::numbersOfALine()
{
    const XMLDocument document =
        generated(withItems({line(19), sampleItem(QStringLiteral("A"), 2.5, Unit::lumpSum, 1e-5, 7)}));
    QCOMPARE(texts(*document.root, "BilledQuantity"), QByteArray("3.0 2.5"));
    QCOMPARE(document.root->find("BilledQuantity")->attribute("unitCode").value(), std::string_view("HUR"));
    QCOMPARE(texts(*document.root, "ChargeAmount"), QByteArray("12.5000 12.5000 0.0000 0.0000"));
    QCOMPARE(texts(*document.root, "IBANID"), QByteArray("DE02200505501015871393"));
    QCOMPARE(document.root->find("TaxTotalAmount")->attribute("currencyID").value(), std::string_view("EUR"));
}

void XmlGeneratorTest::exemptionReason()
{
    Invoice invoice = withItems({line(0)});
    invoice.vatExemptionReason = VATExemptionReason::reverseCharge;
    invoice.language = Language::german;
    const XMLDocument document = generated(invoice);
    const QByteArray reason = "Steuerschuldnerschaft des Leistungsempfängers (Reverse Charge).";
    QCOMPARE(texts(*document.root, "ExemptionReason"), reason + ' ' + reason);
    QCOMPARE(texts(*document.root, "CategoryCode"), QByteArray("E E"));
}

void XmlGeneratorTest::cancellation()
{
    const Invoice cancelled = withItems({line(19)});
    Invoice invoice = cancelled;
    invoice.type = InvoiceType::cancellation;
    invoice.cancellationPrefix = QStringLiteral("STO-");
    invoice.cancelledInvoiceId = cancelled.id;
    invoice.items.front().unitPrice = -12.5;
    const XMLDocument named = generated(invoice, [&](const QUuid&) { return cancelled; });
    QCOMPARE(texts(*named.root, "TypeCode").left(3), QByteArray("381"));
    QCOMPARE(texts(*named.root, "BilledQuantity"), QByteArray("-3.0"));
    QCOMPARE(texts(*named.root, "ChargeAmount"), QByteArray("12.5000 12.5000"));
    QCOMPARE(QByteArray::fromStdString(named.root->textAt("ExchangedDocument/ID")),
             QByteArray("STO-2026-007"));
    const Element& reference = *named.root->find("AdditionalReferencedDocument");
    QCOMPARE(texts(reference, "IssuerAssignedID"), QByteArray("2026-007"));
    QCOMPARE(texts(reference, "TypeCode"), QByteArray("130"));
    QVERIFY(!generated(invoice).root->find("AdditionalReferencedDocument"));
}

void XmlGeneratorTest::allowances()
{
    Invoice invoice = withItems({line(19), line(7)});
    QVERIFY(!generated(invoice).root->find("SpecifiedTradeAllowanceCharge"));
    QCOMPARE(generated(invoice).root->textAt("AllowanceTotalAmount"), std::string("0.00"));
    invoice.discountAmount = 7.5;
    const XMLDocument byAmount = generated(invoice);
    QCOMPARE(texts(*byAmount.root, "ActualAmount"), QByteArray("0.00 0.00 3.75 3.75"));
    QVERIFY(!byAmount.root->find("CalculationPercent"));
    invoice.discountPercentage = 10;
    const XMLDocument byPercentage = generated(invoice);
    QCOMPARE(texts(*byPercentage.root, "CalculationPercent"), QByteArray("10.00 10.00"));
    QCOMPARE(texts(*byPercentage.root, "ReasonCode"), QByteArray("95 95"));
    QCOMPARE(texts(*byPercentage.root->find("SpecifiedTradeAllowanceCharge"), "BasisAmount"),
             QByteArray("37.50"));
}

void XmlGeneratorTest::emptyFieldsVanish()
{
    Invoice invoice = withItems({line(19)});
    invoice.senderBusinessName.clear();
    const XMLDocument document = generated(invoice);
    for (const char* path : {"IncludedNote", "BuyerReference", "SpecifiedLegalOrganization", "LineTwo"})
        QVERIFY2(!document.root->find(path), path);
}

void XmlGeneratorTest::templateThatCannotBeRead()
{
    const auto nobody = [](const QUuid&) { return std::nullopt; };
    QVERIFY(!XMLGenerator::generate(withItems({}), Profile(), nobody, "<not closed>"));
    QVERIFY(XMLGenerator::generate(withItems({}), Profile(), nobody, "<a><ram:ID/></a>"));
}

void XmlGeneratorTest::missingFields()
{
    const QStringList all = XMLGenerator::validate(Invoice());
    QCOMPARE(all.join(u'|'),
             QStringLiteral(
                 "Sender name|Sender email|Sender phone number|Sender postcode|Sender city|Sender tax number "
                 "or VAT ID|Sender IBAN|Sender BIC|Recipient name|Recipient email|Recipient "
                 "postcode|Recipient city|At least one invoice item"));
    Invoice invoice = withItems({line(19), line(19)});
    invoice.senderPhone = invoice.email = QStringLiteral(" "); // blank is not empty
    invoice.items[1].item.clear();
    QCOMPARE(XMLGenerator::validate(invoice), QStringList(QStringLiteral("Description for item 2")));
    QCOMPARE(
        missingFieldsText({QStringLiteral("A"), QStringLiteral("B")}),
        QStringLiteral("The following required fields for e-invoices are empty:\n\n–\u2002A\n–\u2002B\n\n"
                       "The exported invoice may not be valid."));
}

static const test::RegisterSuite<XmlGeneratorTest> registered("xml_generator_test");

#include "xml_generator_test.moc"
