#include "support/test_suite.h"
#include "support/text_table.h"
#include "textparser/answer_reader.h"
#include "textparser/completion_stream.h"
#include "textparser/partial_json.h"

#include <QTest>

using namespace ledra;

namespace {

/// JSON is written with single quotes here.
QString json(const char* text)
{
    return QString::fromUtf8(text).replace(u'\'', u'"');
}

} // namespace

class AnswerReaderTest : public test::Suite
{
    Q_OBJECT

private Q_SLOTS:
    void answers_data()
    {
        test::textTable(
            {"answer", "outcome"},
            {
                {"{}", ""},
                {"{'note':'Danke – bis \\u00fcbermorgen','x':{'y':[1]},'reference':null}",
                 "Danke – bis übermorgen"},
                {"Sure {as asked}:\n```json\n{'note':'a } b \\' {'}\n```\nAnything else? {'note':'c'}",
                 "a } b ' {"},
                {"{'note':' \\u0000\\t\\n'}", ""},
                {"{'note':'a\\u0007\\r\\nb\\u2028c\\td\\u009be'}", "a\nb\nc de"},
                {"{'note':'x\\ud800'}", "x?"},
                {"{'note':12}", "note: is not a text"},
                {"{'items':{}}", "items: is not a list"},
                {"{'recipient':[]}", "recipient: is not an object"},
                {"{'items':[{},{'quantity':'two'}]}", "items.1.quantity: is not a number"},
                {"{'items':[{'unitPrice':1e13}]}", "items.0.unitPrice: is out of range"},
                {"{'items':[{'unitPrice':-1e400}]}", "is not valid JSON"},
                {"{'items':[{'unit':'Piece'}]}",
                 "items.0.unit: Unexpected rawValue \"Piece\" for ExtractedUnit"},
                {"{'note':'a'", "is not valid JSON"},
                {"{note}", "is not valid JSON"},
                {"I found nothing.", "holds no JSON"},
            });
    }

    void answers()
    {
        const QString answer = test::cell("answer").replace(QStringLiteral("\\'"), QStringLiteral("\\\x01"));
        const auto read = readAnswer(QString(answer).replace(u'\'', u'"').replace(u'\x01', u'"'));
        const QString outcome = read ? read->note.value_or(QString()).replace(u'"', u'\'') : read.error();
        const QString expected = test::cell("outcome");
        QVERIFY2(read ? outcome == expected : outcome.endsWith(expected), qPrintable(outcome));
    }

    void boundsOfAnswers()
    {
        const auto named = [](qsizetype size) {
            return readAnswer(QStringLiteral("{\"recipient\":{\"name\":\"%1\"}}").arg(QString(size, u'x')));
        };
        QVERIFY(named(longestLine));
        QVERIFY(
            named(900'000).error().endsWith(QStringLiteral("recipient.name: is longer than 500 characters")));
        const QString many = QStringLiteral("{},").repeated(mostItems) + QStringLiteral("{}");
        QVERIFY(!readAnswer(QStringLiteral("{\"items\":[%1]}").arg(many)));
        QVERIFY(!readAnswer(QStringLiteral("{\"x\":").repeated(200'000)));
        QVERIFY(!readAnswer(QStringLiteral("{x}").repeated(300'000)));
    }

    void beginnings_data()
    {
        test::textTable({"beginning", "completed"},
                        {
                            {"", ""},
                            {"Well: {", "{}"},
                            {"{'a", "{}"},
                            {"{'a':", "{}"},
                            {"{'a':12", "{}"},
                            {"{'a':12,", "{'a':12}"},
                            {"{'a':tru", "{}"},
                            {"{'a':'b", "{'a':'b'}"},
                            {"{'a':'b\\", "{'a':'b'}"},
                            {"{'a':'b\\u00e", "{'a':'b'}"},
                            {"{'a':'\\u00e9", "{'a':'\\u00e9'}"},
                            {"{'a':'b\\uD83d\\ude", "{'a':'b'}"},
                            {"{'a':'b\\ud83d\\ude00", "{'a':'b\\ud83d\\ude00'}"},
                            {"{'a':'b','c", "{'a':'b'}"},
                            {"{'a':[{'b':'c'},{'d':[1,2", "{'a':[{'b':'c'},{'d':[1]}]}"},
                            {"{'a':[{'b':null}]} and more {", "{'a':[{'b':null}]}"},
                        });
    }

    void beginnings()
    {
        QCOMPARE(completedObject(json(test::cell("beginning").toUtf8())),
                 json(test::cell("completed").toUtf8()));
    }

    /// However the bytes are cut: also within UTF-8 and within the escapes of JSON in JSON.
    void streamInPieces()
    {
        const QByteArray stream =
            ": keep alive\r\n\r\nevent: message\r\n"
            "data: {\"choices\":[{\"delta\":{\"content\":\"{\\\"note\\\":\\\"Gr\xc3\xbc\\u00df\"}}]}\r\n\r\n"
            "data:{\"choices\":\ndata:[{\"delta\":{\"content\":\"e \\ud83d\"}}]}\n\n"
            "data: "
            "{\"choices\":[{\"delta\":{\"content\":\"\\ude00\\\\u0021\\\"}\"},\"finish_reason\":\"stop\"}]}"
            "\n\n"
            "data: {\"choices\":[{\"delta\":{\"content\":\"unheard\"}}]}\n\n";
        for (qsizetype step = 1; step < stream.size(); ++step) {
            CompletionStream events;
            for (qsizetype i = 0; i < stream.size(); i += step)
                QVERIFY(events.feed(stream.mid(i, step)));
            QVERIFY(events.isComplete());
            QCOMPARE(readAnswer(events.answer())->note, QStringLiteral("Grüße 😀!"));
        }
    }
};

const ledra::test::RegisterSuite<AnswerReaderTest> registration("answer_reader_test");

#include "answer_reader_test.moc"
