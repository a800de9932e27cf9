#include "render/web_font_manager.h"
#include "support/test_suite.h"

#include <QFontDatabase>
#include <QSignalSpy>

using namespace ledra;

Q_DECLARE_METATYPE(ledra::FontVariant)

class WebFontManagerTest : public test::Suite
{
    Q_OBJECT

private Q_SLOTS:
    void italicByFileName_data();
    void italicByFileName();
    void shippedFamilies();
    void cutsAreListedInOrder();
    void resolution_data();
    void resolution();
    void installedFamilies();
    void installedAreReadOnlyWhenNeeded();
    void faceRules();
    void sortKeysCompareFieldByField();

private:
    WebFontManager fonts_;
};

void WebFontManagerTest::italicByFileName_data()
{
    QTest::addColumn<bool>("italic");
    QTest::newRow("Some-It.woff2") << true;
    QTest::newRow("some-IT.WOFF2") << true;
    QTest::newRow("Some-BoldItalic.woff2") << true;
    QTest::newRow("Summit.woff2") << true; // a plain suffix test
    QTest::newRow("Some-Bold.woff2") << false;
    QTest::newRow("Italic-Some.woff2") << false;
    QTest::newRow("Some-It.woff") << false;
    QTest::newRow("Some-It.woff2.txt") << false;
}

void WebFontManagerTest::italicByFileName()
{
    QTEST(isItalicFile(QString::fromLatin1(QTest::currentDataTag())), "italic");
}

void WebFontManagerTest::shippedFamilies()
{
    QStringList families;
    for (const WebFontManager::FontFamily& family : fonts_.availableFamilies()) {
        QVERIFY(family.isBundled);
        families += family.name;
        for (const FontCut& cut : family.cuts) {
            QVERIFY(cut.isBundled && cut.bundledPath.has_value());
            QVERIFY(cut.bundledPath->endsWith(cut.faceID + QStringLiteral(".woff2")));
            QCOMPARE(cut.family, family.name);
            QVERIFY(fonts_.cut(cut.faceID) && *fonts_.cut(cut.faceID) == cut);
        }
    }
    families.sort();
    QCOMPARE(families.join(u','), QStringLiteral("Source Serif,iA Writer Duo"));
    QVERIFY(!bundledCut(QStringLiteral("SomethingElse-Regular.woff2")));
}

void WebFontManagerTest::cutsAreListedInOrder()
{
    const auto listOf = [this](const char* family) {
        QStringList list;
        for (const FontCut& cut : *fonts_.cutsOf(QString::fromLatin1(family)))
            list += cut.displayName + u' ' + cut.cssWeight + (cut.isItalic ? QStringLiteral("i") : QString());
        return list.join(QStringLiteral(", "));
    };
    QCOMPARE(listOf("iA Writer Duo"), QStringLiteral("Regular 400, Italic 400i, Bold 700, Bold Italic 700i"));
    QCOMPARE(
        listOf("Source Serif"),
        QStringLiteral(
            "Regular 400, Italic 400i, Light 300, Light Italic 300i, Semibold 600, Semibold Italic 600i, "
            "Bold 700, Bold Italic 700i, Black 900, Black Italic 900i"));
}

void WebFontManagerTest::resolution_data()
{
    QTest::addColumn<QString>("family");
    QTest::addColumn<QString>("weight");
    QTest::addColumn<QString>("face");
    QTest::addColumn<FontVariant>("variant");
    QTest::addColumn<QString>("triple");
    constexpr auto regular = FontVariant::regular;
    constexpr auto bold = FontVariant::bold;
    constexpr auto italic = FontVariant::italic;

    const QString serif = QStringLiteral("Source Serif");
    const QString none;
    QTest::newRow("shipped") << serif << "400" << none << regular
                             << R"("SourceSerif4-Regular", "Source Serif" normal normal)";
    QTest::newRow("shipped weight") << serif << "900" << none << regular
                                    << R"("SourceSerif4-Black", "Source Serif" normal normal)";
    QTest::newRow("nearest weight") << serif << "850" << none << regular
                                    << R"("SourceSerif4-Black", "Source Serif" normal normal)";
    QTest::newRow("bold") << serif << "300" << none << bold
                          << R"("SourceSerif4-Bold", "Source Serif" normal normal)";
    QTest::newRow("italic keeps the weight")
        << serif << "300" << none << italic << R"("SourceSerif4-LightIt", "Source Serif" normal normal)";
    QTest::newRow("chosen face wins") << serif << "400" << "SourceSerif4-SemiboldIt" << regular
                                      << R"("SourceSerif4-SemiboldIt", "Source Serif" normal normal)";
    QTest::newRow("bold of an italic face") << serif << "400" << "SourceSerif4-It" << bold
                                            << R"("SourceSerif4-BoldIt", "Source Serif" normal normal)";
    QTest::newRow("a face of another family does not count")
        << serif << "400" << "iAWriterDuo-Bold" << regular
        << R"("SourceSerif4-Regular", "Source Serif" normal normal)";
    QTest::newRow("an unknown face does not count")
        << serif << "400" << "SourceSerif4-Wide" << regular
        << R"("SourceSerif4-Regular", "Source Serif" normal normal)";
    QTest::newRow("unknown family") << "Nowhere Sans" << "300" << none << regular
                                    << R"("Nowhere Sans" 300 normal)";
    QTest::newRow("unknown family, bold")
        << "Nowhere Sans" << "300" << none << bold << R"("Nowhere Sans" bold normal)";
    QTest::newRow("unknown family, italic")
        << "Nowhere Sans" << "300" << none << italic << R"("Nowhere Sans" 300 italic)";
    QTest::newRow("a weight that is none")
        << "Nowhere Sans" << "x;}" << none << regular << R"("Nowhere Sans" 400 normal)";
}

void WebFontManagerTest::resolution()
{
    QFETCH(QString, family);
    QFETCH(QString, weight);
    QFETCH(QString, face);
    QFETCH(FontVariant, variant);
    const FontSlot slot =
        fonts_.resolve(family, weight, face.isNull() ? std::nullopt : std::optional(face), variant);
    QTEST(slot.family + u' ' + slot.weight + u' ' + slot.style, "triple");
    QCOMPARE(slot.bundledCut.has_value(), family == u"Source Serif");
}

void WebFontManagerTest::installedFamilies()
{
    WebFontManager fonts;
    const QSignalSpy loaded(&fonts, &WebFontManager::fontCatalogDidLoad);
    fonts.loadInstalled();
    fonts.loadInstalled();
    QCOMPARE(loaded.count(), 1);
    QStringList families = QFontDatabase::families();
    families.removeAll(QStringLiteral("Source Serif"));
    families.removeAll(QStringLiteral("iA Writer Duo"));
    if (families.isEmpty())
        QSKIP("no font is installed here");
    const QString family = families.front();
    QVERIFY(fonts.missingFamilyWarning(family).isEmpty());
    const FontSlot slot = fonts.resolve(family, QStringLiteral("400"), std::nullopt, FontVariant::bold);
    QVERIFY(slot.family.startsWith(u'"') && !slot.family.contains(u','));
    QCOMPARE(slot.weight, QStringLiteral("bold"));
    QVERIFY(!slot.bundledCut.has_value());
    QCOMPARE(fonts.resolve(family, QStringLiteral("400"), std::nullopt, FontVariant::italic).style,
             QStringLiteral("italic"));
}

void WebFontManagerTest::installedAreReadOnlyWhenNeeded()
{
    WebFontManager fonts;
    const QSignalSpy loaded(&fonts, &WebFontManager::fontCatalogDidLoad);
    Styling styling;
    fonts.loadFor(styling);
    QCOMPARE(loaded.count(), 0);
    styling.labelFont = QStringLiteral("Nowhere Sans");
    fonts.loadFor(styling);
    QCOMPARE(loaded.count(), 1);
    QCOMPARE(fonts.missingFamilyWarning(QStringLiteral("Nowhere Sans")),
             QStringLiteral("“Nowhere Sans” is not installed on this Mac"));
    QCOMPARE(fonts.missingFamilyWarning(QStringLiteral("Source Serif")), QString());
}

void WebFontManagerTest::faceRules()
{
    FontCut regular = *fonts_.cut(QStringLiteral("iAWriterDuo-Regular"));
    FontCut italic = *fonts_.cut(QStringLiteral("iAWriterDuo-Italic"));
    regular.bundledPath = QStringLiteral("a/b.woff2");
    italic.bundledPath = QStringLiteral("c.woff2");
    FontCut homeless = regular;
    homeless.bundledPath.reset();
    QCOMPARE(WebFontManager::fontFaceRules({italic, homeless, regular}),
             QStringLiteral("@font-face {\n    font-family: 'iAWriterDuo-Italic';\n"
                            "    src: url('c.woff2') format('woff2');\n}\n"
                            "@font-face {\n    font-family: 'iAWriterDuo-Regular';\n"
                            "    src: url('a/b.woff2') format('woff2');\n}\n"));
}

void WebFontManagerTest::sortKeysCompareFieldByField()
{
    using FontStyleSort::SortKey;
    const SortKey base{1, 1, 1, 1, QStringLiteral("m")};
    const std::vector<SortKey> ascending = {
        {0, 9, 9, 9, QStringLiteral("z")}, {1, 0, 9, 9, QStringLiteral("z")},
        {1, 1, 0, 9, QStringLiteral("z")}, {1, 1, 1, 0, QStringLiteral("z")},
        {1, 1, 1, 1, QStringLiteral("a")}, base};
    for (std::size_t i = 1; i < ascending.size(); ++i)
        QVERIFY(ascending[i - 1] < ascending[i]);
    QVERIFY(base == ascending.back());
}

const ledra::test::RegisterSuite<WebFontManagerTest> registration("web_font_manager_test");

#include "web_font_manager_test.moc"
