#include "render/qt_web_engine.h"
#include "render/web_font_manager.h"
#include "support/named_widget.h"
#include "support/program_run.h"
#include "support/recording_console.h"
#include "support/scripted_server.h"
#include "support/test_suite.h"
#include "ui/chips/token_button.h"
#include "ui/look/profile_symbols.h"
#include "ui/number_format/number_format_edit.h"
#include "ui/reminders/variable_text_edit.h"
#include "ui/settings/settings_window.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTabBar>
#include <QTabWidget>
#include <QTranslator>
#include <QTreeWidget>

using namespace ledra;
using test::named;

namespace {

/// The settings over an empty home.
struct Desk
{
    explicit Desk(const char* page)
    {
        settings.show();
        settings.activateWindow();
        settings.openPage(QString::fromLatin1(page));
    }

    void type(const char* field, const char* text)
    {
        auto* line = named<QLineEdit>(settings, field);
        line->setFocus();
        line->selectAll();
        QTest::keyClicks(line, QString::fromLatin1(text));
    }

    void click(const char* button) { named<QAbstractButton>(settings, button)->click(); }

    /// Whether a text can be read somewhere.
    bool shows(const char* text) const
    {
        const QList<QLabel*> labels = settings.findChildren<QLabel*>();
        return std::ranges::any_of(labels, [&](const QLabel* label) {
            return label->isVisible() && label->text().contains(QString::fromUtf8(text));
        });
    }

    const Profile& profile() { return **app.profileManager().activeProfile(); }

    test::RecordingConsole console;
    LedraApp app{{.console = console}};
    QtWebEngine engine;
    WebFontManager fonts;
    QWidget window;
    MessageBar messages;
    WindowParts parts{app, engine, fonts, messages, window};
    SettingsWindow settings{parts};
};

/// Presses a button of the question that is about to be asked.
void answerNext(const char* button)
{
    QTimer::singleShot(0, qApp, [button] {
        auto* question = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (question)
            named<QPushButton>(*question, button)->click();
    });
}

} // namespace

class SettingsWindowTest : public test::Suite
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        home_ = std::make_unique<test::ProgramHome>();
        home_->enter();
    }

    void profilesAreMadeNamedUsedAndDeleted()
    {
        Desk desk("Profiles");
        ProfileManager& profiles = desk.app.profileManager();
        desk.click("New Profile");
        QCOMPARE(profiles.profiles().size(), std::size_t(2));
        QTest::keyClicks(desk.settings.focusWidget(), QStringLiteral("Studio\r"));
        QVERIFY(QFile::exists(home_->data(QStringLiteral("2_Studio/profile.json"))));
        QCOMPARE(named<QLineEdit>(desk.settings, "Profile name")->text(), QStringLiteral("Studio"));
        desk.click("Use");
        QCOMPARE(desk.profile().displayName(), QStringLiteral("Studio"));
        desk.type("Profile name", "a/b\r");
        QVERIFY(desk.shows("cannot be a profile's name"));
        desk.type("Profile name", " \r");
        QVERIFY(desk.shows("A profile needs a name") && !desk.shows("cannot be a profile's name"));
        QCOMPARE(named<QLineEdit>(desk.settings, "Profile name")->text(), QStringLiteral("Studio"));
        desk.type("Profile name", "default");
        QVERIFY(desk.shows("Another profile has this name.") && !desk.shows("needs a name"));
        desk.type("Profile name", "Studio\r");
        QVERIFY(!desk.shows("Another profile has this name."));
        QCOMPARE(desk.profile().displayName(), QStringLiteral("Studio"));
        answerNext("Cancel");
        desk.click("Delete…");
        QCOMPARE(profiles.profiles().size(), std::size_t(2));
        answerNext("Delete");
        desk.click("Delete…");
        QCOMPARE(profiles.profiles().size(), std::size_t(1));
        QCOMPARE(named<QLineEdit>(desk.settings, "Profile name")->text(), QStringLiteral("Default"));
        QVERIFY(!named<QPushButton>(desk.settings, "Delete…")->isEnabled());
    }

    /// A dialog presses its first button, whatever field somebody types in.
    void returnInAFieldPressesNothing()
    {
        Desk desk("Profiles");
        desk.settings.hide();
        desk.settings.show(); // on that page
        desk.settings.activateWindow();
        const ProfileManager& profiles = desk.app.profileManager();
        desk.type("City", "Kiel\r");
        QCOMPARE(profiles.profiles().size(), std::size_t(1));
        QPushButton later(desk.settings.findChild<QTabWidget*>()); // which a page adds
        later.setDefault(true);
        later.show();
        QSignalSpy pressed(&later, &QPushButton::clicked);
        desk.type("City", "Bonn\r");
        QCOMPARE(pressed.size(), 0);
        auto* create = named<QPushButton>(desk.settings, "New Profile");
        create->setFocus();
        QTest::keyClick(create, Qt::Key_Return);
        QCOMPARE(profiles.profiles().size(), std::size_t(2));
    }

    /// What is told goes with the window, and with what was to be done.
    void failuresAreToldOnce()
    {
        Desk desk("Profiles");
        const QString profile = home_->data(QStringLiteral("1_Default"));
        QVERIFY(QDir().rename(profile, home_->path(QStringLiteral("away"))));
        desk.type("Profile name", "Studio\r");
        QCOMPARE(desk.settings.parts().messages.lines().size(), 1);
        QVERIFY(QDir().rename(home_->path(QStringLiteral("away")), profile));
        desk.type("Profile name", "Studio\r");
        QCOMPARE(desk.profile().displayName(), QStringLiteral("Studio"));
        QVERIFY(desk.settings.parts().messages.lines().isEmpty());
        desk.settings.tell(QStringLiteral("the last profile cannot be deleted"));
        desk.settings.close();
        QVERIFY(desk.settings.parts().messages.lines().isEmpty());
    }

    void symbolsAreShown()
    {
        Desk desk("Profiles");
        const auto* list = named<QListWidget>(desk.settings, "Profiles");
        const auto drawn = [](const QIcon& icon) { return icon.pixmap(16).toImage(); };
        QCOMPARE(drawn(list->item(0)->icon()), drawn(profileIcon(QStringLiteral("person.fill"))));
        auto* symbol = named<QComboBox>(desk.settings, "Symbol");
        symbol->setFocus();
        QTest::keyClicks(symbol, QStringLiteral("House"));
        QTRY_COMPARE(drawn(list->item(0)->icon()), drawn(profileIcon(QStringLiteral("house.fill"))));
        QVERIFY(drawn(list->item(0)->icon()) != drawn(profileIcon(QStringLiteral("person.fill"))));
    }

    /// The buttons stay under the mouse while the format is wrong.
    void numberFormatsKeepTheirPlace()
    {
        Desk desk("Profiles");
        desk.settings.findChild<QTabWidget*>()->setCurrentIndex(2);
        auto* format = named<NumberFormatEdit>(desk.settings, "Number format");
        const auto* button = format->findChild<TokenButton*>();
        QCoreApplication::processEvents();
        const QPoint before = button->mapTo(&desk.settings, QPoint());
        format->line().selectAll();
        QTest::keyClick(&format->line(), Qt::Key_Delete);
        QVERIFY(!format->line().accessibleDescription().isEmpty());
        QCoreApplication::processEvents();
        QCOMPARE(button->mapTo(&desk.settings, QPoint()), before);
    }

    void tabsHaveRoom_data()
    {
        QTest::addColumn<QString>("language");
        QTest::newRow("English") << QStringLiteral("en");
        QTest::newRow("German") << QStringLiteral("de");
    }

    void tabsHaveRoom()
    {
        QFETCH(const QString, language);
        QTranslator translator;
        QVERIFY(translator.load(QStringLiteral(":/translations/ledra_%1.qm").arg(language)));
        QCoreApplication::installTranslator(&translator);
        Desk desk("Profiles");
        const auto* tabs = desk.settings.findChild<QTabWidget*>();
        QTRY_VERIFY(tabs->tabBar()->sizeHint().width() <= tabs->width());
    }

    void fieldsAreCheckedAndKept()
    {
        Desk desk("Profiles");
        auto* tabs = desk.settings.findChild<QTabWidget*>();
        tabs->setCurrentIndex(1);
        desk.type("IBAN", "DE89 3704 0044 0532 0130 01");
        QVERIFY(desk.shows("The check digits do not fit"));
        QTest::keyClick(named<QLineEdit>(desk.settings, "IBAN"), Qt::Key_Backspace);
        QVERIFY(desk.shows("another length"));
        QTest::keyClicks(named<QLineEdit>(desk.settings, "IBAN"), QStringLiteral("0"));
        QVERIFY(!desk.shows("another length") && !desk.shows("do not fit"));
        desk.type("VAT ID", "DE136695978");
        QVERIFY(desk.shows("The check digit does not fit"));
        QTRY_VERIFY(savedProfile().contains("\"iban\": \"DE89 3704 0044 0532 0130 00\""));
        tabs->setCurrentIndex(3);
        desk.type("VAT", "7,5x");
        QVERIFY(desk.shows("is not a number"));
        desk.click("Show documents dark in dark windows");
        desk.click("Hourly rate");
        desk.type("Hourly rate", "85");
        tabs->setCurrentIndex(2);
        named<QSpinBox>(desk.settings, "Begins in")->setValue(2027);
        tabs->setCurrentIndex(0); // others change the profile while something is pending
        desk.type("City", "Kiel");
        Profile other = desk.profile();
        other.phone = QStringLiteral("0431 1");
        other.currency = Currency{QStringLiteral("CHF")};
        QVERIFY(desk.app.profileManager().saveProfile(other, *other.profileName));
        QTRY_COMPARE(desk.profile().addressCity, QStringLiteral("Kiel"));
        QCOMPARE(desk.profile().phone, QStringLiteral("0431 1"));
        QCOMPARE(named<QLineEdit>(desk.settings, "Phone")->text(), QStringLiteral("0431 1"));
        QCOMPARE(desk.profile().hourlyRate, 85.0);
        QVERIFY(desk.profile().invoiceDarkMode && desk.app.settings().boolean("invoiceDarkMode"));
        tabs->setCurrentIndex(4);
        QVERIFY(desk.shows(other.currency.symbol().toUtf8().constData()));
        QCOMPARE(desk.profile().vatPercentage, 7.5);
        QCOMPARE(desk.profile().startNumberYear, std::optional<std::int64_t>(2027));
        QVERIFY(desk.console.failures.isEmpty());
    }

    /// The letter of reminders shows chips; what is stored are their tokens.
    void reminderTextsHaveChips()
    {
        Desk desk("Profiles");
        desk.settings.findChild<QTabWidget*>()->setCurrentIndex(4);
        auto* letter = named<VariableTextEdit>(desk.settings, "Text");
        const auto stored = [&] { return desk.profile().reminderTemplate; };
        letter->setFocus();
        QTest::keyClicks(letter, QStringLiteral("Pay "));
        desk.click("Insert Amount Due");
        QTest::keyClicks(letter, QStringLiteral(" to {{name}}, {{other}}"));
        QCOMPARE(letter->toPlainText(), QStringLiteral("Pay \ufffc to \ufffc, {{other}}"));
        QTRY_COMPARE(stored(), QStringLiteral("Pay {{amount}} to {{name}}, {{other}}"));
        QTest::keyClick(letter, Qt::Key_Z, Qt::ControlModifier);
        QTRY_COMPARE(stored(), QStringLiteral("Pay {{amount}} to {{name}}"));
        Profile other = desk.profile(); // as another program writes it
        other.reminderTemplate = QStringLiteral("{{due-date}}\n\u00a0{{name}}{{");
        QVERIFY(desk.app.profileManager().saveProfile(other, *other.profileName));
        QTRY_COMPARE(letter->source(), other.reminderTemplate);
        QTest::keyClick(letter, Qt::Key_Z, Qt::ControlModifier); // leads to nothing of before
        desk.type("Fee", "5");
        QTRY_COMPARE(desk.profile().latePaymentFee, 5.0);
        QCOMPARE(stored(), other.reminderTemplate);
    }

    void generalSettings()
    {
        Desk desk("General");
        QSignalSpy appearance(&desk.settings, &SettingsWindow::appearanceChanged);
        auto* windows = named<QComboBox>(desk.settings, "Windows");
        windows->setFocus();
        QTest::keyClicks(windows, QStringLiteral("Dark"));
        QCOMPARE(appearance.size(), 1);
        QCOMPARE(desk.app.settings().text(QStringLiteral("appearance")), QStringLiteral("dark"));
        desk.click("Keep signs of usage in a file of your own");
        const QString sheet = home_->path(QStringLiteral("a.css"));
        QVERIFY(test::writeFile(sheet, "h1 {}"));
        QVERIFY(desk.app.stylingManager().importStyleSheet(sheet));
        desk.click("Show What Is Kept");
        QVERIFY(named<QPlainTextEdit>(desk.settings, "What is kept")->toPlainText().contains(u"Styling.CSS"));
    }

    void backupsAndTrash()
    {
        Desk desk("Data");
        auto* tabs = desk.settings.findChild<QTabWidget*>();
        tabs->setCurrentIndex(1);
        desk.click("Back Up Now");
        auto* backups = named<QTreeWidget>(desk.settings, "Backups");
        QCOMPARE(backups->topLevelItemCount(), 1);
        backups->setCurrentItem(backups->topLevelItem(0));
        named<QPushButton>(*tabs->widget(1), "Restore")->click();
        QCOMPARE(desk.profile().displayName(), QStringLiteral("Default"));
        const QUuid id = (**desk.app.jobs().create(InvoiceType::invoice))->id;
        QVERIFY(desk.app.jobs().remove(id, Force::no));
        tabs->setCurrentIndex(2);
        auto* trash = named<QTreeWidget>(desk.settings, "Trash");
        QVERIFY(!named<QPushButton>(*tabs->widget(2), "Restore")->isEnabled());
        for (int row = 0; row < trash->topLevelItemCount(); ++row) {
            if (!trash->topLevelItem(row)->text(1).isEmpty())
                trash->setCurrentItem(trash->topLevelItem(row));
        }
        named<QPushButton>(*tabs->widget(2), "Restore")->click();
        QVERIFY(desk.app.invoiceManager().find(id));
    }

    void textParser()
    {
        Desk desk("Text Parser");
        const QString before = *desk.app.settings().text(QStringLiteral("textParserEndpoint"));
        desk.type("Address", "http://example.com/v1");
        QVERIFY(desk.shows("is not on this computer"));
        QCOMPARE(desk.app.settings().text(QStringLiteral("textParserEndpoint")), before);
        test::ScriptedServer server([](const test::HttpRequest&) {
            return test::HttpResponse{.pieces = {R"({"data":[{"id":"m"}]})"}};
        });
        desk.type("Address", server.address(QStringLiteral("/v1")).toLatin1().constData());
        desk.click("Test");
        QTRY_VERIFY(desk.shows("The model is available."));
        desk.type("Model", "other");
        desk.click("Test");
        QTRY_VERIFY(named<QPushButton>(desk.settings, "Test")->isEnabled());
        QVERIFY(!desk.shows("The model is available."));
        QCOMPARE(server.requests.size(), 2);
    }

    void everythingFitsAndHasAName_data()
    {
        QTest::addColumn<QString>("page");
        for (const SettingsPage& page : settingsPages())
            QTest::newRow(page.title) << QString::fromLatin1(page.title);
    }

    void everythingFitsAndHasAName()
    {
        QFETCH(const QString, page);
        Desk desk(page.toLatin1().constData());
        QVERIFY(desk.settings.minimumSizeHint().width() <= 1000);
        auto* tabs = desk.settings.findChild<QTabWidget*>();
        for (int tab = 0; tab < (tabs ? tabs->count() : 1); ++tab) {
            if (tabs)
                tabs->setCurrentIndex(tab);
            for (const QScrollArea* area : desk.settings.findChildren<QScrollArea*>())
                QVERIFY(!area->isVisible() ||
                        area->widget()->minimumSizeHint().width() <= area->viewport()->width());
        }
        int controls = 0;
        for (const QWidget* each : desk.settings.findChildren<QWidget*>()) {
            const bool isInner = each->objectName().startsWith(u"qt_");
            const bool isPopup = each->window() != &desk.settings;
            if (each->focusPolicy() == Qt::NoFocus || isInner || isPopup ||
                qobject_cast<const QScrollArea*>(each) || qobject_cast<const QTabWidget*>(each) ||
                each->inherits("QTabBar"))
                continue;
            const auto* button = qobject_cast<const QAbstractButton*>(each);
            const bool hasName = !each->accessibleName().isEmpty() || (button && !button->text().isEmpty());
            const auto* label = qobject_cast<const QLabel*>(each);
            QVERIFY2(hasName || label, qPrintable(QLatin1StringView(each->metaObject()->className()) +
                                                  QStringLiteral(" on ") + page));
            ++controls;
        }
        QVERIFY(controls > 3);
    }

private:
    QByteArray savedProfile() const
    {
        return test::contentOf(home_->data(QStringLiteral("1_Default/profile.json")));
    }

    std::unique_ptr<test::ProgramHome> home_;
};

const ledra::test::RegisterSuite<SettingsWindowTest> registration("settings_window_test");

#include "settings_window_test.moc"
