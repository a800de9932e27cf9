#include "render/style_sheet.h"
#include "support/test_suite.h"

#include <QRegularExpression>

using namespace ledra;

namespace {

/// Changes a fresh styling.
using Change = void (*)(Styling& styling);

/// A template of one placeholder, filled for a fresh styling with a change.
QString filled(const QString& placeholder, Change change, ColorScheme scheme = ColorScheme::light)
{
    static const WebFontManager fonts;
    Styling styling;
    change(styling);
    return fillStyleSheet(placeholder, styling, scheme, fonts);
}

} // namespace

Q_DECLARE_METATYPE(Change)

class StyleSheetTest : public test::Suite
{
    Q_OBJECT

private Q_SLOTS:
    void snippets_data();
    void snippets();
    void colors_data();
    void colors();
    void fontSlots_data();
    void fontSlots();
    void everyOccurrenceIsReplacedLiterally();
    void frameIsTwoRules();
    void hostileValuesStayValues_data();
    void hostileValuesStayValues();
    void darkOnlyWhenTheUserWantsIt();
    void realTemplateIsFilledCompletely();
};

void StyleSheetTest::snippets_data()
{
    QTest::addColumn<QString>("placeholder");
    QTest::addColumn<Change>("change");
    QTest::addColumn<QString>("text");

    constexpr Change fresh = [](Styling&) {};
    constexpr Change letter = [](Styling& s) { s.pageFormat = PageFormat::usLetter; };
    constexpr Change noUsage = [](Styling& s) { s.accentColorUsage.clear(); };
    constexpr Change allUsages = [](Styling& s) {
        s.accentColorUsage = {AccentColorUsage::important, AccentColorUsage::labels, AccentColorUsage::logo,
                              AccentColorUsage::headline};
    };
    constexpr Change lines = [](Styling& s) { s.tintRowBackground = false; };
    constexpr Change bare = [](Styling& s) {
        s.marginalColumn = s.pageHeadline = s.addressLine = s.smallCapsLabels = s.recolorLogo = false;
        s.primaryFont = QStringLiteral("Source Serif");
        s.accentColorUsage = {AccentColorUsage::logo};
    };
    struct Row
    {
        const char* placeholder;
        Change change;
        const char* text;
    };
    const auto rows = std::to_array<Row>({
        {"page-width", fresh, "21"},
        {"page-height", fresh, "29.7"},
        {"fold-mark-one", fresh, "10.5"},
        {"fold-mark-two", fresh, "21"},
        {"page-width", letter, "21.59"},
        {"page-height", letter, "27.94"},
        {"fold-mark-one", letter, "9.313"},
        {"fold-mark-two", letter, "18.627"},
        {"right-margin", fresh, "6rem"},
        {"right-margin", bare, "1.8rem"},
        {"show-sidebar", fresh, "1"},
        {"show-sidebar", bare, "0"},
        {"show-footer", fresh, "0"},
        {"show-footer", bare, "1"},
        {"show-headline", fresh, "1"},
        {"show-headline", bare, "0"},
        {"show-address-line", fresh, "1"},
        {"show-address-line", bare, "0"},
        {"primary-font-feature-settings", fresh, "font-feature-settings: 'ss04';"},
        {"primary-font-feature-settings", bare, ""},
        {"small-caps-font-feature", fresh, "    font-variant: all-small-caps;\n    letter-spacing: 0.02rem;"},
        {"small-caps-font-feature", bare, ""},
        {"accent-labels", fresh, ""},
        {"accent-labels", allUsages, "    --primary: var(--accent);\n    background-color: none;"},
        {"accent-tint", noUsage, ""},
        {"accent-tint", fresh,
         "    --primary: var(--accent);\n    --primary-dark: var(--accent-dark);\n"
         "    --primary-light: var(--accent-light);\n    --primary-extralight: var(--accent-extralight);"},
        {"accent-headline", fresh, ""},
        {"accent-headline", allUsages, "color: var(--accent);"},
        {"recolor-logo", fresh, "fill: var(--primary);"},
        {"recolor-logo", bare, ""},
        {"accent-logo", fresh, ""},
        {"accent-logo", allUsages, "--primary: var(--accent);"},
        {"accent-logo", bare, ""}, // in the usage, but the logo keeps its colours
        {"primary-extralight-background", fresh, "background-color: var(--primary-extralight);"},
        {"primary-extralight-background", lines, ""},
        {"primary-light-background", fresh, "background-color: var(--primary-light);"},
        {"primary-light-background", lines, ""},
        {"line", fresh, ""},
        {"line", lines, "border-bottom: 0.05rem dotted var(--primary-light);"},
        {"line",
         [](Styling& s) {
             s.tintRowBackground = false;
             s.lineStyle = LineStyle::double_;
         },
         "border-bottom: 0.07rem double var(--primary-light);"},
        {"line-style", [](Styling& s) { s.lineStyle = LineStyle::single; }, "0.04rem solid"},
        {"line-style", [](Styling& s) { s.lineStyle = LineStyle::dashed; }, "0.05rem dashed"},
        {"logo-size", fresh, "1.4rem"},
        {"logo-size", [](Styling& s) { s.logoSize = 2.96; }, "3.0rem"},
        {"logo-size", [](Styling& s) { s.logoSize = 1.25; }, "1.2rem"}, // as printf() has it
        {"background-grid", fresh, ""},
        {"background-grid", [](Styling& s) { s.backgroundPattern = BackgroundPattern::dots; },
         "    background-image: radial-gradient(var(--primary-light) 0.04rem, transparent 0);\n"
         "    background-size: 0.6rem 0.6rem;\n    background-position-x: center;\n"
         "    background-position-y: center;"},
        {"background-frame", fresh, ""},
        {"background-frame", [](Styling& s) { s.backgroundPattern = BackgroundPattern::dots; }, ""},
        {"no-such-name", fresh, "{{no-such-name}}"},
    });
    for (std::size_t i = 0; i < rows.size(); ++i)
        QTest::addRow("%zu %s", i, rows[i].placeholder)
            << QStringLiteral("{{%1}}").arg(QString::fromLatin1(rows[i].placeholder)) << rows[i].change
            << QString::fromLatin1(rows[i].text);
}

void StyleSheetTest::snippets()
{
    QFETCH(QString, placeholder);
    QFETCH(Change, change);
    QTEST(filled(placeholder, change), "text");
}

void StyleSheetTest::colors_data()
{
    QTest::addColumn<QString>("placeholder");
    QTest::addColumn<QString>("light");
    QTest::addColumn<QString>("dark");
    QTest::newRow("background") << "{{background-color}}" << "#FFFFFF" << "#161616";
    QTest::newRow("mix") << "{{mix-color}}" << "#000000" << "#FFFFFF";
    QTest::newRow("primary") << "{{primary-color}}" << "#406E55" << "#5D8C71";
    QTest::newRow("primary dark") << "{{primary-dark-color}}" << "#001E0A" << "#9ACBAE";
    QTest::newRow("accent") << "{{accent-color}}" << "#C20000" << "#E62F00";
    QTest::newRow("accent dark") << "{{accent-dark-color}}" << "#560000" << "#FF7A4C";
    QTest::newRow("primary light") << "{{primary-light-color}}" << "#C6D4CC" << "#2E3E35";
    QTest::newRow("primary extralight") << "{{primary-extralight-color}}" << "#EEF2F0" << "#1F2522";
    QTest::newRow("primary faint") << "{{primary-faint-color}}" << "#DDE5E0" << "#242E28";
    QTest::newRow("accent light") << "{{accent-light-color}}" << "#F5D6D6" << "#441C11";
    QTest::newRow("accent extralight") << "{{accent-extralight-color}}" << "#FBF0F0" << "#2B1914";
}

void StyleSheetTest::colors()
{
    QFETCH(QString, placeholder);
    constexpr Change fresh = [](Styling&) {};
    QTEST(filled(placeholder, fresh), "light");
    QTEST(filled(placeholder, fresh, ColorScheme::dark), "dark");
    // A text that is no colour passes underived, behind one "#".
    constexpr Change odd = [](Styling& s) { s.primaryColor = s.accentColor = QStringLiteral(" #12345 "); };
    if (placeholder.contains(u"primary") || placeholder.contains(u"accent"))
        QCOMPARE(filled(placeholder, odd), QStringLiteral("#12345"));
}

void StyleSheetTest::fontSlots_data()
{
    QTest::addColumn<QString>("slot");
    QTest::addColumn<QString>("triple");
    QTest::newRow("headline") << "headline" << "\"SourceSerif4-Semibold\", \"Source Serif\"/normal/normal";
    QTest::newRow("primary") << "primary" << "\"iAWriterDuo-Regular\", \"iA Writer Duo\"/normal/normal";
    QTest::newRow("primary bold") << "primary-bold"
                                  << "\"iAWriterDuo-Bold\", \"iA Writer Duo\"/normal/normal";
    QTest::newRow("primary italic") << "primary-italic"
                                    << "\"iAWriterDuo-Italic\", \"iA Writer Duo\"/normal/normal";
    QTest::newRow("secondary") << "secondary" << "\"SourceSerif4-LightIt\", \"Source Serif\"/normal/normal";
    QTest::newRow("secondary bold") << "secondary-bold"
                                    << "\"SourceSerif4-BoldIt\", \"Source Serif\"/normal/normal";
    QTest::newRow("label") << "label" << "\"Nowhere Sans\"/300/normal";
}

void StyleSheetTest::fontSlots()
{
    QFETCH(QString, slot);
    const QString sheet = QStringLiteral("{{%1-font}}/{{%1-font-weight}}/{{%1-font-style}}").arg(slot);
    constexpr Change change = [](Styling& s) {
        s.headlineFontWeight = QStringLiteral("600");
        s.secondaryFontFace = QStringLiteral("SourceSerif4-LightIt");
        s.labelFont = QStringLiteral("Nowhere Sans");
        s.labelFontWeight = QStringLiteral("300");
    };
    QTEST(filled(sheet, change), "triple");
    // Each shipped face in use has one rule, in the order of the slots.
    const QString faces = filled(QStringLiteral("{{font-faces}}"), change);
    QStringList names;
    const QRegularExpression name(QStringLiteral("font-family: '([^']+)'"));
    for (auto match = name.globalMatch(faces); match.hasNext();)
        names += match.next().captured(1);
    QCOMPARE(names.join(u' '), QStringLiteral("SourceSerif4-Semibold iAWriterDuo-Regular iAWriterDuo-Bold "
                                              "iAWriterDuo-Italic SourceSerif4-LightIt SourceSerif4-BoldIt"));
}

void StyleSheetTest::everyOccurrenceIsReplacedLiterally()
{
    constexpr Change fresh = [](Styling&) {};
    QCOMPARE(filled(QStringLiteral("a{{page-width}}b{{page-width}}c{{Page-Width}}{{ page-width }}"), fresh),
             QStringLiteral("a21b21c{{Page-Width}}{{ page-width }}"));
}

void StyleSheetTest::frameIsTwoRules()
{
    const QString frame = filled(QStringLiteral("{{background-frame}}"),
                                 [](Styling& s) { s.backgroundPattern = BackgroundPattern::frame; });
    const auto ruleOf = [&](const QString& selector) {
        const QRegularExpression rule(QStringLiteral("(?:^|\n)    %1 \\{([^}]*)\\}").arg(selector));
        QStringList declarations = rule.match(frame).captured(1).split(u';');
        for (QString& declaration : declarations)
            declaration = declaration.simplified();
        declarations.removeAll(QString());
        declarations.sort();
        return declarations.join(u';');
    };
    const QString shared = QStringLiteral("display: block;height: %1rem;left: 0;margin: %2rem;opacity: 0.6;"
                                          "position: absolute;top: 0;width: %3rem;z-index: -10");
    QCOMPARE(ruleOf(QStringLiteral("body::before")),
             QStringLiteral("background-color: var(--primary-light);content: \"\";") +
                 shared.arg(QStringLiteral("27.2"), QStringLiteral("1.2"), QStringLiteral("18.5")));
    QCOMPARE(ruleOf(QStringLiteral("body::after")),
             QStringLiteral("border: 0.2rem solid var(--primary-light);content: \"\";") +
                 shared.arg(QStringLiteral("27.6"), QStringLiteral("0.9"), QStringLiteral("18.9")));
    QCOMPARE(frame.count(u'{'), 2);
}

void StyleSheetTest::hostileValuesStayValues_data()
{
    QTest::addColumn<QString>("value");
    QTest::newRow("closes the element") << "x</style><script>alert(1)</script>";
    QTest::newRow("closes the string") << "x\"; } body { display: none } .y { color: \"";
    QTest::newRow("single quote") << "x'; } body { display: none } .y { color: '";
    QTest::newRow("escape at the end") << "x\\";
    QTest::newRow("line break") << "x\n} body { display: none }";
    QTest::newRow("fetches") << "x; background: url(http://127.0.0.1/)";
    QTest::newRow("a later placeholder") << "{{background-frame}}{{line}}";
    QTest::newRow("comment") << "x/* no end";
}

// Between the declaration's name and its semicolon a value may only be quoted strings, names and numbers.
void StyleSheetTest::hostileValuesStayValues()
{
    QFETCH(QString, value);
    static const WebFontManager fonts;
    Styling styling;
    styling.headlineFont = styling.primaryFont = styling.secondaryFont = styling.labelFont = value;
    styling.headlineFontWeight = styling.primaryFontWeight = value;
    styling.headlineFontFace = styling.primaryFontFace = value;
    styling.primaryColor = styling.accentColor = value;
    styling.backgroundPattern = BackgroundPattern::frame;
    const QString sheet = fillStyleSheet(
        QStringLiteral(
            "{{headline-font}}|{{primary-bold-font}}|{{label-font}}|{{headline-font-weight}}|"
            "{{primary-font-weight}}|{{primary-color}}|{{accent-dark-color}}|{{primary-light-color}}"),
        styling, ColorScheme::light, fonts);
    const QStringList parts = sheet.split(u'|');
    QCOMPARE(parts.size(), 8);
    static const QRegularExpression string(
        QStringLiteral(R"re(^"(?:[A-Za-z0-9 ._,+&()-]|\\[0-9a-f]{1,4} )*"$)re"));
    static const QRegularExpression color(QStringLiteral("^#[A-Za-z0-9]*$"));
    for (int i = 0; i < 8; ++i) {
        const bool isSafe = i < 3   ? string.match(parts[i]).hasMatch()
                            : i < 5 ? parts[i] == u"400"
                                    : color.match(parts[i]).hasMatch();
        QVERIFY2(isSafe, parts[i].toUtf8().constData());
    }
}

void StyleSheetTest::darkOnlyWhenTheUserWantsIt()
{
    QCOMPARE(effectiveScheme(ColorScheme::dark, true), ColorScheme::dark);
    QCOMPARE(effectiveScheme(ColorScheme::dark, false), ColorScheme::light);
    QCOMPARE(effectiveScheme(ColorScheme::light, true), ColorScheme::light);
}

void StyleSheetTest::realTemplateIsFilledCompletely()
{
    const WebFontManager fonts;
    Styling styling;
    styling.backgroundPattern = BackgroundPattern::frame;
    styling.tintRowBackground = false;
    const QString sheet = makeStyleSheet(styling, ColorScheme::light, fonts);
    QVERIFY(sheet.contains(QStringLiteral("--primary: #406E55;")));
    QVERIFY(!sheet.contains(QStringLiteral("{{")));
    QVERIFY(!sheet.contains(QStringLiteral("</")));
    QCOMPARE(sheet.count(u'{'), sheet.count(u'}'));
}

const ledra::test::RegisterSuite<StyleSheetTest> registration("style_sheet_test");

#include "style_sheet_test.moc"
