#include "store/profile_json.h"
#include "store/styling_json.h"
#include "support/test_suite.h"
#include "support/text_table.h"

#include <QFile>
#include <QTest>

using namespace ledra;

namespace {

NewRecordValues newValues()
{
    static RandomIdSource ids;
    return {Timestamp(0), ids, QStringLiteral("AT")};
}

QByteArray example(const QString& path)
{
    QFile file(QStringLiteral(LEDRA_EXAMPLES "/") + path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

class ProfileStylingJsonTest : public test::Suite
{
    Q_OBJECT

private Q_SLOTS:
    void profileExampleIsKeptByteForByte()
    {
        const QByteArray document = example(QStringLiteral("profiles/studio/profile.json"));
        Profile profile = decodeProfile(document, newValues()).value();
        profile.profileName = QStringLiteral("1_Studio"); // is never written
        QCOMPARE(fileText(profile), document);
        const QStringList texts = {profile.website, profile.addressPostcode, profile.taxNumber,
                                   profile.vatNumber};
        QCOMPARE(texts.join(u' '), QStringLiteral("nordlicht.example.de 20457 48/123/45678 DE123456788"));
        QVERIFY(profile.startNumber == 14 && profile.hourlyRate == 85 &&
                profile.latePaymentInterestRate == 10.27);
    }

    void otherProfileValuesAreKept()
    {
        Profile profile = newProfile(QUuid::createUuid(), QStringLiteral("US"));
        profile.hideVat = profile.invoiceDarkMode = true;
        profile.friendlyReminderEnabled = false;
        profile.vatExemptionReason = VATExemptionReason::smallBusiness;
        profile.resetNumberFrequency = NumberResetFrequency::never;
        profile.taxResidency = Country{QStringLiteral("CA")};
        const QByteArray file = fileText(profile);
        QVERIFY(!file.contains("startNumberYear")); // absent, not null
        QVERIFY(file.contains("\"resetNumberFrequency\": \"never\""));
        const Decoded<Profile> again = decodeProfile(file, newValues());
        QVERIFY(again && *again == profile);
    }

    void numberFormats_data()
    {
        test::textTable(
            {"file", "format"},
            {
                {"{}", "{YYYY}-{NNN}"},
                {R"({"numberFormat":"RE-{NN}","numberPrefix":"no"})", "RE-{NN}"},
                {R"({"numberFormat":"{NNNNNNN}/{Q}"})", "{NNNNN}/{Q}"},
                {R"({"numberFormat":"","separator":"."})", "{YYYY}.{NNN}"},
                {R"({"numberLength":4,"numberPosition":false,"separator":"/","numberPrefix":"RE"})",
                 "RE/{NNNN}/{YYYY}"},
                {R"({"numberPosition":true,"separator":"","numberPrefix":"RE"})", "RE{YYYY}{NNN}"},
                {R"({"numberLength":0})", "{YYYY}-{N}"},
                {R"({"numberLength":1000000000000,"numberPrefix":""})", "{YYYY}-{NNNNN}"},
            });
    }

    void numberFormats()
    {
        const Decoded<Profile> profile = decodeProfile(test::cell("file").toUtf8(), newValues());
        QVERIFY(profile);
        QTEST(profile->numberFormat, "format");
        for (const char* older : {"numberLength", "numberPosition", "\"separator", "numberPrefix"})
            QVERIFY(!fileText(*profile).contains(older));
    }

    void stylingsAreKept()
    {
        for (const auto& path : {QStringLiteral("stylings/atelier/styling.json"),
                                 QStringLiteral("stylings/letter/styling.json")}) {
            const QByteArray document = example(path);
            Styling styling = decodeStyling(document, newValues()).value();
            styling.logo = styling.css = QStringLiteral("<svg/>"); // are never written
            QCOMPARE(fileText(styling), document);
        }
        Styling styling = newStyling(QUuid::createUuid(), QStringLiteral("AT"));
        styling.headlineFontFace = QStringLiteral("a");
        styling.primaryFontFace = QStringLiteral("b");
        styling.secondaryFontFace = QStringLiteral("c");
        styling.labelFontFace = QStringLiteral("d");
        styling.accentColorUsage = {};
        styling.lineStyle = LineStyle::double_;
        const QByteArray file = fileText(styling);
        QVERIFY(file.contains("  \"labelFontWeight\": \"400\",\n  \"labelFontFace\": \"d\",\n"));
        QVERIFY(file.contains("  \"accentColorUsage\": [],\n"));
        QVERIFY(file.contains("  \"lineStyle\": \"double\",\n"));
        const Decoded<Styling> again = decodeStyling(file, newValues());
        QVERIFY(again && *again == styling);
    }

    void emptyObjectsAreComplete()
    {
        const Profile profile = decodeProfile("{}", newValues()).value();
        QVERIFY(profile == newProfile(profile.id, QStringLiteral("AT")));
        QVERIFY(!profile.id.isNull() && profile.id != decodeProfile("{}", newValues()).value().id);
        const Styling styling = decodeStyling("{}", newValues()).value();
        QVERIFY(styling == newStyling(styling.id, QStringLiteral("AT")) && !styling.id.isNull());
    }

    void wrongValues_data()
    {
        test::textTable(
            {"file", "profilePath", "stylingPath"},
            {
                {R"({"id":["x"]})", "id", "id"},
                {R"({"daysToPay":"14","logoSize":"1.4"})", "daysToPay", "logoSize"},
                {R"({"language":"fr","pageFormat":"A4"})", "language", "pageFormat"},
                {R"({"accentColorUsage":["labels","Logo"]})", "none", "accentColorUsage.1"},
                {R"({"address":"Berlin","accentColorUsage":"labels"})", "address", "accentColorUsage"},
                {R"({"numberLength":"4"})", "numberLength", "none"},
            });
    }

    void wrongValues()
    {
        const QByteArray file = test::cell("file").toUtf8();
        const auto path = [](const auto& read) { return read ? QStringLiteral("none") : read.error().path; };
        QTEST(path(decodeProfile(file, newValues())), "profilePath");
        QTEST(path(decodeStyling(file, newValues())), "stylingPath");
    }
};

const ledra::test::RegisterSuite<ProfileStylingJsonTest> registration("profile_styling_json_test");

#include "profile_styling_json_test.moc"
