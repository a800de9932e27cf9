#include "app/earlier_entries.h"
#include "app/item_text.h"
#include "app/smart_lists.h"
#include "support/sample_invoice.h"
#include "support/store_home.h"
#include "support/test_suite.h"

using namespace ledra;
using test::sampleItem;

namespace {

InvoicePtr record(const std::function<void(Invoice&)>& change)
{
    Invoice invoice = test::sampleInvoice();
    invoice.id = QUuid::createUuid();
    invoice.items = {sampleItem(QStringLiteral("Entwurf für Café"), 1, Unit::hour, 100, 0)};
    change(invoice);
    return std::make_shared<InvoiceRecord>(invoice);
}

QString textOf(const std::vector<SmartListContent>& lists)
{
    QStringList texts;
    for (const SmartListContent& content : lists) {
        QString text = QString::number(content.count);
        for (const auto& sum : content.sums)
            text += QStringLiteral(" %1%2").arg(sum.currency.code).arg(sum.total);
        texts += content.list.year > 0 ? QStringLiteral("%1: ").arg(content.list.year) + text : text;
    }
    return texts.join(QStringLiteral(" | "));
}

const ValueReading german{QLocale(QLocale::German)};

} // namespace

/// What the window's lists and completions are made from.
class WindowListsTest : public test::Suite
{
    Q_OBJECT

private Q_SLOTS:
    void smartLists();
    void recipients();
    void items();
    void pastedTables_data();
    void pastedTables();
    void pastedNumbersInEitherLanguage();
    void copiedTablesComeBack();
};

void WindowListsTest::smartLists()
{
    const auto with = [](Status status, InvoiceType type = InvoiceType::invoice, int year = 2026,
                         const char* currency = "EUR") {
        return record([&](Invoice& invoice) {
            invoice.status = status;
            invoice.type = type;
            invoice.date = test::noon(year, 4, 1);
            invoice.daysToPay = 14;
            invoice.currency.code = QString::fromLatin1(currency);
        });
    };
    std::vector<InvoicePtr> invoices = {with(Status::draft),
                                        with(Status::sent),
                                        with(Status::sent, InvoiceType::invoice, 2025, "USD"),
                                        with(Status::paid),
                                        with(Status::cancelled),
                                        with(Status::draft, InvoiceType::quote),
                                        with(Status::sent, InvoiceType::quote, 2025)};
    SmartLists contents;
    std::uint64_t revision = 0;
    const auto contentsOf = [&](const std::vector<InvoicePtr>& records) {
        const auto list = std::make_shared<const std::vector<InvoicePtr>>(records);
        contents.prepare(list, ++revision, QDeadlineTimer(0)); // cut off at once, or not
        return contents.contents(list, revision, test::noon(2026, 4, 10));
    };
    const auto lists = contentsOf(invoices);
    // All, drafts, sent, overdue, paid, cancelled, quotes, and the years.
    QCOMPARE(textOf(lists),
             QStringLiteral("7 EUR400 USD100 | 1 EUR100 | 2 EUR100 USD100 | 1 USD100 | 1 EUR100 | "
                            "1 EUR100 | 2 EUR200 | 2026: 5 EUR400 | 2025: 2 USD100"));
    QCOMPARE(textOf(contentsOf({})), QStringLiteral("0 | 0 | 0 | 0 | 0 | 0 | 0"));

    // A list shows as many records as it counts.
    test::StoreHome home;
    ProfileManager profiles(home.context);
    InvoiceManager manager(home.context, profiles);
    for (const InvoicePtr& invoice : invoices)
        QVERIFY(manager.insert(**invoice));
    home.clock.set("2026-04-10T12:00:00Z");
    FilterManager filters(manager, profiles, home.clock);
    for (const SmartListContent& content : lists)
        QCOMPARE(filters.filtered(filterOf(content.list)).size(), content.count);

    // What is known of records that stay holds only until they change.
    const auto changing = std::make_shared<InvoiceRecord>(**invoices[3]);
    invoices[3] = changing;
    QCOMPARE(textOf(contentsOf(invoices)), textOf(lists));
    changing->edit([](Invoice& invoice) { invoice.items.push_back(invoice.items.front()); });
    invoices.erase(invoices.begin() + 1);
    invoices.push_back(with(Status::draft, InvoiceType::invoice, 2024, "CHF"));
    QCOMPARE(textOf(contentsOf(invoices)),
             QStringLiteral(
                 "7 CHF100 EUR400 USD100 | 2 CHF100 EUR100 | 1 USD100 | 1 USD100 | 1 EUR200 | 1 EUR100 | "
                 "2 EUR200 | 2026: 4 EUR400 | 2025: 2 USD100 | 2024: 1 CHF100"));
}

void WindowListsTest::recipients()
{
    const auto to = [](const char* name, const char* business, const char* city) {
        return record([&](Invoice& invoice) {
            invoice.name = QString::fromUtf8(name);
            invoice.businessName = QString::fromUtf8(business);
            invoice.addressCity = QString::fromUtf8(city);
        });
    };
    const EarlierEntries entries({to("Jürgen Weiß", "Weiß & Söhne", "Köln"),
                                  to("jürgen weiß", "Weiß & Söhne", "Köln"), to("Zoë Brückner", "", "Weimar"),
                                  to("", "", "Bonn")});
    const auto found = [&](const char* text) {
        QStringList cities;
        for (const Recipient& recipient : entries.recipients(QString::fromUtf8(text), 5))
            cities += recipient.addressCity;
        return cities.join(u' ');
    };
    QCOMPARE(found("wei"), QStringLiteral("Köln Weimar")); // the newest first
    QCOMPARE(found("JUR"), QStringLiteral("Köln"));
    QCOMPARE(found("soh koln"), QStringLiteral("Köln"));
    QCOMPARE(found("eiß"), QString()); // within a word
    QCOMPARE(found("Weiß & Co"), QString());
    QCOMPARE(found(""), QStringLiteral("Köln Weimar"));
    QCOMPARE(entries.recipients(QString(), 1).size(), std::size_t{1});
    Invoice invoice;
    setRecipient(invoice, entries.recipients(QStringLiteral("zoe"), 1).front());
    QVERIFY(invoice.name == u"Zoë Brückner" && recipientOf(invoice).email.isEmpty());
}

void WindowListsTest::items()
{
    const auto sold = [](const char* text, double price) {
        return record([&](Invoice& invoice) {
            invoice.items = {sampleItem(QString::fromUtf8(text), 3, Unit::day, price, 7)};
        });
    };
    const EarlierEntries entries(
        {sold("Entwurf für Café", 90), sold("entwurf FÜR cafe", 80), sold("Druck", 5)});
    const auto found = entries.items(QStringLiteral("ent caf"), 5);
    QCOMPARE(found.size(), std::size_t{1});
    QVERIFY(found.front().unitPrice == 90 && found.front().unit == Unit::day && found.front().id.isNull());
}

void WindowListsTest::pastedTables_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("items");
    const auto row = [](const char* title, const char* text, const char* items) {
        QTest::newRow(title) << QByteArray(text) << QString::fromUtf8(items);
    };
    row("whole lines", "Entwurf\t2,5\tHour\t80,00\t19\r\nDruck\t1\tLump Sum\t1.234,50 €\t7 %\r\n",
        "Entwurf 2.5 Hour 80 19|Druck 1 Lump Sum 1234.5 7");
    row("titles", "Text\tMenge\tEinheit\tPreis\nA\t2\t\t3", "A 2 Piece 3 19");
    row("units as shown", "A\t2\t STUNDEN \nB\t1\tLump sums\nC\t1\tpauschal\nD\t3\t\u00a0st\u00fcck\u00a0",
        "A 2 Hour 0 19|B 1 Lump Sum 0 19|C 1 Lump Sum 0 19|D 3 Piece 0 19");
    row("texts alone", "A\n\nB\n", "A 1 Piece 0 19|B 1 Piece 0 19");
    row("quotes", "\"A\n\"\"b\"\"\t\"\t1\tday\t9", "A\n\"b\"\t 1 Day 9 19");
    row("nothing", " \n", "");
    row("wrong unit", "A\t1\tHour\t5\n\nB\t1\tmile\t5", "! line 3: unit: \"mile\" is none of ");
    row("wrong number", "A\t1-2\t\t3", "! line 1: quantity: \"1-2\" is not a number");
    row("open quote", "\"A\t1", "! line 1: a quotation mark is not closed");
    row("too many cells", "A\t1\tHour\t1\t19\tmore", "! line 1: more than ");
}

void WindowListsTest::pastedTables()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, items);
    RandomIdSource ids;
    Profile profile;
    profile.vatPercentage = 19;
    const auto found = itemsFromTable(QString::fromUtf8(text), profile, ids, german);
    QStringList texts;
    for (const Invoice::Item& item : found.value_or(std::vector<Invoice::Item>()))
        texts += QStringLiteral("%1 %2 %3 %4 %5")
                     .arg(item.item)
                     .arg(item.quantity)
                     .arg(displayText(item.unit))
                     .arg(item.unitPrice)
                     .arg(item.vatPercentage);
    const QString result =
        found ? texts.join(u'|')
              : QStringLiteral("! line %1: %2").arg(found.error().line).arg(found.error().text);
    QVERIFY2(found ? result == items : result.startsWith(items), qPrintable(result));
}

/// Whichever mark the spreadsheet writes; only a lone one before three digits is the language's to decide.
void WindowListsTest::pastedNumbersInEitherLanguage()
{
    struct Row
    {
        const char* cell;
        double german;
        double english;
    };
    constexpr std::array rows = {Row{"2,5", 2.5, 2.5},
                                 Row{"95.50", 95.5, 95.5},
                                 Row{"0,333", 0.333, 0.333},
                                 Row{"1.250,75\u00a0€", 1250.75, 1250.75},
                                 Row{"EUR 1,250.00", 1250, 1250},
                                 Row{"1\u00a0250,75 Fr.", 1250.75, 1250.75},
                                 Row{"19,0 %", 19, 19},
                                 Row{"1.250", 1250, 1.25}};
    RandomIdSource ids;
    for (const Row& row : rows) {
        const QString line = QStringLiteral("A\t%1\t\t%1\t%1").arg(QString::fromUtf8(row.cell));
        const auto read = [&](const QLocale& locale) {
            const Invoice::Item item = itemsFromTable(line, Profile(), ids, {locale}).value().at(0);
            return QList<double>{item.quantity, item.unitPrice, item.vatPercentage};
        };
        QCOMPARE(read(german.locale), QList<double>(3, row.german));
        QCOMPARE(read(QLocale(QLocale::English, QLocale::UnitedKingdom)), QList<double>(3, row.english));
    }
}

void WindowListsTest::copiedTablesComeBack()
{
    RandomIdSource ids;
    const std::vector<Invoice::Item> items = {
        sampleItem(QStringLiteral("Mit \"Zitat\"\nund\tTab"), 1.5, Unit::lumpSum, 1234.56, 7.7),
        sampleItem(QStringLiteral("B"), 0.001, Unit::piece, -5, 19)};
    auto again = itemsFromTable(tableOf(items, german.locale), Profile(), ids, german).value();
    for (std::size_t i = 0; i < items.size(); ++i)
        again.at(i).id = items[i].id;
    QVERIFY(again == items);
}

const ledra::test::RegisterSuite<WindowListsTest> registration("window_lists_test");

#include "window_lists_test.moc"
