#include "model/clock.h"
#include "model/enumerations.h"
#include "model/timestamp.h"
#include "store/json_reader.h"
#include "store/ordered_json_encoder.h"
#include "support/test_suite.h"

#include <QTest>

#include <bit>
#include <cmath>
#include <functional>
#include <limits>
#include <random>

using namespace ledra;

namespace {

/// A value that encodes itself as a test says.
struct Scripted
{
    std::function<void(JSONEncoderState&)> script;
};

void encode(const Scripted& value, JSONEncoderState& state)
{
    value.script(state);
}

/// A value that writes an object of its own.
Scripted keyed(std::function<void(KeyedEncodingContainer&)> fill)
{
    return {[fill = std::move(fill)](JSONEncoderState& state) {
        KeyedEncodingContainer container = state.keyedContainer();
        fill(container);
    }};
}

template <class T>
QByteArray text(const T& value, std::set<JSONFormatting> formatting = {})
{
    OrderedJSONEncoder encoder;
    encoder.outputFormatting = std::move(formatting);
    encoder.userInfo["tag"] = 7;
    return encoder.encode(value).value_or("(error)");
}

} // namespace

class OrderedJsonTest : public test::Suite
{
    Q_OBJECT

private Q_SLOTS:
    void bothFormsKeepTheOrderOfKeys()
    {
        const Scripted value = keyed([](KeyedEncodingContainer& object) {
            object.encode("b", 14);
            object.nestedKeyedContainer("a");
            object.encode("0", keyed([](KeyedEncodingContainer& inner) { inner.encode("z/\"", true); }));
            UnkeyedEncodingContainer list = object.nestedUnkeyedContainer("list");
            list.nestedKeyedContainer().encode("x", 1.5);
            list.nestedUnkeyedContainer();
            list.encodeNil();
            object.encodeIfPresent("absent", std::optional<int>());
            object.encodeIfPresent("present", std::optional<int>(0));
        });
        const QByteArray compact =
            "{\"b\":14,\"a\":{},\"0\":{\"z/\\\"\":true},\"list\":[{\"x\":1.5},[],null],\"present\":0}\n";
        QCOMPARE(text(value), compact);
        QCOMPARE(text(value, {JSONFormatting::sortedKeys, JSONFormatting::withoutEscapingSlashes}), compact);
        const QByteArray pretty =
            "{\n  \"b\": 14,\n  \"a\": {},\n  \"0\": {\n    \"z/\\\"\": true\n  },\n  \"list\": [\n"
            "    {\n      \"x\": 1.5\n    },\n    [],\n    null\n  ],\n  \"present\": 0\n}\n";
        QCOMPARE(text(value, {JSONFormatting::prettyPrinted}), pretty);
    }

    void containersMayBeFilledLater()
    {
        const Scripted value = keyed([](KeyedEncodingContainer& object) {
            KeyedEncodingContainer early = object.nestedKeyedContainer("early");
            UnkeyedEncodingContainer list = object.nestedUnkeyedContainer("list");
            KeyedEncodingContainer first = list.nestedKeyedContainer();
            object.encode("late", 1);
            list.encode(2);
            first.encode("a", 3);
            early.encode("b", 4);
        });
        QCOMPARE(text(value), QByteArray(R"({"early":{"b":4},"list":[{"a":3},2],"late":1})") + '\n');
    }

    void strings_data()
    {
        QTest::addColumn<QString>("value");
        QTest::addColumn<QByteArray>("printed");
        QTest::newRow("empty") << "" << QByteArray("\"\"");
        QTest::newRow("slash and DEL") << "a/b\x7f" << QByteArray("\"a/b\x7f\"");
        QTest::newRow("quotes and backslash") << "\"\\" << QByteArray("\"\\\"\\\\\"");
        QTest::newRow("line breaks and tab") << "\n\r\t" << QByteArray("\"\\n\\r\\t\"");
        QTest::newRow("control characters")
            << "\x01\b\f\x1f" << QByteArray("\"\\u0001\\u0008\\u000c\\u001f\"");
        QTest::newRow("null character") << QString(QChar::Null) << QByteArray("\"\\u0000\"");
        QTest::newRow("not ASCII") << "ä€😀" << QByteArray("\"ä€😀\"");
    }

    void strings()
    {
        QFETCH(QString, value);
        QFETCH(QByteArray, printed);
        QCOMPARE(text(value), printed + '\n');
        QCOMPARE(text(keyed([&](KeyedEncodingContainer& object) { object.encode(value.toStdString(), 1); })),
                 '{' + printed + ":1}\n");
    }

    void scalars_data()
    {
        QTest::addColumn<QByteArray>("line");
        const auto row = [](const char* printed, const auto& value) {
            QTest::newRow(printed) << text(value);
        };
        for (const char* number :
             {"0.0", "-0.0", "40.0", "0.19", "-1234.5", "0.30000000000000004", "100000.0", "0.0001", "1e-05",
              "-1.5e-07", "9007199254740991.0", "9007199254740992.0", "9.007199254740994e+15", "-1e+16",
              "1e+100", "5e-324", "1.7976931348623157e+308"})
            row(number, QByteArray(number).toDouble());
        row("inf", std::numeric_limits<double>::infinity());
        row("0.1", 0.1F);
        row("16777216.0", 16777216.0F);
        row("1.6777218e+07", 16777218.0F);
        row("14", 14);
        row("-9223372036854775808", std::numeric_limits<std::int64_t>::min());
        row("18446744073709551615", std::numeric_limits<std::uint64_t>::max());
        row("65", std::uint8_t{65});
        row("false", false);
        row("\"Lump Sum\"", Unit::lumpSum);
        row("\"020CB4D2-16F4-4AE2-A076-AF8DDD7E6F51\"",
            QUuid(QStringLiteral("020cb4d2-16f4-4ae2-a076-af8ddd7e6f51")));
        row("793015200.0", Timestamp(793015200));
        row("[793015200.0]", std::vector<Timestamp>{Timestamp(793015200)});
        row("[\"important\",\"labels\",\"headline\"]",
            std::set{AccentColorUsage::headline, AccentColorUsage::important, AccentColorUsage::labels});
        row("null", Scripted{[](JSONEncoderState& state) { state.singleValueContainer().encodeNil(); }});
    }

    void scalars()
    {
        QFETCH(QByteArray, line);
        QCOMPARE(line, QByteArray(QTest::currentDataTag()) + '\n');
    }

    void nothingEncodedIsAnError()
    {
        const auto result = OrderedJSONEncoder().encode(Scripted{[](JSONEncoderState&) {}});
        QVERIFY(!result && !errorText(result.error()).isEmpty());
    }

    void pathsAndUserInfoReachEveryValue()
    {
        const Scripted path{[](JSONEncoderState& state) {
            SingleValueEncodingContainer container = state.singleValueContainer();
            std::string joined;
            for (const std::string& key : container.codingPath())
                joined += key + '/';
            container.encode(joined + std::to_string(std::any_cast<int>(container.userInfo().at("tag"))));
        }};
        const Scripted root = keyed([&](KeyedEncodingContainer& object) {
            object.encode("a", path);
            object.nestedKeyedContainer("b").encode("c", std::vector<Scripted>{path, path});
            UnkeyedEncodingContainer list = object.nestedUnkeyedContainer("d");
            list.encode(0);
            list.nestedUnkeyedContainer().encode(path);
        });
        QCOMPARE(text(path), QByteArray("\"7\"\n"));
        QCOMPARE(text(root),
                 QByteArray(R"({"a":"a/7","b":{"c":["b/c/0/7","b/c/1/7"]},"d":[0,["d/1/0/7"]]})") + '\n');
    }

    void doublesReadBackTheSame()
    {
        std::mt19937_64 random(20010101); // NOLINT(cert-msc51-cpp): the same numbers at each run
        std::vector<double> numbers;
        while (numbers.size() < 9000) {
            const auto any = std::bit_cast<double>(random());
            const double money = static_cast<double>(random() % 2'000'000'000) / 100 - 10'000'000;
            if (std::isfinite(any))
                numbers.insert(numbers.end(),
                               {any, money, std::ldexp(static_cast<double>(random() % 4096), 45)});
        }
        std::vector<double> readBack;
        JSONReader reader;
        const QByteArray document =
            text(keyed([&](KeyedEncodingContainer& object) { object.encode("numbers", numbers); }));
        const Decoded<void> read = reader.read(document, [&](JSONValue& root) {
            return root.members([&](std::string_view, JSONValue& list) {
                return list.elements([&](JSONValue& element) -> Decoded<void> {
                    readBack.push_back(element.number().value());
                    return {};
                });
            });
        });
        QVERIFY(read && readBack == numbers);
    }
};

const ledra::test::RegisterSuite<OrderedJsonTest> registration("ordered_json_test");

#include "ordered_json_test.moc"
