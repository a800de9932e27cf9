#include "model/identifier_checks.h"
#include "support/test_suite.h"

using namespace ledra;

namespace {

using Problem = IdentifierProblem;

struct Case
{
    const char* text;
    Problem problem;
};

constexpr auto ibans = std::to_array<Case>({
    {"", Problem::none},
    {"DE89 3704 0044 0532 0130 00", Problem::none},
    {"gb29nwbk60161331926819", Problem::none},
    {"NO93 8601 1117 947", Problem::none},
    {"MT84MALT011000012345MTLCAST001S", Problem::none},
    {"DE89 3704 0044 0532 0130 01", Problem::ibanCheckDigits},
    {"DE98 3704 0044 0532 0130 00", Problem::ibanCheckDigits},
    {"DE89 3704 0044 0532 0103 00", Problem::ibanCheckDigits}, // two swapped
    {"DE89 3704 0044 0532 0130 0", Problem::ibanLength},
    {"AT89 3704 0044 0532 0130 00", Problem::ibanLength},
    {"532013000", Problem::ibanForm},
    {"DE89-3704-0044", Problem::ibanForm},
});

constexpr auto bics = std::to_array<Case>({
    {"", Problem::none},
    {"COBADEFFXXX", Problem::none},
    {"deut de ff", Problem::none},
    {"COBADEFFX", Problem::bicForm},
    {"COBA12FF", Problem::bicForm},
    {"COBAQQFF", Problem::bicCountry},
});

/// Of a profile that Germany taxes.
constexpr auto vatNumbers = std::to_array<Case>({
    {"", Problem::none},
    {"DE 136 695 976", Problem::none},
    {"DE136695978", Problem::vatCheckDigits},
    {"DE136965976", Problem::vatCheckDigits}, // two swapped
    {"DE13669597", Problem::vatForm},
    {"136695976", Problem::vatPrefix},
    {"QQ136695976", Problem::vatPrefix},
    {"ATU13585627", Problem::none},
    {"ATU13585626", Problem::vatCheckDigits},
    {"AT13585627", Problem::vatForm},
    {"BE0428.759.497", Problem::none},
    {"BE0431150351", Problem::vatCheckDigits},
    {"ES54362315K", Problem::none},
    {"ES54362315Z", Problem::vatCheckDigits},
    {"ESX2482300W", Problem::none},
    {"ESX2482300A", Problem::vatCheckDigits},
    {"ESB58378431", Problem::none},
    {"ESB58378432", Problem::vatCheckDigits},
    {"FR40303265045", Problem::none},
    {"FR84323140391", Problem::vatCheckDigits},
    {"FRK7399859412", Problem::none}, // a key with a letter
    {"HR33392005961", Problem::none},
    {"HR33392005962", Problem::vatCheckDigits},
    {"IT00743110157", Problem::none},
    {"IT00743110158", Problem::vatCheckDigits},
    {"NL004495445B01", Problem::none},
    {"NL123456782B90", Problem::none},
    {"NL002455799B11", Problem::none}, // by the digits of all of it
    {"NL123456789B90", Problem::vatCheckDigits},
    {"PL8567346215", Problem::none},
    {"PL8567346216", Problem::vatCheckDigits},
    {"GR094259216", Problem::none},
    {"EL09425921", Problem::vatForm},
    {"CHE-116.281.710 MWST", Problem::none}, // not of the Union
});

template <std::size_t size>
void addRows(const std::array<Case, size>& cases)
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("problem");
    for (const Case& row : cases)
        QTest::newRow(row.text) << QString::fromLatin1(row.text) << static_cast<int>(row.problem);
}

template <class Check>
void compare(const Check& check)
{
    QFETCH(const QString, text);
    QFETCH(const int, problem);
    QCOMPARE(static_cast<int>(check(text)), problem);
}

} // namespace

class IdentifierChecksTest : public test::Suite
{
    Q_OBJECT

private Q_SLOTS:
    void iban_data() { addRows(ibans); }
    void iban() { compare(ibanProblem); }

    void bic_data() { addRows(bics); }
    void bic() { compare(bicProblem); }

    void vatNumber_data() { addRows(vatNumbers); }
    void vatNumber()
    {
        compare([](const QString& text) { return vatNumberProblem(text, QStringLiteral("DE")); });
    }

    void whatOtherCountriesTax()
    {
        const QString american = QStringLiteral("12-3456789");
        QCOMPARE(vatNumberProblem(american, QStringLiteral("US")), Problem::none);
        QCOMPARE(vatNumberProblem(american, QStringLiteral("GR")), Problem::vatPrefix);
        QCOMPARE(taxNumberProblem(american, QStringLiteral("US")), Problem::none);
        QCOMPARE(taxNumberProblem(american, QStringLiteral("DE")), Problem::taxNumberForm);
        QCOMPARE(taxNumberProblem(QStringLiteral("29/815/08154"), QStringLiteral("DE")), Problem::none);
    }
};

const ledra::test::RegisterSuite<IdentifierChecksTest> registration("identifier_checks_test");

#include "identifier_checks_test.moc"
