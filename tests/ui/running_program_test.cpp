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

    void followsTheCommandLine()
    {
        ApplicationBus bus(QDBusConnection(QStringLiteral("none")));
        RunningProgram program(bus);
        QVERIFY(home_->succeeds("settings set appearance dark"));
        QTRY_COMPARE(QApplication::palette(), darkPalette());
        QVERIFY(home_->succeeds("settings set appearance light"));
        QTRY_COMPARE(QApplication::palette(), lightPalette());
        QVERIFY(home_->succeeds("settings set language de"));
        QTRY_COMPARE(program.window().commands().menu(Menu::record)->title().remove(u'&'),
                     QStringLiteral("Rechnung"));
        QVERIFY(!program.window().findChild<SettingsWindow*>()); // nobody had opened it

        const auto profileNames = [&] {
            return program.window().parts().app.profileManager().profiles().size();
        };
        QVERIFY(home_->succeeds("profile create Second") && home_->succeeds("profile use Second"));
        QTRY_COMPARE(profileNames(), 2U);
        QVERIFY(home_->succeeds("profile create Third"));
        QTRY_COMPARE(profileNames(), 3U);
        const QByteArray list =
            home_->run("profile list").output; // the choice stands, whatever the window shows
        QVERIFY2(list.contains("*  Second"), list);
    }

    /// The data folder is on a stick that is pulled, or a sync service replaces what is in it.
    void outlivesItsFolder()
    {
        QVERIFY(home_->succeeds("new invoice --set recipient.name=Earlier"));
        ApplicationBus bus(QDBusConnection(QStringLiteral("none")));
        RunningProgram program(bus);
        LedraApp& app = program.window().parts().app;
        program.window().commands().action("New Invoice")->trigger();
        const QUuid id = (*program.window().selected().front())->id;
        const QString data = QDir::cleanPath(home_->data());
        const auto type = [&](const char* name) {
            return app.jobs().editSoon(
                id, [&](Invoice& invoice) { invoice.name = QString::fromLatin1(name); }, Force::no);
        };
        QVERIFY(QDir().rename(data, data + QStringLiteral("-away")));
        QTest::qWait(1000);
        QCOMPARE(app.invoiceManager().invoices().size(), 2U);
        QVERIFY(type("Typed in the dark"));
        QTest::qWait(1500); // it tries to write that
        program.window().openSettings();
        QVERIFY(!QFileInfo::exists(data)); // nothing in the place of what is away
        QVERIFY(QDir().rename(data + QStringLiteral("-away"), data));
        QTest::qWait(1000);
        QCOMPARE(app.invoiceManager().invoices().size(), 2U);
        QVERIFY(type("Typed in the light"));
        QTRY_VERIFY_WITH_TIMEOUT(home_->run("list").output.contains("Typed in the light"), 10'000);
        QCOMPARE(app.profileManager().profiles().size(), 1U);

        // Another name from outside: what is typed goes into the folder that it has now.
        QVERIFY(QDir().rename(data + QStringLiteral("/1_Default"), data + QStringLiteral("/1_Renamed")));
        QTest::qWait(1000);
        QVERIFY(type("Typed later"));
        QTRY_VERIFY_WITH_TIMEOUT(home_->run("list").output.contains("Typed later"), 10'000);
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
