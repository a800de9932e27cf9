#include "einvoice/xml_generator.h"
#include "support/desk.h"
#include "support/named_widget.h"
#include "support/sample_invoice.h"
#include "support/test_suite.h"
#include "support/zip_of_entries.h"
#include "ui/dialog_answers.h"
#include "ui/look/message_bar.h"
#include "ui/look/toast.h"
#include "ui/settings/settings_window.h"
#include "ui/styling/logo_well.h"
#include "ui/styling/styling_panel.h"

#include <QDropEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QTabWidget>
#include <QTreeWidget>
#include <QUndoStack>

using namespace ledra;
using test::named;

namespace {

/// The window with the files that are dropped on it and chosen in its panels.
struct ExchangeDesk : test::Desk, test::DialogAnswers
{
    const Styling& styling() { return **app.stylingManager().styling(); }
    std::size_t profileCount() { return app.profileManager().profiles().size(); }
    QString activeProfile() { return (*app.profileManager().activeProfile())->displayName(); }
    MessageBar& messages() { return *window.centralWidget()->findChild<MessageBar*>(); }
    QString said() { return messages().lines().join(u'\n'); }
    QString noted() { return window.findChild<Toast*>()->text(); }

    void run(Menu menu, const char* text)
    {
        const QList<QAction*> entries = window.commands().menu(menu)->actions();
        const auto entry = std::ranges::find(entries, QString::fromUtf8(text), &QAction::text);
        QVERIFY(entry != entries.end());
        (*entry)->trigger();
    }

    /// The panel that has just been opened: what its button is called and which files it shows.
    static QString panel()
    {
        const auto* shown = qobject_cast<QFileDialog*>(dialog());
        return shown ? shown->labelText(QFileDialog::Accept) + u'|' + shown->nameFilters().join(u'|')
                     : QString();
    }

    void press(const QString& button)
    {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); // lines that were taken away
        QTest::mouseClick(named<QPushButton>(messages(), button.toUtf8().constData()), Qt::LeftButton);
    }
    using Desk::press;

    /// Moves files onto a place of the window, as a file manager does that would rather move them away.
    /// Returns what it is told to have happened to them.
    Qt::DropAction drop(const QStringList& files, const QWidget& place)
    {
        QMimeData data;
        QList<QUrl> urls;
        for (const QString& file : files)
            urls += QUrl::fromLocalFile(file);
        data.setUrls(urls);
        const QPoint point = place.mapTo(&window, place.rect().center());
        const Qt::DropActions offered = Qt::CopyAction | Qt::MoveAction;
        QDragEnterEvent entry(point, offered, &data, Qt::LeftButton, Qt::ShiftModifier);
        QCoreApplication::sendEvent(window.windowHandle(), &entry);
        QDropEvent event(point, offered, &data, Qt::LeftButton, Qt::ShiftModifier);
        if (entry.isAccepted())
            QCoreApplication::sendEvent(window.windowHandle(), &event);
        return entry.isAccepted() && event.isAccepted() ? event.dropAction() : Qt::IgnoreAction;
    }
    Qt::DropAction drop(const QStringList& files) { return drop(files, window.sideBar()); }
};

QByteArray received(const char* line)
{
    Invoice invoice = test::sampleInvoice();
    invoice.email = QStringLiteral("erika@example.de");
    invoice.items = {test::sampleItem(QString::fromUtf8(line), 2, Unit::hour, 80, 19)};
    return XMLGenerator::generate(invoice, Profile(), [](const QUuid&) { return std::nullopt; }).value();
}

} // namespace

/// Files in and out through the window: what it asks, what comes of it, what it says, and the way back.
class FileExchangeTest : public test::Suite
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        test::failOnWindowWarnings();
        home_ = std::make_unique<test::ProgramHome>();
        home_->enter();
    }

    void stylesGoOutAndIn()
    {
        ExchangeDesk desk;
        const QString file = home_->path(QStringLiteral("look.ledrastyle"));
        desk.run(Menu::exporting, "Export Style…");
        QVERIFY(ExchangeDesk::panel().startsWith(u"Export|"));
        QCOMPARE(desk.answer(file), QStringLiteral("Export Style"));
        QCOMPARE(desk.proposed, QStringLiteral("Default.ledrastyle"));
        QCOMPARE(desk.answer(QStringLiteral("OK")),
                 QStringLiteral("Export Failed|This profile has no styling to export yet.|OK"));
        QVERIFY(desk.app.undoableStyling().setStyleSheet(QStringLiteral("h1 {}"), EditKind::single));
        color(desk, "112233");
        desk.run(Menu::exporting, "Export Style…");
        (void)desk.answer(file);
        QCOMPARE(desk.said(), QStringLiteral("Exported: look.ledrastyle"));
        QVERIFY(desk.app.undoableStyling().setStyleSheet(QString(), EditKind::single));
        color(desk, "445566");
        desk.run(Menu::importing, "Import Style…");
        QCOMPARE(ExchangeDesk::panel(), QStringLiteral("Import|Ledra Style (*.ledrastyle)"));
        QCOMPARE(desk.answer(file), QStringLiteral("Choose the Style file you want to import"));
        const auto look = [&] {
            return desk.styling().primaryColor + desk.styling().css.value_or(QString());
        };
        QCOMPARE(look(), QStringLiteral("112233h1 {}"));
        QVERIFY(desk.noted().contains(u"“look.ledrastyle” is in use. “Undo” takes it back."));
        desk.press("Ctrl+Z");
        QCOMPARE(look(), QStringLiteral("445566"));
        desk.press("Ctrl+Shift+Z");
        QCOMPARE(look(), QStringLiteral("112233h1 {}"));
    }

    /// The large areas of the window have widgets of their own that could swallow what is dropped.
    void stylesAreDroppedAnywhere()
    {
        ExchangeDesk desk;
        const QString file =
            put("Mine.LEDRASTYLE", test::zipOf({{"styling.json", "{\"primaryColor\": \"112233\"}"}}));
        desk.press("Ctrl+N");
        QTRY_COMPARE_WITH_TIMEOUT(desk.window.previewPanel().preview().pageCount(), 1, 20'000);
        QWidget* field = QApplication::focusWidget(); // of the editor; it would enter the path
        QVERIFY(qobject_cast<QLineEdit*>(field));
        QCOMPARE(desk.drop({file}, *field), Qt::CopyAction);
        QVERIFY(desk.answer({}).startsWith(u"Do you want to use the style of"));
        QCOMPARE(qobject_cast<QLineEdit*>(field)->text(), QString());
        desk.press("Ctrl+Shift+Y");
        const int steps = desk.app.undoStack().index();
        auto* well = desk.window.styling().findChild<LogoWell*>();
        QTRY_VERIFY(!well->visibleRegion().isEmpty());
        for (const QWidget* place :
             std::initializer_list<QWidget*>{&desk.window.previewPanel().preview(), well}) {
            QCOMPARE(desk.drop({file}, *place), Qt::CopyAction);
            QVERIFY(desk.answer({}).startsWith(u"Do you want to use the style of “Mine.LEDRASTYLE”?|"));
        }
        QCOMPARE(desk.app.undoStack().index(), steps); // nothing comes of a question that is not answered
        QCOMPARE(desk.drop({file}), Qt::CopyAction);
        QVERIFY(desk.answer(QStringLiteral("Import")).endsWith(u"|Cancel,Import"));
        QCOMPARE(desk.styling().primaryColor, QStringLiteral("112233"));
        QCOMPARE(desk.app.undoStack().index(), steps + 1);
        QVERIFY(QFile::exists(file));
    }

    void failures_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QString>("message");
        const auto row = [](const char* kind, const char* name, const QByteArray& content,
                            const char* message) {
            QTest::newRow(kind) << QString::fromLatin1(name) << content << QString::fromUtf8(message);
        };
        const QByteArray other = test::zipOf({{"readme.txt", "x"}});
        const QByteArray outside = test::zipOf({{"../x", "x"}});
        row("no style file", "a.ledrastyle", "{}", "The selected file is not a valid Style file.");
        row("no styling", "a.ledrastyle", other, "The Style file doesn’t contain any styling.");
        row("hostile style", "a.ledrastyle", outside, "Failed to extract the Style file.");
        row("no data file", "a.ledradata", "{}", "The selected file is not a valid Ledra Data file.");
        row("no profile", "a.ledradata", other, "No valid profiles found in the Ledra Data file.");
        row("hostile data", "a.ledradata", outside, "Failed to extract the Ledra Data file.");
        row("anything else", "a.png", "x", "The selected file is not a valid Ledra Data file.");
        row("no PDF", "a.pdf", "%PDF-1.4", "Could not open the selected PDF.");
        row("no e-invoice", "a.xml", "<note/>", "This file does not appear to be a valid e-invoice.");
    }

    /// One alert, with that text alone; nothing has changed and nothing is to be taken back.
    void failures()
    {
        QFETCH(const QString, name);
        QFETCH(const QByteArray, content);
        QFETCH(const QString, message);
        ExchangeDesk desk;
        desk.drop({put(name.toLatin1().constData(), content)});
        const bool isAsked = !name.endsWith(u".pdf") && !name.endsWith(u".xml");
        if (isAsked)
            QVERIFY(desk.answer(QStringLiteral("Import")).contains(u'“' + name + u'”'));
        const QString said = desk.answer(QStringLiteral("OK"));
        QVERIFY2(said.startsWith(QStringLiteral("Import Failed|%1|OK").arg(message)), qPrintable(said));
        QVERIFY(!test::DialogAnswers::dialog());
        QVERIFY(!desk.app.undoStack().canUndo() && desk.said().isEmpty());
        QCOMPARE(desk.profileCount(), std::size_t(1));
        const bool isLogged =
            desk.console.failures.join(u'\n').contains(QStringLiteral("Import failed: ") + message);
        QCOMPARE(isLogged, isAsked && !name.endsWith(u".ledrastyle"));
    }

    void profilesComeInAndGoAgain()
    {
        ExchangeDesk desk;
        const QString file = home_->path(QStringLiteral("mine.ledradata"));
        QVERIFY(desk.app.profileExporter().writeAll(file, Overwrite::refuse));
        desk.drop({file});
        QCOMPARE(desk.answer(QStringLiteral("Cancel")),
                 QStringLiteral("Do you want to import profiles from “mine.ledradata”?|They are added beside "
                                "the profiles that you have.|Cancel,Import"));
        QCOMPARE(desk.profileCount(), std::size_t(1));
        desk.drop({file});
        (void)desk.answer(QStringLiteral("Import"));
        QCOMPARE(desk.said(), QStringLiteral("Imported profiles: Default Copy"));
        QCOMPARE(desk.activeProfile(), QStringLiteral("Default"));
        desk.press(QStringLiteral("Use"));
        QCOMPARE(desk.activeProfile(), QStringLiteral("Default Copy"));
        desk.run(Menu::importing, "Import Profiles…");
        QCOMPARE(ExchangeDesk::panel(), QStringLiteral("Import|Ledra Data (*.ledradata)"));
        QCOMPARE(desk.answer(file), QStringLiteral("Choose the Ledra Data file you want to import"));
        QCOMPARE(desk.said(), QStringLiteral("Imported profiles: Default Copy 2"));
        desk.press(QStringLiteral("Take Back"));
        QCOMPARE(desk.profileCount(), std::size_t(2));
        QVERIFY(!QFile::exists(home_->data(QStringLiteral("3_Default Copy 2"))));
        QVERIFY(desk.said().isEmpty());
    }

    void someProfilesFail()
    {
        ExchangeDesk desk;
        desk.drop({put("two.ledradata",
                       test::zipOf({{"1_Good/profile.json", "{}"}, {"2_Bad/profile.json", "{"}}))});
        (void)desk.answer(QStringLiteral("Import"));
        const QString said = desk.answer(QStringLiteral("OK"));
        QVERIFY2(
            said.startsWith(u"Import Completed with Issues|Successfully imported 1 profile(s).\nFailed to "
                            "import 1 profile(s).|OK"),
            qPrintable(said));
        QCOMPARE(desk.profileCount(), std::size_t(2));
    }

    void profilesGoOut_data()
    {
        QTest::addColumn<QString>("command");
        QTest::addColumn<QString>("title");
        QTest::addColumn<QString>("start"); ///< of the proposed name
        QTest::newRow("all") << "All Profiles" << "Export All Profiles" << "Profiles ";
        QTest::newRow("active") << "Default" << "Export Profile" << "Default ";
    }

    void profilesGoOut()
    {
        QFETCH(const QString, command);
        QFETCH(const QString, title);
        QFETCH(const QString, start);
        ExchangeDesk desk;
        const QString file = home_->path(QStringLiteral("out.ledradata"));
        for (const QString& target : {QStringLiteral("/sys/out.ledradata"), file}) {
            desk.run(Menu::exportProfiles, command.toUtf8().constData());
            QVERIFY(ExchangeDesk::panel().startsWith(u"Export|"));
            QCOMPARE(desk.answer(target), title);
            const QRegularExpression name(start + QStringLiteral("\\d{4}-\\d\\d-\\d\\d\\.ledradata"));
            QVERIFY2(name.match(desk.proposed).hasMatch(), qPrintable(desk.proposed));
            if (target != file)
                QVERIFY(desk.answer(QStringLiteral("OK")).startsWith(u"Export Failed|/sys/"));
        }
        QCOMPARE(desk.said(), QStringLiteral("Exported: out.ledradata"));
        QVERIFY(test::contentOf(file).startsWith("PK"));
    }

    /// Documents that come together are one step; those that cannot be read are named.
    void documentsAreOneStep()
    {
        ExchangeDesk desk;
        const QStringList bad = {put("one.xml", "<note/>"), put("two.xml", "<note/>")};
        desk.drop(bad);
        const QString reason = QStringLiteral(": This file does not appear to be a valid e-invoice.");
        QCOMPARE(desk.answer(QStringLiteral("OK")),
                 QStringLiteral("Import Failed|one.xml%1\ntwo.xml%1|OK").arg(reason));
        QCOMPARE(desk.app.undoStack().count(), 0);
        desk.drop({put("three.xml", received("Satz")), bad[0], put("four.xml", received("Druck"))});
        QCOMPARE(desk.answer(QStringLiteral("OK")), QStringLiteral("Import Failed|one.xml%1|OK").arg(reason));
        QVERIFY(desk.noted().startsWith(u"2 documents imported."));
        QCOMPARE(desk.model().recordCount(), std::size_t(2));
        QCOMPARE(desk.invoice().items.front().item, QStringLiteral("Druck")); // what came last is shown
        desk.press("Ctrl+Z");
        QCOMPARE(desk.model().recordCount(), std::size_t(0));
    }

    void backupsComeBackBesideTheRest()
    {
        ExchangeDesk desk;
        desk.press("Ctrl+N"); // from now on there is something to be beside
        SettingsWindow& settings = desk.window.openSettings(QStringLiteral("Data"));
        auto* tabs = settings.findChild<QTabWidget*>();
        tabs->setCurrentIndex(1);
        QTest::mouseClick(named<QPushButton>(settings, "Back Up Now"), Qt::LeftButton);
        const QString folder = desk.app.backupManager().folder();
        QVERIFY(test::writeFile(folder + QStringLiteral("/Backup-2020-01-01.ledradata"), "x"));
        tabs->setCurrentIndex(0);
        tabs->setCurrentIndex(1); // shows what is there by now
        auto* backups = named<QTreeWidget>(settings, "Backups");
        const auto restore = [&](bool isBroken) {
            for (int row = 0; row < backups->topLevelItemCount(); ++row) {
                if (backups->topLevelItem(row)->text(2).contains(u"2020") == isBroken)
                    backups->setCurrentItem(backups->topLevelItem(row));
            }
            QTest::mouseClick(named<QPushButton>(*tabs->widget(1), "Restore"), Qt::LeftButton);
        };
        restore(true);
        QVERIFY(desk.answer(QStringLiteral("OK"))
                    .startsWith(u"Import Failed|The selected file is not a valid Ledra Data file.|OK"));
        QVERIFY(desk.console.failures.join(u'\n').contains(u"Import failed: The selected file is not"));
        QCOMPARE(desk.profileCount(), std::size_t(1));
        restore(false);
        auto* messages = settings.findChild<MessageBar*>();
        QCOMPARE(messages->lines(), QStringList{QStringLiteral("Imported profiles: Default Copy")});
        QTest::mouseClick(named<QPushButton>(*messages, "Take Back"), Qt::LeftButton);
        QCOMPARE(desk.profileCount(), std::size_t(1));
        QCOMPARE(desk.model().recordCount(), std::size_t(1));
    }

private:
    QString put(const char* name, const QByteArray& content) const
    {
        const QString path = home_->path(QString::fromLatin1(name));
        return test::writeFile(path, content) ? path : QString();
    }

    static void color(ExchangeDesk& desk, const char* color)
    {
        desk.app.undoableStyling().edit(
            [&](Styling& styling) { styling.primaryColor = QString::fromLatin1(color); }, EditKind::single);
        QVERIFY(desk.app.stylingManager().save());
    }

    std::unique_ptr<test::ProgramHome> home_;
};

const ledra::test::RegisterSuite<FileExchangeTest> registration("file_exchange_test");

#include "file_exchange_test.moc"
