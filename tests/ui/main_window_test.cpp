#include "support/desk.h"
#include "support/test_suite.h"
#include "ui/list/filter_bar.h"
#include "ui/look/status_colors.h"
#include "ui/settings/kept_tabs.h"
#include "ui/window_console.h"

#include <QHeaderView>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTranslator>
#include <QUndoStack>
#include <QWebEnginePage>
#include <QWebEngineView>

#include <csignal>

using namespace ledra;
using test::Desk;

namespace {

/// The computer's file system, as long as there is no reason against writing.
class RefusingDevice : public SystemFileDevice
{
public:
    QString reason;

    std::expected<void, FileError> write(const QString& path, const QByteArray& content) override
    {
        return reason.isEmpty() ? SystemFileDevice::write(path, content) : refused(path);
    }
    std::expected<void, FileError> rename(const QString& from, const QString& to) override
    {
        return reason.isEmpty() ? SystemFileDevice::rename(from, to) : refused(to);
    }

private:
    std::unexpected<FileError> refused(const QString& path) const
    {
        return std::unexpected(FileError{path, reason});
    }
};

/// What all windows show at present, as far as it is text outside of the page.
QString shownTexts()
{
    QStringList texts;
    for (const QWidget* widget : QApplication::allWidgets()) {
        if (!widget->isVisible())
            continue;
        for (const char* name : {"text", "plainText", "currentText", "windowTitle"})
            texts += widget->property(name).toString();
        const auto* view = qobject_cast<const QAbstractItemView*>(widget);
        const QAbstractItemModel* model = view ? view->model() : nullptr;
        for (int row = 0; model && row < model->rowCount(); ++row) {
            for (int column = 0; column < model->columnCount(); ++column)
                texts += model->index(row, column).data().toString();
        }
    }
    return texts.join(u'\n');
}

} // namespace

class MainWindowTest : public test::Suite
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        test::failOnWindowWarnings();
        home_ = std::make_unique<test::ProgramHome>();
        home_->enter();
    }

    void makesShowsAndTakesBack()
    {
        Desk desk;
        QSignalSpy shown(&desk.window.previewPanel().preview(), &DocumentPreview::shown);
        desk.press("Ctrl+N");
        QCOMPARE(desk.model().recordCount(), std::size_t(1));
        QVERIFY(desk.row(0).endsWith(u"Draft"));
        QVERIFY(desk.window.selected().size() == 1);
        QTRY_COMPARE_WITH_TIMEOUT(desk.window.previewPanel().preview().pageCount(), 1, 20'000);
        desk.press("Ctrl+D");
        QCOMPARE(desk.model().recordCount(), std::size_t(2));
        desk.press("Ctrl+Alt+2");
        QVERIFY(desk.row(0).endsWith(u"Sent"));
        QTRY_COMPARE(desk.lists()->item(2)->data(Qt::AccessibleTextRole).toString(),
                     QStringLiteral("Sent, 1"));
        for (int step = 0; step < 3; ++step)
            desk.press("Ctrl+Z");
        QCOMPARE(desk.model().recordCount(), std::size_t(0));
        desk.press("Ctrl+Shift+Z");
        QCOMPARE(desk.model().recordCount(), std::size_t(1));
        QVERIFY(desk.console.failures.isEmpty());
    }

    /// What a step brings back is chosen, and else what the step started from.
    void choosesWhatAStepConcerns()
    {
        Desk desk;
        desk.press("Ctrl+N");
        const QUuid original = desk.invoice().id;
        desk.press("Ctrl+D");
        const QUuid copy = desk.invoice().id;
        QVERIFY(copy != original);
        desk.press("Ctrl+Z");
        QVERIFY(desk.selected());
        QCOMPARE(desk.invoice().id, original);
        desk.press("Ctrl+Shift+Z");
        QVERIFY(desk.selected());
        QCOMPARE(desk.invoice().id, copy);
        desk.list().selectAll();
        desk.window.commands().action("Delete")->trigger();
        QCOMPARE(desk.model().recordCount(), std::size_t(0));
        desk.press("Ctrl+Z");
        QCOMPARE(desk.window.selected().size(), std::size_t(2));
    }

    /// A key that deletes words there never deletes the record.
    void textFieldsKeepTheirKeys()
    {
        Desk desk;
        desk.press("Ctrl+N");
        QVERIFY(desk.type("Name", QStringLiteral("Jonas Ahlers")));
        auto* name = desk.field<QLineEdit>("Name");
        auto* note = desk.field<QPlainTextEdit>("Note");
        note->setPlainText(QStringLiteral("Many thanks"));
        note->moveCursor(QTextCursor::End);
        for (QWidget* field : std::initializer_list<QWidget*>{name, note}) {
            field->setFocus();
            QTest::keyClick(field, Qt::Key_Backspace, Qt::ControlModifier);
            QCOMPARE(desk.model().recordCount(), std::size_t(1));
        }
        QCOMPARE(name->text(), QStringLiteral("Jonas "));
        QCOMPARE(note->toPlainText(), QStringLiteral("Many "));
        desk.list().setFocus();
        QTest::keyClick(&desk.list(), Qt::Key_Backspace, Qt::ControlModifier);
        QCOMPARE(desk.model().recordCount(), std::size_t(0));
    }

    void listsAndSearch()
    {
        Desk desk;
        for (const char* name : {"Jonas Ahlers", "Mia Petersen"}) {
            desk.press("Ctrl+N");
            QVERIFY(desk.type("Name", QString::fromLatin1(name)));
        }
        desk.press("Ctrl+Alt+3");
        QTRY_COMPARE(desk.lists()->item(4)->data(Qt::AccessibleTextRole).toString(),
                     QStringLiteral("Paid, 1"));
        desk.lists()->setCurrentRow(4);
        QCOMPARE(desk.model().recordCount(), std::size_t(1));
        QVERIFY(desk.row(0).contains(u"Mia Petersen"));
        desk.lists()->setCurrentRow(0);
        desk.press("Ctrl+F");
        auto* search = qobject_cast<QLineEdit*>(QApplication::focusWidget());
        QVERIFY(search);
        QTest::keyClicks(search, QStringLiteral("jona"));
        QCOMPARE(desk.model().recordCount(), std::size_t(1));
        QVERIFY(desk.row(0).contains(u"Jonas Ahlers"));
        desk.lists()->setCurrentRow(4); // the search goes on in the other list
        QCOMPARE(desk.model().recordCount(), std::size_t(0));
    }

    void ordersAndGroups()
    {
        Desk desk;
        const QDate days[] = {QDate(2026, 3, 5), QDate(2026, 3, 20), QDate(2025, 12, 31)};
        const char* names[] = {"Berta", "Anton", "Cäsar"};
        for (int i = 0; i < 3; ++i) {
            desk.press("Ctrl+N");
            QVERIFY(desk.window.jobs().edit(
                desk.invoice().id,
                [&](Invoice& invoice) {
                    invoice.name = QString::fromUtf8(names[i]);
                    invoice.date = Timestamp::fromDateTime(QDateTime(days[i], QTime(12, 0)));
                },
                EditKind::single));
        }
        QCOMPARE(desk.model().headings(), (std::vector<int>{0, 3}));
        QCOMPARE(desk.model().index(0, 0).data().toString(), QStringLiteral("March 2026"));
        QVERIFY(!(desk.model().flags(desk.model().index(0, 0)) & Qt::ItemIsSelectable));
        desk.list().sortByColumn(InvoiceTableModel::recipient, Qt::AscendingOrder);
        QVERIFY(desk.model().headings().empty());
        QVERIFY(desk.row(0).contains(u"Anton") && desk.row(2).contains(u"Cäsar"));
        desk.list().sortByColumn(InvoiceTableModel::recipient, Qt::DescendingOrder);
        QVERIFY(desk.row(0).contains(u"Cäsar"));
    }

    /// The list gives room to the editor, and shows whom, how much and how it stands.
    void makesRoomForTheEditor()
    {
        Desk desk;
        desk.window.resize(1400, 800);
        desk.press("Ctrl+N");
        QTRY_VERIFY(desk.list().viewport()->width() < 480);
        QTRY_VERIFY(desk.list().isColumnHidden(InvoiceTableModel::date));
        QVERIFY(desk.list().columnWidth(InvoiceTableModel::recipient) >= 80);
        desk.press("Ctrl+Return");
        QTRY_VERIFY(!desk.list().isColumnHidden(InvoiceTableModel::date));
    }

    /// Beside the editor the side bar gives way, nothing is cut off, and all comes back.
    void fitsANarrowWindow()
    {
        constexpr int narrow = 960;
        Desk desk;
        desk.window.resize(1400, 800);
        desk.press("Ctrl+N");
        desk.press("Ctrl+Shift+F");
        desk.window.parts().messages.warn(QStringLiteral("/somewhere").repeated(30));
        desk.window.resize(narrow, 700);
        QTRY_VERIFY(desk.window.sideBar().isHidden());
        QTRY_COMPARE(desk.window.minimumSizeHint().width() <= narrow, true);
        QCOMPARE(desk.window.width(), narrow);
        QVERIFY(desk.editor().isVisible());
        QTRY_VERIFY(desk.window.parts().messages.height() < 120);

        const InvoiceListView& list = desk.list();
        QTRY_COMPARE(list.horizontalHeader()->length(), list.viewport()->width());
        for (const StatusLook& look : statusLooks())
            QVERIFY(list.columnWidth(InvoiceTableModel::status) >
                    list.fontMetrics().horizontalAdvance(look.displayText()));
        const auto* filter = desk.window.listPanel().findChild<FilterBar*>();
        for (const QComboBox* box : filter->findChildren<QComboBox*>())
            QTRY_VERIFY(!box->isVisible() || (filter->rect().contains(box->geometry()) && box->width() > 90));

        desk.press("F9"); // the side bar instead of the editor
        QVERIFY(desk.window.sideBar().isVisible() && !desk.editor().isVisible());
        desk.press("Ctrl+Return");
        QVERIFY(desk.window.sideBar().isHidden() && desk.editor().isVisible());
        desk.window.resize(1400, 800);
        QTRY_VERIFY(desk.window.sideBar().isVisible());
        QTRY_VERIFY(desk.list().width() >= 380);
        desk.press("Ctrl+Return");
        QTRY_VERIFY(!desk.list().isColumnHidden(InvoiceTableModel::date));
    }

    /// What is said of a conflict leads to it.
    void leadsToConflicts()
    {
        Desk desk;
        WindowConsole console;
        desk.window.follow(console);
        console.failure(QStringLiteral("/far/away/record.json: changed by somebody else meanwhile; that "
                                       "version is kept as conflict 3"));
        MessageBar& messages = desk.window.parts().messages;
        QCOMPARE(messages.lines().size(), 1);
        QVERIFY2(messages.lines()[0].startsWith(u"“record.json”") && messages.lines()[0].contains(u'3'),
                 qPrintable(messages.lines()[0]));
        messages.findChild<QPushButton*>()->click();
        const auto* tab = desk.window.findChild<ConflictsTab*>();
        QVERIFY(tab && tab->isVisible());
    }

    void looksAsItWasLeft()
    {
        QUuid selected;
        {
            Desk desk;
            desk.press("Ctrl+N");
            desk.press("Ctrl+N");
            desk.list().reveal((*desk.app.invoiceManager().invoices().back())->id);
            selected = desk.invoice().id;
            desk.list().sortByColumn(InvoiceTableModel::total, Qt::AscendingOrder);
            desk.window.resize(1411, 766);
            desk.window.previewPanel().actualSize();
            desk.window.close();
        }
        Desk again;
        QCOMPARE(again.window.size(), QSize(1411, 766));
        QCOMPARE(again.invoice().id, selected);
        QVERIFY(again.window.isEditorOpen());
        QCOMPARE(again.list().horizontalHeader()->sortIndicatorSection(), int(InvoiceTableModel::total));
        QCOMPARE(again.window.previewPanel().preview().zoom(), 96.0 / 72.0);
    }

    /// A second process changes the record on screen, and then makes one.
    void followsAnotherProcess()
    {
        Desk desk;
        desk.press("Ctrl+N");
        const QString id = desk.invoice().id.toString(QUuid::WithoutBraces);
        QCOMPARE(test::runProgram({QStringLiteral("set"), id, QStringLiteral("recipient.name=From Outside")})
                     .exitCode,
                 0);
        QTRY_VERIFY_WITH_TIMEOUT(desk.row(0).contains(u"From Outside"), 10'000);
        QCOMPARE(desk.field<QLineEdit>("Name")->text(), QStringLiteral("From Outside"));
        QCOMPARE(test::runProgram({QStringLiteral("new"), QStringLiteral("quote")}).exitCode, 0);
        QTRY_COMPARE_WITH_TIMEOUT(desk.model().recordCount(), std::size_t(2), 10'000);
        QCOMPARE(desk.invoice().id.toString(QUuid::WithoutBraces), id); // what was chosen stays chosen
    }

    /// The engine's process dies under the preview: it says so once and comes back.
    void survivesADeadEngine()
    {
        Desk desk;
        desk.press("Ctrl+N");
        DocumentPreview& preview = desk.window.previewPanel().preview();
        QTRY_COMPARE_WITH_TIMEOUT(preview.pageCount(), 1, 20'000);
        QSignalSpy interrupted(&preview, &DocumentPreview::interrupted);
        QSignalSpy shown(&preview, &DocumentPreview::shown);
        for (const QWebEngineView* view : preview.findChildren<QWebEngineView*>())
            QCOMPARE(::kill(static_cast<pid_t>(view->page()->renderProcessPid()), SIGKILL), 0);
        QVERIFY(interrupted.wait(10'000));
        QVERIFY(shown.wait(20'000));
        QCOMPARE(preview.pageCount(), 1);
        QVERIFY(desk.type("Name", QStringLiteral("Still here")));
        QVERIFY(shown.wait(20'000));
        QCOMPARE(desk.window.parts().messages.lines().size(), 1);
    }

    /// Typing goes on while the folder is gone; everything is written once it is back.
    void keepsWhatIsTypedWithoutTheFolder()
    {
        Desk desk;
        desk.press("Ctrl+N");
        const QString file = desk.app.invoiceManager().filePath(desk.invoice().id);
        const QString folder = QFileInfo(file).path();
        QVERIFY(QFile::rename(folder, folder + QStringLiteral("-away")));
        QVERIFY(test::writeFile(folder, "in the way"));
        QVERIFY(desk.type("Name", QStringLiteral("Typed in the dark")));
        QTRY_VERIFY_WITH_TIMEOUT(!desk.console.failures.isEmpty(), 5'000);
        QCOMPARE(desk.invoice().name, QStringLiteral("Typed in the dark"));
        QVERIFY(QFile::remove(folder));
        QVERIFY(QFile::rename(folder + QStringLiteral("-away"), folder));
        QVERIFY(desk.type("City", QStringLiteral("Kiel")));
        QTRY_VERIFY_WITH_TIMEOUT(
            test::runProgram({QStringLiteral("show"), desk.invoice().id.toString(QUuid::WithoutBraces)})
                .output.contains("Typed in the dark"),
            10'000);
    }

    void worksOnADeviceThatRefuses_data()
    {
        QTest::addColumn<QString>("reason");
        QTest::newRow("full") << "No space left on device";
        QTest::newRow("read-only") << "Read-only file system";
    }

    /// What is typed stays, the window says once what is wrong, and all is written as soon as it can be.
    void worksOnADeviceThatRefuses()
    {
        QFETCH(QString, reason);
        RefusingDevice device;
        Desk desk(&device);
        WindowConsole console;
        desk.window.follow(console);
        desk.press("Ctrl+N");
        device.reason = reason;
        QVERIFY(desk.type("Name", QStringLiteral("Kept")));
        QTRY_VERIFY_WITH_TIMEOUT(!desk.console.failures.isEmpty(), 5'000);
        QVERIFY2(desk.console.failures.constLast().contains(reason),
                 qPrintable(desk.console.failures.constLast()));
        QTranslator german;
        QVERIFY(german.load(QStringLiteral(":/translations/ledra_de.qm")));
        QCoreApplication::installTranslator(&german);
        for (int i = 0; i < 3; ++i)
            console.failure(desk.console.failures.constLast());
        console.failure(QStringLiteral("Import failed: x")); // an alert says it
        const QStringList told = desk.window.parts().messages.lines();
        QCOMPARE(told.size(), 1);
        QVERIFY2(told[0].startsWith(u"Die Rechnung konnte nicht gespeichert werden: ") &&
                     told[0].contains(reason),
                 qPrintable(told[0]));
        QCoreApplication::removeTranslator(&german);
        QVERIFY(desk.type("City", QStringLiteral("Kiel")));
        QCOMPARE(desk.invoice().name + desk.invoice().addressCity, QStringLiteral("KeptKiel"));
        device.reason.clear();
        const QString id = desk.invoice().id.toString(QUuid::WithoutBraces);
        QTRY_VERIFY_WITH_TIMEOUT(test::runProgram({QStringLiteral("show"), id}).output.contains("Kiel"),
                                 10'000);
    }

    /// The editor, a record's own window, the styling, the settings and the preview turn to the other
    /// profile.
    void profilesChangeWhileWindowsAreOpen()
    {
        Desk desk;
        desk.press("Ctrl+N");
        QVERIFY(desk.type("Name", QStringLiteral("Jonas Ahlers")));
        desk.app.undoableStyling().edit(
            [](Styling& styling) { styling.primaryColor = QStringLiteral("12AB34"); }, EditKind::single);
        for (const char* shortcut : {"Ctrl+Shift+Return", "Ctrl+Shift+Y", "Ctrl+,"})
            desk.press(shortcut);
        const DocumentPreview& preview = desk.window.previewPanel().preview();
        QTRY_COMPARE_WITH_TIMEOUT(preview.pageCount(), 1, 20'000);
        const QString before = shownTexts();
        QVERIFY(before.count(u"Jonas Ahlers") >= 3); // list, editor, the record's window
        QVERIFY(before.contains(u"12AB34", Qt::CaseInsensitive));

        ProfileManager& profiles = desk.app.profileManager();
        const QUuid first = (**profiles.activeProfile()).id;
        profiles.resolveActiveProfile((**profiles.createProfile(QStringLiteral("Other")))->id);
        QTRY_COMPARE(preview.pageCount(), 0);
        const QString other = shownTexts();
        QVERIFY2(!other.contains(u"Jonas Ahlers"), qPrintable(other));
        QVERIFY2(!other.contains(u"12AB34", Qt::CaseInsensitive), qPrintable(other));
        QCOMPARE(desk.lists()->item(0)->data(Qt::AccessibleTextRole).toString(), QStringLiteral("All, 0"));
        QVERIFY(!desk.app.undoStack().canUndo());

        profiles.resolveActiveProfile(first);
        QTRY_COMPARE_WITH_TIMEOUT(preview.pageCount(), 1, 20'000);
        QVERIFY(shownTexts().contains(u"Jonas Ahlers"));
        QVERIFY(shownTexts().contains(u"12AB34", Qt::CaseInsensitive));
    }

private:
    std::unique_ptr<test::ProgramHome> home_;
};

const ledra::test::RegisterSuite<MainWindowTest> registration("main_window_test");

#include "main_window_test.moc"
