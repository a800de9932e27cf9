#include "einvoice/cii_fragments.h"
#include "einvoice/cii_losses.h"
#include "einvoice/cii_reader.h"
#include "einvoice/cii_text.h"
#include "einvoice/vat_groups.h"
#include "einvoice/xml_generator.h"
#include "einvoice/xml_text.h"
#include "generated_invoices.h"
#include "support/test_suite.h"

#include <QRegularExpression>

#include <cmath>

using namespace ledra;
using test::drawnInvoice;

namespace {

constexpr std::uint32_t invoiceCount = 3000;

QByteArray written(const Invoice& invoice)
{
    return XMLGenerator::generate(invoice, Profile(), [](const QUuid&) { return std::nullopt; }).value();
}

XMLDocument parsed(const QByteArray& xml)
{
    return std::move(XMLDocument::parse(xml.toStdString()).value());
}

/// What a text becomes on its way: white space alone is nothing.
QString kept(const QString& text)
{
    return isBlank(text.toStdString()) ? QString() : text;
}

/// The record as a reader of its e-invoice sees it, by the tables of paths: what they do not carry is at its
/// default.
Invoice asRead(const Invoice& invoice, const Invoice& blank)
{
    Invoice read = blank;
    for (QString Invoice::* field : {&Invoice::note,
                                     &Invoice::senderName,
                                     &Invoice::senderBusinessName,
                                     &Invoice::senderAdditionalNumbers,
                                     &Invoice::senderPhone,
                                     &Invoice::senderEmail,
                                     &Invoice::senderAddressLineOne,
                                     &Invoice::senderAddressLineTwo,
                                     &Invoice::senderAddressPostcode,
                                     &Invoice::senderAddressCity,
                                     &Invoice::senderAddressState,
                                     &Invoice::senderTaxNumber,
                                     &Invoice::senderVatNumber,
                                     &Invoice::senderBic,
                                     &Invoice::name,
                                     &Invoice::businessName,
                                     &Invoice::email,
                                     &Invoice::addressLineOne,
                                     &Invoice::addressLineTwo,
                                     &Invoice::addressPostcode,
                                     &Invoice::addressCity,
                                     &Invoice::addressState})
        read.*field = kept(invoice.*field);
    read.senderIban = QString(invoice.senderIban).removeIf([](QChar c) { return c.isSpace(); });
    read.senderAddressCountry = invoice.senderAddressCountry;
    read.addressCountry = invoice.addressCountry;
    read.currency = invoice.currency;
    read.date = Timestamp::fromDateTime(QDateTime(invoice.date.localDate(), QTime(12, 0)));
    const Timestamp service = invoice.serviceDateEnd.value_or(invoice.serviceDateStart);
    read.serviceDateStart = Timestamp::fromDateTime(QDateTime(service.localDate(), QTime(12, 0)));
    if (invoice.type == InvoiceType::cancellation)
        read.type = InvoiceType::cancellation;
    if (const QString reference = kept(invoice.reference.value_or(QString())); !reference.isEmpty())
        read.reference = reference;
    if (roundedToCents(invoice.discount()) > 0)
        read.discountAmount = roundedToCents(invoice.discount());
    for (const Invoice::Item& item : invoice.items) {
        Invoice::Item line = item;
        line.item = kept(item.item);
        line.quantity = invoice.type == InvoiceType::cancellation ? 0 - item.quantity : item.quantity;
        line.unitPrice = std::round(netUnitPrice(invoice, item) * 10000) / 10000;
        read.items.push_back(line);
    }
    return read;
}

/// Equal but for ids and for the last bits of a price.
void compareRecords(Invoice read, Invoice expected)
{
    QCOMPARE(read.items.size(), expected.items.size());
    for (std::size_t i = 0; i < read.items.size(); ++i) {
        const double price = expected.items[i].unitPrice;
        QVERIFY(std::abs(read.items[i].unitPrice - price) <= 1.001e-4 * 0.5 + 1e-12 * price);
        expected.items[i].unitPrice = read.items[i].unitPrice;
        expected.items[i].id = read.items[i].id;
    }
    QVERIFY(read == expected);
}

std::vector<double> valuesOf(const Element& root, std::string_view group, std::string_view name)
{
    std::vector<double> values;
    root.find("ApplicableHeaderTradeSettlement")->forEachChild(group, [&](const Element& element) {
        values.push_back(decimalFrom(element.textAt(name)).value());
    });
    return values;
}

} // namespace

/// Properties that hold for any invoice.
class RoundTripTest : public test::Suite
{
    Q_OBJECT

private Q_SLOTS:
    void readingGivesBackWhatWasWritten();
    void sumsFollowTheFormulas();
    void outputIsClean();
    void lossesAreTold_data();
    void lossesAreTold();
};

void RoundTripTest::readingGivesBackWhatWasWritten()
{
    RandomIdSource ids;
    for (std::uint32_t seed = 0; seed < invoiceCount && !QTest::currentTestFailed(); ++seed) {
        const Invoice invoice = drawnInvoice(seed);
        const Invoice blank = newInvoice(QUuid(), invoice.date, Country());
        Invoice read = blank;
        const CiiHeader header = readCrossIndustryInvoice(*parsed(written(invoice)).root, read, ids);
        QCOMPARE(header.number.contains(QStringLiteral("-007")), true);
        QCOMPARE(header.typeCode, invoice.type == InvoiceType::cancellation ? qint64{381} : qint64{380});
        QCOMPARE(header.dueDate, std::optional(invoice.dueDay()));
        compareRecords(read, asRead(invoice, blank));
        if (QTest::currentTestFailed())
            qInfo("seed %u", seed);
    }
}

void RoundTripTest::sumsFollowTheFormulas()
{
    const auto cents = [](double amount) { return std::round(amount * 100); };
    for (std::uint32_t seed = 0; seed < invoiceCount; ++seed) {
        const Invoice invoice = drawnInvoice(seed);
        const double subtotal = invoice.subtotal();
        double wholeBasis = 0;
        std::vector<double> bases;
        std::vector<double> amounts;
        std::vector<double> shares;
        for (const VATGroup& group : vatGroups(invoice)) {
            wholeBasis += group.originalBasis;
            bases.push_back(cents(group.discountedBasis));
            amounts.push_back(cents(group.vatAmount));
            shares.push_back(cents(discountShare(invoice, group)));
            // Rounded each on its own, basis and share may part by a cent from what they are taken from.
            if (subtotal != 0)
                QVERIFY(
                    std::abs(group.originalBasis - group.discountedBasis - discountShare(invoice, group)) <
                    0.0151 + 1e-9 * std::abs(group.originalBasis));
        }
        QVERIFY(std::abs(wholeBasis - subtotal) <= 1e-9 * std::max(1.0, std::abs(subtotal)));
        const XMLDocument document = parsed(written(invoice));
        const auto inCents = [&](std::vector<double> values) {
            std::ranges::transform(values, values.begin(), cents);
            return values;
        };
        QCOMPARE(inCents(valuesOf(*document.root, "ApplicableTradeTax", "BasisAmount")), bases);
        QCOMPARE(inCents(valuesOf(*document.root, "ApplicableTradeTax", "CalculatedAmount")), amounts);
        const auto allowances =
            inCents(valuesOf(*document.root, "SpecifiedTradeAllowanceCharge", "ActualAmount"));
        QCOMPARE(allowances, invoice.discount() == 0 ? std::vector<double>() : shares);
        const auto total = [&](const char* name) {
            return cents(decimalFrom(document.root->textAt(name)).value());
        };
        QCOMPARE(total("SpecifiedTradeSettlementHeaderMonetarySummation/LineTotalAmount"), cents(subtotal));
        QCOMPARE(total("AllowanceTotalAmount"), cents(invoice.discount()));
        QCOMPARE(total("GrandTotalAmount"), cents(invoice.total()));
        QCOMPARE(total("DuePayableAmount"), cents(invoice.total()));
    }
}

void RoundTripTest::outputIsClean()
{
    static const QRegularExpression exponent(QStringLiteral(">[-+]?[0-9.]+[eE][-+]?[0-9]+<"));
    static const QRegularExpression negativeZero(QStringLiteral(">-0(\\.0+)?<"));
    static const QRegularExpression control(QStringLiteral("[\\x00-\\x08\\x0b-\\x1f\\x7f-\\x{9f}]"));
    for (std::uint32_t seed = 0; seed < invoiceCount; ++seed) {
        Invoice invoice = drawnInvoice(seed);
        if (seed % 10 == 0 && !invoice.items.empty()) {
            invoice.note = QStringLiteral("bell\a escape\x1b next\u0085 line");
            invoice.items.front().quantity = seed % 20 == 0 ? 1e-300 : 1e21;
            invoice.items.front().unitPrice = seed % 20 == 0 ? -0.001 : 1e-7;
        }
        const QString xml = QString::fromUtf8(written(invoice));
        for (const QRegularExpression& refused : {exponent, negativeZero, control}) {
            const QRegularExpressionMatch match = refused.match(xml);
            QVERIFY2(!match.hasMatch(),
                     qPrintable(QStringLiteral("seed %1: %2").arg(seed).arg(match.captured())));
        }
    }
}

void RoundTripTest::lossesAreTold_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<double>("price");
    QTest::addColumn<bool>("grossPrices");
    QTest::addColumn<double>("discount");
    QTest::addColumn<qsizetype>("losses");
    const int invoice = static_cast<int>(InvoiceType::invoice);
    const int cancellation = static_cast<int>(InvoiceType::cancellation);
    QTest::newRow("none") << invoice << 80.0 << false << 10.0 << qsizetype{0};
    QTest::newRow("negative line of an invoice") << invoice << -80.0 << false << 0.0 << qsizetype{1};
    QTest::newRow("cancellation") << cancellation << -80.0 << false << 0.0 << qsizetype{0};
    QTest::newRow("discount of a cancellation") << cancellation << -80.0 << false << 10.0 << qsizetype{1};
    QTest::newRow("cents of gross prices") << invoice << 9.99 << true << 0.0 << qsizetype{1};
}

void RoundTripTest::lossesAreTold()
{
    QFETCH(int, kind);
    QFETCH(double, price);
    QFETCH(bool, grossPrices);
    QFETCH(double, discount);
    QFETCH(qsizetype, losses);
    Invoice invoice = test::sampleInvoice();
    invoice.type = static_cast<InvoiceType>(kind);
    invoice.grossPrices = grossPrices;
    invoice.discountAmount = discount;
    invoice.items = {test::sampleItem(QStringLiteral("A"), 1000, Unit::piece, price, 19)};
    QCOMPARE(lossesInCii(invoice).size(), losses);

    // What is told is what happens: the record that is read has another total.
    RandomIdSource ids;
    Invoice read = newInvoice(QUuid(), invoice.date, Country());
    readCrossIndustryInvoice(*parsed(written(invoice)).root, read, ids);
    QCOMPARE(std::abs(read.total() - invoice.total()) > 0.005, losses > 0);
}

static const test::RegisterSuite<RoundTripTest> registered("round_trip_test");

#include "round_trip_test.moc"
