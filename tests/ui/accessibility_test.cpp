#include "einvoice/xml_generator.h"
#include "support/accessibility_check.h"
#include "support/desk.h"
#include "support/named_widget.h"
#include "support/sample_invoice.h"
#include "support/test_suite.h"
#include "ui/assistant/first_start_assistant.h"
#include "ui/commands/shortcut_sheet.h"
#include "ui/reminders/reminder_desk.h"
#include "ui/settings/settings_window.h"
#include "ui/text/text_to_invoice.h"
#include "ui/viewer/viewer_tab.h"
#include "ui/viewer/viewer_web_view.h"
#include "ui/viewer/viewer_window.h"

#include <QFileDialog>
#include <QTabWidget>
#include <QTranslator>

using namespace ledra;
using test::named;

namespace {

/// The window in a language, whatever that of the system is.
struct Speech
{
    explicit Speech(const QString& language)
    {
        isThere = translator.load(QStringLiteral(":/translations/ledra_%1.qm").arg(language));
        QCoreApplication::installTranslator(&translator);
    }

    QTranslator translator;
    bool isThere = false;
};

/// Opens one screen of the application after another.
class Tour
{
public:
    explicit Tour(test::AccessibilityCheck& check) : check_(check)
    {
        desk_.window.resize(1440, 860);
        QTest::qWait(50);
    }

    void makeAll()
    {
        look(desk_.window, "empty window");
        firstStart();
        records();
        reminders();
        panels();
        dialogs();
        viewer();
        settings();
    }

private:
    void look(QWidget& window, const QString& state)
    {
        for (int pass = 0; pass < 4; ++pass)
            QCoreApplication::processEvents(); // a layout asks that around it anew, and so on outwards
        check_.look(window, state);
    }
    void look(QWidget& window, const char* state) { look(window, QString::fromLatin1(state)); }

    void run(const char* command) { desk_.window.commands().action(command)->trigger(); }

    void firstStart()
    {
        auto* assistant = new FirstStartAssistant(desk_.window.parts(), &desk_.window); // deletes itself
        assistant->open();
        auto* pages = assistant->findChild<QStackedWidget*>();
        for (int page = 0; page < pages->count(); ++page) {
            look(*assistant, QStringLiteral("first start %1").arg(page));
            if (page == 0)
                pages->currentWidget()->findChild<QCheckBox*>()->setChecked(true);
            for (QPushButton* button : assistant->findChildren<QPushButton*>()) {
                if (button->isDefault() && page < pages->count() - 1)
                    button->click();
            }
        }
        assistant->close();
    }

    void records()
    {
        desk_.press("Ctrl+N");
        (void)desk_.window.jobs().edit(
            desk_.invoice().id,
            [this](Invoice& invoice) {
                invoice.name = QStringLiteral("Mia Petersen");
                invoice.date = Timestamp::fromDateTime(QDateTime(QDate(2025, 1, 5), QTime(12, 0)));
                invoice.items = {{desk_.app.ids().newId(), QStringLiteral("Design"), 2, Unit::hour, 80, 19}};
            },
            EditKind::single);
        look(desk_.window, "editor");
        run("Filter");
        look(desk_.window, "filter bar");
        run("Filter");
        desk_.press("Ctrl+Alt+2");
        look(desk_.window, "locked editor");
        desk_.press("Ctrl+Return");
        desk_.window.parts().messages.warn(QStringLiteral("Error saving invoice"),
                                           {{QStringLiteral("Again"), [] {}}});
        look(desk_.window, "messages");
        desk_.window.parts().messages.clear();
    }

    void reminders()
    {
        run("Create Payment Reminder");
        QVERIFY(desk_.window.reminders().isShown());
        look(desk_.window, "reminders");
        desk_.window.sideBar().showAll();
    }

    void panels()
    {
        run("Invoice Styling…");
        look(desk_.window, "styling");
        run("Invoice Styling…");
    }

    /// Opens a dialog by its command, looks at it and closes it.
    void dialog(const char* command)
    {
        run(command);
        QWidget* opened = QApplication::activeModalWidget();
        QVERIFY2(opened, command);
        look(*opened, command);
        opened->close();
    }

    void dialogs()
    {
        dialog("Search Commands…");
        dialog("Keyboard Shortcuts");
        dialog("Terms of Use");
        dialog("CSV…");
        run("New Invoice from Text…");
        auto* text = desk_.window.findChild<TextToInvoice*>();
        const auto* notice = text->findChild<QWidget*>(QStringLiteral("parser-notice"));
        QTRY_VERIFY(notice->isVisible()); // there is no model
        look(*text, "text to invoice");
        text->close();
    }

    void viewer()
    {
        ViewerWindow& window = desk_.window.openViewer();
        look(window, "empty viewer");
        const QTemporaryDir folder;
        const QString file = folder.filePath(QStringLiteral("received.xml"));
        const auto xml = XMLGenerator::generate(test::sampleInvoice(), Profile(),
                                                [](const QUuid&) { return std::nullopt; });
        QVERIFY(xml && test::writeFile(file, *xml));
        window.open({file});
        QVERIFY(window.currentTab());
        QSignalSpy shown(window.currentTab()->findChild<ViewerWebView*>(), &ViewerWebView::shown);
        QVERIFY(shown.wait());
        look(window, "viewer");
        window.close();
    }

    void settings()
    {
        SettingsWindow& window = desk_.window.openSettings();
        for (const SettingsPage& page : settingsPages()) {
            window.openPage(QString::fromLatin1(page.title));
            QTabWidget* tabs = nullptr;
            for (auto* each : window.findChildren<QTabWidget*>())
                tabs = each->isVisible() ? each : tabs;
            for (int tab = 0; tab < (tabs ? tabs->count() : 1); ++tab) {
                if (tabs)
                    tabs->setCurrentIndex(tab);
                look(window, QStringLiteral("settings %1 %2").arg(QString::fromLatin1(page.title)).arg(tab));
            }
        }
        window.close();
    }

    test::AccessibilityCheck& check_;
    test::Desk desk_;
};

} // namespace

/// The whole application by ear and by keyboard: every stop has a name and a role, no text is cut off, and
/// Tab goes on in reading order.
class AccessibilityTest : public test::Suite
{
    Q_OBJECT

private Q_SLOTS:
    void init() { test::failOnWindowWarnings(); }

    void everyScreen_data()
    {
        QTest::addColumn<QString>("language");
        QTest::newRow("English") << QStringLiteral("en");
        QTest::newRow("German") << QStringLiteral("de");
    }

    void everyScreen()
    {
        QFETCH(const QString, language);
        const test::ProgramHome home;
        home.enter();
        const Speech speech(language);
        QVERIFY(speech.isThere);
        test::AccessibilityCheck check;
        Tour(check).makeAll();
        QVERIFY2(check.findings.isEmpty(),
                 qPrintable(u'\n' + check.findings.join(u'\n') +
                            QStringLiteral("\n%1 findings").arg(check.findings.size())));
        QVERIFY(check.stops > 150); // the tour has not passed the screens by
    }

    /// What is looked for is found.
    void theCheckSees()
    {
        QWidget window;
        auto* below = new QPushButton(QStringLiteral("B"), &window); // Tab goes in the order of making
        auto* above = new QPushButton(QStringLiteral("A long word on a narrow button"), &window);
        auto* nameless = new QLineEdit(&window);
        above->setGeometry(0, 0, 40, 20);
        below->setGeometry(0, 40, 200, 20);
        nameless->setGeometry(0, 80, 200, 20);
        window.show();
        test::AccessibilityCheck check;
        check.look(window, QStringLiteral("test"));
        const QString all = check.findings.join(u'\n');
        QVERIFY2(all.contains(u"QLineEdit in QWidget has no name"), qPrintable(all));
        QVERIFY(all.contains(u"cuts its text “A long word"));
        QVERIFY(all.contains(u"comes after B in the tab order"));
        QCOMPARE(check.findings.size(), 3);
    }
};

const ledra::test::RegisterSuite<AccessibilityTest> registration("accessibility_test");

#include "accessibility_test.moc"
