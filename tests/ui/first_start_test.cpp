#include "app/document_looks.h"
#include "app/first_start.h"
#include "support/desk.h"
#include "support/named_widget.h"
#include "support/test_suite.h"
#include "ui/assistant/first_start_assistant.h"

#include <QComboBox>
#include <QMessageBox>
#include <QRadioButton>
#include <QUndoStack>
#include <QWebEngineView>

using namespace ledra;
using test::named;

namespace {

/// A disk that is full when it is told so.
class FullDevice final : public FileDevice
{
public:
    using Done = std::expected<void, FileError>;

    bool isFull = false;

    Done write(const QString& path, const QByteArray& content) override
    {
        if (isFull)
            return std::unexpected(FileError{path, QStringLiteral("No space left on device")});
        return system_.write(path, content);
    }
    std::expected<std::optional<QByteArray>, FileError> read(const QString& path, qint64 limit) override
    {
        return system_.read(path, limit);
    }
    Done sync(const QString& path) override { return system_.sync(path); }
    Done syncFolder(const QString& folder) override { return system_.syncFolder(folder); }
    Done rename(const QString& from, const QString& to) override { return system_.rename(from, to); }
    Done remove(const QString& path) override { return system_.remove(path); }
    Done makeFolder(const QString& folder) override { return system_.makeFolder(folder); }
    QStringList files(const QString& folder) override { return system_.files(folder); }

private:
    SystemFileDevice system_;
};

/// The window as it is on the first start, and the one who sits before it.
struct NewDesk : test::Desk
{
    explicit NewDesk(FileDevice* device = nullptr) : Desk(device)
    {
        offerFirstStart(window);
        if (assistant())
            QApplication::setActiveWindow(assistant()); // its activation is queued
    }

    FirstStartAssistant* assistant() { return window.findChild<FirstStartAssistant*>(); }
    QPushButton* button(const char* text) { return named<QPushButton>(*assistant(), text); }
    void click(const char* text) { QTest::mouseClick(button(text), Qt::LeftButton); }

    void agree()
    {
        QTest::keyClick(named<QCheckBox>(*assistant(), "I agree to the terms of use"), Qt::Key_Space);
        click("Continue");
    }

    void enter(const char* field, const char* text)
    {
        auto* line = named<QLineEdit>(*assistant(), field);
        line->setFocus();
        line->selectAll();
        QTest::keyClicks(line, QString::fromUtf8(text));
    }

    bool shows(const char* text)
    {
        const QList<QLabel*> labels = assistant()->findChildren<QLabel*>();
        return std::ranges::any_of(labels, [&](const QLabel* label) {
            return label->isVisible() && label->text().contains(QString::fromUtf8(text));
        });
    }

    bool isClosed()
    {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return !assistant();
    }

    const Profile& profile() { return **app.profileManager().activeProfile(); }
    const Styling& styling() { return **app.stylingManager().styling(); }
    bool hasAgreed() { return app.settings().boolean("termsAccepted"); }
};

void answerNext(const char* button)
{
    QTimer::singleShot(0, qApp, [button] {
        if (auto* question = qobject_cast<QMessageBox*>(QApplication::activeModalWidget()))
            named<QPushButton>(*question, button)->click();
    });
}

} // namespace

class FirstStartTest : public test::Suite
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        test::failOnWindowWarnings();
        home_ = std::make_unique<test::ProgramHome>();
        home_->enter();
    }

    void leadsToTheFirstInvoice()
    {
        NewDesk desk;
        const auto before = test::filesBelow(home_->data());
        QVERIFY(desk.assistant() && !desk.button("Continue")->isEnabled());
        desk.agree();
        QVERIFY(desk.hasAgreed());
        QCOMPARE(QApplication::focusWidget(), named<QLineEdit>(*desk.assistant(), "Name"));
        QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("Paula Kern"));
        auto* country = named<QComboBox>(*desk.assistant(), "Country");
        country->setFocus();
        country->lineEdit()->selectAll();
        QTest::keyClicks(country->lineEdit(), QStringLiteral("Austria\r"));
        if (desk.button("Back")->isEnabled() && !desk.shows("Where are you paid?"))
            desk.click("Continue");
        desk.enter("IBAN", "DE89 3704 0044 0532 0130 01");
        QVERIFY(desk.shows("The check digits do not fit"));
        desk.enter("IBAN", "DE89 3704 0044 0532 0130 00");
        QVERIFY(!desk.shows("The check digits do not fit"));
        desk.click("Continue");
        QCOMPARE(named<QLineEdit>(*desk.assistant(), "VAT")->text(), QStringLiteral("20"));
        desk.enter("VAT ID", "ATU1"); // judged by the country that was chosen two steps before
        QVERIFY(desk.shows("VAT IDs of this country look different"));
        desk.enter("VAT ID", "ATU13585627");
        QVERIFY(!desk.shows("look different"));
        desk.click("Continue");
        named<QRadioButton>(*desk.assistant(), "Studio")->click();
        desk.enter("Accent color", "123456");
        auto* example = desk.assistant()->findChild<DocumentPreview*>();
        QTRY_COMPARE_WITH_TIMEOUT(example->pageCount(), 1, 20'000);
        QCOMPARE(test::filesBelow(home_->data()), before); // nothing is written before all of it is
        desk.click("Create First Invoice");
        QVERIFY(desk.isClosed());
        QCOMPARE(desk.profile().name, QStringLiteral("Paula Kern"));
        QCOMPARE(desk.profile().iban, QStringLiteral("DE89 3704 0044 0532 0130 00"));
        QCOMPARE(desk.profile().taxResidency.code, QStringLiteral("AT"));
        QCOMPARE(desk.profile().vatPercentage, 20.0);
        QCOMPARE(desk.styling().headlineFontWeight, QStringLiteral("900"));
        QCOMPARE(desk.styling().accentColor, QStringLiteral("123456"));
        QVERIFY(desk.window.isEditorOpen() && desk.selected());
        QCOMPARE(desk.invoice().senderName, QStringLiteral("Paula Kern"));
        QCOMPARE(desk.invoice().items.size(), std::size_t(1));
        QCOMPARE(desk.invoice().items.front().vatPercentage, 20.0);
        QCOMPARE(test::filesBelow(home_->data()).size(), before.size() + 2); // the invoice and the styling
        desk.press("Ctrl+Z");
        QVERIFY(!desk.selected());
        QVERIFY(desk.console.failures.isEmpty());
    }

    /// What cannot be taken is told before the step is left; going on once more leaves it.
    void tellsWhatCannotBeTaken()
    {
        NewDesk desk;
        desk.click("Skip");
        auto* country = named<QComboBox>(*desk.assistant(), "Country");
        country->setFocus();
        country->lineEdit()->selectAll();
        QTest::keyClicks(country->lineEdit(), QStringLiteral("Utopia"));
        desk.click("Continue");
        QVERIFY(desk.shows("“Utopia” is not in the list") && desk.shows("Who sends the invoices?"));
        QVERIFY(country->currentText() != QStringLiteral("Utopia"));
        desk.click("Continue");
        QVERIFY(desk.shows("Where are you paid?"));
        desk.click("Continue");
        QCOMPARE(QApplication::focusWidget(), named<QComboBox>(*desk.assistant(), "Taxed in"));
        desk.enter("VAT", "-5");
        desk.click("Continue");
        QVERIFY(desk.shows("“-5” is less than zero") && desk.shows("How are you taxed?"));
        desk.enter("VAT", "7");
        QVERIFY(!desk.shows("is less than zero"));
        desk.click("Continue");
        desk.enter("Accent color", "GGG");
        desk.click("Create First Invoice");
        QVERIFY(desk.assistant()->isVisible() && desk.shows("“GGG” is no color."));
    }

    /// The first view of a page in an open window makes the window anew, at another place.
    void holdsItsViewsFromTheBeginning()
    {
        NewDesk desk;
        const QList<QWebEngineView*> views = desk.assistant()->findChildren<QWebEngineView*>();
        QVERIFY(std::ranges::any_of(views, [](const QWebEngineView* view) { return view->focusProxy(); }));
    }

    void stepsAreSkipped()
    {
        NewDesk desk;
        desk.click("Skip");
        desk.enter("Name", "Nobody");
        desk.click("Skip");
        desk.enter("BIC", "COBADEFFXXX");
        desk.click("Back");
        QCOMPARE(named<QLineEdit>(*desk.assistant(), "Name")->text(), QString());
        desk.click("Continue");
        QCOMPARE(named<QLineEdit>(*desk.assistant(), "BIC")->text(), QStringLiteral("COBADEFFXXX"));
        desk.click("Continue");
        desk.click("Continue");
        named<QRadioButton>(*desk.assistant(), "Letter")->click();
        desk.click("Skip");
        QVERIFY(desk.isClosed() && !desk.hasAgreed());
        QCOMPARE(desk.profile().name, QString());
        QCOMPARE(desk.profile().bic, QStringLiteral("COBADEFFXXX"));
        QVERIFY(hasLook(desk.styling(), documentLooks().front()));
        QCOMPARE(desk.invoice().items.size(), std::size_t(1));
    }

    void leavingKeepsOrDiscards()
    {
        NewDesk desk;
        const auto before = test::filesBelow(home_->data());
        desk.agree();
        desk.enter("Name", "Paula Kern");
        answerNext("Cancel");
        QTest::keyClick(desk.assistant(), Qt::Key_Escape);
        QVERIFY(desk.assistant()->isVisible());
        QCOMPARE(named<QLineEdit>(*desk.assistant(), "Name")->text(), QStringLiteral("Paula Kern"));
        answerNext("Discard");
        desk.click("Set Up Later");
        QVERIFY(desk.isClosed() && desk.hasAgreed());
        QCOMPARE(test::filesBelow(home_->data()), before);
        desk.window.commands().action("Set Up Ledra…")->trigger();
        QVERIFY(desk.shows("Who sends the invoices?")); // the terms are agreed to
        desk.enter("Name", "Paula Kern");
        answerNext("Keep");
        desk.click("Set Up Later");
        QVERIFY(desk.isClosed() && !desk.selected());
        QCOMPARE(desk.profile().name, QStringLiteral("Paula Kern"));
    }

    void comesOnceAndToNewcomersOnly()
    {
        {
            NewDesk desk;
            QTest::keyClick(desk.assistant(), Qt::Key_Escape); // nothing was said: no question
            QVERIFY(desk.isClosed() && !desk.hasAgreed());
        }
        QVERIFY(!NewDesk().assistant());
        for (const char* told : {"profile set Default name=Kern", "new invoice", "profile create Second",
                                 "settings set termsAccepted true"}) {
            test::ProgramHome home;
            home.enter();
            QVERIFY(NewDesk().assistant());
            QVERIFY2(home.succeeds(told), told);
            QVERIFY2(!NewDesk().assistant(), told);
        }
    }

    void tellsWhatCannotBeWritten()
    {
        FullDevice device;
        NewDesk desk(&device);
        desk.click("Skip");
        desk.enter("Name", "Paula Kern");
        for (int step = 0; step < 3; ++step)
            desk.click("Continue");
        device.isFull = true;
        desk.click("Create First Invoice");
        QVERIFY(desk.assistant()->isVisible() && desk.shows("No space left on device"));
        QCOMPARE(desk.profile().name, QString());
        device.isFull = false;
        desk.click("Create First Invoice");
        QVERIFY(desk.isClosed() && desk.selected());
        QCOMPARE(desk.profile().name, QStringLiteral("Paula Kern"));
    }

private:
    std::unique_ptr<test::ProgramHome> home_;
};

const ledra::test::RegisterSuite<FirstStartTest> registration("first_start_test");

#include "first_start_test.moc"
