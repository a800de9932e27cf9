#include "store/invoice_json.h"
#include "support/test_suite.h"
#include "support/text_table.h"

#include <QDir>
#include <QFile>
#include <QTest>

using namespace ledra;

namespace {

const QString examplesFolder = QStringLiteral(LEDRA_EXAMPLES "/");

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

Decoded<Invoice> decoded(const QByteArray& document)
{
    static RandomIdSource ids;
    return decodeInvoice(document, {Timestamp(793015200), ids, QStringLiteral("AT")});
}

/// Every key there is, in order; the texts of members name the fields that hold them.
QByteArray completeInvoice()
{
    QByteArray lines = R"({"version":3,"type":"quote","id":"020CB4D2-16F4-4AE2-A076-AF8DDD7E6F51",
"cancelledInvoiceId":"1FD47814-8443-4F0F-9A0D-4E1A32BEDB33","quoteId":"42127D1D-6F4C-4D2F-9497-DE79B5F1568E",
"number":41,"numberFormat":"{N}","numberVariable":"numberVariable","cancellationPrefix":"","quotePrefix":"Q-",
"date":"2026-02-17T10:00:00Z","serviceDateStart":"2026-02-01T00:00:00Z","serviceDateEnd":"2026-02-03T00:00:00Z",
"recipient":{"name":"name","businessName":"businessName","address":{"lineOne":"addressLineOne",
"lineTwo":"addressLineTwo","postcode":"addressPostcode","city":"addressCity","state":"addressState",
"country":"XK"},"email":"email"},"sender":{"name":"senderName","businessName":"senderBusinessName","address":{
"lineOne":"senderAddressLineOne","lineTwo":"senderAddressLineTwo","postcode":"senderAddressPostcode",
"city":"senderAddressCity","state":"senderAddressState","country":"ZZ"},"email":"senderEmail",
"phone":"senderPhone","web":"senderWeb","additional":"senderAdditional","iban":"senderIban","bic":"senderBic",
"taxNumber":"senderTaxNumber","vatNumber":"senderVatNumber","additionalNumbers":"senderAdditionalNumbers"},
"items":[{"id":"81458E8A-BEA4-44F1-8D5F-F4294A9CCD46","quantity":2.0,"unit":"Lump Sum","unitPrice":-0.5,
"vatPercentage":7.7,"description":"item"}],"grossPrices":true,"discountPercentage":0.0,"discountAmount":1e-05,
"vatExemptionReason":"reverseCharge","marginalNote":"marginalNote","daysToPay":0,"currency":"JPY","language":"de",
"status":"Cancelled","statusUpdateDate":"2026-02-18T10:00:00Z","note":"note","reference":"reference"})";
    return lines.replace('\n', "") + '\n';
}

} // namespace

class InvoiceJsonTest : public test::Suite
{
    Q_OBJECT

private Q_SLOTS:
    void examplesAreKeptByteForByte_data()
    {
        QTest::addColumn<QString>("path");
        const QStringList names = QDir(examplesFolder).entryList({QStringLiteral("*.json")});
        QVERIFY(names.size() >= 8);
        for (const QString& name : names)
            QTest::newRow(name.toUtf8().constData()) << examplesFolder + name;
    }

    void examplesAreKeptByteForByte()
    {
        QFETCH(QString, path);
        const QByteArray document = contentOf(path);
        const Decoded<Invoice> invoice = decoded(document);
        QVERIFY(invoice);
        QCOMPARE(fileText(*invoice), document);
        const Decoded<Invoice> embedded = decoded(encodeInvoiceForEmbedding(*invoice));
        QVERIFY(embedded && *embedded == *invoice);
    }

    void exampleTotals_data()
    {
        test::textTable({"example", "amounts"}, // subtotal, discount, VAT of each rate, total
                        {
                            {"cancellation-design-de", "-4311.25 0.00 19:-819.14 -5130.39"},
                            {"invoice-workshop-en", "3294.00 329.40 7:9.95 19:536.26 3510.81"},
                            {"invoice-photography-long", "25361.20 0.00 7:244.02 19:4156.29 29761.51"},
                            {"invoice-gross-de", "366.64 20.00 19:65.86 412.50"},
                        });
    }

    void exampleTotals()
    {
        const QString path = examplesFolder + test::cell("example") + QStringLiteral(".json");
        const Invoice invoice = decoded(contentOf(path)).value();
        const auto cents = [](double amount) { return QString::number(amount, 'f', 2); };
        QStringList amounts = {cents(invoice.subtotal()), cents(invoice.discount())};
        for (const VATAmount& vat : invoice.vatAmounts())
            amounts += QString::number(vat.rate) + u':' + cents(vat.amount);
        amounts += cents(invoice.total());
        QTEST(amounts.join(u' '), "amounts");
    }

    void everyKeyIsKeptInOrder()
    {
        const Invoice invoice = decoded(completeInvoice()).value();
        QCOMPARE(encodeInvoiceForEmbedding(invoice), completeInvoice());
        const Decoded<Invoice> again = decoded(fileText(invoice));
        QVERIFY(again && *again == invoice);
    }

    void everyKeyReachesItsField()
    {
        const Invoice i = decoded(completeInvoice()).value();
        QVERIFY(i.numberVariable == u"numberVariable" && i.name == u"name" &&
                i.businessName == u"businessName" && i.addressLineOne == u"addressLineOne" &&
                i.addressLineTwo == u"addressLineTwo" && i.addressPostcode == u"addressPostcode" &&
                i.addressCity == u"addressCity" && i.addressState == u"addressState" && i.email == u"email");
        QVERIFY(i.senderName == u"senderName" && i.senderBusinessName == u"senderBusinessName" &&
                i.senderAddressLineOne == u"senderAddressLineOne" &&
                i.senderAddressLineTwo == u"senderAddressLineTwo" &&
                i.senderAddressPostcode == u"senderAddressPostcode" &&
                i.senderAddressCity == u"senderAddressCity" &&
                i.senderAddressState == u"senderAddressState" && i.senderEmail == u"senderEmail");
        QVERIFY(i.senderPhone == u"senderPhone" && i.senderWeb == u"senderWeb" &&
                i.senderAdditional == u"senderAdditional" && i.senderIban == u"senderIban" &&
                i.senderBic == u"senderBic" && i.senderTaxNumber == u"senderTaxNumber" &&
                i.senderVatNumber == u"senderVatNumber" &&
                i.senderAdditionalNumbers == u"senderAdditionalNumbers" &&
                i.marginalNote == u"marginalNote" && i.note == u"note");
        QCOMPARE(i.type, InvoiceType::quote);
        QVERIFY(i.cancellationPrefix == QString() && i.quotePrefix == QStringLiteral("Q-"));
        QVERIFY(idText(i.cancelledInvoiceId.value()).startsWith(u'1') &&
                idText(i.quoteId.value()).startsWith(u'4'));
        QVERIFY(i.serviceDateStart < i.serviceDateEnd && i.serviceDateEnd < i.date &&
                i.date < i.statusUpdateDate);
        QVERIFY(i.addressCountry.code == u"XK" && i.senderAddressCountry.code == u"ZZ");
        QVERIFY(i.items.at(0) ==
                (Invoice::Item{i.items[0].id, QStringLiteral("item"), 2, Unit::lumpSum, -0.5, 7.7}));
        QVERIFY(i.discountPercentage == 0 && i.discountAmount == 1e-05);
        QVERIFY(i.language == Language::german && i.status == Status::cancelled && i.daysToPay == 0);
    }

    void missingKeysTakeNewValues()
    {
        const QByteArray smallest = R"({"recipient":{"address":{}},"sender":{"address":{}},"items":[{},{}]})";
        const Invoice invoice = decoded(smallest).value();
        Invoice expected = newInvoice(invoice.id, Timestamp(793015200), Country{QStringLiteral("AT")});
        expected.items.resize(2);
        expected.items[0].id = invoice.items.at(0).id;
        expected.items[1].id = invoice.items.at(1).id;
        QVERIFY(invoice == expected);
        QVERIFY(invoice.version == 2 && invoice.daysToPay == 14 && invoice.currency.code == u"EUR");
        QVERIFY(invoice.senderAddressCountry.code == u"AT" &&
                invoice.statusUpdateDate == Timestamp(793015200));

        const std::set<QUuid> ids = {QUuid(), invoice.id, invoice.items[0].id, invoice.items[1].id,
                                     decoded(smallest).value().id};
        QCOMPARE(ids.size(), std::size_t{5});
    }

    void bothDateFormsAreRead_data()
    {
        // The 9178th day after the reference date, at 10 o'clock UTC.
        test::textTable({"date", "iso", "seconds"},
                        {
                            {"793015200", "2026-02-17T10:00:00Z", "793015200.000"},
                            {"793015200.125", "2026-02-17T10:00:00Z", "793015200.125"},
                            {"\"2026-02-17T10:00:00Z\"", "2026-02-17T10:00:00Z", "793015200.000"},
                            {"\"2026-02-17T12:00:00+02:00\"", "2026-02-17T10:00:00Z", "793015200.000"},
                            {"-1", "2000-12-31T23:59:59Z", "-1.000"},
                        });
    }

    void bothDateFormsAreRead()
    {
        const Decoded<Invoice> invoice =
            decoded(R"({"recipient":{"address":{}},"sender":{"address":{}},"date":)" +
                    test::cell("date").toUtf8() + '}');
        QVERIFY(invoice);
        QTEST(invoice->date.toIso8601(), "iso");
        QTEST(QString::number(invoice->date.secondsSinceReference(), 'f', 3), "seconds");
    }
};

const ledra::test::RegisterSuite<InvoiceJsonTest> registration("invoice_json_test");

#include "invoice_json_test.moc"
