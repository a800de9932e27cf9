#include "model/profile.h"
#include "model/styling.h"
#include "support/test_suite.h"
#include "support/text_table.h"

#include <QTest>

using namespace ledra;

class ProfileTest : public test::Suite
{
    Q_OBJECT

private Q_SLOTS:
    void regionsGiveDefaults_data()
    {
        test::textTable({"region", "defaults"}, {
                                                    {"DE", "de EUR 19 STO- AN- a4"},
                                                    {"AT", "de EUR 20 STO- AN- a4"},
                                                    {"LI", "de CHF 8.1 STO- AN- a4"},
                                                    {"LU", "en EUR 17 CN- QU- a4"},
                                                    {"US", "en USD 0 CN- QU- usLetter"},
                                                    {"AQ", "en EUR 0 CN- QU- a4"}, // has no currency
                                                    {"ZZ", "en EUR 0 CN- QU- a4"}, // is not known
                                                });
    }

    void regionsGiveDefaults()
    {
        const QString region = test::cell("region");
        const Profile profile = newProfile(QUuid(), region);
        const auto raw = [](auto value) { return QString::fromStdString(std::string(rawValue(value))); };
        const QStringList defaults = {
            raw(profile.language),      profile.currency.code, QString::number(profile.vatPercentage),
            profile.cancellationPrefix, profile.quotePrefix,   raw(newStyling(QUuid(), region).pageFormat)};
        QTEST(defaults.join(u' '), "defaults");
        QCOMPARE(profile.addressCountry.code, region);
        QCOMPARE(profile.taxResidency.code, region);
    }

    void displayNames_data()
    {
        test::textTable({"folder", "name"}, {
                                                {"3_Studio", "Studio"},
                                                {"12_my_studio", "my_studio"},
                                                {"Studio", "Studio"},
                                                {"Studio_3", "Studio_3"},
                                                {"_3", "_3"},
                                                {"12_", ""},
                                                {"0x1_Studio", "0x1_Studio"},
                                                {"1.5_Studio", "1.5_Studio"},
                                            });
    }

    void displayNames()
    {
        Profile profile;
        QCOMPARE(profile.displayName(), QStringLiteral("Unnamed"));
        profile.profileName = test::cell("folder");
        QTEST(profile.displayName(), "name");
    }
};

const ledra::test::RegisterSuite<ProfileTest> registration("profile_test");

#include "profile_test.moc"
