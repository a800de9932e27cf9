#include "app/typed_number.h"
#include "support/desk.h"
#include "support/test_suite.h"
#include "ui/editor/items_view.h"
#include "ui/editor/recipient_section.h"
#include "ui/editor/record_sections.h"
#include "ui/look/typed_day.h"

#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QCompleter>
#include <QDropEvent>
#include <QMimeData>
#include <QPushButton>
#include <QUndoStack>

using namespace ledra;
using test::Desk;

namespace {

ItemsView& grid(Desk& desk)
{
    return *desk.editor().findChild<ItemsView*>();
}

/// Types into the cell that is open, as keys arrive: at what has the focus.
void keys(const QString& text)
{
    QTest::keyClicks(QApplication::focusWidget(), text);
}

void key(Qt::Key key, Qt::KeyboardModifiers modifiers = {})
{
    QWidget* popup = QApplication::activePopupWidget(); // which gets the keys first
    QTest::keyClick(popup ? popup : QApplication::focusWidget(), key, modifiers);
}

QPushButton* button(Desk& desk, const QString& text)
{
    for (QPushButton* each : desk.editor().findChildren<QPushButton*>()) {
        if (each->text() == text && each->isVisibleTo(&desk.editor()))
            return each;
    }
    return nullptr;
}

} // namespace

class EditorTest : public test::Suite
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        test::failOnWindowWarnings();
        home_ = std::make_unique<test::ProgramHome>();
        home_->enter();
    }

    void cleanup() { QLocale::setDefault(QLocale::system()); }

    void numbersAsTyped_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("german");
        QTest::addColumn<QString>("english");
        const char* rows[][3] = {{"1234.5", "1234.5", "1234.5"},
                                 {"1234,5", "1234.5", "1234.5"},
                                 {"1.234,50 €", "1234.5", "1234.5"},
                                 {"$1,234.50", "1234.5", "1234.5"},
                                 {"1.234", "1234", "1.234"},
                                 {"1,234", "1.234", "1234"},
                                 {"0.125", "0.125", "0.125"},
                                 {"1.234.567", "1234567", "1234567"},
                                 {"19 %", "19", "19"},
                                 {"−3,5", "-3.5", "-3.5"},
                                 {".5", "0.5", "0.5"},
                                 {"1'000.25", "1000.25", "1000.25"},
                                 {"", "none", "none"},
                                 {"twelve", "none", "none"},
                                 {"1e5", "none", "none"},
                                 {"--1", "none", "none"},
                                 {"1,2,3.4.5", "none", "none"},
                                 {"05.03.2026", "none", "none"},
                                 {"1e999", "none", "none"},
                                 {"99999999999999", "none", "none"},
                                 {"nan", "none", "none"}};
        for (const auto& row : rows)
            QTest::newRow(row[0]) << QString::fromUtf8(row[0]) << QString::fromLatin1(row[1])
                                  << QString::fromLatin1(row[2]);
    }

    void numbersAsTyped()
    {
        QFETCH(QString, text);
        const auto read = [&](const QLocale& locale) {
            const std::optional<double> number = numberTyped(text, locale);
            return number ? QString::number(*number, 'g', 12) : QStringLiteral("none");
        };
        QTEST(read(QLocale(QLocale::German, QLocale::Germany)), "german");
        QTEST(read(QLocale(QLocale::English, QLocale::UnitedKingdom)), "english");
    }

    void daysAsTyped()
    {
        const QDate day(2026, 11, 5);
        for (const char* text : {"05112026", "5.11.2026", "05/11/2026", " 5 - 11 - 2026", "2026-11-05"})
            QCOMPARE(dayTyped(QString::fromLatin1(text)), day);
        for (const char* text : {"5.11.26", "051126", "5.11.", "0511"}) { // more may follow
            QCOMPARE(dayTyped(QString::fromLatin1(text)), std::nullopt);
            QCOMPARE(dayTyped(QString::fromLatin1(text), 2026), day);
        }
        for (const char* text : {"", "5", "31.02.2026", "5.11.20266", "5.11.1.2026", "5.XI.2026"})
            QCOMPARE(dayTyped(QString::fromLatin1(text), 2026), std::nullopt);
    }

    /// Any end of the period, also one that is wrong so far: it is kept and told.
    void takesDaysAsTheyAreTyped_data()
    {
        QTest::addColumn<QLocale>("locale");
        QTest::newRow("german") << QLocale(QLocale::German, QLocale::Germany);
        QTest::newRow("english") << QLocale(QLocale::English, QLocale::UnitedKingdom);
    }

    void takesDaysAsTheyAreTyped()
    {
        QFETCH(QLocale, locale);
        QLocale::setDefault(locale);
        Desk desk;
        desk.press("Ctrl+N");
        QVERIFY(desk.type("Service date", QStringLiteral("20022026")));
        desk.editor().findChild<DatesSection*>()->findChild<QCheckBox*>()->click();
        const char* end = "End of the service period";
        const auto isTold = [&] {
            return desk.field(end)->accessibleDescription() == u"The service period ends before it begins";
        };
        QVERIFY(desk.type(end, QStringLiteral("15.12.2026")));
        QCOMPARE(desk.invoice().serviceDateEnd->localDate(), QDate(2026, 12, 15));
        QVERIFY(!isTold());
        QVERIFY(desk.type(end, QStringLiteral("31.1.")));
        key(Qt::Key_Tab);
        QCOMPARE(desk.invoice().serviceDateEnd->localDate(), QDate(2026, 1, 31));
        QVERIFY(isTold());
        QVERIFY(desk.type(end, QStringLiteral("31032026")));
        key(Qt::Key_Tab); // on to the days to pay
        keys(QStringLiteral("30"));
        key(Qt::Key_Tab);
        QCOMPARE(desk.invoice().serviceDateEnd->localDate(), QDate(2026, 3, 31));
        QVERIFY(!isTold());
        QCOMPARE(desk.invoice().daysToPay, 30);
        QSignalSpy noted(&desk.window.parts().messages, &MessageBar::noted);
        QVERIFY(desk.type("Service date", QStringLiteral("31.2.2026")));
        key(Qt::Key_Tab);
        QCOMPARE(noted.last().first().toString(), QStringLiteral("“31.2.2026” is not a date"));
        QCOMPARE(desk.field("Service date")->text(), QStringLiteral("31.2.2026")); // to be mended
        QCOMPARE(desk.invoice().serviceDateStart.localDate(), QDate(2026, 2, 20));
    }

    /// A whole invoice by keyboard alone, then back to nothing and forth again.
    void writesAnInvoice()
    {
        Desk desk;
        desk.press("Ctrl+N");
        QVERIFY(desk.editor().isVisible());
        QCOMPARE(QApplication::focusWidget(), desk.field<QLineEdit>("Business"));
        keys(QStringLiteral("Atelier Nord"));
        key(Qt::Key_Tab);
        keys(QStringLiteral("Lea Sommer"));
        grid(desk).beginNewItem();
        keys(QStringLiteral("Concept"));
        key(Qt::Key_Tab);
        keys(QStringLiteral("2,5"));
        key(Qt::Key_Tab);
        key(Qt::Key_Tab); // past the unit
        keys(QStringLiteral("80.50"));
        key(Qt::Key_Tab);
        keys(QStringLiteral("19"));
        key(Qt::Key_Tab); // begins the next line
        keys(QStringLiteral("Travel"));
        key(Qt::Key_Return);
        auto* discount = desk.field<QComboBox>("Kind of discount");
        discount->setFocus();
        key(Qt::Key_Down);
        QVERIFY(desk.type("Discount", QStringLiteral("10")));
        const Invoice written = desk.invoice();
        QCOMPARE(written.businessName, QStringLiteral("Atelier Nord"));
        QCOMPARE(written.name, QStringLiteral("Lea Sommer"));
        QCOMPARE(written.items.size(), std::size_t(2));
        QCOMPARE(written.items[0].item, QStringLiteral("Concept"));
        QCOMPARE(written.items[0].quantity, 2.5);
        QCOMPARE(written.items[0].unitPrice, 80.5);
        QCOMPARE(written.items[0].vatPercentage, 19.0);
        QCOMPARE(written.items[1].item, QStringLiteral("Travel"));
        QCOMPARE(written.items[1].vatPercentage, 19.0); // as the line above
        QCOMPARE(written.discountPercentage, 10.0);
        QCOMPARE(written.total(), 215.53); // 201.25 − 20.13 + 34.41
    }

    void goesBackAndForth()
    {
        Desk desk;
        desk.press("Ctrl+N");
        QVERIFY(desk.type("Name", QStringLiteral("Anna")));
        QVERIFY(desk.type("City", QStringLiteral("Kiel")));
        auto* name = desk.field<QLineEdit>("Name");
        name->setFocus();
        grid(desk).beginNewItem();
        keys(QStringLiteral("Work"));
        desk.press("Ctrl+Alt+3");
        const Invoice done = desk.invoice();
        QUndoStack& stack = desk.app.undoStack();
        const int steps = stack.count();
        QTest::keyClick(name, Qt::Key_Z, Qt::ControlModifier); // the field leaves it to the window
        QCOMPARE(desk.invoice().status, Status::draft);
        while (stack.canUndo())
            desk.press("Ctrl+Z");
        QCOMPARE(desk.model().recordCount(), std::size_t(0));
        for (int step = 0; step < steps; ++step)
            desk.press("Ctrl+Shift+Z");
        desk.window.reveal(done.id);
        Invoice again = desk.invoice();
        again.statusUpdateDate = done.statusUpdateDate; // is the time of the change
        QCOMPARE(again.items.size(), done.items.size());
        QVERIFY(again == done);
        QCOMPARE(desk.field<QLineEdit>("City")->text(), QStringLiteral("Kiel"));
    }

    void refusesWhatIsNoNumber()
    {
        Desk desk;
        desk.press("Ctrl+N");
        grid(desk).beginNewItem();
        keys(QStringLiteral("Work"));
        key(Qt::Key_Tab);
        keys(QStringLiteral("3"));
        key(Qt::Key_Tab);
        key(Qt::Key_Backtab);
        QSignalSpy noted(&desk.window.parts().messages, &MessageBar::noted);
        keys(QStringLiteral("x"));
        QCOMPARE(noted.last().first().toString(), QStringLiteral("“x” is not a number"));
        key(Qt::Key_Tab);
        QCOMPARE(desk.invoice().items.front().quantity, 3.0);
    }

    void completesWhatWasEnteredBefore()
    {
        Desk desk;
        desk.press("Ctrl+N");
        QVERIFY(desk.window.jobs().edit(
            desk.invoice().id,
            [](Invoice& invoice) {
                invoice.businessName = QStringLiteral("Hofgut Petersen");
                invoice.addressCity = QStringLiteral("Sylt");
                invoice.items.push_back(
                    {QUuid::createUuid(), QStringLiteral("Photography, day rate"), 1, Unit::day, 840, 7});
            },
            EditKind::single));
        desk.press("Ctrl+N");
        auto* business = desk.field<QLineEdit>("Business");
        business->setFocus();
        keys(QStringLiteral("hof"));
        auto* recipients = business->findChild<QCompleter*>();
        QTRY_VERIFY(recipients->popup()->isVisible());
        key(Qt::Key_Down);
        key(Qt::Key_Return);
        QCOMPARE(desk.invoice().businessName, QStringLiteral("Hofgut Petersen"));
        QCOMPARE(desk.field<QLineEdit>("City")->text(), QStringLiteral("Sylt"));
        grid(desk).beginNewItem();
        keys(QStringLiteral("phot"));
        auto* items = QApplication::focusWidget()->findChild<QCompleter*>();
        QVERIFY(items && items->popup()->isVisible());
        key(Qt::Key_Down);
        key(Qt::Key_Return);
        QCOMPARE(desk.invoice().items.size(), std::size_t(1));
        QCOMPARE(desk.invoice().items.front().unitPrice, 840.0);
        QCOMPARE(desk.invoice().items.front().unit, Unit::day);
        for (const Qt::Key end : {Qt::Key_Tab, Qt::Key_Return}) { // nobody has moved to a suggestion
            grid(desk).beginNewItem();
            keys(QStringLiteral("phot"));
            QVERIFY(QApplication::activePopupWidget());
            key(end);
            QVERIFY(!QApplication::activePopupWidget());
            QCOMPARE(desk.invoice().items.back().item, QStringLiteral("phot"));
            QCOMPARE(desk.invoice().items.back().unitPrice, 0.0);
            if (end == Qt::Key_Tab) { // which has gone on to the quantity
                keys(QStringLiteral("3"));
                QCOMPARE(desk.invoice().items.back().quantity, 3.0);
            }
        }
    }

    void movesCopiesAndPastesItems()
    {
        Desk desk;
        desk.press("Ctrl+N");
        auto* table = new QMimeData;
        table->setText(QStringLiteral(
            "Text\tQuantity\tUnit\tPrice\tVAT\nDesign\t3\tHour\t95.5\t19\nPrint\t1\tPiece\t1,250.00\t7\n"));
        QApplication::clipboard()->setMimeData(table);
        grid(desk).setFocus();
        key(Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(desk.invoice().items.size(), std::size_t(2));
        QCOMPARE(desk.invoice().items[1].unitPrice, 1250.0);
        key(Qt::Key_Up, Qt::AltModifier); // the last one is the current one
        QCOMPARE(desk.invoice().items.front().item, QStringLiteral("Print"));
        key(Qt::Key_C, Qt::ControlModifier);
        QVERIFY(QApplication::clipboard()->text().contains(u"Print\t1\tPiece"));
        desk.press("Ctrl+N"); // into another invoice
        QCOMPARE(desk.editor().editing().record(), desk.selected());
        grid(desk).setFocus();
        key(Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(desk.invoice().items.size(), std::size_t(1));
        QCOMPARE(desk.invoice().items.front().unitPrice, 1250.0);
        key(Qt::Key_Delete); // what was pasted is chosen
        QVERIFY(desk.invoice().items.empty());
        desk.press("Ctrl+Z");
        QCOMPARE(desk.invoice().items.size(), std::size_t(1));
    }

    void pastesWhatAGermanSpreadsheetHolds()
    {
        QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
        Desk desk;
        desk.press("Ctrl+N");
        const auto paste = [&](const char* text) {
            auto* table = new QMimeData;
            table->setText(QString::fromUtf8(text));
            QApplication::clipboard()->setMimeData(table);
            grid(desk).setFocus();
            key(Qt::Key_V, Qt::ControlModifier);
        };
        paste("Logoentwurf\t2,5\tStunden\t95,00\t19");
        paste("Druck\t1\tPauschal\t1,250.00\t7"); // behind it
        QCOMPARE(desk.invoice().items.size(), std::size_t(2));
        QCOMPARE(desk.invoice().items[0].unit, Unit::hour);
        QCOMPARE(desk.invoice().items[0].unitPrice, 95.0);
        QCOMPARE(desk.invoice().items[1].unitPrice, 1250.0);
        paste("A\t1\tTag\t3\nB\t1\tMeile\t3");
        QCOMPARE(desk.invoice().items.size(), std::size_t(2));
        const QString line = desk.window.parts().messages.lines().last();
        QVERIFY2(line.contains(u"“Meile” in line 2") && line.contains(u"Stück, Stunde, Tag"),
                 qPrintable(line));
    }

    /// What is typed goes where it was begun, whatever others do to the record meanwhile.
    void keepsTypingInTheSameItem()
    {
        Desk desk;
        desk.press("Ctrl+N");
        const auto change = [&](const std::function<void(std::vector<Invoice::Item>&)>& edit) {
            const auto run = [&](Invoice& invoice) { edit(invoice.items); };
            QVERIFY(desk.window.jobs().edit(desk.invoice().id, run, EditKind::single));
        };
        const auto line = [](const char* text) {
            return Invoice::Item{QUuid::createUuid(), QString::fromLatin1(text), 1, Unit::piece, 1, 19};
        };
        const auto texts = [&] {
            QStringList found;
            for (const Invoice::Item& item : desk.invoice().items)
                found += item.item;
            return found.join(u' ');
        };
        change([&](auto& items) { items = {line("A"), line("B"), line("C")}; });
        const QModelIndex second = grid(desk).model()->index(1, 0);
        grid(desk).setCurrentIndex(second);
        grid(desk).edit(second);
        key(Qt::Key_End);
        keys(QStringLiteral("1"));
        change([&](auto& items) {
            items.erase(items.begin());
            items.push_back(line("D"));
        });
        keys(QStringLiteral("2"));
        change([](auto& items) { std::ranges::reverse(items); });
        keys(QStringLiteral("3"));
        QCOMPARE(texts(), QStringLiteral("D C B123"));
        change([](auto& items) { items.pop_back(); });
        QApplication::processEvents();
        keys(QStringLiteral("E"));
        QCOMPARE(texts(), QStringLiteral("D C E"));
        change([&](auto& items) { items.push_back(line("F")); });
        keys(QStringLiteral("e"));
        QCOMPARE(texts(), QStringLiteral("D C Ee F"));
    }

    void locksWhatOthersHold()
    {
        Desk desk;
        desk.press("Ctrl+N");
        QVERIFY(desk.type("Name", QStringLiteral("Anna")));
        const QUuid sent = desk.invoice().id;
        desk.press("Ctrl+Alt+2");
        QVERIFY(!desk.type("Name", QStringLiteral("Berta")));
        QVERIFY(desk.type("Reference", QStringLiteral("4711"))); // stays free
        QCOMPARE(desk.invoice().reference, QStringLiteral("4711"));
        QVERIFY(button(desk, QStringLiteral("Edit anyway")));
        button(desk, QStringLiteral("Cancel and duplicate"))->click();
        QCOMPARE(desk.model().recordCount(), std::size_t(3));
        QCOMPARE(desk.invoice().status, Status::draft);
        QCOMPARE(desk.invoice().name, QStringLiteral("Anna"));
        desk.press("Ctrl+Z"); // one step
        QCOMPARE(desk.model().recordCount(), std::size_t(1));
        desk.window.reveal(sent);
        QCOMPARE(desk.invoice().status, Status::sent);
        button(desk, QStringLiteral("Edit anyway"))->click();
        QVERIFY(desk.type("Name", QStringLiteral("Berta")));
        QCOMPARE(desk.invoice().name, QStringLiteral("Berta"));
        QVERIFY(desk.console.failures.isEmpty());
    }

    void takesADroppedContact()
    {
        Desk desk;
        desk.press("Ctrl+N");
        QMimeData card;
        card.setData(QStringLiteral("text/vcard"),
                     "BEGIN:VCARD\nVERSION:4.0\nFN:Lea Sommer\nORG:Nordwind\nADR:;;Kai "
                     "1;Hamburg;;20457;Germany\nEMAIL:lea@example.com\nEND:VCARD\n");
        auto* section = desk.editor().findChild<RecipientSection*>();
        QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &card, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(section, &enter);
        QVERIFY(enter.isAccepted());
        QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &card, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(section, &drop);
        QCOMPARE(desk.invoice().businessName, QStringLiteral("Nordwind"));
        QCOMPARE(desk.invoice().email, QStringLiteral("lea@example.com"));
        desk.press("Ctrl+Z");
        QVERIFY(desk.invoice().businessName.isEmpty());
    }

    void followsTheCountryAndEmphasises()
    {
        Desk desk;
        desk.press("Ctrl+N");
        auto* country = desk.field<QComboBox>("Country");
        country->lineEdit()->setFocus();
        country->lineEdit()->selectAll();
        keys(QStringLiteral("Switzerland"));
        key(Qt::Key_Tab);
        QCOMPARE(desk.invoice().addressCountry.code, QStringLiteral("CH"));
        QVERIFY(std::ranges::any_of(desk.editor().findChildren<QLabel*>(),
                                    [](const QLabel* label) { return label->text() == u"Canton"; }));
        country->lineEdit()->setFocus();
        country->lineEdit()->selectAll();
        keys(QStringLiteral("Atlantis"));
        key(Qt::Key_Tab);
        QCOMPARE(country->currentText(), QStringLiteral("Switzerland"));
        auto* note = desk.field<QPlainTextEdit>("Note");
        note->setFocus();
        keys(QStringLiteral("Thanks a lot"));
        key(Qt::Key_Left, Qt::ShiftModifier | Qt::ControlModifier);
        key(Qt::Key_B, Qt::ControlModifier);
        QCOMPARE(desk.invoice().note, QStringLiteral("Thanks a **lot**"));
        toggleEmphasis(*note, QStringLiteral("**"));
        QCOMPARE(desk.invoice().note, QStringLiteral("Thanks a lot"));
    }

private:
    std::unique_ptr<test::ProgramHome> home_;
};

const ledra::test::RegisterSuite<EditorTest> registration("editor_test");

#include "editor_test.moc"
