#include "store/styling_folder.h"
#include "support/recording_console.h"
#include "support/test_suite.h"
#include "support/text_table.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace ledra;

namespace {

void putFile(const QString& path, const QByteArray& content)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(content), content.size());
}

} // namespace

class StylingFolderTest : public test::Suite
{
    Q_OBJECT

private Q_SLOTS:
    void assetsAreFound_data()
    {
        // Each file holds "<svg/>", in Base64 PHN2Zy8+; a name with a slash is a folder.
        test::textTable({"files", "logo", "css"},
                        {
                            {"", "none", "none"},
                            {"logo.gif styling.json css svg", "none", "none"},
                            {"logo.svg style.css", "<svg/>", "<svg/>"},
                            {"LOGO.SVG Style.CSS", "<svg/>", "<svg/>"},
                            {"logo.png", "data:image/png;base64,PHN2Zy8+", "none"},
                            {"logo.jpg", "data:image/jpeg;base64,PHN2Zy8+", "none"},
                            {"logo.JPEG", "data:image/jpeg;base64,PHN2Zy8+", "none"},
                            {"b.svg a.min.webp", "data:image/webp;base64,PHN2Zy8+", "none"},
                            {"a.svg/ b.png a.css/ b.css", "data:image/png;base64,PHN2Zy8+", "<svg/>"},
                        });
    }

    void assetsAreFound()
    {
        const QTemporaryDir folder;
        const QStringList names = test::cell("files").split(u' ', Qt::SkipEmptyParts);
        for (const QString& name : names) {
            if (name.endsWith(u'/'))
                QVERIFY(QDir(folder.path()).mkdir(name.chopped(1)));
            else
                putFile(folder.filePath(name), "<svg/>");
        }
        Styling styling;
        styling.logo = styling.css = QStringLiteral("of another folder");
        test::RecordingConsole console;
        loadStylingAssets(styling, folder.path(), console);
        QTEST(styling.logo.value_or(QStringLiteral("none")), "logo");
        QTEST(styling.css.value_or(QStringLiteral("none")), "css");
        QCOMPARE(console.failures, QStringList());
    }

    void unreadableAssetsAreSaid()
    {
        const QTemporaryDir folder;
        putFile(folder.filePath(QStringLiteral("logo.png")), QByteArray(8 * 1024 * 1024 + 1, 'x'));
        putFile(folder.filePath(QStringLiteral("style.css")), QByteArray(1024 * 1024 + 1, ' '));
        Styling styling;
        test::RecordingConsole console;
        loadStylingAssets(styling, folder.path(), console);
        QVERIFY(!styling.logo && !styling.css);
        QCOMPARE(console.failures.size(), 2);
        QVERIFY(
            console.failures[0].startsWith(QStringLiteral("Error loading logo content: ") + folder.path()));
        QVERIFY(
            console.failures[1].startsWith(QStringLiteral("Error loading CSS content: ") + folder.path()));
    }
};

const ledra::test::RegisterSuite<StylingFolderTest> registration("styling_folder_test");

#include "styling_folder_test.moc"
