#include "support/test_suite.h"
#include "ui/look/appearance.h"
#include "ui/look/status_colors.h"

#include <cmath>

using namespace ledra;

/// WCAG 2.1 asks of text a contrast of 4.5 to 1 (success criterion 1.4.3), and is silent about what is
/// disabled.
class ContrastTest : public test::Suite
{
    Q_OBJECT

private Q_SLOTS:
    void palettes_data();
    void palettes();
    void states();
};

namespace {

double linear(double part)
{
    return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
}

double luminance(const QColor& color)
{
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

double contrast(const QColor& one, const QColor& other)
{
    const auto [dark, light] = std::minmax({luminance(one), luminance(other)});
    return (light + 0.05) / (dark + 0.05);
}

constexpr double leastForText = 4.5;
constexpr double leastForDisabled = 3;

constexpr std::pair<QPalette::ColorRole, QPalette::ColorRole> pairsOfRoles[] = {
    {QPalette::WindowText, QPalette::Window},
    {QPalette::WindowText, QPalette::Button},
    {QPalette::Text, QPalette::Base},
    {QPalette::Text, QPalette::AlternateBase},
    {QPalette::ButtonText, QPalette::Button},
    {QPalette::PlaceholderText, QPalette::Base},
    {QPalette::PlaceholderText, QPalette::Window},
    {QPalette::ToolTipText, QPalette::ToolTipBase},
    {QPalette::HighlightedText, QPalette::Highlight},
    {QPalette::Link, QPalette::Base},
    {QPalette::Link, QPalette::Window},
};

} // namespace

void ContrastTest::palettes_data()
{
    QTest::addColumn<QPalette>("palette");
    QTest::newRow("light") << lightPalette();
    QTest::newRow("dark") << darkPalette();
}

void ContrastTest::palettes()
{
    QFETCH(QPalette, palette);
    for (const auto& [text, ground] : pairsOfRoles) {
        const double found = contrast(palette.color(text), palette.color(ground));
        QVERIFY2(found >= leastForText,
                 qPrintable(QStringLiteral("%1 on %2: %3").arg(text).arg(ground).arg(found)));
    }
    const double disabled =
        contrast(palette.color(QPalette::Disabled, QPalette::Text), palette.color(QPalette::Base));
    QVERIFY2(disabled >= leastForDisabled, qPrintable(QString::number(disabled)));
}

void ContrastTest::states()
{
    for (const StatusLook& look : statusLooks()) {
        QVERIFY2(contrast(QColor(look.lightText), QColor(look.lightGround)) >= leastForText, look.text);
        QVERIFY2(contrast(QColor(look.darkText), QColor(look.darkGround)) >= leastForText, look.text);
    }
}

const ledra::test::RegisterSuite<ContrastTest> registration("contrast_test");

#include "contrast_test.moc"
