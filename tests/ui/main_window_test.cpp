#include "support/program_run.h"
#include "support/recording_console.h"
#include "support/test_suite.h"
#include "ui/document_preview.h"
#include "ui/main_window.h"

#include <QAction>
#include <QLineEdit>
#include <QListWidget>
#include <QSignalSpy>
#include <QTableView>

using namespace ledra;

namespace {

/// The window over an empty home, driven as by a user.
struct Desk
{
    Desk()
    {
        window.show();
        window.activateWindow();
    }

    QTableView* table() const { return window.findChild<QTableView*>(); }
    QListWidget* lists() const { return window.findChild<QListWidget*>(); }

    void press(const char* shortcut)
    {
        for (QAction* action : window.findChildren<QAction*>()) {
            if (action->shortcut() == QKeySequence(QString::fromLatin1(shortcut)) && action->isEnabled())
                action->trigger();
        }
    }

    /// The texts of a row, with bars between them.
    QString row(int number) const
    {
        QStringList texts;
        for (int column = 0; column < table()->model()->columnCount(); ++column)
            texts += table()->model()->index(number, column).data().toString();
        return texts.join(u'|');
    }

    test::RecordingConsole console;
    LedraApp app{{.console = console}};
    QtWebEngine engine;
    WebFontManager fonts;
    MainWindow window{app, engine, fonts};
};

} // namespace

class MainWindowTest : public test::Suite
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        home_ = std::make_unique<test::ProgramHome>();
        home_->enter();
    }

    void makesShowsAndTakesBack()
    {
        Desk desk;
        QSignalSpy shown(&desk.window.preview(), &DocumentPreview::shown);
        desk.press("Ctrl+N");
        QCOMPARE(desk.table()->model()->rowCount(), 1);
        QVERIFY(desk.row(0).endsWith(u"Draft"));
        QVERIFY(desk.window.selected().size() == 1);
        QVERIFY(shown.wait(20'000));
        desk.press("Ctrl+D");
        QCOMPARE(desk.table()->model()->rowCount(), 2);
        desk.press("Ctrl+2");
        QCOMPARE(desk.lists()->item(2)->text(), QStringLiteral("Sent  (1)"));
        desk.press("Del"); // what is sent stays, and the window says why
        QCOMPARE(desk.table()->model()->rowCount(), 2);
        for (int step = 0; step < 3; ++step)
            desk.press("Ctrl+Z");
        QCOMPARE(desk.table()->model()->rowCount(), 0);
        QCOMPARE(desk.lists()->item(0)->text(), QStringLiteral("All  (0)"));
        QVERIFY(desk.console.failures.isEmpty());
    }

    void listsAndSearch()
    {
        Desk desk;
        for (const char* name : {"Jonas Ahlers", "Mia Petersen"}) {
            desk.press("Ctrl+N");
            QVERIFY(desk.window.jobs().edit(
                (*desk.window.selected().front())->id,
                [&](Invoice& invoice) { invoice.name = QString::fromLatin1(name); }, EditKind::typing));
        }
        desk.press("Ctrl+3");
        desk.lists()->setCurrentRow(4); // paid
        QCOMPARE(desk.table()->model()->rowCount(), 1);
        QVERIFY(desk.row(0).contains(u"Mia Petersen"));
        desk.lists()->setCurrentRow(0);
        QTest::keyClicks(desk.window.findChild<QLineEdit*>(), QStringLiteral("jona"));
        QCOMPARE(desk.table()->model()->rowCount(), 1);
        QVERIFY(desk.row(0).contains(u"Jonas Ahlers"));
        desk.lists()->setCurrentRow(4); // the search goes on in the other list
        QCOMPARE(desk.table()->model()->rowCount(), 0);
    }

    void looksAsItWasLeft()
    {
        QUuid selected;
        {
            Desk desk;
            desk.press("Ctrl+N");
            desk.press("Ctrl+N");
            desk.table()->selectRow(1);
            selected = (*desk.window.selected().front())->id;
            desk.window.resize(1111, 666);
            desk.window.close();
        }
        Desk again;
        QCOMPARE(again.window.size(), QSize(1111, 666));
        QCOMPARE((*again.window.selected().front())->id, selected);
    }

private:
    std::unique_ptr<test::ProgramHome> home_;
};

const ledra::test::RegisterSuite<MainWindowTest> registration("main_window_test");

#include "main_window_test.moc"
