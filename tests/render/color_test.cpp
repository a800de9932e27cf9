#include "render/color.h"
#include "support/test_suite.h"

using namespace ledra;

Q_DECLARE_METATYPE(ledra::LightnessMode)

class ColorTest : public test::Suite
{
    Q_OBJECT

private Q_SLOTS:
    void derivation_data();
    void derivation();
    void parsing_data();
    void parsing();
    void mixing();
};

// The derived values were computed apart from this program, from the definition of OKLab by way of CIE XYZ.
void ColorTest::derivation_data()
{
    QTest::addColumn<QString>("entered");
    QTest::addColumn<double>("lightness");
    QTest::addColumn<LightnessMode>("mode");
    QTest::addColumn<QString>("derived");
    constexpr auto darken = LightnessMode::darkenOnly;
    constexpr auto set = LightnessMode::set;

    QTest::newRow("light is darkened") << "68977C" << 50.0 << darken << "406E55";
    QTest::newRow("out of gamut is clamped") << "68977C" << 20.0 << darken << "001E0A";
    QTest::newRow("hue above 180 degrees") << "2F6F9F" << 50.0 << darken << "276897";
    QTest::newRow("saturated") << "FF4B14" << 50.0 << darken << "C20000";
    QTest::newRow("white to grey") << "FFFFFF" << 50.0 << darken << "636363";
    QTest::newRow("dark stays") << "123456" << 50.0 << darken << "123456";
    QTest::newRow("dark stays as entered") << " #12abCd \n" << 100.0 << darken << "12abCd";
    QTest::newRow("set lightens") << "123456" << 50.0 << set << "43658B";
    QTest::newRow("set darkens") << "68977C" << 60.0 << set << "5D8C71";
    QTest::newRow("set, red above its range") << "FF4B14" << 80.0 << set << "FF7A4C";
    QTest::newRow("hash, blanks, lower case") << "\t#68977c " << 50.0 << darken << "406E55";
    QTest::newRow("above 100 percent") << "123456" << 250.0 << darken << "123456";
    QTest::newRow("below 0 percent") << "333333" << -5.0 << set << "000000";
    QTest::newRow("five digits pass") << "12345" << 50.0 << set << "12345";
    QTest::newRow("seven digits pass") << "1234567" << 50.0 << set << "1234567";
    QTest::newRow("no digits pass, trimmed") << " #GGGGGG" << 50.0 << set << "GGGGGG";
    QTest::newRow("two hashes pass") << "##123456" << 50.0 << set << "#123456";
    QTest::newRow("sign is no digit") << "+12345" << 50.0 << set << "+12345";
    QTest::newRow("other digits pass")
        << QStringLiteral("１２３４５６") << 50.0 << set << QStringLiteral("１２３４５６");
    QTest::newRow("empty") << "" << 50.0 << set << "";
}

void ColorTest::derivation()
{
    QFETCH(QString, entered);
    QFETCH(double, lightness);
    QFETCH(LightnessMode, mode);
    QTEST(derivedColor(entered, lightness, mode), "derived");
}

void ColorTest::parsing_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("written");
    QTest::newRow("black keeps its zeros") << "000000" << "000000";
    QTest::newRow("components in order") << "#0a0B0c" << "0A0B0C";
}

void ColorTest::parsing()
{
    QFETCH(QString, text);
    const std::optional<RgbColor> color = parseColor(text);
    QVERIFY(color.has_value());
    QTEST(hexText(*color), "written");
}

void ColorTest::mixing()
{
    const RgbColor white{255, 255, 255};
    const RgbColor color{0x40, 0x6E, 0x55};
    QCOMPARE(hexText(mixedColor(color, 0.30, white)), QStringLiteral("C6D4CC"));
    QCOMPARE(hexText(mixedColor(color, 0.0, white)), QStringLiteral("FFFFFF"));
    QCOMPARE(hexText(mixedColor(color, 1.0, white)), QStringLiteral("406E55"));
}

const ledra::test::RegisterSuite<ColorTest> registration("color_test");

#include "color_test.moc"
