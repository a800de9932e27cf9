#include "render/qt_web_engine.h"
#include "render/web_font_manager.h"
#include "support/named_widget.h"
#include "support/program_run.h"
#include "support/recording_console.h"
#include "support/test_suite.h"
#include "ui/styling/face_name.h"
#include "ui/styling/font_picker.h"
#include "ui/styling/logo_well.h"
#include "ui/styling/styling_panel.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDropEvent>
#include <QFileDialog>
#include <QImage>
#include <QLabel>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QSlider>
#include <QTranslator>
#include <QUndoStack>

using namespace ledra;
using test::named;

namespace {

/// The inspector over an empty home.
struct Desk
{
    Desk()
    {
        window.resize(460, 900);
        panel.setParent(&window);
        panel.resize(window.size());
        window.show();
        window.activateWindow();
    }

    const Styling& styling() { return **app.stylingManager().styling(); }
    QUndoStack& steps() { return app.undoStack(); }

    void type(const char* field, const QString& text)
    {
        auto* line = named<QLineEdit>(panel, field);
        line->setFocus();
        line->selectAll();
        QTest::keyClicks(line, text);
    }

    void drop(const QString& path)
    {
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(path)});
        auto* well = panel.findChild<LogoWell*>();
        QDragEnterEvent entry(QPoint(20, 20), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(well, &entry);
        QDropEvent event(QPointF(20, 20), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(well, &event);
    }

    test::RecordingConsole console;
    LedraApp app{{.console = console}};
    QtWebEngine engine;
    WebFontManager fonts;
    QWidget window;
    MessageBar messages;
    WindowParts parts{app, engine, fonts, messages, window};
    StylingPanel panel{parts};
};

} // namespace

class StylingPanelTest : public test::Suite
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        home_ = std::make_unique<test::ProgramHome>();
        home_->enter();
    }

    void colorsAreTypedAndTakenBack()
    {
        Desk desk;
        desk.type("Primary color", QStringLiteral("#12ab9f"));
        QCOMPARE(desk.styling().primaryColor, QStringLiteral("12AB9F"));
        QTRY_VERIFY(saved().contains("\"primaryColor\": \"12AB9F\""));
        desk.type("Primary color", QStringLiteral("12ab9g"));
        QTest::keyClick(named<QLineEdit>(desk.panel, "Primary color"), Qt::Key_Return);
        QCOMPARE(desk.messages.lines().size(), 1);
        QVERIFY(desk.messages.lines().front().contains(u"12ab9g"));
        QCOMPARE(desk.styling().primaryColor, QStringLiteral("12AB9F"));
        QCOMPARE(named<QLineEdit>(desk.panel, "Primary color")->text(), QStringLiteral("12AB9F"));
        desk.steps().undo();
        QCOMPARE(desk.steps().index(), 0); // what was typed is one step
        QCOMPARE(desk.styling().primaryColor, QStringLiteral("68977C"));
        QCOMPARE(named<QLineEdit>(desk.panel, "Primary color")->text(), QStringLiteral("68977C"));
    }

    void logosAreDroppedAndTakenBack()
    {
        Desk desk;
        const QString good = image("Mark.png", QSize(30, 20));
        desk.drop(good);
        QVERIFY(desk.panel.findChild<LogoWell*>()->hasPicture());
        QCOMPARE(test::contentOf(file("logo.png")), test::contentOf(good));
        const QString noImage = home_->path(QStringLiteral("letter.png"));
        QVERIFY(test::writeFile(noImage, "Dear Sir"));
        const QString noDrawing = home_->path(QStringLiteral("broken.svg"));
        QVERIFY(test::writeFile(noDrawing, "<svg><g></svg>"));
        const QString text = home_->path(QStringLiteral("letter.txt"));
        QVERIFY(test::writeFile(text, "Dear Sir"));
        for (const QString& bad : {noImage, noDrawing, text, image("Wide.png", QSize(9000, 4))})
            desk.drop(bad);
        QCOMPARE(desk.messages.lines().size(), 4);
        QCOMPARE(desk.steps().count(), 1);
        QCOMPARE(test::contentOf(file("logo.png")), test::contentOf(good));
        named<QPushButton>(desk.panel, "Remove Logo")->click();
        QVERIFY(!desk.styling().logo && !QFile::exists(file("logo.png")));
        desk.steps().undo();
        QCOMPARE(test::contentOf(file("logo.png")), test::contentOf(good));
        desk.steps().undo();
        QVERIFY(!desk.panel.findChild<LogoWell*>()->hasPicture());
        QVERIFY(!QFile::exists(file("logo.png")));
    }

    void styleSheets()
    {
        Desk desk;
        auto* text = named<QPlainTextEdit>(desk.panel, "Style sheet");
        QTest::keyClicks(text, QStringLiteral("h1 { color: red; }"));
        QTRY_COMPARE(test::contentOf(file("style.css")), QByteArray("h1 { color: red; }"));
        QVERIFY(import(desk, "\xff\xfe\x00", "odd.css"));
        QVERIFY(import(desk, "h1 {}", "odd.txt"));
        QVERIFY(import(desk, QByteArray((1 << 20) + 1, ' '), "long.css"));
        QCOMPARE(desk.messages.lines().size(), 3);
        QCOMPARE(text->toPlainText(), QStringLiteral("h1 { color: red; }"));
        QVERIFY(import(desk, "h1 { color: blue; }", "blue.css"));
        QCOMPARE(text->toPlainText(), QStringLiteral("h1 { color: blue; }"));
        desk.steps().undo();
        QCOMPARE(test::contentOf(file("style.css")), QByteArray("h1 { color: red; }"));
        named<QPushButton>(desk.panel, "Remove Style Sheet")->click();
        QVERIFY(!QFile::exists(file("style.css")) && text->toPlainText().isEmpty());
    }

    void fontsAreFoundByTyping()
    {
        Desk desk;
        auto* picker = named<FontPicker>(desk.panel, "Headline");
        QTest::mouseClick(picker, Qt::LeftButton);
        QVERIFY(picker->openList());
        QListWidget& list = picker->openList()->list();
        QCOMPARE(list.item(0)->text(), QStringLiteral("Featured"));
        QCOMPARE(list.findItems(QStringLiteral("On this Mac"), Qt::MatchExactly).size(), 1);
        QCOMPARE(list.currentItem()->text(), QStringLiteral("Source Serif"));
        QTest::keyClicks(&picker->openList()->search(), QStringLiteral("writer"));
        QTest::keyClick(&picker->openList()->search(), Qt::Key_Return);
        QCOMPARE(desk.styling().headlineFont, QStringLiteral("iA Writer Duo"));
        auto* face = named<QComboBox>(desk.panel, "Face: Headline");
        face->setFocus();
        QTest::keyClicks(face, QStringLiteral("Bold"));
        QCOMPARE(desk.styling().headlineFontWeight, QStringLiteral("700"));
        QVERIFY(desk.styling().headlineFontFace);
        desk.app.undoableStyling().edit(
            [](Styling& styling) { styling.headlineFont = QStringLiteral("Nowhere Sans"); },
            EditKind::single);
        QCOMPARE(picker->accessibleDescription(),
                 QStringLiteral("“Nowhere Sans” is not installed on this Mac"));
    }

    /// Words that are no names of faces stay as the font has them.
    void facesHaveGermanNames()
    {
        QTranslator german;
        QVERIFY(german.load(QStringLiteral(":/translations/ledra_de.qm")));
        QCoreApplication::installTranslator(&german);
        QCOMPARE(faceName(QStringLiteral("Extra Light Italic")), QStringLiteral("Extraleicht Kursiv"));
        QCOMPARE(faceName(QStringLiteral("Caption Bold")), QStringLiteral("Caption Fett"));
    }

    void resetIsOneStep()
    {
        Desk desk;
        named<QCheckBox>(desk.panel, "Tinted rows")->click();
        named<QCheckBox>(desk.panel, "Page headline")->click();
        named<QSlider>(desk.panel, "Height of the logo")->setValue(33);
        const Styling before = desk.styling();
        QCOMPARE(before.logoSize, 3.3);
        QVERIFY(!before.tintRowBackground && !before.pageHeadline);
        named<QPushButton>(desk.panel, "Reset to Defaults")->click();
        QVERIFY(desk.styling().tintRowBackground && desk.styling().logoSize == 1.4);
        desk.steps().undo();
        QCOMPARE(desk.styling(), before);
    }

private:
    QString file(const char* name) const
    {
        return home_->data(QStringLiteral("1_Default/") + QString::fromLatin1(name));
    }
    QByteArray saved() const { return test::contentOf(file("styling.json")); }

    QString image(const char* name, QSize size) const
    {
        QImage picture(size, QImage::Format_RGB32);
        picture.fill(Qt::darkGreen);
        const QString path = home_->path(QString::fromLatin1(name));
        return picture.save(path) ? path : QString();
    }

    /// Picks a file in the dialog.
    bool import(Desk& desk, const QByteArray& content, const char* name) const
    {
        const QString path = home_->path(QString::fromLatin1(name));
        named<QPushButton>(desk.panel, "Import Style Sheet…")->click();
        auto* dialog = desk.panel.findChild<QFileDialog*>();
        if (!dialog || !test::writeFile(path, content))
            return false;
        Q_EMIT dialog->fileSelected(path);
        delete dialog;
        return true;
    }

    std::unique_ptr<test::ProgramHome> home_;
};

const ledra::test::RegisterSuite<StylingPanelTest> registration("styling_panel_test");

#include "styling_panel_test.moc"
