// Takes pictures of the window in every state that users see, one after another, on the display that it is
// given.
//   usage: screenshots light|dark FOLDER        with the environment of a home that scripts/sample-home has
//   filled

#include "einvoice/xml_generator.h"
#include "render/qt_web_engine.h"
#include "render/web_font_manager.h"
#include "support/model_answer.h"
#include "ui/console_text.h"
#include "ui/editor/editor_panel.h"
#include "ui/jobs/document_actions.h"
#include "ui/list/list_panel.h"
#include "ui/list/side_bar.h"
#include "ui/look/appearance.h"
#include "ui/look/interface_language.h"
#include "ui/main_window.h"
#include "ui/number_format/number_format_edit.h"
#include "ui/plugins/plugin_desk.h"
#include "ui/preview/preview_panel.h"
#include "ui/record_window.h"
#include "ui/settings/settings_window.h"
#include "ui/text/text_to_invoice.h"
#include "ui/viewer/viewer_window.h"
#include "ui/window_console.h"

#include <QApplication>
#include <QCheckBox>
#include <QDir>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QTest>
#include <QToolButton>

#include <cstdio>

namespace {

using namespace ledra;

class Photographer
{
public:
    Photographer(MainWindow& window, const QString& folder) : window_(window), folder_(folder) {}

    void takeAll()
    {
        take("list");
        choose(Status::draft);
        window_.openEditor();
        take("editor");
        scrollEditor(520);
        take("editor-items");
        scrollEditor(100'000);
        take("editor-end");
        takeEditorNumber();
        scrollEditor(0);
        choose(Status::sent);
        take("editor-locked");
        window_.toggleEditor();
        run("Filter");
        take("filter");
        run("Filter");
        run("Invoice Styling…");
        take("styling");
        run("Invoice Styling…");
        search(QStringLiteral("nothing of that kind"));
        take("nothing-found");
        search({});
        window_.listPanel().list().selectAll();
        take("several");
        choose(Status::draft);
        takeLists();
        takeDialogs();
        takePlugins();
        takeFirstStart();
        takeTexts();
        takeMessages();
        takeViewer();
    }

private:
    void take(const char* name)
    {
        constexpr int settling = 1500; // until the preview and the fonts stand
        QTest::qWait(settling);
        const QString path = QStringLiteral("%1/%2.png").arg(folder_, QString::fromLatin1(name));
        if (!window_.screen()->grabWindow(0).save(path))
            std::fprintf(stderr, "cannot write %s\n", qPrintable(path));
    }

    void run(const char* command) { window_.commands().action(command)->trigger(); }

    void choose(Status status)
    {
        for (const InvoicePtr& record : window_.parts().app.invoiceManager().invoices()) {
            if ((*record)->status == status && (*record)->type == InvoiceType::invoice) {
                window_.reveal((*record)->id);
                return;
            }
        }
    }

    void scrollEditor(int position)
    {
        window_.editor().findChild<QScrollArea*>()->verticalScrollBar()->setValue(position);
    }

    void search(const QString& text) { window_.listPanel().findChild<QLineEdit*>()->setText(text); }

    void takeLists()
    {
        auto* lists = window_.sideBar().findChild<QListWidget*>();
        constexpr int overdue = 3;
        constexpr int reminders = 7;
        lists->setCurrentRow(overdue);
        window_.listPanel().list().selectRow(1);
        take("overdue");
        lists->setCurrentRow(reminders);
        take("reminders");
        window_.sideBar().showAll();
        choose(Status::draft);
    }

    /// Runs a command that opens a dialog or a menu, takes its picture and closes it.
    void takeOpened(const char* command, const char* name)
    {
        run(command);
        take(name);
        while (QWidget* open = QApplication::activePopupWidget() ? QApplication::activePopupWidget()
                                                                 : QApplication::activeModalWidget())
            open->close();
        QTest::qWait(100);
    }

    void takeDialogs()
    {
        takeOpened("Search Commands…", "command-search");
        takeOpened("Keyboard Shortcuts", "shortcuts");
        takeOpened("CSV…", "csv");
        choose(Status::cancelled);
        takeOpened("Export as XRechnung…", "missing-fields");
        choose(Status::draft);
        takeOpened("Terms of Use", "terms");
        takeOpened("About", "about");
        SettingsWindow& settings = window_.openSettings();
        for (const SettingsPage& page : settingsPages()) {
            settings.openPage(QString::fromLatin1(page.title));
            take(QByteArray("settings-")
                     .append(QByteArray(page.title).toLower().replace(' ', '-'))
                     .constData());
        }
        takeNumbering(settings);
        settings.close();
        window_.commands().contextMenu()->popup(window_.mapToGlobal(QPoint(500, 260)));
        take("context-menu");
        window_.commands().contextMenu()->close();
        RecordWindow separate(window_.parts().app, window_.parts().engine, window_.parts().fonts,
                              window_.selected().front());
        separate.show();
        take("separate-window");
    }

    /// A package that wants something of everything, and takes its time.
    QString portal() const
    {
        const QString folder = packages_.filePath(QStringLiteral("portal.ledraplugin"));
        QDir().mkpath(folder);
        const auto write = [&](const char* name, const QByteArray& content) {
            QFile file(folder + u'/' + QString::fromLatin1(name));
            if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
                std::fprintf(stderr, "cannot write %s\n", qPrintable(file.fileName()));
        };
        write("plugin.json", R"({"name":"Client portal","version":"2.1","author":"Nordwind",
            "authorUrl":"https://nordwind.example","url":"https://github.com/nordwind/portal",
            "description":"Sends invoices to the portal of a client and fetches which of them are paid.",
            "capabilities":["network:portal.example.com","network:files.example.com","onOpen"],"timer":30})");
        write("main.js",
              "console.log('connected');"
              "exports.exportInvoices = () => { for (;;); };"
              "exports.updateInvoices = () => { throw new Error('The portal is closed today.') };");
        return folder;
    }

    void takePlugins()
    {
        SettingsWindow& settings = window_.openSettings(QStringLiteral("Plugins"));
        window_.parts().app.appDelegate().open({QUrl::fromLocalFile(portal())});
        take("plugin-install");
        qobject_cast<QDialog*>(QApplication::activeModalWidget())->accept();
        PluginManager& plugins = window_.parts().app.pluginManager();
        for (const char* name : {"bank-statement", "bookkeeping", "timesheet"})
            (void)plugins.install(
                QStringLiteral(LEDRA_EXAMPLES "/plugins/%1.ledraplugin").arg(QLatin1String(name)),
                HostGrant::none);
        (void)plugins.setEnabled(QStringLiteral("timesheet"), false);
        plugins.start();
        take("plugins");
        window_.openPluginSettings(QStringLiteral("portal"));
        take("plugin-failed");
        window_.openPluginSettings(QStringLiteral("bookkeeping"));
        take("plugin-detail");
        settings.close();
        window_.commands().menu(Menu::plugins)->popup(window_.mapToGlobal(QPoint(300, 200)));
        window_.commands()
            .menu(Menu::plugins)
            ->actions()
            .front()
            ->menu()
            ->popup(window_.mapToGlobal(QPoint(480, 200)));
        take("plugin-menu");
        while (QWidget* open = QApplication::activePopupWidget())
            open->close();
        window_.plugins().runs().start(QStringLiteral("portal"), PluginOperation::exportAll, {});
        take("plugin-busy");
        window_.plugins().runs().cancel();
    }

    /// A text of which the model has found the fields, and one without a model.
    void takeTexts()
    {
        const QString found = QStringLiteral(
            R"({"recipient":{"name":"Jule Ahlers","businessName":"Buchhandlung Ahlers","addressLineOne":"Ufergasse 5",)"
            R"("postcode":"23552","city":"Lübeck","countryCode":"DE"},"items":[{"description":"Gestaltung Schaufenster",)"
            R"("quantity":12.5,"unit":"hour","unitPrice":95},{"description":"Anfahrt","unitPrice":40,"vatPercentage":7}],)"
            R"("reference":"4711","currencyCode":"Euro"})");
        const test::ScriptedServer server(test::modelServer(test::streamed(test::eventsOf(found))));
        Settings& settings = window_.parts().app.settings();
        (void)settings.set(QStringLiteral("textParserEndpoint"), server.address(QStringLiteral("/v1")));
        TextToInvoice& panel = openTextToInvoice(window_);
        panel.setText(
            QStringLiteral("Bitte eine Rechnung an die Buchhandlung Ahlers, Jule Ahlers, Ufergasse 5, "
                           "23552 Lübeck:\n\n12,5 Stunden Gestaltung Schaufenster zu 95 Euro, Anfahrt "
                           "40 Euro (7 %).\nBestellung 4711\n\nViele Grüße\nJule"));
        QTest::qWait(300);
        for (QPushButton* button : panel.findChildren<QPushButton*>()) {
            if (button->shortcut() == QKeySequence(QStringLiteral("Ctrl+Return")))
                button->click();
        }
        take("text-to-invoice");
        panel.close();
        (void)settings.set(QStringLiteral("textParserEndpoint"), QStringLiteral("http://127.0.0.1:1/v1"));
        QTest::qWait(100);
        openTextToInvoice(window_);
        take("text-without-model");
        openTextToInvoice(window_).close();
    }

    /// The steps of the first start, of which each is left by the button at the right.
    void takeFirstStart()
    {
        run("Set Up Ledra…");
        QWidget* assistant = QApplication::activeModalWidget();
        auto* pages = assistant->findChild<QStackedWidget*>();
        pages->currentWidget()->findChild<QCheckBox*>()->setChecked(true);
        for (const char* name : {"first-start-terms", "first-start-sender", "first-start-bank",
                                 "first-start-taxes", "first-start-look"}) {
            take(name);
            for (QPushButton* button : assistant->findChildren<QPushButton*>()) {
                if (button->isDefault() && QByteArray(name) != "first-start-look")
                    button->click();
            }
        }
        assistant->close();
    }

    /// The number format, as it is, with a chip chosen, and with something wrong.
    void takeNumbering(SettingsWindow& settings)
    {
        constexpr int numbering = 2;
        settings.openPage(QStringLiteral("Profiles"));
        for (auto* tabs : settings.findChildren<QTabWidget*>()) {
            if (tabs->isVisible())
                tabs->setCurrentIndex(numbering);
        }
        auto* line = settings.findChild<ChipLineEdit*>();
        line->setFocus();
        QTest::keyClick(line, Qt::Key_End);
        QTest::keyClick(line, Qt::Key_Left, Qt::ShiftModifier);
        take("number-format");
        const QString before = line->source();
        QTest::keyClick(line, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(line, QStringLiteral("RE {VAR}{YY}{MM} {NNNN}"));
        take("number-format-problem");
        QTest::keyClick(line, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(line, before);
    }

    /// The part of the editor in which an invoice gets a format of its own.
    void takeEditorNumber()
    {
        auto* line = window_.editor().findChild<ChipLineEdit*>();
        for (QToolButton* toggle : window_.editor().findChildren<QToolButton*>()) {
            if (toggle->isCheckable() && toggle->parentWidget()->isAncestorOf(line))
                toggle->click();
        }
        window_.editor().findChild<QScrollArea*>()->ensureWidgetVisible(line, 0, 200);
        take("editor-number");
    }

    void takeMessages()
    {
        window_.parts().messages.warn(
            consoleText(QStringLiteral("Error saving invoice: No space left on device")));
        window_.parts().messages.note(QStringLiteral("2026-007.pdf"));
        take("messages");
    }

    /// The viewer empty, with a document, and with one that has a notice and attachments.
    void takeViewer()
    {
        const QTemporaryDir place;
        ViewerWindow& viewer = window_.openViewer();
        viewer.move(120, 20);
        take("viewer-empty");
        const InvoicePtr record = window_.parts().app.invoiceManager().invoices().front();
        const std::optional<QByteArray> xml =
            XMLGenerator::generate(**record, **window_.parts().app.profileManager().activeProfile(),
                                   [](const QUuid&) { return std::nullopt; });
        if (!xml)
            return;
        QByteArray other = *xml;
        const qsizetype due = other.indexOf("<ram:DuePayableAmount>") + 22;
        other.replace(due, other.indexOf('<', due) - due, "10.00");
        for (const char* name : {"Stundenzettel.pdf", "Abnahme Workshop.png", "Preise.zip"})
            other.insert(other.indexOf("</ram:ApplicableHeaderTradeAgreement>"),
                         QByteArray("<ram:AdditionalReferencedDocument><ram:AttachmentBinaryObject "
                                    "filename=\"") +
                             name +
                             "\">JVBERi0=</ram:AttachmentBinaryObject></ram:AdditionalReferencedDocument>");
        write(place.filePath(QStringLiteral("Rechnung 4711.xml")), *xml);
        write(place.filePath(QStringLiteral("rechnung_mit_anlagen.xml")), other);
        write(place.filePath(QStringLiteral("brief.xml")), "<letter/>");
        viewer.open({place.filePath(QStringLiteral("Rechnung 4711.xml"))});
        take("viewer");
        viewer.open({place.filePath(QStringLiteral("rechnung_mit_anlagen.xml"))});
        take("viewer-attachments");
        viewer.open({place.filePath(QStringLiteral("brief.xml")),
                     place.filePath(QStringLiteral("verschwunden.pdf"))});
        take("viewer-failures");
        if (QWidget* report = QApplication::activeModalWidget())
            report->close();
        viewer.close();
    }

    static void write(const QString& path, const QByteArray& content)
    {
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
            std::fprintf(stderr, "cannot write %s\n", qPrintable(path));
    }

    MainWindow& window_;
    QString folder_;
    QTemporaryDir packages_;
};

} // namespace

int main(int argc, char** argv)
{
    if (argc != 3) {
        std::fputs("usage: screenshots light|dark FOLDER\n", stderr);
        return 2;
    }
    QtWebEngine::prepare(true);
    int engineArgc = 1; // the engine reads the arguments of the program
    const QApplication application(engineArgc, argv);
    WindowConsole console;
    LedraApp app({.console = console, .plugins = {.runner = QStringLiteral(LEDRA_PLUGIN_RUNNER)}});
    const InterfaceLanguage language(app.settings());
    if (!app.settings().set(QStringLiteral("appearance"), QString::fromLocal8Bit(argv[1])))
        return 2;
    const AppearanceController appearance(app.settings());
    QtWebEngine engine;
    WebFontManager fonts;
    app.followFonts(fonts);
    MainWindow window(app, engine, fonts);
    window.move(0, 0);
    window.resize(window.screen()->size());
    window.show();
    const QString folder = QString::fromLocal8Bit(argv[2]);
    if (!QDir().mkpath(folder))
        return 1;
    Photographer(window, folder).takeAll();
    return 0;
}
