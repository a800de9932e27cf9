#include "support/desk.h"
#include "support/model_answer.h"
#include "support/named_widget.h"
#include "support/test_suite.h"
#include "textparser/answer_reader.h"
#include "ui/look/status_colors.h"
#include "ui/settings/settings_window.h"
#include "ui/text/extracted_fields_view.h"
#include "ui/text/parser_texts.h"
#include "ui/text/text_to_invoice.h"
#include "ui/text/text_well.h"

#include <QClipboard>
#include <QComboBox>
#include <QMimeData>
#include <QTranslator>
#include <QUndoStack>

using namespace ledra;
using test::named;
using test::ScriptedServer;

namespace {

const QString answer = QStringLiteral(
    R"({"recipient":{"name":"Jule Ahlers","city":"Lübeck","countryCode":"DE"},"items":[{"description":"Beratung",)"
    R"("quantity":12.5,"unit":"hour","unitPrice":1234.5},{"description":"Anfahrt"}],"currencyCode":"Euro"})");

/// The window with the panel for texts, over a server that answers as it is told.
struct TextDesk : test::Desk
{
    explicit TextDesk(const test::HttpResponse& response) : server(test::modelServer(response))
    {
        use(server.address(QStringLiteral("/v1")));
    }

    void use(const QString& address)
    {
        (void)app.settings().set(QStringLiteral("textParserEndpoint"), address);
    }

    TextToInvoice& open()
    {
        press("Ctrl+Alt+N");
        return *panel();
    }

    TextToInvoice* panel() { return window.findChild<TextToInvoice*>(); }
    ExtractedFieldsView& fields() { return *panel()->findChild<ExtractedFieldsView*>(); }
    QPushButton* button(const char* text) { return named<QPushButton>(*panel(), text); }
    void click(const char* text) { QTest::mouseClick(button(text), Qt::LeftButton); }

    /// Types a text and has it read.
    bool read()
    {
        open();
        QTest::keyClicks(panel()->findChild<TextWell*>(), QStringLiteral("12,5 Std. Beratung"));
        if (!QTest::qWaitFor([this] { return button("Read Text")->isEnabled(); }))
            return false;
        click("Read Text");
        return true;
    }

    bool isRead() { return !button("Stop")->isVisible(); }

    bool shows(const char* text)
    {
        const QList<QLabel*> labels = panel()->findChildren<QLabel*>();
        return std::ranges::any_of(labels, [&](const QLabel* label) {
            return label->isVisible() && label->text().contains(QString::fromUtf8(text));
        });
    }

    /// What cannot be used, if that is shown.
    QString unused()
    {
        for (const QLabel* label : panel()->findChildren<QLabel*>()) {
            if (label->isVisible() && label->text().startsWith(u"Cannot be used"))
                return label->text();
        }
        return {};
    }

    /// Types over the value of a field.
    void correct(const char* field, const char* value)
    {
        QTreeWidgetItem* row =
            fields().findItems(QString::fromLatin1(field), Qt::MatchExactly | Qt::MatchRecursive).front();
        fields().setCurrentItem(row, 1);
        fields().editItem(row, 1);
        auto* line = fields().findChild<QLineEdit*>();
        line->selectAll();
        QTest::keyClick(line, Qt::Key_Delete);
        QTest::keyClicks(line, QString::fromLatin1(value));
        QTest::keyClick(line, Qt::Key_Return);
        (void)QTest::qWaitFor([this] { return !fields().findChild<QLineEdit*>(); });
    }

    ScriptedServer server;
};

/// Marks what is translated of the parser's texts, and the places of values in it.
class MarkingTranslator : public QTranslator
{
public:
    MarkingTranslator() { QCoreApplication::installTranslator(this); }

    bool isEmpty() const override { return false; }

    QString translate(const char* context, const char* source, const char*, int) const override
    {
        if (std::string_view(context) != "TextParser")
            return {};
        QString text = QString::fromUtf8(source);
        for (const char* place : {"%1", "%2"})
            text.replace(QLatin1StringView(place), u'<' + QLatin1StringView(place) + u'>');
        return u'[' + text + u']';
    }
};

QString errorOf(const QString& modelsAnswer)
{
    return readAnswer(modelsAnswer).error();
}

} // namespace

class TextToInvoiceTest : public test::Suite
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        test::failOnWindowWarnings();
        home_ = std::make_unique<test::ProgramHome>();
        home_->enter();
    }

    void makesADraftOfWhatWasFound()
    {
        TextDesk desk(test::streamed(test::eventsOf(answer), 100));
        QVERIFY(desk.read());
        QTRY_VERIFY(desk.isRead() && desk.button("Use")->isEnabled());
        QVERIFY(desk.shows("currency “Euro”: there is no such code"));
        desk.correct("Currency", "CHF");
        QCOMPARE(desk.unused(), QString());
        desk.correct("Quantity", "many"); // is no number: the one that holds comes back
        desk.correct("Quantity", "2,5");
        desk.correct("City", "");
        desk.click("Use");
        QTRY_VERIFY(!desk.panel());
        QVERIFY(desk.window.isEditorOpen() && desk.selected());
        QCOMPARE(desk.invoice().name, QStringLiteral("Jule Ahlers"));
        QCOMPARE(desk.invoice().addressCity, QString());
        QCOMPARE(desk.invoice().currency.code, QStringLiteral("CHF"));
        QCOMPARE(desk.invoice().items.size(), std::size_t(2));
        QCOMPARE(desk.invoice().items.front().quantity, 2.5);
        QCOMPARE(desk.invoice().items.front().unit, Unit::hour);
        QCOMPARE(desk.app.undoStack().count(), 1);
        desk.press("Ctrl+Z");
        QVERIFY(!desk.selected());
        QVERIFY(desk.console.failures.isEmpty());
    }

    void fillsTheDraftThatIsOpen()
    {
        TextDesk desk(test::streamed(test::eventsOf(answer)));
        desk.press("Ctrl+N");
        QVERIFY(desk.type("Name", QStringLiteral("Mia Petersen")));
        const Invoice before = desk.invoice();
        QVERIFY(desk.read());
        QTRY_VERIFY(desk.button("Use")->isEnabled());
        auto* targets = named<QComboBox>(*desk.panel(), "What becomes of it");
        QTest::keyClick(targets, Qt::Key_Down);
        QVERIFY(targets->currentText().startsWith(u"Draft"));
        QVERIFY(desk.shows("name “Jule Ahlers”: the invoice has another one"));
        desk.click("Use");
        QTRY_VERIFY(!desk.panel());
        QCOMPARE(desk.invoice().id, before.id);
        QCOMPARE(desk.invoice().name, QStringLiteral("Mia Petersen"));
        QCOMPARE(desk.invoice().addressCity, QStringLiteral("Lübeck"));
        QCOMPARE(desk.invoice().items.size(), std::size_t(2));
        desk.press("Ctrl+Z");
        QCOMPARE(desk.invoice(), before);
    }

    /// The server has said half of its answer and says no more.
    void fieldsArriveUntilItIsStopped()
    {
        test::HttpResponse half = test::streamed(test::eventsOf(answer), 50);
        half.pieces = half.pieces.mid(0, half.pieces.size() / 2);
        half.ending = test::HttpResponse::Ending::never;
        TextDesk desk(half);
        QVERIFY(desk.read());
        QTRY_VERIFY(desk.fields().topLevelItem(0) && desk.fields().topLevelItem(0)->childCount() > 0);
        QVERIFY(desk.shows("fields so far"));
        QTRY_COMPARE(desk.fields().topLevelItem(0)->child(0)->text(1), QStringLiteral("Jule Ahlers"));
        QVERIFY(!desk.button("Use")->isEnabled());
        QVERIFY(!(desk.fields().topLevelItem(0)->child(0)->flags() & Qt::ItemIsEditable));
        QTest::keyClick(desk.panel(), Qt::Key_Escape);
        QVERIFY(desk.panel() && desk.isRead() && desk.shows("Stopped"));
        QTRY_COMPARE(desk.server.hangUps, 1);
        QCOMPARE(desk.fields().topLevelItemCount(), 0);
        desk.click("Read Text");
        QTRY_VERIFY(desk.shows("fields so far"));
        desk.panel()->close(); // the button of the frame stops it as well
        QTRY_VERIFY(!desk.panel());
        QTRY_VERIFY(desk.server.hangUps >= 2);
        QVERIFY(desk.app.invoiceManager().invoices().empty());
    }

    void withoutAModel()
    {
        TextDesk desk(test::streamed(test::eventsOf(answer)));
        const QString address = *desk.app.settings().text(QStringLiteral("textParserEndpoint"));
        desk.use(QStringLiteral("http://127.0.0.1:1/v1"));
        desk.open().setText(QStringLiteral("Beratung"));
        QTRY_VERIFY(desk.shows("The on-device model isn’t available right now."));
        QVERIFY(!desk.button("Read Text")->isEnabled());
        const auto* notice = desk.panel()->findChild<QWidget*>(QStringLiteral("parser-notice"));
        const auto shownInk = [&] {
            return notice->findChild<QLabel*>()->palette().color(QPalette::WindowText);
        };
        for (const QPalette& appearance : {darkPalette(), lightPalette()}) {
            QApplication::setPalette(appearance); // while it is shown
            QTRY_COMPARE(notice->palette().color(QPalette::Window), warningLook().ground());
            QCOMPARE(shownInk(), warningLook().ink());
        }
        desk.click("Text Parser Settings…");
        auto* settings = desk.window.findChild<SettingsWindow*>();
        QVERIFY(settings && named<QLineEdit>(*settings, "Address")->isVisible());
        settings->close();
        desk.use(address);
        desk.click("Try Again");
        QTRY_VERIFY(desk.button("Read Text")->isEnabled());
        QVERIFY(!desk.shows("The on-device model"));
    }

    void failuresLeaveEverythingAsItWas()
    {
        TextDesk desk(test::streamed(test::eventsOf(QStringLiteral(R"({"items":[{"unit":"box"}]})"))));
        QVERIFY(desk.read());
        QTRY_VERIFY(desk.shows("Unexpected rawValue"));
        QVERIFY(!desk.button("Use")->isEnabled());
        TextDesk empty(test::streamed(test::eventsOf(QStringLiteral("{}"))));
        QVERIFY(empty.read());
        QTRY_VERIFY(empty.shows("Nothing was found"));
        QVERIFY(!empty.button("Use")->isEnabled());
        QVERIFY(empty.app.invoiceManager().invoices().empty());
    }

    /// What the window shows of errors as they come from below, in any language.
    void errorsAreTranslatedAroundTheirValues_data()
    {
        QTest::addColumn<QString>("error");
        QTest::addColumn<QString>("shown");
        const auto row = [](const QString& error, const char* shown) {
            QTest::newRow(shown) << error << QString::fromUtf8(shown);
        };
        const QString address = QStringLiteral("http://example.com");
        const QString many = QStringLiteral("{},").repeated(mostItems) + QStringLiteral("{}");
        row(errorOf(QStringLiteral(R"({"items":[{},{"unit":"box"}]})")),
            "[the model’s answer cannot be used: <items.1.unit: [Unexpected rawValue \"<box>\" for "
            "ExtractedUnit]>]");
        row(errorOf(QStringLiteral(R"({"items":[{"unit":"%1: %2"}]})")),
            "[the model’s answer cannot be used: <items.0.unit: [Unexpected rawValue \"<%1: %2>\" for "
            "ExtractedUnit]>]");
        row(errorOf(QStringLiteral(R"({"items":[%1]})").arg(many)),
            "[the model’s answer cannot be used: <items: [is longer than <1000> items]>]");
        row(errorOf(QStringLiteral(R"({"reference":"%1"})").arg(QString(longestLine + 1, u'x'))),
            "[the model’s answer cannot be used: <reference: [is longer than <500> characters]>]");
        row(errorOf(QStringLiteral(R"({"recipient":{"city":5}})")),
            "[the model’s answer cannot be used: <recipient.city: [is not a text]>]");
        row(errorOf(QStringLiteral("no")), "[the model’s answer holds no JSON]");
        row(CompletionStream().feed("data: {\"error\":{\"message\":\"full: 3 GB\"}}\n\n").error(),
            "[the model server reports an error: <full: [3 GB]>]");
        row(CompletionStream().feed("data: {\"error\":{}}\n\n").error(),
            "[the model server reports an error: <[no reason given]>]");
        row(address + u' ' + localEndpoint(address).error(),
            "[<http://example.com> is not on this computer]");
        row(localEndpoint(QStringLiteral("here")).error(),
            "[is no address such as <http://127.0.0.1:11434/v1>]");
    }

    void errorsAreTranslatedAroundTheirValues()
    {
        QFETCH(const QString, error);
        const MarkingTranslator translator;
        QTEST(parserText(error), "shown");
    }

    void refusalsOfTheServerAreTranslated()
    {
        const MarkingTranslator translator;
        TextDesk desk({.status = 500, .pieces = {R"({"error":{"message":"no memory"}})"}});
        QVERIFY(desk.read());
        QTRY_VERIFY(desk.shows("[the model server answered with status <500>: <[no memory]>]"));
    }

    void textsArePastedAndDropped()
    {
        TextDesk desk(test::streamed(test::eventsOf(answer)));
        QMimeData text;
        text.setText(QStringLiteral("Rechnung an Ahlers"));
        QDragEnterEvent enter(QPoint(100, 100), Qt::CopyAction, &text, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&desk.window, &enter);
        QVERIFY(enter.isAccepted());
        QDropEvent drop(QPointF(100, 100), Qt::CopyAction, &text, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&desk.window, &drop);
        QVERIFY(desk.panel());
        auto* well = desk.panel()->findChild<TextWell*>();
        QCOMPARE(well->toPlainText(), QStringLiteral("Rechnung an Ahlers"));
        const QString path = home_->path(QStringLiteral("mail.txt"));
        QVERIFY(test::writeFile(path, "M\xfcller")); // Latin-1
        auto* file = new QMimeData;                  // which the clipboard takes
        file->setUrls({QUrl::fromLocalFile(path)});
        QApplication::clipboard()->setMimeData(file);
        well->selectAll();
        QTest::keyClick(well, Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(well->toPlainText(), QStringLiteral("Müller"));
        file = new QMimeData;
        file->setUrls({QUrl::fromLocalFile(home_->path(QStringLiteral("missing.txt")))});
        QApplication::clipboard()->setMimeData(file);
        QTest::keyClick(well, Qt::Key_V, Qt::ControlModifier);
        QVERIFY(desk.shows("missing.txt"));
    }

private:
    std::unique_ptr<test::ProgramHome> home_;
};

const ledra::test::RegisterSuite<TextToInvoiceTest> registration("text_to_invoice_test");

#include "text_to_invoice_test.moc"
