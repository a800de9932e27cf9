#include "support/desk.h"
#include "support/named_widget.h"
#include "support/test_suite.h"
#include "ui/dialog_answers.h"
#include "ui/plugins/busy_bar.h"
#include "ui/plugins/install_dialog.h"
#include "ui/plugins/plugin_desk.h"
#include "ui/settings/plugins_page.h"
#include "ui/settings/settings_window.h"

#include <QComboBox>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QTreeWidget>
#include <QUndoStack>

using namespace ledra;
using test::named;

namespace {

PluginSetting pluginSetting()
{
    return {.runner = QStringLiteral(LEDRA_PLUGIN_RUNNER)};
}

const QByteArray manifest = R"({"name":"Office","version":"1.0","author":"Meridian","fileExtension":"txt"})";

const QByteArray allFour = R"(
    exports.exportInvoice = (invoice) => ({ fileName: "letter.txt", content: invoice.summary.name });
    exports.exportInvoices = (list) => list.map((each) => each.summary.name).sort().join("|");
    exports.importInvoices = (file) => file.content.split("|").map((name) => ({ recipient: { name } }));
    exports.updateInvoices = (list) => Object.fromEntries(list.map((each) => [each.id, each.status === "Sent" ?
        { recipient: { name: "not to be" }, status: "Paid" } : { recipient: { name: each.name + "!" } }]));)";

/// The window with its page of plugins, over the home that the environment names.
struct PluginsDesk : test::Desk, test::DialogAnswers
{
    PluginsDesk() : Desk(nullptr, pluginSetting())
    {
        QObject::connect(&window.parts().messages, &MessageBar::noted, &window,
                         [this](const QString& line) { notes += line; });
    }

    SettingsWindow& settings() { return window.openSettings(QStringLiteral("Plugins")); }
    QTreeWidget& list() { return *named<QTreeWidget>(settings(), "Plugins"); }
    PluginManager& plugins() { return app.pluginManager(); }

    /// What stands in the menu of plugins and can be done now: "Office: Update All".
    QStringList offered()
    {
        QStringList texts;
        for (const QAction* entry : window.commands().menu(Menu::plugins)->actions()) {
            for (const QAction* action : entry->menu() ? entry->menu()->actions() : QList<QAction*>()) {
                if (action->isEnabled())
                    texts += entry->text() + QStringLiteral(": ") + action->text();
            }
        }
        return texts;
    }

    /// The menus that can be seen in the bar.
    QString menus()
    {
        QStringList titles;
        for (const QAction* entry : window.menuBar()->actions()) {
            if (entry->isVisible())
                titles += entry->text().remove(u'&');
        }
        return titles.join(u' ');
    }

    void run(const char* operation)
    {
        for (QAction* action : window.commands().all()) {
            if (action->text() == QString::fromUtf8(operation))
                return action->trigger();
        }
        qFatal("Nothing offers %s", operation);
    }

    /// Drops files on a part of a window.
    static void drop(QWidget& target, const QString& path)
    {
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(path)});
        QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&target, &enter);
        QVERIFY(enter.isAccepted());
        QDropEvent event(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&target, &event);
    }

    /// All that a window shows in texts at the moment.
    static QString shown(const QWidget& part)
    {
        QStringList texts;
        for (const QLabel* label : part.findChildren<QLabel*>()) {
            if (label->isVisible())
                texts += label->text();
        }
        return texts.join(u'|');
    }

    QStringList names()
    {
        QStringList names;
        for (const InvoicePtr& record : app.invoiceManager().invoices())
            names += (*record)->name;
        names.sort();
        return names;
    }

    bool says(const char* text)
    {
        return QTest::qWaitFor([&] {
            const QString all = (notes + window.parts().messages.lines()).join(u'\n');
            return all.contains(QString::fromUtf8(text));
        });
    }

    QStringList notes;
};

} // namespace

/// Plugins in the window, as somebody uses them.
class PluginsTest : public test::Suite
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        test::failOnWindowWarnings();
        home_ = std::make_unique<test::ProgramHome>();
        home_->enter();
    }

    void dropsAreInstalledOnceConfirmed();
    void packagesComeOneAfterTheOther();
    void unusablePackagesAreRefused_data();
    void unusablePackagesAreRefused();
    void menusFollowTheSwitches();
    void importsAndUpdatesAreOneStep();
    void exportsToFiles();
    void lateAnswersMeetTheRightProfile();
    void failuresAreShownWhereTheyAreLookedFor();
    void runsAreCancelled();
    void rightsAndSettings();
    void removedAfterAQuestion();

private:
    QString package(const QString& id, const QByteArray& main, const QByteArray& description = manifest) const
    {
        const QString folder = home_->path(QStringLiteral("packages/%1.ledraplugin").arg(id));
        const bool isWritten = QDir().mkpath(folder) &&
                               test::writeFile(folder + QStringLiteral("/main.js"), main) &&
                               test::writeFile(folder + QStringLiteral("/plugin.json"), description);
        return isWritten ? folder : QString();
    }

    /// Installed without a question; waits until its entry points are known.
    bool install(PluginsDesk& desk, const QByteArray& main, const QByteArray& description = manifest) const
    {
        const auto installed =
            desk.plugins().install(package(QStringLiteral("office"), main, description), HostGrant::none);
        return installed && QTest::qWaitFor([&] { return desk.plugins().runtime(installed->id()).isLoaded; });
    }

    QString file(const char* name, const QByteArray& content) const
    {
        const QString path = home_->path(QString::fromLatin1(name));
        return test::writeFile(path, content) ? path : QString();
    }

    std::unique_ptr<test::ProgramHome> home_;
};

void PluginsTest::dropsAreInstalledOnceConfirmed()
{
    PluginsDesk desk;
    QVERIFY(PluginsDesk::shown(desk.settings())
                .contains(u"No plugins installed.|Add a .ledraplugin folder to get started."));
    const QString path = package(QStringLiteral("office"), allFour,
                                 R"({"name":"Office <b>&","version":"1.0","author":"Meridian","timer":30,)"
                                 R"("capabilities":["network:api.example.com","onOpen","of tomorrow"]})");
    PluginsDesk::drop(desk.window, path);
    auto* dialog = qobject_cast<InstallDialog*>(PluginsDesk::dialog());
    QVERIFY(dialog && desk.plugins().showInstallDialog);
    const QString question = PluginsDesk::shown(*dialog);
    for (const char* part :
         {"“Office <b>&”?", "Version 1.0 by Meridian", "|api.example.com", "every 30 minutes",
          "when the window opens", "of tomorrow (not known to this Ledra)"})
        QVERIFY2(question.contains(QString::fromUtf8(part)), qPrintable(question));
    QVERIFY(!question.contains(u"replaces"));
    (void)desk.answer({});
    QVERIFY(desk.plugins().plugins().empty() && !desk.plugins().showInstallDialog);

    PluginsDesk::drop(desk.window, path);
    QTest::keyClick(named<QCheckBox>(*PluginsDesk::dialog(), "Let it talk to these hosts"), Qt::Key_Space);
    (void)desk.answer(QStringLiteral("Install"));
    QCOMPARE(desk.list().topLevelItem(0)->text(0), QStringLiteral("Office <b>&"));
    QVERIFY(desk.plugins().grantedHosts(*desk.plugins().find(QStringLiteral("office"))).isEmpty());

    PluginsDesk::drop(*desk.settings().findChild<PluginsPage*>(), path);
    QVERIFY(PluginsDesk::shown(*PluginsDesk::dialog()).contains(u"installed, version 1.0"));
    (void)desk.answer(QStringLiteral("Replace"));
    QCOMPARE(desk.plugins().grantedHosts(*desk.plugins().find(QStringLiteral("office"))),
             QStringList{QStringLiteral("api.example.com")});
    QTRY_VERIFY(!desk.offered().isEmpty());
}

void PluginsTest::packagesComeOneAfterTheOther()
{
    PluginsDesk desk;
    const auto urlOf = [](const QString& path) { return QUrl::fromLocalFile(path); };
    desk.app.appDelegate().open({urlOf(package(QStringLiteral("first"), allFour, R"({"name":"First"})")),
                                 QUrl(QStringLiteral("ledra://foo/x.ledraplugin")),
                                 urlOf(package(QStringLiteral("second"), allFour, R"({"name":"Second"})"))});
    (void)desk.settings();
    for (const char* name : {"First", "Second"}) {
        QTRY_VERIFY(PluginsDesk::dialog() &&
                    PluginsDesk::shown(*PluginsDesk::dialog()).contains(QString::fromLatin1(name)));
        (void)desk.answer(QStringLiteral("Install"));
    }
    QCOMPARE(desk.list().topLevelItemCount(), 2);
    QVERIFY(PluginsDesk::shown(desk.settings()).contains(u"x.ledraplugin is no file of this computer."));
}

void PluginsTest::unusablePackagesAreRefused_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("script"); ///< which file of the package is not there
    QTest::addColumn<QString>("line");
    QTest::newRow("no manifest")
        << "office.ledraplugin"
        << "plugin.json"
        << "office.ledraplugin: The selected plugin is missing a plugin.json manifest.";
    QTest::newRow("no main module") << "office.ledraplugin"
                                    << "main.js"
                                    << "office.ledraplugin: Installed plugin is missing main.js.";
    QTest::newRow("gone") << "none.ledraplugin"
                          << ""
                          << "none.ledraplugin: no such file";
}

void PluginsTest::unusablePackagesAreRefused()
{
    QFETCH(QString, name);
    QFETCH(QString, script);
    QFETCH(QString, line);
    PluginsDesk desk;
    const QString folder = package(QStringLiteral("office"), "");
    QFile::remove(folder + u'/' + script);
    PluginsDesk::drop(desk.window, home_->path(QStringLiteral("packages/") + name));
    QTRY_COMPARE(desk.settings().parts().messages.lines(), QStringList{line});
    QVERIFY(!PluginsDesk::dialog() && desk.plugins().plugins().empty());
}

void PluginsTest::menusFollowTheSwitches()
{
    PluginsDesk desk;
    QCOMPARE(desk.menus(), QStringLiteral("File Edit Invoice View Help"));
    QVERIFY(install(desk, "exports.importInvoices = exports.updateInvoices = () => []"));
    QCOMPARE(desk.menus(), QStringLiteral("File Edit Invoice View Plugins Help"));
    QCOMPARE(desk.offered(), QStringList{QStringLiteral("Office: Import from File…")});
    desk.press("Ctrl+N");
    QCOMPARE(
        desk.offered(),
        (QStringList{QStringLiteral("Office: Import from File…"), QStringLiteral("Office: Update Selected"),
                     QStringLiteral("Office: Update All"), QStringLiteral("Office: Update All from File…")}));
    desk.list().setFocus();
    QTest::keyClick(&desk.list(), Qt::Key_Space);
    QTRY_VERIFY(!desk.plugins().isEnabled(QStringLiteral("office")));
    QCOMPARE(desk.offered(), QStringList());
    QCOMPARE(desk.menus(), QStringLiteral("File Edit Invoice View Help"));
    QVERIFY(PluginsDesk::shown(desk.settings()).contains(u"Nothing while it is switched off"));
    QTest::keyClick(&desk.list(), Qt::Key_Space);
    QTRY_COMPARE(desk.offered().size(), 4);
}

void PluginsTest::importsAndUpdatesAreOneStep()
{
    PluginsDesk desk;
    QVERIFY(install(desk, allFour));
    desk.run("Import from File…");
    (void)desk.answer(file("names.txt", "Ada|Berta|Cleo"));
    QVERIFY(desk.says("Office: 3 drafts were made"));
    QCOMPARE(desk.names(),
             (QStringList{QStringLiteral("Ada"), QStringLiteral("Berta"), QStringLiteral("Cleo")}));
    QVERIFY(desk.app.undoStack().undoText() == u"Import with Office" && desk.app.undoStack().count() == 1);
    desk.press("Ctrl+Z");
    QVERIFY(desk.names().isEmpty());
    desk.press("Ctrl+Shift+Z");
    QCOMPARE(desk.names().size(), 3);

    desk.window.reveal((*desk.app.invoiceManager().invoices().front())->id);
    desk.press("Ctrl+Alt+2"); // one of them is sent
    const InvoicePtr record = desk.selected();
    const QString sent = (*record)->name;
    desk.run("Update All");
    QVERIFY(desk.says("Office: 3 records were changed. "));
    QVERIFY(desk.says("is sent: only its status was changed"));
    QCOMPARE((*record)->status, Status::paid);
    QCOMPARE(desk.names().filter(QStringLiteral("!")).size(), 2);
    QVERIFY(desk.names().contains(sent));
    desk.press("Ctrl+Z");
    QCOMPARE((*record)->status, Status::sent);
    QCOMPARE(desk.names().filter(QStringLiteral("!")).size(), 0);

    desk.window.listPanel().list().selectAll();
    desk.press("Ctrl+Alt+1");
    desk.window.reveal((*desk.app.invoiceManager().invoices().front())->id);
    desk.run("Update Selected");
    QVERIFY(desk.says("Office: 1 records were changed"));
    QCOMPARE(desk.names().filter(QStringLiteral("!")).size(), 1);
}

void PluginsTest::exportsToFiles()
{
    PluginsDesk desk;
    QVERIFY(install(desk, allFour));
    for (const char* name : {"Ada", "Berta"}) {
        desk.press("Ctrl+N");
        QVERIFY(desk.type("Name", QString::fromLatin1(name)));
    }
    desk.run("Export Selected…");
    (void)desk.answer(home_->path(QStringLiteral("one.txt")));
    QCOMPARE(desk.proposed, QStringLiteral("letter.txt"));
    QTRY_COMPARE(test::contentOf(home_->path(QStringLiteral("one.txt"))), QByteArray("Berta"));

    desk.window.listPanel().list().selectAll();
    desk.run("Export Selected in One File…");
    (void)desk.answer(home_->path(QStringLiteral("list.txt")));
    QTRY_COMPARE(test::contentOf(home_->path(QStringLiteral("list.txt"))), QByteArray("Ada|Berta"));

    const QString folder = home_->path(QStringLiteral("letters"));
    QVERIFY(QDir().mkpath(folder));
    QVERIFY(test::writeFile(folder + QStringLiteral("/letter.txt"), "mine"));
    desk.run("Export Selected…");
    (void)desk.answer(folder);
    QVERIFY(desk.answer(QStringLiteral("Keep Both")).startsWith(u"1 of the files exist already"));
    QVERIFY(desk.says("2 documents exported"));
    QCOMPARE(test::contentOf(folder + QStringLiteral("/letter.txt")), QByteArray("mine"));
    QByteArrayList written = {test::contentOf(folder + QStringLiteral("/letter 2.txt")),
                              test::contentOf(folder + QStringLiteral("/letter 3.txt"))};
    std::ranges::sort(written);
    QCOMPARE(written.join('|'), QByteArray("Ada|Berta"));
}

/// What comes back after the profile was changed belongs to the other one.
void PluginsTest::lateAnswersMeetTheRightProfile()
{
    PluginsDesk desk;
    QVERIFY(install(desk, allFour));
    ProfileManager& profiles = desk.app.profileManager();
    const QUuid other = (**profiles.createProfile(QStringLiteral("Other")))->id;
    desk.run("Import from File…");
    (void)desk.answer(file("names.txt", "Ada"));
    profiles.resolveActiveProfile(other);
    QVERIFY(desk.says("another profile came into use while the plugin was at work"));
    QVERIFY(desk.names().isEmpty() && desk.app.undoStack().count() == 0);
}

void PluginsTest::failuresAreShownWhereTheyAreLookedFor()
{
    PluginsDesk desk;
    QVERIFY(install(desk,
                    "exports.importInvoices = () => { console.log('so far'); throw new Error('boom'); };"
                    "exports.updateInvoices = () => 7"));
    desk.press("Ctrl+N");
    desk.run("Update All");
    QVERIFY(desk.says("Office: the plugin returned what cannot be used"));
    desk.run("Import from File…");
    (void)desk.answer(file("x.txt", "x"));
    QVERIFY(desk.says("Office: boom (main.js:1)"));
    for (QPushButton* button : desk.window.parts().messages.findChildren<QPushButton*>())
        button->click(); // of the second line at last
    const auto* error = desk.settings().findChild<QLabel*>(QStringLiteral("plugin-last-error"));
    QVERIFY(error && error->isVisible());
    QCOMPARE(error->text(), QStringLiteral("boom (main.js:1)"));
    const QString log = named<QPlainTextEdit>(desk.settings(), "Log")->toPlainText();
    QVERIFY2(log.contains(u"so far") && log.endsWith(u"boom (main.js:1)"), qPrintable(log));
}

void PluginsTest::runsAreCancelled()
{
    PluginsDesk desk;
    QVERIFY(
        install(desk, "exports.exportInvoice = () => 'fine'; exports.exportInvoices = () => { for (;;); }"));
    desk.press("Ctrl+N");
    desk.run("Export All in One File…");
    QCOMPARE(desk.offered(), QStringList()); // one run at a time
    BusyBar& bar = desk.window.plugins().busyBar();
    QTRY_VERIFY(bar.isVisible());
    QVERIFY(PluginsDesk::shown(bar).contains(u"Office is at work…"));
    QVERIFY(desk.type("Name", QStringLiteral("Ada"))); // the window goes on
    QTest::mouseClick(named<QPushButton>(bar, "Cancel"), Qt::LeftButton);
    QVERIFY(!bar.isVisible() && desk.says("Office: cancelled"));
    QCOMPARE(desk.plugins().runtime(QStringLiteral("office")).lastError, QString());
    desk.run("Export Selected…");
    (void)desk.answer(home_->path(QStringLiteral("one.txt")));
    QTRY_COMPARE(test::contentOf(home_->path(QStringLiteral("one.txt"))), QByteArray("fine"));
}

void PluginsTest::rightsAndSettings()
{
    PluginsDesk desk;
    QVERIFY(install(desk, "exports.exportInvoice = (i, context) => typeof fetch + context.settings.rate",
                    R"({"name":"Office","capabilities":["network:api.example.com"]})"));
    SettingsWindow& settings = desk.settings();
    QTest::keyClick(named<QCheckBox>(settings, "May talk to api.example.com"), Qt::Key_Space);
    const Plugin* plugin = desk.plugins().find(QStringLiteral("office"));
    QTRY_COMPARE(desk.plugins().grantedHosts(*plugin).size(), 1);
    auto* text = named<QPlainTextEdit>(settings, "Settings");
    QTest::keyClicks(text, QStringLiteral("rate=80"));
    QTest::keyClick(text, Qt::Key_Return);
    QTest::keyClicks(text, QStringLiteral("vat"));
    QVERIFY(PluginsDesk::shown(settings).contains(u"“vat” is no KEY=VALUE"));
    QCOMPARE(desk.plugins().settings(QStringLiteral("office"))[u"rate"].toString(), QStringLiteral("80"));
    desk.press("Ctrl+N");
    QTRY_VERIFY(!desk.offered().isEmpty());
    desk.run("Export Selected…");
    (void)desk.answer(home_->path(QStringLiteral("one.txt")));
    QTRY_COMPARE(test::contentOf(home_->path(QStringLiteral("one.txt"))), QByteArray("function80"));

    QTest::keyClick(
        named<QCheckBox>(desk.settings(), "Check for updates when Ledra starts, and install them"),
        Qt::Key_Space);
    QVERIFY(desk.plugins().checksForUpdates());
    const auto* page = settings.findChild<PluginsPage*>();
    for (const QWidget* control : page->findChildren<QWidget*>()) {
        const auto* button = qobject_cast<const QAbstractButton*>(control);
        const bool isControl = button || qobject_cast<const QTreeWidget*>(control) ||
                               qobject_cast<const QPlainTextEdit*>(control) ||
                               qobject_cast<const QScrollArea*>(control);
        QVERIFY2(!isControl || !control->isVisibleTo(page) || !control->accessibleName().isEmpty(),
                 control->metaObject()->className());
    }
}

void PluginsTest::removedAfterAQuestion()
{
    PluginsDesk desk;
    QVERIFY(install(desk, allFour));
    SettingsWindow& settings = desk.settings();
    for (const char* button : {"Cancel", "Remove"}) {
        QCOMPARE(desk.plugins().plugins().size(), std::size_t{1});
        QTimer::singleShot(
            0, qApp, [button] { named<QPushButton>(*QApplication::activeModalWidget(), button)->click(); });
        QTest::mouseClick(named<QPushButton>(settings, "Remove…"), Qt::LeftButton);
    }
    QVERIFY(desk.plugins().plugins().empty() && desk.offered().isEmpty());
    QVERIFY(PluginsDesk::shown(settings).contains(u"No plugins installed."));
}

const test::RegisterSuite<PluginsTest> registration("plugins_test");

#include "plugins_test.moc"
