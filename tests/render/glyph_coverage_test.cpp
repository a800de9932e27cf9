#include "render/glyph_coverage.h"
#include "support/test_suite.h"

using namespace ledra;

/// Which characters no font can show, as the fonts that Ledra depends on have them.
class GlyphCoverageTest : public test::Suite
{
    Q_OBJECT

private Q_SLOTS:
    void scriptsAreCovered()
    {
        const QString names =
            QStringLiteral("Zoë Ωμέγα Жанна שלום أمير अनुराधा สมชาย 東京 山田 김민준 ₪₹₺ → ✓ ½ "
                           "e\u0301 \u200d\u2028 \ufe0f");
        QCOMPARE(charactersWithoutGlyph(names), QStringList());
    }

    void theRestIsNamed()
    {
        const QString unassigned = QString::fromUcs4(U"\U0001fbff"); // no character, so in no font
        const QString privateUse = QString::fromUcs4(U"\U0010abcd");
        const QStringList missing =
            charactersWithoutGlyph(u'a' + unassigned + u'b' + privateUse + unassigned);
        QCOMPARE(missing, QStringList({unassigned, privateUse}));
        QVERIFY(missingGlyphText(missing).contains(u"(U+1FBFF), "));
        const QString many = missingGlyphText(QStringList(12, privateUse));
        QVERIFY2(many.endsWith(u", 2 more"), qPrintable(many));
    }

    void onlyVisibleTextCounts()
    {
        const QString page = QStringLiteral("<html title=\"𝟘\"><style>p::after { content: '✓' }</style>"
                                            "<p class='x'>a</p>b<STYLE>c</STYLE>d</html>");
        QCOMPARE(visibleText(page).simplified(), QStringLiteral("a b d"));
        QCOMPARE(visibleText(QStringLiteral("end <b")).trimmed(), QStringLiteral("end"));
    }
};

const ledra::test::RegisterSuite<GlyphCoverageTest> registration("glyph_coverage_test");

#include "glyph_coverage_test.moc"
