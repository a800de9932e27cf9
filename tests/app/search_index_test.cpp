#include "app/search_index.h"
#include "app/word_finder.h"
#include "model/new_invoices.h"
#include "support/test_suite.h"

using namespace ledra;

class SearchIndexTest : public test::Suite
{
    Q_OBJECT

private Q_SLOTS:
    void words_data();
    void words();
    void followsTheList();
    void typing();
    void finder();
};

namespace {

const Profile profile = newProfile(QUuid::createUuid(), QStringLiteral("DE"));

std::shared_ptr<InvoiceRecord> record(const char* name, const char* item, std::int64_t number)
{
    Invoice invoice = newInvoice(QUuid::createUuid(), Timestamp(), {});
    invoice.name = QString::fromUtf8(name);
    invoice.number = number;
    invoice.items.push_back({{}, QString::fromUtf8(item), 1, Unit::piece, 1, 0});
    return std::make_shared<InvoiceRecord>(invoice);
}

InvoiceList listOf(std::vector<InvoicePtr> records)
{
    return std::make_shared<const std::vector<InvoicePtr>>(std::move(records));
}

const QDeadlineTimer forever(QDeadlineTimer::Forever);

/// The places in which a text is found, one digit each.
QString placesOf(SearchIndex& index, const char* text)
{
    QString places;
    for (const std::uint32_t place : index.matches(QString::fromUtf8(text)))
        places += QString::number(place);
    return places;
}

} // namespace

void SearchIndexTest::words_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("found"); // positions
    QTest::newRow("nothing asked") << " " << "0123";
    QTest::newRow("either case") << "ÖZDEMIR" << "0";
    QTest::newRow("part of a word") << "nsch" << "3";
    QTest::newRow("in several texts of a record") << "zoë tür" << "1";
    QTest::newRow("words of two records") << "zoë özdemir" << "";
    QTest::newRow("across two texts") << "Brücknertür" << "";
    QTest::newRow("number") << "2001-012" << "2";
    QTest::newRow("the last") << "ende" << "3";
    QTest::newRow("outside the basic plane") << "🦊" << "2";
    QTest::newRow("longer than everything") << QString(5000, u'x') << "";
}

void SearchIndexTest::words()
{
    SearchIndex index;
    index.follow(listOf({record("Aylin Özdemir", "Übersetzung", 10),
                         record("Zoë Brückner", "Tür und Rahmen\nin Weiß", 11), record("", "Fuchs 🦊", 12),
                         record("Mensch", "am Ende", 13)}),
                 SearchIndex::Known::isOutdated);
    QVERIFY(index.advance(profile, forever));
    QFETCH(QString, text);
    QTEST(placesOf(index, text.toUtf8().constData()), "found");
}

/// Records that were edited, moved, added or left out between two states, the second of which is cut off
/// once.
void SearchIndexTest::followsTheList()
{
    std::vector<InvoicePtr> records;
    std::vector<std::shared_ptr<InvoiceRecord>> editable;
    constexpr int count = 500;
    for (int i = 0; i < count; ++i)
        records.push_back(editable.emplace_back(record("Kunde", "gleich", i)));
    SearchIndex index;
    index.follow(listOf(records), SearchIndex::Known::isOutdated);
    QVERIFY(index.advance(profile, forever));

    editable[7]->edit([](Invoice& invoice) { invoice.name = QStringLiteral("verändert"); });
    editable[3]->edit([](Invoice& invoice) { invoice.name = QStringLiteral("verändert"); });
    std::vector<InvoicePtr> next = records;
    std::rotate(next.begin(), next.begin() + 7, next.begin() + 8); // to the front
    next.erase(next.begin() + 100, next.begin() + 300);            // further than is looked ahead
    next.insert(next.begin() + 2, record("verändert", "neu", count));
    index.follow(listOf(next), SearchIndex::Known::stays);
    QVERIFY(!index.advance(profile, QDeadlineTimer(0)));
    index.follow(listOf(next), SearchIndex::Known::stays);
    QVERIFY(index.advance(profile, forever));
    QCOMPARE(placesOf(index, "verändert"), QStringLiteral("025"));
    QCOMPARE(index.matches(QStringLiteral("gleich")).size(), next.size() - 1);

    Profile renumbered = profile;
    renumbered.numberFormat = QStringLiteral("Beleg ");
    index.follow(listOf(next), SearchIndex::Known::isOutdated);
    QVERIFY(index.advance(renumbered, forever));
    QCOMPARE(index.matches(QStringLiteral("beleg")).size(), next.size());
}

/// What was found for a shorter text narrows the search, in whichever order texts come.
void SearchIndexTest::typing()
{
    SearchIndex index;
    index.follow(listOf({record("Meier", "Mauer", 1), record("Meyer", "Putz", 2), record("Maier", "Meise", 3),
                         record("Nagel", "Seife", 4), record("Bauer", "Leim", 5), record("Braun", "Kalk", 6),
                         record("Mei", "Eier", 7), record("Kern", "Stein", 8), record("Lang", "Holz", 9)}),
                 SearchIndex::Known::isOutdated);
    QVERIFY(index.advance(profile, forever));
    const std::pair<const char*, const char*> steps[] = {
        {"m", "01246"}, {"me", "0126"},    {"mei", "026"},     {"meie", "0"},
        {"mei", "026"}, {"mei e", "026"},  {"e mei", "026"},   {"ei", "023467"},
        {"eier", "06"}, {"", "012345678"}, {"meier eier", "0"}};
    for (const auto& [text, found] : steps)
        QCOMPARE(placesOf(index, text) + QLatin1String(text), QLatin1String(found) + QLatin1String(text));
}

/// Against the standard library's search, in texts of few letters so that nearly everything nearly fits.
void SearchIndexTest::finder()
{
    std::string text;
    std::array<std::size_t, 256> counts{};
    for (unsigned state = 1; text.size() < 90; state = state * 1103515245 + 12345) {
        text += "aab\n"[state >> 16 & 3];
        ++counts[static_cast<unsigned char>(text.back())];
    }
    for (const char* word : {"a", "b", "aa", "ab", "ba", "bb", "aba", "aabaa", "baabaaab", "aaaaaaaaaab"}) {
        const WordFinder finder(word, counts);
        for (std::size_t from = 0; from < text.size(); ++from) {
            for (std::size_t end = from; end <= text.size(); ++end)
                QCOMPARE(finder.find(text, from, end),
                         std::string_view(text).substr(0, end).find(word, from));
        }
    }
}

const ledra::test::RegisterSuite<SearchIndexTest> registration("search_index_test");

#include "search_index_test.moc"
