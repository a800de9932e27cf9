#include "model/country.h"
#include "support/test_suite.h"

#include <QRegularExpression>
#include <QSet>
#include <QTest>

#include <array>

using namespace ledra;

namespace {

QString text(std::string_view utf8)
{
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

struct Expected
{
    const char* code;
    const char* english;
    const char* german;
    const char* stateLabel;
    double vatRate;
    const char* currency;
};

constexpr auto expectedFacts = std::to_array<Expected>({
    {"AT", "Austria", "Österreich", "State", 20.0, "EUR"},
    {"BG", "Bulgaria", "Bulgarien", "District", 20.0, "EUR"},
    {"CH", "Switzerland", "Schweiz", "Canton", 8.1, "CHF"},
    {"CI", "Côte d’Ivoire", "Elfenbeinküste", "District", 18.0, "XOF"},
    {"DE", "Germany", "Deutschland", "State", 19.0, "EUR"},
    {"FI", "Finland", "Finnland", "Region", 25.5, "EUR"},
    {"GB", "United Kingdom", "Vereinigtes Königreich", "County", 20.0, "GBP"},
    {"JP", "Japan", "Japan", "Prefecture", 10.0, "JPY"},
    {"US", "United States", "Vereinigte Staaten", "State", 0.0, "USD"},
    {"XK", "Kosovo", "Kosovo", "District", 18.0, "EUR"},
});

} // namespace

class CountryTest : public test::Suite
{
    Q_OBJECT

private Q_SLOTS:
    void everyRowIsWellFormedAndFound();
    void namesAreUnique();
    void letterPaperRegions();
    void knownFacts_data();
    void knownFacts();
    void unknownCodes_data();
    void unknownCodes();
};

void CountryTest::everyRowIsWellFormedAndFound()
{
    static const QRegularExpression codeForm(QStringLiteral("^[A-Z]{2}$"));
    static const QRegularExpression currencyForm(QStringLiteral("^[A-Z]{3}$"));
    static const QRegularExpression labelForm(QStringLiteral("^[A-Z][a-z]+$"));
    for (const CountryFacts& facts : countryTable()) {
        const QString code = text(facts.code);
        const QByteArray row = code.toUtf8();
        QVERIFY2(findCountry(code) == &facts, row.constData());
        QVERIFY2(codeForm.match(code).hasMatch(), row.constData());
        QVERIFY2(labelForm.match(text(facts.stateLabel)).hasMatch(), row.constData());
        QVERIFY2(currencyForm.match(text(facts.currencyCode)).hasMatch() || code == u"AQ", row.constData());
        // The highest standard rate anywhere is Hungary's: a larger one is a slip of the decimal point.
        QVERIFY2(facts.standardVatRate >= 0 && facts.standardVatRate <= 27, row.constData());
    }
    // The 249 officially assigned codes and Kosovo.
    QCOMPARE(countryTable().size(), std::size_t{250});
}

void CountryTest::namesAreUnique()
{
    QSet<QString> english;
    QSet<QString> german;
    for (const CountryFacts& facts : countryTable()) {
        for (const std::string_view name : {facts.englishName, facts.germanName}) {
            QVERIFY2(!name.empty() && text(name).trimmed() == text(name),
                     text(facts.code).toUtf8().constData());
            QVERIFY2(!text(name).contains(QChar::ReplacementCharacter),
                     text(facts.code).toUtf8().constData());
        }
        english.insert(text(facts.englishName));
        german.insert(text(facts.germanName));
    }
    QCOMPARE(static_cast<std::size_t>(english.size()), countryTable().size());
    QCOMPARE(static_cast<std::size_t>(german.size()), countryTable().size());
}

void CountryTest::letterPaperRegions()
{
    QStringList regions;
    for (const CountryFacts& facts : countryTable()) {
        if (facts.usesLetterPaper) {
            regions.append(text(facts.code));
        }
    }
    QCOMPARE(regions.join(u' '), QStringLiteral("BZ CA CL CO CR DO GT MX NI PA PH PR SV US VE"));
}

void CountryTest::knownFacts_data()
{
    QTest::addColumn<QString>("english");
    QTest::addColumn<QString>("german");
    QTest::addColumn<QString>("stateLabel");
    QTest::addColumn<double>("vatRate");
    QTest::addColumn<QString>("currency");

    for (const Expected& row : expectedFacts) {
        QTest::newRow(row.code) << row.english << row.german << row.stateLabel << row.vatRate << row.currency;
    }
}

void CountryTest::knownFacts()
{
    QFETCH(QString, english);
    QFETCH(QString, german);
    QFETCH(QString, stateLabel);
    const Country country{QString::fromLatin1(QTest::currentDataTag())};
    QCOMPARE(country.displayName(Language::english), english);
    QCOMPARE(country.displayName(Language::german), german);
    QCOMPARE(country.stateLabel(), stateLabel);

    const CountryFacts* facts = findCountry(country.code);
    QVERIFY(facts != nullptr);
    QTEST(facts->standardVatRate, "vatRate");
    QTEST(text(facts->currencyCode), "currency");
}

void CountryTest::unknownCodes_data()
{
    QTest::addColumn<QString>("code");
    QTest::newRow("empty") << "";
    QTest::newRow("lower case") << "de";
    QTest::newRow("before the first") << "AA";
    QTest::newRow("between two") << "DF";
    QTest::newRow("after the last") << "ZZ";
    QTest::newRow("longer than a known one") << "DEU";
    QTest::newRow("not Latin") << "ДЕ";
}

void CountryTest::unknownCodes()
{
    QFETCH(QString, code);
    const Country country{code};
    QVERIFY(findCountry(code) == nullptr);
    QCOMPARE(country.displayName(Language::english), code);
    QCOMPARE(country.displayName(Language::german), code);
    QCOMPARE(country.stateLabel(), QStringLiteral("State"));
}

const ledra::test::RegisterSuite<CountryTest> registration("country_test");

#include "country_test.moc"
