#include "render/qt_web_engine.h"
#include "render/web_font_manager.h"
#include "support/program_run.h"
#include "support/sample_invoice.h"
#include "support/store_home.h"
#include "support/test_suite.h"
#include "ui/reminders/invoice_reminders_bar.h"
#include "ui/reminders/reminder_actions.h"
#include "ui/reminders/reminder_editor.h"
#include "ui/reminders/reminder_export.h"
#include "ui/reminders/reminder_panel.h"
#include "ui/reminders/variable_text_edit.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QHBoxLayout>
#include <QMessageBox>
#include <QToolButton>

using namespace ledra;

namespace {

test::FixedClock fourthOfMay()
{
    test::FixedClock clock;
    clock.moment = test::noon(2026, 5, 4);
    return clock;
}

/// List, letter and bar beside each other as in a window, with an invoice of 100 that has been due since 15
/// April; today is 4 May.
struct Desk
{
    Desk()
    {
        auto* layout = new QHBoxLayout(&window);
        layout->addWidget(panel);
        layout->addWidget(editor);
        layout->addWidget(bar);
        QAction* undo = app.undoStack().createUndoAction(&window);
        undo->setShortcut(QKeySequence::Undo);
        QAction* redo = app.undoStack().createRedoAction(&window);
        redo->setShortcut(QKeySequence(QStringLiteral("Ctrl+Shift+Z")));
        window.addActions({undo, redo});
        QObject::connect(panel, &ReminderPanel::chosenChanged, editor, [this] {
            const std::vector<ReminderPtr> chosen = panel->selected();
            editor->setReminder(chosen.size() == 1 ? chosen.front() : nullptr);
        });
        QObject::connect(bar, &InvoiceRemindersBar::createWanted, panel, [this](const QUuid& id) {
            createReminder(parts, id, [this](const ReminderPtr& made) { panel->reveal((*made)->id); });
        });
        invoiceId = makeInvoice(Status::sent);
        app.undoStack().clear();
        bar->setInvoice(app.invoiceManager().find(invoiceId));
        window.show();
        window.activateWindow();
        isActive = QTest::qWaitForWindowActive(&window);
    }

    QUuid makeInvoice(Status status)
    {
        const auto made = app.jobs().create(InvoiceType::invoice, [](Invoice& invoice) {
            invoice.name = QStringLiteral("Erika Muster");
            invoice.date = test::noon(2026, 4, 1);
            invoice.daysToPay = 14;
            invoice.language = Language::english;
            invoice.items = {test::sampleItem(QStringLiteral("Work"), 1, Unit::day, 100, 0)};
        });
        const QUuid id = (**made)->id;
        if (status != Status::draft)
            (void)app.jobs().setStatus(id, status);
        return id;
    }

    /// What the disk has of the only reminder.
    Reminder onDisk()
    {
        test::RecordingConsole quiet;
        LedraApp other({.console = quiet, .clock = &clock, .watchesFolders = false});
        const auto& all = other.reminderManager().reminders();
        return all.size() == 1 ? **all.front() : Reminder();
    }

    void create() { QTest::mouseClick(bar->findChild<QPushButton*>(), Qt::LeftButton); }
    void undo() { QTest::keyClick(text, Qt::Key_Z, Qt::ControlModifier); }
    void redo() { QTest::keyClick(text, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier); }
    void insert(const char* variable)
    {
        QTest::mouseClick(editor->findChild<QToolButton*>(QString::fromLatin1(variable)), Qt::LeftButton);
    }

    /// An empty letter with the cursor in it.
    void emptyLetter()
    {
        text->setFocus();
        QTest::keyClick(text, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(text, Qt::Key_Delete);
    }

    QString row(int number) const
    {
        QStringList texts;
        for (int column = 0; column < ReminderTableModel::columns; ++column)
            texts += panel->model().index(number, column).data().toString();
        return texts.join(u'|');
    }

    test::RecordingConsole console;
    test::FixedClock clock = fourthOfMay();
    LedraApp app{{.console = console, .clock = &clock}};
    QtWebEngine engine;
    WebFontManager fonts;
    QWidget window;
    MessageBar messages;
    WindowParts parts{app, engine, fonts, messages, window};
    ReminderPanel* panel = new ReminderPanel(parts, &window);
    ReminderEditor* editor = new ReminderEditor(parts, &window);
    InvoiceRemindersBar* bar = new InvoiceRemindersBar(app, &window);
    VariableTextEdit* text = editor->findChild<VariableTextEdit*>();
    QUuid invoiceId;
    bool isActive = false;
};

/// Presses a button of the question that comes next.
void answer(const char* button)
{
    QTimer::singleShot(0, qApp, [button] {
        auto* question = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        QVERIFY(question);
        for (QAbstractButton* each : question->buttons()) {
            if (each->text().remove(u'&') == QString::fromLatin1(button))
                each->click();
        }
    });
}

} // namespace

class RemindersTest : public test::Suite
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        home_ = std::make_unique<test::ProgramHome>();
        home_->enter();
    }

    void remindsOfAnInvoice();
    void writesALetter();
    void numbersAsTheyAreTyped_data();
    void numbersAsTheyAreTyped();
    void everythingAndBack();
    void whatOthersChange();
    void lettersAsFiles();

private:
    std::unique_ptr<test::ProgramHome> home_;
};

void RemindersTest::remindsOfAnInvoice()
{
    Desk desk;
    const auto labels = desk.bar->findChildren<QLabel*>();
    const auto says = [&](const char* words) {
        return std::ranges::any_of(labels, [&](const QLabel* label) {
            return label->isVisible() && label->text().contains(QString::fromUtf8(words));
        });
    };
    QVERIFY(says("Overdue since 15 April (19 days)"));
    desk.create();
    desk.create();
    QCOMPARE(desk.panel->model().rowCount(), 2);
    QVERIFY(desk.row(0).startsWith(u"Payment Reminder|"));
    QCOMPARE(desk.row(0),
             QStringLiteral("Payment Reminder|2026-001|Erika Muster|4 May 2026|18 May 2026|€140.00"));
    QCOMPARE((*desk.editor->reminder())->number, std::int64_t{1}); // the new one is shown
    QTRY_VERIFY(says("Friendly Reminder, 4 May"));
    // One that nobody has been asked to pay is reminded of only after a question.
    const QUuid draft = desk.makeInvoice(Status::draft);
    const auto show = [](const ReminderPtr&) {};
    answer("Cancel");
    createReminder(desk.parts, draft, show);
    QVERIFY(desk.app.reminderManager().remindersOf(draft).empty());
    answer("Create Anyway");
    createReminder(desk.parts, draft, show);
    QCOMPARE(desk.app.reminderManager().remindersOf(draft).size(), std::size_t{1});
    desk.bar->setInvoice(nullptr);
    QVERIFY(desk.bar->isHidden());
    QVERIFY(desk.messages.lines().isEmpty() && desk.console.failures.isEmpty());
}

void RemindersTest::writesALetter()
{
    Desk desk;
    desk.create();
    QVERIFY(desk.text->source().contains(u"{{invoice-number}}"));
    QVERIFY(!desk.text->toPlainText().contains(u"{{")); // chips instead
    desk.emptyLetter();
    QTest::keyClicks(desk.text, QStringLiteral("Pay "));
    desk.insert("amount");
    QTest::keyClicks(desk.text, QStringLiteral(" by {{due-date}}, {{name}"));
    QCOMPARE(desk.text->toPlainText(), QStringLiteral("Pay \ufffc by \ufffc, {{name}"));
    QTest::keyClicks(desk.text, QStringLiteral("}!"));
    QCOMPARE(desk.text->source(), QStringLiteral("Pay {{amount}} by {{due-date}}, {{name}}!"));
    for (int step = 0; step < 2; ++step)
        QTest::keyClick(desk.text, Qt::Key_Backspace);
    QCOMPARE(desk.text->source(), QStringLiteral("Pay {{amount}} by {{due-date}}, "));
    QTRY_COMPARE(desk.onDisk().text, QStringLiteral("Pay {{amount}} by {{due-date}}, "));
    // As text across the clipboard, and as chips back again.
    QTest::keyClick(desk.text, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(desk.text, Qt::Key_X, Qt::ControlModifier);
    QCOMPARE(QApplication::clipboard()->text(), QStringLiteral("Pay {{amount}} by {{due-date}}, "));
    for (int round = 0; round < 2; ++round)
        QTest::keyClick(desk.text, Qt::Key_V, Qt::ControlModifier);
    QTest::keyClick(desk.text, Qt::Key_Return);
    QCOMPARE(desk.text->toPlainText().count(u'\ufffc'), 4);
    // What has just been typed is written when the window goes.
    QTest::keyClicks(desk.text, QStringLiteral("end"));
    desk.window.hide();
    QCOMPARE(desk.onDisk().text,
             QStringLiteral("Pay {{amount}} by {{due-date}}, ").repeated(2) + QStringLiteral("\nend"));
    QVERIFY(desk.messages.lines().isEmpty() && desk.console.failures.isEmpty());
}

void RemindersTest::numbersAsTheyAreTyped_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<double>("rate");
    const std::pair<const char*, double> rows[] = {
        {"9", 9},   {"9.12", 9.12}, {"9,12", 9.12}, {"9.129", 9.12}, {"-5", 7},
        {"abc", 7}, {"", 7},        {"9999", 999},  {"1e3", 13},     {".5", 0.5},
    };
    for (const auto& [typed, rate] : rows)
        QTest::newRow(typed) << QString::fromLatin1(typed) << rate;
}

/// The rate is 7 before.
void RemindersTest::numbersAsTheyAreTyped()
{
    QFETCH(QString, typed);
    Desk desk;
    QVERIFY(desk.isActive); // else no field is ever left
    desk.create();
    QVERIFY(desk.app.reminderJobs().edit((*desk.editor->reminder())->id,
                                         [](Reminder& reminder) { reminder.interestPercentage = 7; }));
    auto* rate = desk.editor->findChildren<DecimalField*>().constFirst();
    rate->setFocus();
    rate->selectAll();
    QTest::keyClick(rate, Qt::Key_Delete);
    QTest::keyClicks(rate, typed);
    desk.text->setFocus();
    QTEST((*desk.editor->reminder())->interestPercentage, "rate");
    QTEST(desk.onDisk().interestPercentage, "rate");
    QTEST(rate->value(), "rate");
}

void RemindersTest::everythingAndBack()
{
    Desk desk;
    const auto state = [&] {
        std::vector<Reminder> all;
        for (const ReminderPtr& reminder : desk.app.reminderManager().reminders())
            all.push_back(**reminder);
        return all;
    };
    std::vector<std::vector<Reminder>> states = {state()};
    const auto step = [&](const std::function<void()>& act) {
        act();
        desk.editor->flush();
        states.push_back(state());
    };
    auto* stage = desk.editor->findChild<QComboBox*>();
    const auto fields = desk.editor->findChildren<DecimalField*>();
    step([&] { desk.create(); });
    step([&] {
        stage->setFocus();
        QTest::keyClick(stage, Qt::Key_Down);
    });
    QVERIFY(states.back().front().number == 1);
    QVERIFY(states.back().front().text != states[1].front().text); // an unchanged letter goes with its stage
    step([&] {
        fields.at(1)->setFocus();
        QTest::keyClick(fields.at(1), Qt::Key_Up);
    });
    QVERIFY(states.back().front().text.contains(u"{{fee-amount}}"));
    step([&] {
        desk.text->setFocus();
        QTest::keyClicks(desk.text, QStringLiteral("To whom"));
    });
    step([&] { desk.insert("name"); });
    step([&] { QTest::keyClicks(desk.text, QStringLiteral(", ")); });
    step([&] { desk.create(); });
    step([&] {
        desk.panel->list().setFocus();
        desk.panel->list().selectAll();
        QTest::keyClick(&desk.panel->list(), Qt::Key_Delete);
    });
    QVERIFY(states.back().empty());
    QCOMPARE(static_cast<std::size_t>(desk.app.undoStack().count()), states.size() - 1);
    for (int round = 0; round < 2; ++round) {
        for (std::size_t back = states.size() - 1; back > 0; --back) {
            QVERIFY(state() == states[back]);
            QTest::keyClick(&desk.window, Qt::Key_Z, Qt::ControlModifier);
        }
        for (const std::vector<Reminder>& each : states) {
            QVERIFY(state() == each);
            QTest::keyClick(&desk.window, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
        }
    }
    // From within the text, with letters that are not written yet.
    QTest::keyClick(&desk.window, Qt::Key_Z, Qt::ControlModifier);
    desk.panel->list().selectRow(0);
    desk.emptyLetter();
    QTest::keyClicks(desk.text, QStringLiteral("abc"));
    desk.undo();
    QCOMPARE(desk.text->source(), QString());
    desk.redo();
    QCOMPARE(desk.text->source(), QStringLiteral("abc"));
    QVERIFY(desk.messages.lines().isEmpty() && desk.console.failures.isEmpty());
}

void RemindersTest::whatOthersChange()
{
    Desk desk;
    desk.create();
    const QUuid id = (*desk.editor->reminder())->id;
    desk.emptyLetter();
    QTest::keyClicks(desk.text, QStringLiteral("mine"));
    test::RecordingConsole console;
    LedraApp other({.console = console, .clock = &desk.clock, .watchesFolders = false});
    QVERIFY(other.reminderJobs().edit(id, [](Reminder& reminder) { reminder.number = 1; }));
    desk.app.reminderManager().load(); // at once, in the midst of typing
    QCOMPARE(desk.editor->findChild<QComboBox*>()->currentText(), QStringLiteral("1 · Payment Reminder"));
    QCOMPARE(desk.text->source(), QStringLiteral("mine"));
    desk.editor->flush();
    QVERIFY(other.reminderJobs().edit(id, [](Reminder& reminder) { reminder.fee = 12; }));
    QTRY_COMPARE(desk.editor->findChildren<DecimalField*>().at(1)->value(), 12.0);
    QTRY_VERIFY(desk.row(0).endsWith(u"€112.00"));
    QCOMPARE(desk.onDisk().text, QStringLiteral("mine"));
    QVERIFY(other.reminderJobs().remove(id));
    QTRY_COMPARE(desk.panel->model().rowCount(), 0);
    QVERIFY(!desk.editor->isEnabled());
    QVERIFY(desk.messages.lines().isEmpty() && desk.console.failures.isEmpty());
}

void RemindersTest::lettersAsFiles()
{
    Desk desk;
    desk.create();
    desk.create();
    const QString folder = home_->path(QStringLiteral("letters"));
    QVERIFY(QDir().mkpath(folder));
    QStringList notes;
    connect(&desk.messages, &MessageBar::noted, this, [&](const QString& line) { notes += line; });
    writeReminders(desk.parts, desk.app.reminderManager().reminders(), folder);
    QTRY_COMPARE_WITH_TIMEOUT(notes, QStringList(QStringLiteral("2 reminders saved")), 60'000);
    const QStringList names = QDir(folder).entryList(QDir::Files, QDir::Name);
    QCOMPARE(names.size(), 2);
    QVERIFY(names.first().startsWith(u"Friendly Reminder ") && names.last().startsWith(u"Payment "));
    for (const QString& name : names)
        QVERIFY(test::contentOf(folder + u'/' + name).startsWith("%PDF-"));
    QVERIFY(desk.messages.lines().isEmpty());
}

const ledra::test::RegisterSuite<RemindersTest> registration("reminders_test");

#include "reminders_test.moc"
