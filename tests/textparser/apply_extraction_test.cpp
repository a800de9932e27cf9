#include "support/sample_invoice.h"
#include "support/test_suite.h"
#include "support/text_table.h"
#include "textparser/answer_reader.h"
#include "textparser/apply_extraction.h"

#include <QTest>

using namespace ledra;

namespace {

/// What the record holds that an extraction can change, as one text.
QString told(const Invoice& invoice)
{
    const auto list = [](const QStringList& texts) { return texts.join(u'|'); };
    QStringList lines = {list({invoice.name, invoice.businessName, invoice.addressLineOne,
                               invoice.addressLineTwo, invoice.addressPostcode, invoice.addressCity,
                               invoice.addressState, invoice.addressCountry.code, invoice.email})};
    for (const Invoice::Item& item : invoice.items)
        lines += list({item.item, QString::number(item.quantity), displayText(item.unit),
                       QString::number(item.unitPrice), QString::number(item.vatPercentage)});
    const auto day = [](Timestamp moment) {
        return moment.toLocal().toString(QStringLiteral("yyyy-MM-dd'T'HH"));
    };
    const bool isOwnDay = invoice.serviceDateStart == invoice.date;
    lines += list({invoice.note, invoice.reference.value_or(QStringLiteral("-")), invoice.currency.code,
                   isOwnDay ? QStringLiteral("-") : day(invoice.serviceDateStart),
                   invoice.serviceDateEnd ? day(*invoice.serviceDateEnd) : QStringLiteral("-")});
    return lines.join(u'\n');
}

Profile sender()
{
    Profile profile = newProfile(QUuid::createUuid(), QStringLiteral("DE"));
    profile.hourlyRate = 95;
    return profile;
}

/// Applies an answer, in which single quotes stand for double ones.
QStringList applied(const char* answer, Invoice& invoice)
{
    RandomIdSource ids;
    const Profile profile = sender();
    const auto extracted = readAnswer(QString::fromUtf8(answer).replace(u'\'', u'"'));
    if (!extracted)
        return {extracted.error()};
    QStringList lines;
    for (const UnusedText& each : apply(*extracted, invoice, {profile, ids}))
        lines += each.line();
    return lines;
}

Invoice draft()
{
    RandomIdSource ids;
    const Profile profile = sender();
    return invoiceFromProfile(InvoiceType::invoice, {profile, 1, test::noon(2026, 4, 1), ids});
}

const QString untouched = QStringLiteral("|||||||DE|\n|-|EUR|-|-");

} // namespace

class ApplyExtractionTest : public test::Suite
{
    Q_OBJECT

private Q_SLOTS:
    void samples_data()
    {
        test::textTable(
            {"answer", "record", "problems"},
            {
                // "Rechnung bitte an die Kaffeerösterei Ahlers (Frau Jule Ahlers), Hauptstraße 12, 23552
                // Lübeck. 12,5 Std. Beratung zu je 1.234,50 € und eine Anfahrt 40,00 € zzgl. 7 %. März 2026,
                // Bestellung 4711."
                {"{'recipient':{'name':'Jule Ahlers','businessName':'Kaffeerösterei Ahlers',"
                 "'addressLineOne':'Hauptstraße 12','postcode':'23552','city':'Lübeck','countryCode':'DE'},"
                 "'items':[{'description':'Beratung','quantity':12.5,'unit':'hour','unitPrice':1234.5},"
                 "{'description':'Anfahrt','quantity':null,'unitPrice':40,'vatPercentage':7}],'reference':'"
                 "4711',"
                 "'currencyCode':'EUR','serviceDateStart':'2026-03-01','serviceDateEnd':'2026-03-31'}",
                 "Jule Ahlers|Kaffeerösterei Ahlers|Hauptstraße 12||23552|Lübeck||DE|\n"
                 "Beratung|12.5|Hour|1234.5|19\nAnfahrt|1|Piece|40|7\n"
                 "|4711|EUR|2026-03-01T12|2026-03-31T12",
                 ""},
                // "Invoice Jane Roe, Suite 4, 500 SW Oak St, Portland, OR 97205 (jane@example.com): two days
                // of training, one workshop at a flat 2,400 dollars, on 9 May. Thanks!"
                {"{'recipient':{'name':'Jane Roe','email':'jane@example.com','addressLineOne':'500 SW Oak "
                 "St',"
                 "'addressLineTwo':'Suite "
                 "4','postcode':'97205','city':'Portland','state':'OR','countryCode':'us'},"
                 "'items':[{'description':'Training','quantity':2,'unit':'day','vatPercentage':0},"
                 "{'description':'Workshop','unit':'lumpSum','unitPrice':2400,'vatPercentage':0}],'note':'"
                 "Thanks!',"
                 "'currencyCode':'usd','serviceDateStart':'2026-05-09'}",
                 "Jane Roe||500 SW Oak St|Suite 4|97205|Portland|OR|US|jane@example.com\n"
                 "Training|2|Day|0|0\nWorkshop|1|Lump Sum|2400|0\nThanks!|-|USD|2026-05-09T12|-",
                 ""},
                {"{'items':[{'description':'Rate of the profile','unit':'hour'},{},{'vatPercentage':190}]}",
                 "|||||||DE|\nRate of the profile|1|Hour|95|19\n|1|Piece|0|19\n|-|EUR|-|-",
                 "VAT rate “190”: not from 0 to 100"},
                {"{'recipient':{'countryCode':'XX'},'currencyCode':'Euro'}", "|||||||DE|\n|-|EUR|-|-",
                 "country “XX”: there is no such code;currency “Euro”: there is no such code"},
                {"{'serviceDateStart':'01.03.2026','serviceDateEnd':'2026-03-31'}", "|||||||DE|\n|-|EUR|-|-",
                 "start of service “01.03.2026”: not a date such as 2026-03-05;"
                 "end of service “2026-03-31”: there is no start"},
                {"{'serviceDateStart':'2026-03-31','serviceDateEnd':'2026-03-01'}",
                 "|||||||DE|\n|-|EUR|2026-03-31T12|-", "end of service “2026-03-01”: before the start"},
                {"{'serviceDateStart':'2026-03-31','serviceDateEnd':'2026-03-31'}",
                 "|||||||DE|\n|-|EUR|2026-03-31T12|-", ""},
                {"{'serviceDateEnd':'2026-04-30'}", "|||||||DE|\n|-|EUR|-|2026-04-30T12", ""},
                {"{'serviceDateEnd':'2026-04-01'}", "|||||||DE|\n|-|EUR|-|-", ""}, // the draft's own day
                {"{'serviceDateEnd':'2026-03-31'}", "|||||||DE|\n|-|EUR|-|-",
                 "end of service “2026-03-31”: before the start"},
                {"{'items':[],'recipient':{'name':''}}", "|||||||DE|\n|-|EUR|-|-", ""},
            });
    }

    void samples()
    {
        Invoice invoice = draft();
        const QStringList problems = applied(test::cell("answer").toUtf8(), invoice);
        QCOMPARE(told(invoice), test::cell("record"));
        QCOMPARE(problems.join(u';'), test::cell("problems"));
        for (const Invoice::Item& item : invoice.items)
            QVERIFY(!item.id.isNull());
    }

    /// What the user has entered stays.
    void filledFieldsStay()
    {
        const char* answer = "{'recipient':{'name':'B','city':'Ulm','countryCode':'FR'},'items':[{'"
                             "description':'b'}],'note':'b',"
                             "'reference':'b','currencyCode':'EUR','serviceDateStart':'2026-01-01','"
                             "serviceDateEnd':'2026-01-02'}";
        Invoice invoice = draft();
        invoice.name = invoice.note = QStringLiteral("A");
        invoice.reference = QStringLiteral("A");
        invoice.addressCountry.code = QStringLiteral("AT");
        invoice.currency.code = QStringLiteral("CHF");
        invoice.serviceDateEnd = test::noon(2026, 4, 5);
        invoice.items = {test::sampleItem(QStringLiteral("a"), 2, Unit::day, 5, 7)};
        QCOMPARE(applied(answer, invoice).join(u';'),
                 QStringLiteral("name “B”: the invoice has another one;"
                                "country “FR”: the invoice has another one;"
                                "1 items: the invoice has some already;"
                                "note “b”: the invoice has another one;"
                                "reference “b”: the invoice has another one;"
                                "currency “EUR”: the invoice has another one;"
                                "start of service “2026-01-01”: the invoice has another one;"
                                "end of service “2026-01-02”: the invoice has another one"));
        QCOMPARE(told(invoice), QStringLiteral("A|||||Ulm||AT|\na|2|Day|5|7\nA|A|CHF|-|2026-04-05T14"));
    }

    void emptyItemGivesWay()
    {
        const char* answer = "{'items':[{'description':'b','unitPrice':7}]}";
        Invoice invoice = draft();
        invoice.items = {Invoice::Item()};
        QCOMPARE(applied(answer, invoice), QStringList());
        QVERIFY(invoice.items.size() == 1 && invoice.items.front().item == u"b");

        invoice = draft();
        invoice.grossPrices = true;
        QCOMPARE(applied(answer, invoice).size(), 1);
        QCOMPARE(told(invoice), untouched);
    }
};

const ledra::test::RegisterSuite<ApplyExtractionTest> registration("apply_extraction_test");

#include "apply_extraction_test.moc"
