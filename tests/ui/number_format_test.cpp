#include "model/number_format_checks.h"
#include "support/desk.h"
#include "support/named_widget.h"
#include "support/test_suite.h"
#include "ui/chips/token_button.h"
#include "ui/document_desk.h"
#include "ui/number_format/number_format_edit.h"
#include "ui/number_format/number_format_language.h"
#include "ui/settings/settings_window.h"

#include <QClipboard>
#include <QComboBox>
#include <QDrag>
#include <QMenu>
#include <QMimeData>
#include <QTabWidget>
#include <QToolButton>

using namespace ledra;
using test::named;

namespace {

/// The line by itself, with the keys of somebody who types.
struct Line
{
    explicit Line(const char* format)
    {
        edit.setFormat(QString::fromUtf8(format), QUuid());
        edit.resize(500, 200);
        edit.show();
        edit.activateWindow();
        line.setFocus();
        press(Qt::Key_End);
    }

    void press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier, int times = 1)
    {
        for (int i = 0; i < times; ++i)
            QTest::keyClick(&line, static_cast<Qt::Key>(key), modifiers);
    }

    void type(const char* text) { QTest::keyClicks(&line, QString::fromUtf8(text)); }
    void click(const char* button) { QTest::mouseClick(named<QToolButton>(edit, button), Qt::LeftButton); }
    QString format() const { return edit.format(); }
    TokenButton* button(const char* name) { return named<TokenButton>(edit, name); }

    /// Drags something to the place before a character; true if the line takes it.
    bool drop(const QMimeData& carried, int place)
    {
        QTextCursor cursor(line.document());
        cursor.setPosition(place);
        const QPoint point = line.cursorRect(cursor).center();
        QDragEnterEvent enter(point, Qt::CopyAction, &carried, Qt::LeftButton, Qt::NoModifier);
        QDragMoveEvent move(point, Qt::CopyAction, &carried, Qt::LeftButton, Qt::NoModifier);
        QDropEvent drop(QPointF(point), Qt::CopyAction, &carried, Qt::LeftButton, Qt::NoModifier);
        for (QDropEvent* each : {static_cast<QDropEvent*>(&enter), static_cast<QDropEvent*>(&move), &drop})
            QApplication::sendEvent(line.viewport(), each);
        return enter.isAccepted() && move.isAccepted() && drop.isAccepted();
    }

    /// An event of the mouse with its left button held.
    static void hold(QWidget& widget, QEvent::Type type, const QPointF& place)
    {
        QMouseEvent event(type, place, widget.mapToGlobal(place),
                          type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton, Qt::LeftButton,
                          Qt::NoModifier);
        QApplication::sendEvent(&widget, &event);
    }

    /// With chips as "*".
    QString seen() const { return line.toPlainText().replace(u'\ufffc', u'*'); }

    QWidget window;
    NumberFormatEdit edit{&window};
    ChipLineEdit& line = edit.line();
};

} // namespace

class NumberFormatEditTest : public test::Suite
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        test::failOnWindowWarnings();
        home_ = std::make_unique<test::ProgramHome>();
        home_->enter();
    }

    /// What is shown is what is stored, letter by letter.
    void showsFormats_data()
    {
        QTest::addColumn<QString>("format");
        QTest::addColumn<QString>("seen");
        const auto row = [](const char* format, const char* seen) {
            QTest::newRow(format) << QString::fromUtf8(format) << QString::fromUtf8(seen);
        };
        row("", "");
        row("RE-{YYYY}-{NNN}", "RE-*-*");
        row("{YY}{MM}{DD}/{NNNN}-{X}", "***/*-*");
        row("{NNNNNNN}", "*"); // kept as it is written
        row("{Q}{NX}{VAR}", "{Q}{NX}{VAR}");
        row("INV-{NNN", "INV-{NNN");
        row("{a{NNN}{NNN}", "{a{NNN}*"); // the first brace takes all up to the next closing one
        row("{}{YMD}}", "{}*}");
        row("№ {NNN} 𝔸", "№ * 𝔸");
    }

    void showsFormats()
    {
        QFETCH(const QString, format);
        QFETCH(const QString, seen);
        const Line line(format.toUtf8().constData());
        QCOMPARE(line.seen(), seen);
        QCOMPARE(line.format(), format);
    }

    void labelsSayWhatTheyAre()
    {
        const NumberFormatLanguage language;
        const auto today = QDate::currentDate();
        QCOMPARE(language.label(QStringLiteral("{NNNN}")), QStringLiteral("Number 0001"));
        QCOMPARE(language.label(QStringLiteral("{YYYY}")), QStringLiteral("Year %1").arg(today.year()));
        QCOMPARE(language.label(QStringLiteral("{YYYYMM}")), today.toString(QStringLiteral("'Date' yyyyMM")));
        QCOMPARE(language.label(QStringLiteral("{X}")), QStringLiteral("Per-Invoice Variable"));
    }

    void typesInsertsAndDeletes()
    {
        Line line("");
        line.type("RE-");
        line.click("Insert Date");
        line.type("-{NN");
        QCOMPARE(line.seen(), QStringLiteral("RE-*-{NN"));
        line.type("}"); // a token that is complete becomes a chip
        QCOMPARE(line.format(), QStringLiteral("RE-{YYYY}-{NN}"));
        QCOMPARE(line.seen(), QStringLiteral("RE-*-*"));
        line.press(Qt::Key_Return); // there is one line only
        line.press(Qt::Key_Backspace);
        QCOMPARE(line.format(), QStringLiteral("RE-{YYYY}-"));
        line.press(Qt::Key_Left, Qt::NoModifier, 2); // over the chip in one step
        line.press(Qt::Key_Delete);
        QCOMPARE(line.format(), QStringLiteral("RE--"));
        for (QAction* entry : named<QToolButton>(line.edit, "Insert Number")->menu()->actions()) {
            if (entry->text() == u"Number 00001")
                entry->trigger();
        }
        line.click("Insert Per-Invoice Variable");
        QCOMPARE(line.format(), QStringLiteral("RE-{NNNNN}{X}-"));
    }

    void movesChipsByKeys()
    {
        Line line("{YYYY}-{NNN}");
        line.press(Qt::Key_Left, Qt::AltModifier);
        QCOMPARE(line.format(), QStringLiteral("{YYYY}{NNN}-"));
        line.press(Qt::Key_Left, Qt::AltModifier, 3); // it stops at the beginning
        QCOMPARE(line.format(), QStringLiteral("{NNN}{YYYY}-"));
        line.press(Qt::Key_Right, Qt::AltModifier, 5);
        QCOMPARE(line.format(), QStringLiteral("{YYYY}-{NNN}"));
        line.press(Qt::Key_Home);
        line.press(Qt::Key_Right, Qt::ShiftModifier, 2); // a chip and what follows it
        line.press(Qt::Key_Right, Qt::AltModifier);
        QCOMPARE(line.format(), QStringLiteral("{NNN}{YYYY}-"));
    }

    void dropsChipsAtTheirPlace()
    {
        Line line("RE-{NNN}");
        line.window.resize(520, 220);
        line.window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&line.window));
        line.type("x");
        const std::unique_ptr<QMimeData> date = line.button("Insert Date")->dragData();
        QVERIFY(line.drop(*date, 3));
        QCOMPARE(line.format(), QStringLiteral("RE-{YYYY}{NNN}x"));
        QCOMPARE(line.seen(), QStringLiteral("RE-**x"));
        line.type("/"); // one types on behind it
        QCOMPARE(line.format(), QStringLiteral("RE-{YYYY}/{NNN}x"));
        line.press(Qt::Key_Z, Qt::ControlModifier, 2);
        QCOMPARE(line.format(), QStringLiteral("RE-{NNN}x")); // the drop is a step of its own
        QVERIFY(line.drop(*date, 0));
        QCOMPARE(line.format(), QStringLiteral("{YYYY}RE-{NNN}x"));
        line.edit.setFormat(QString(90, u'a') + QStringLiteral("{NNN}"), QUuid());
        line.press(Qt::Key_End); // scrolls
        QVERIFY(line.drop(*date, 90));
        QCOMPARE(line.format(), QString(90, u'a') + QStringLiteral("{YYYY}{NNN}"));
        QMimeData letter; // a variable that numbers do not have
        letter.setData(QString::fromLatin1(draggedTokenFormat), "{{amount}}");
        QVERIFY(!line.drop(letter, 0));
        line.line.setReadOnly(true);
        QVERIFY(!line.drop(*date, 0));
        QCOMPARE(line.format(), QString(90, u'a') + QStringLiteral("{YYYY}{NNN}"));
    }

    void buttonsAreDragged()
    {
        Line line("");
        TokenButton* button = line.button("Insert Number");
        Line::hold(*button, QEvent::MouseButtonPress, {6, 6});
        Line::hold(*button, QEvent::MouseMove, {7, 6}); // a hand that trembles
        QVERIFY(!button->findChild<QDrag*>());
        Line::hold(*button, QEvent::MouseMove, {7.0 + 2 * QApplication::startDragDistance(), 6});
        const auto* drag = button->findChild<QDrag*>(); // ends at once without a display, and goes later
        QVERIFY(drag);
        QCOMPARE(drag->mimeData()->data(QString::fromLatin1(draggedTokenFormat)), QByteArray("{NNN}"));
        Line::hold(*button, QEvent::MouseButtonRelease, {6, 6});
        QCOMPARE(line.format(), QString()); // that was no click
        line.click("Insert Number");
        QCOMPARE(line.format(), QStringLiteral("{NNN}"));
    }

    void copiesAndPastesText()
    {
        Line line("{YYYY}-{NNN}");
        line.press(Qt::Key_A, Qt::ControlModifier);
        line.press(Qt::Key_C, Qt::ControlModifier);
        QCOMPARE(QApplication::clipboard()->text(), QStringLiteral("{YYYY}-{NNN}"));
        QApplication::clipboard()->setText(QStringLiteral("A\n{DD}\tB{Q}"));
        line.press(Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(line.format(), QStringLiteral("A {DD} B{Q}"));
        QCOMPARE(line.seen(), QStringLiteral("A * B{Q}"));
    }

    void undoesInTheLine()
    {
        Line line("{NNN}");
        line.type("abc");
        line.click("Insert Date");
        line.type("de");
        const auto undo = [&] { line.press(Qt::Key_Z, Qt::ControlModifier); };
        undo();
        QCOMPARE(line.format(), QStringLiteral("{NNN}abc{YYYY}"));
        undo();
        QCOMPARE(line.format(), QStringLiteral("{NNN}abc"));
        undo();
        undo(); // no further than to what was set
        QCOMPARE(line.format(), QStringLiteral("{NNN}"));
        line.press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier, 2);
        QCOMPARE(line.format(), QStringLiteral("{NNN}abc{YYYY}"));
        line.type("x");
        line.press(Qt::Key_Y, Qt::ControlModifier); // nothing is left to go on to
        QCOMPARE(line.format(), QStringLiteral("{NNN}abc{YYYY}x"));
        const QString same = line.format();
        line.edit.setFormat(same, QUuid()); // which is what the form does after each change
        undo();
        QCOMPARE(line.format(), QStringLiteral("{NNN}abc{YYYY}"));
        line.edit.setFormat(QStringLiteral("{NNN}abc{YYYY}"), QUuid::createUuid()); // of another profile
        undo();
        QCOMPARE(line.format(), QStringLiteral("{NNN}abc{YYYY}"));
        line.type("y");
        line.edit.setFormat(QStringLiteral("{NNNN}"), QUuid()); // by somebody else
        undo();
        QCOMPARE(line.format(), QStringLiteral("{NNNN}"));
    }

    void findsProblems_data()
    {
        QTest::addColumn<QString>("format");
        QTest::addColumn<NumberResetFrequency>("frequency");
        QTest::addColumn<NumberFormatProblem>("problem");
        const auto row = [](const char* format, NumberResetFrequency frequency, NumberFormatProblem problem) {
            QTest::addRow("%s %d", format, static_cast<int>(frequency))
                << QString::fromUtf8(format) << frequency << problem;
        };
        constexpr auto year = NumberResetFrequency::year;
        constexpr auto never = NumberResetFrequency::never;
        row("{YYYY}-{NNN}", year, NumberFormatProblem::none);
        row("{YYMM}{N}", year, NumberFormatProblem::none);
        row("{NNN}", never, NumberFormatProblem::none);
        row("{NNN}", year, NumberFormatProblem::noYear);
        row("{MM}-{NNN}", year, NumberFormatProblem::noYear);
        row("", never, NumberFormatProblem::empty);
        row("RE-{YYYY}", year, NumberFormatProblem::noNumber);
        row("{YYYY}-{NNN}-{VAR}", year, NumberFormatProblem::unknownVariable);
        row("{YYYY}-{NNN}-{", year, NumberFormatProblem::none);
    }

    void findsProblems()
    {
        QFETCH(const QString, format);
        QFETCH(const NumberResetFrequency, frequency);
        QFETCH(const NumberFormatProblem, problem);
        QCOMPARE(checkNumberFormat(format, frequency).problem, problem);
    }

    /// In the settings: written as it is typed, with a sample and what is wrong with it.
    void setsUpAProfile()
    {
        test::DocumentDesk desk;
        SettingsWindow settings(desk.parts);
        settings.resize(1000, 700);
        settings.show();
        settings.activateWindow();
        settings.openPage(QStringLiteral("Profiles"));
        settings.findChild<QTabWidget*>()->setCurrentIndex(2);
        ChipLineEdit* line = named<ChipLineEdit>(settings, "Number format");
        const auto shows = [&](const QString& text) {
            const QList<QLabel*> labels = settings.findChildren<QLabel*>();
            return std::ranges::any_of(labels, [&](const QLabel* label) {
                return label->isVisible() && label->text().contains(text);
            });
        };
        const auto stored = [&] { return (*desk.app.profileManager().activeProfile())->numberFormat; };
        const QString year = QString::number(QDate::currentDate().year());
        QVERIFY(shows(QStringLiteral("Invoice %1-001,").arg(year)));
        line->setFocus();
        QTest::keyClick(line, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(line, QStringLiteral("RE {YY}/{NNNN}"));
        QVERIFY(shows(QStringLiteral("Invoice RE %1/0001,").arg(year.right(2))));
        QTRY_COMPARE(stored(), QStringLiteral("RE {YY}/{NNNN}"));
        QTest::keyClick(line, Qt::Key_Backspace);
        QVERIFY(shows(QStringLiteral("Without “Number” all invoices have the same number")));
        QTest::keyClicks(line, QStringLiteral("{N}{VAR}"));
        QVERIFY(shows(QStringLiteral("“{VAR}” is no variable")));
        QTest::keyClick(line, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(line, Qt::Key_Delete);
        QVERIFY(shows(QStringLiteral("An empty format is not kept")));
        QCOMPARE(line->source(), QString()); // it is yet to be typed
        named<QComboBox>(settings, "Begins anew")->setFocus();
        QCOMPARE(line->source(), QStringLiteral("RE {YY}/{N}{VAR}"));
        QVERIFY(desk.messages->lines().isEmpty());
    }

    /// In the editor: of this one invoice, and with the application's way back.
    void setsUpAnInvoice()
    {
        test::Desk desk;
        desk.press("Ctrl+N");
        ChipLineEdit* line = named<ChipLineEdit>(desk.editor(), "Format");
        QCOMPARE(line->source(), desk.invoice().numberFormat.value_or(QString()));
        for (QToolButton* title : desk.editor().findChildren<QToolButton*>()) {
            if (title->text() == u"Number" && title->isCheckable())
                title->click(); // unfolds
        }
        line->setFocus();
        QTest::keyClick(line, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(line, QStringLiteral("X{NN}"));
        QCOMPARE(desk.invoice().numberFormat, QStringLiteral("X{NN}"));
        QVERIFY(desk.row(0).contains(u"X01"));
        desk.press("Ctrl+Z");
        QVERIFY(!desk.invoice().numberFormat || *desk.invoice().numberFormat != u"X{NN}");
        QCOMPARE(line->source(), desk.invoice().numberFormat.value_or(QString()));
        QTest::keyClick(line, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(line, Qt::Key_Delete);
        QVERIFY(!desk.invoice().numberFormat); // as in the profile again
    }

private:
    std::unique_ptr<test::ProgramHome> home_;
};

const ledra::test::RegisterSuite<NumberFormatEditTest> registration("number_format_test");

#include "number_format_test.moc"
