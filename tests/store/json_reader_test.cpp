#include "store/invoice_json.h"
#include "store/json_reader.h"
#include "support/test_suite.h"
#include "support/text_table.h"

#include <QFile>
#include <QTest>

using namespace ledra;

namespace {

/// JSON is written with single quotes here.
QByteArray json(QByteArray text)
{
    return text.replace('\'', '"');
}

/// An error as "kind at path".
QString described(const DecodingError& error)
{
    static const QStringList names =
        QStringLiteral("not JSON,wrong type,unknown value,missing,out of range,too large").split(u',');
    return names.at(static_cast<qsizetype>(error.kind)) + QStringLiteral(" at ") + error.path;
}

QString shown(const auto& value)
{
    if constexpr (std::is_same_v<decltype(value), const std::int64_t&>)
        return QString::number(value);
    else
        return QVariant(value).toString();
}

/// The value of the document's one key as the caller's type, as text; or the error.
template <class Take>
QString taken(Take take)
{
    QString result;
    JSONReader reader;
    const QByteArray document = json("{'v':" + test::cell("value").toUtf8() + '}');
    const Decoded<void> read = reader.read(document, [&](JSONValue& root) {
        return root.members([&](std::string_view, JSONValue& value) -> Decoded<void> {
            const auto found = take(value);
            if (!found)
                return std::unexpected(found.error());
            result = shown(*found);
            return {};
        });
    });
    return read ? result : described(read.error());
}

/// An invoice with one more member.
QByteArray invoiceWith(const QByteArray& member)
{
    return json("{'recipient':{'address':{}},'sender':{'address':{}}," + member + '}');
}

Decoded<Invoice> decoded(const QByteArray& file)
{
    static RandomIdSource ids;
    static JSONReader reader; // one for all, as it must serve after an error
    return decodeInvoice(file, {Timestamp(0), ids, QStringLiteral("DE")}, reader);
}

QByteArray example()
{
    QFile file(QStringLiteral(LEDRA_EXAMPLES "/invoice-workshop-en.json"));
    return file.open(QIODevice::ReadOnly) ? file.readAll().trimmed() : QByteArray();
}

} // namespace

class JsonReaderTest : public test::Suite
{
    Q_OBJECT

private Q_SLOTS:
    void valuesAreStrictlyTyped_data()
    {
        static constexpr const char* wrong = "wrong type at v";
        static constexpr const char* far = "out of range at v";
        test::textTable(
            {"value", "integer", "number", "boolean", "text"},
            {
                {"14", "14", "14", wrong, wrong},
                {"-14.0", "-14", "-14", wrong, wrong},
                {"1.4e1", "14", "14", wrong, wrong},
                {"14.5", wrong, "14.5", wrong, wrong},
                {"9223372036854775807", "9223372036854775807", "9223372036854776000", wrong, wrong},
                {"9223372036854775808", far, "9223372036854776000", wrong, wrong},
                {"1e300", far, "1e+300", wrong, wrong},
                {"5e-324", wrong, "5e-324", wrong, wrong},
                {"1e400", far, far, wrong, wrong},
                {"'14'", wrong, wrong, wrong, "14"},
                {"'true'", wrong, wrong, wrong, "true"},
                {"'\\u00e4\\ud83d\\ude00\\n\\/'", wrong, wrong, wrong, "ä😀\n/"},
                {"true", wrong, wrong, "true", wrong},
                {"false", wrong, wrong, "false", wrong},
                {"null", wrong, wrong, wrong, wrong},
                {"[14]", wrong, wrong, wrong, wrong},
                {"{'v':14}", wrong, wrong, wrong, wrong},
            });
    }

    void valuesAreStrictlyTyped()
    {
        QTEST(taken([](JSONValue& value) { return value.integer(); }), "integer");
        QTEST(taken([](JSONValue& value) { return value.number(); }), "number");
        QTEST(taken([](JSONValue& value) { return value.boolean(); }), "boolean");
        QTEST(taken([](JSONValue& value) { return value.text(); }), "text");
    }

    void members_data()
    {
        test::textTable({"member", "error"},
                        {
                            {"'v':1", ""},
                            {" \t\r\n'number' : 1 ", ""},
                            {"'v':{'a':[1,{'b':null}],'number':'x'},'w':[[]],'z':'}'", ""},
                            {"'number':null,'items':null,'date':null,'id':null", ""},
                            {"'number':1,'number':2", ""},
                            {"'num\\u0062er':'1'", "wrong type at number"},
                            {"'sender':[]", "wrong type at sender"},
                            {"'sender':{}", "missing at sender.address"},
                            {"'sender':{'address':null}", "missing at sender.address"},
                            {"'sender':{'address':{'city':1}}", "wrong type at sender.address.city"},
                            {"'items':[null]", "wrong type at items.0"},
                            {"'items':[{},{},{},{'unit':'hour'}]", "unknown value at items.3.unit"},
                            {"'status':'draft'", "unknown value at status"},
                            {"'id':'020CB4D2'", "unknown value at id"},
                            {"'id':'{020cb4d2-16f4-4ae2-a076-af8ddd7e6f51}'", "unknown value at id"},
                            {"'date':'yesterday'", "unknown value at date"},
                            {"'date':'2026-02-17'", "unknown value at date"},
                            {"'date':1e15", "out of range at date"},
                            {"'serviceDateEnd':-63113904001", "out of range at serviceDateEnd"},
                        });
    }

    void members()
    {
        const Decoded<Invoice> read = decoded(invoiceWith(test::cell("member").toUtf8()));
        QTEST(read ? QString() : described(read.error()), "error");
        QVERIFY(read || read.error().text().startsWith(read.error().path + QStringLiteral(": ")));
    }

    void garbageIsRefused_data()
    {
        QTest::addColumn<QByteArray>("document");
        const QByteArray good = invoiceWith("'v':1");
        for (const char* document : {"", " \n", "null", "'{}'", "14", "[{}]", "recipient"})
            QTest::newRow(document) << json(document);
        for (const char* tail : {"{}", " x", "}", ","})
            QTest::addRow("trailing %s", tail) << good + tail;
        QTest::newRow("trailing null character") << good + '\0';
        for (const char* member : {"'number':1,",
                                   "'number':1 'note':''",
                                   "'number' 1",
                                   "number:1",
                                   "'number':1 /* one */",
                                   "'number':014",
                                   "'number':+1",
                                   "'number':1.",
                                   "'daysToPay':.5",
                                   "'number':1a",
                                   "'discountAmount':NaN",
                                   "'discountAmount':-Infinity",
                                   "'grossPrices':tru",
                                   "'grossPrices':truex",
                                   "'grossPrices':nullx",
                                   "'note':'\\x41'",
                                   "'note':'\\ud83d'",
                                   "'note':'a\nb'",
                                   "'v':[{]",
                                   "'v':words",
                                   "'v':[1 2]",
                                   "'v':{'a' 1}",
                                   "'v':[tru]",
                                   "'v':{'a':'\\q'}",
                                   "'v':01"})
            QTest::newRow(member) << invoiceWith(member);
    }

    void garbageIsRefused()
    {
        QFETCH(QByteArray, document);
        QVERIFY(!decoded(document));
    }

    void damagedDocumentsAreSurvived_data()
    {
        QTest::addColumn<QByteArray>("whole");
        QTest::newRow("example") << example();
        QTest::newRow("unknown keys")
            << invoiceWith("'v':{'a':[1.5,{'b':null}],'c':'\\'}\\u00e4'},'w':[true,[]]");
    }

    void damagedDocumentsAreSurvived()
    {
        QFETCH(QByteArray, whole);
        QVERIFY(decoded(whole));
        for (qsizetype position = 0; position < whole.size(); ++position) {
            const QByteArray place = QByteArray::number(position);
            QVERIFY2(!decoded(whole.first(position)), place.constData());
            QByteArray damaged = whole;
            damaged[position] = '\xff'; // never part of UTF-8
            QVERIFY2(!decoded(damaged), place.constData());
            for (const char slip : {'"', '\\', '{', ']', ',', '9', '\0'}) {
                damaged[position] = slip;
                const Decoded<Invoice> read = decoded(damaged);
                QVERIFY2(read || !read.error().text().isEmpty(), place.constData());
            }
        }
    }

    void limits_data()
    {
        QTest::addColumn<QByteArray>("document");
        QTest::addColumn<QString>("error");
        const auto note = [](qsizetype size) {
            return invoiceWith("'note':'" + QByteArray(size, 'a') + '"');
        };
        const auto items = [](qsizetype count) {
            return invoiceWith("'items':[" + QByteArray("{},").repeated(count).chopped(1) + ']');
        };
        const QByteArray small = invoiceWith("'v':0");
        const QByteArray open(100'000, '[');
        const QByteArray closed(100'000, ']');
        QTest::newRow("longest text") << note(1'048'576) << "";
        QTest::newRow("longer text") << note(1'048'577) << "too large at note";
        QTest::newRow("most items") << items(10'000) << "";
        QTest::newRow("more items") << items(10'001) << "too large at items";
        QTest::newRow("largest file") << small + QByteArray(67'108'864 - small.size(), ' ') << "";
        QTest::newRow("larger file") << small + QByteArray(67'108'865 - small.size(), ' ') << "too large at ";
        QTest::newRow("deep") << invoiceWith("'items':" + open + closed) << "wrong type at items.0";
        QTest::newRow("deep and unknown") << invoiceWith("'v':" + open + closed) << "too large at v";
        QTest::newRow("deepest unknown")
            << invoiceWith("'v':" + QByteArray(64, '[') + QByteArray(64, ']')) << "";
        QTest::newRow("deep and never closed") << invoiceWith("'v':" + open) << "too large at v";
    }

    void limits()
    {
        QFETCH(QByteArray, document);
        const Decoded<Invoice> read = decoded(document);
        QTEST(read ? QString() : described(read.error()), "error");
    }
};

const ledra::test::RegisterSuite<JsonReaderTest> registration("json_reader_test");

#include "json_reader_test.moc"
