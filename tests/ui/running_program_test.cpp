#include "support/desk.h"
#include "support/named_widget.h"
#include "support/test_suite.h"
#include "ui/running_program.h"
#include "ui/settings/settings_window.h"

#include <QComboBox>

using namespace ledra;
using test::named;

/// What the whole program does when what its windows show changes under them.
class RunningProgramTest : public test::Suite
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        home_ = std::make_unique<test::ProgramHome>();
        home_->enter();
        test::failOnWindowWarnings();
    }

    void cleanup() { QLocale::setDefault(QLocale::system()); }

    void speaksAnotherLanguage()
    {
        ApplicationBus bus(QDBusConnection(QStringLiteral("none")));
        RunningProgram program(bus);
        const auto recordMenu = [&] {
            return program.window().commands().menu(Menu::record)->title().remove(u'&');
        };
        program.window().commands().action("New Invoice")->trigger();
        QCOMPARE(program.window().selected().size(), 1U);
        QCOMPARE(recordMenu(), QStringLiteral("Invoice"));
        choose(program, "Language", "German");
        QTRY_COMPARE(recordMenu(), QStringLiteral("Rechnung"));
        // The settings stand where they stood, and say all in the new language.
        QCOMPARE(settingsOf(program).windowTitle(), QStringLiteral("Einstellungen"));
        QCOMPARE(program.window().listPanel().model().headerData(1, Qt::Horizontal).toString(),
                 QStringLiteral("Empfänger"));
        QCOMPARE(program.window().selected().size(), 1U); // what was chosen still is
        choose(program, "Sprache", "Englisch");
        QTRY_COMPARE(recordMenu(), QStringLiteral("Invoice"));
        // What was done before can still be taken back.
        QCOMPARE(program.window().listPanel().model().recordCount(), 1U);
        program.window().parts().app.undoStack().undo();
        QCOMPARE(program.window().listPanel().model().recordCount(), 0U);
    }

    void changesItsLook()
    {
        ApplicationBus bus(QDBusConnection(QStringLiteral("none")));
        RunningProgram program(bus);
        choose(program, "Windows", "Dark");
        QCOMPARE(QApplication::palette(), darkPalette());
        const QImage dark = QApplication::windowIcon().pixmap(64).toImage();
        QVERIFY(!dark.isNull());
        choose(program, "Icon", "Forest");
        const QImage forest = QApplication::windowIcon().pixmap(64).toImage();
        QVERIFY(forest != dark);
        choose(program, "Windows", "Light");
        QCOMPARE(QApplication::palette(), lightPalette());
        QVERIFY(QApplication::windowIcon().pixmap(64).toImage() != forest);
        choose(program, "Windows", "System");
    }

private:
    static SettingsWindow& settingsOf(RunningProgram& program)
    {
        return *program.window().findChild<SettingsWindow*>();
    }

    /// Chooses in a list of the settings as by hand.
    static void choose(RunningProgram& program, const char* field, const char* text)
    {
        auto* box = named<QComboBox>(program.window().openSettings(), field);
        const int row = box->findText(QString::fromUtf8(text));
        QVERIFY(row >= 0);
        box->setCurrentIndex(row);
        Q_EMIT box->activated(row);
    }

    std::unique_ptr<test::ProgramHome> home_;
};

const ledra::test::RegisterSuite<RunningProgramTest> registration("running_program_test");

#include "running_program_test.moc"
