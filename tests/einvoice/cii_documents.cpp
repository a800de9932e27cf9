#include "cii_documents.h"

#include "cii_grammar.h"

#include <algorithm>
#include <array>
#include <random>
#include <set>

namespace ledra::test {
namespace {

constexpr std::array<std::string_view, 4> namespaces = {
    "urn:un:unece:uncefact:data:standard:CrossIndustryInvoice:100",
    "urn:un:unece:uncefact:data:standard:ReusableAggregateBusinessInformationEntity:100",
    "urn:un:unece:uncefact:data:standard:QualifiedDataType:100",
    "urn:un:unece:uncefact:data:standard:UnqualifiedDataType:100"};

/// Their prefixes, first the usual ones; empty for the default namespace. One set swaps the usual ones.
constexpr std::array<std::string_view, 4> prefixSets[] = {
    {"rsm", "ram", "qdt", "udt"}, {"a", "b", "c", "d"},         {"", "ram", "qdt", "udt"},
    {"rsm", "", "qdt", "udt"},    {"ram", "rsm", "udt", "qdt"}, {"x-1", "_", "Ä.b", ""}};

/// Values to draw from, parted by '|' and written as they stand; the first row that fits an element's name or
/// the end of its type counts. Codes and units that no list holds are among them, since the schema takes any.
constexpr struct Pool
{
    std::string_view fits, values;
} pools[] = {
    {"IBANID", "DE89370400440532013000|AT61 1904 3002 3457 3201|DE00|"},
    {"SubjectCode", "AAI|REG|ABL|PMD|SUR|TXD|?"},
    {"ExemptionReasonCode", "VATEX-EU-AE|VATEX-EU-O|VATEX-EU-132-1A|vatex-eu-ic|X"},
    {"CurrencyCode", "EUR|EUR|USD|CHF|JPY|XXX|EURO| EUR "},
    {"CountryID", "DE|AT|FR|GR|XI|ZZ|de"},
    {"DocumentCode", "380|380|381|384|389|326|325|875|130|50|916|999"},
    {"TaxTypeCode", "VAT|VAT|GST|vat"},
    {"TaxCategoryCode", "S|Z|E|AE|K|G|O|L|M|B|Q"},
    {"TimeReferenceCode", "5|29|72|3|35|432|0"},
    {"PaymentMeansCode", "1|10|30|42|48|49|54|57|58|59|68|97|ZZZ|-1"},
    {"AllowanceChargeReasonCode", "41|60|62|64|95|100|104|AA|ABL|FC|ZZZ|0"},
    {"Code", "1|A1|ZZZ|38 0| X |<![CDATA[C&D]]>|x&#x79;z|<?p?>7|ÄÖ|"},
    {"ID", "RE-2026-0815|0| 4711 |DE123456789|40123450009|urn:cen.eu:en16931:2017|Ä/7 &amp; 8|a<!-- b -->c|"},
    {"BinaryObject", "UERG|JVBERi0xLjQK|SGVs bG8g\nV2VsdA==|"},
    {"Text", "Müller &amp; Söhne GmbH|5 &lt; 7 &gt; 3|Gr&#xF6;&#223;e &#x1F600;|<![CDATA[<b>&amp;</b> & x]]>|"
             "vor<![CDATA[]]]]><![CDATA[>]]>nach|Zeile eins\nZeile zwei|Absatz\r\n&#13;&#10;\tEnde|שלום עולם|"
             "فاتورة رقم 123|😀👩‍👩‍👧|e\u0301 und é|  Leer  zeichen  |\u00A0\u202E|"
             "a<!-- <leer> -->b|c<?nicht lesen?>d|&quot;so&quot; &apos;und&apos; ]]&gt;|50% $x {y} \\n|"},
    {"", "0|-0.00|\t12.5\n|+7|.5|5.|&#32;42|007.10|1000000000000|0.12345678901234567|&#49;9|2<!--b-->3|"
         "<![CDATA[19]]>"}};

/// A format, a colon and the date; the schema neither knows formats nor calendars.
constexpr std::string_view oddDates =
    "102:20260230|102:20261301|102: 20260228 |102:2026-02-28|102:|:20260228|610:202602|616:202609";
constexpr std::string_view noises =
    "<!-- Kommentar: <Tag> & \"Zeichen\" -->|<!---->|<?pruefung ok='ja' > ?>|<!--\n<ram:ID>0</ram:ID>\n-->";

constexpr struct Attribute
{
    std::string_view type, name, values;
} attributes[] = {
    {"Amount", "currencyID", "EUR|USD|NOK|xyz"},
    {"Quantity", "unitCode", "H87|C62|HUR|DAY|KGM|MTR|LTR|XPP|stk|Stück| H87 |"},
    {"Measure", "unitCode", "KGM|DAY|MON|MTR|KiloGramm|"},
    {"WeightUnitMeasure", "unitCode", "KGM|TNE|XX"},
    {"ID", "schemeID", "0088|0060|0204|VA|FC|EM|9930| VA |"},
    {"ID", "schemeName", "&quot;Nummer&quot; &apos;A&apos;|K&#xF6;ln &lt;&amp;>|a&#10;b"},
    {"Code", "listID", "STI|TSP|UNSPSC|"},
    {"Code", "listVersionID", "19.0501|2.1"},
    {"Text", "languageID", "de|en-GB|ar"},
    {"BinaryObject", "mimeCode", "application/pdf|text/csv|image/png|text/html|"},
    {"BinaryObject", "filename", "Beleg &amp; Anlage.pdf|../../b&#246;se.xml|&#x202E;fdp.exe|a/b\\c|"}};

/// Types whose value is an element in itself, and the other element that hardly anybody writes.
constexpr struct Inner
{
    std::string_view type, prefix, name, values, rareName, rareValues;
} inners[] = {
    {"DateTime", "udt", "DateTimeString", "", "DateTime", "2024-02-29T12:00:00Z|1999-12-31T23:59:59.5+02:00"},
    {"FormattedDateTime", "qdt", "DateTimeString", "", "DateTimeString", "demnächst|"},
    {"Date", "udt", "DateString", "", "Date", "2026-12-31|2024-02-29Z"},
    {"Indicator", "udt", "Indicator", "true|false|1|0| true ", "IndicatorString", "true|ja|"}};

/// Draws stand in statements of their own wherever the order of evaluation is open.
struct CiiWriter
{
    CiiOrder order;
    std::mt19937 engine{order.seed};
    std::array<std::string_view, 4> prefixes = prefixSets[oneIn(2) ? 0 : below(std::size(prefixSets))];
    std::string newLine = pick("\n|\n|\r\n|");
    std::size_t indent = newLine.empty() ? 0 : below(5);
    std::string quote = pick("'|\"|\"");
    std::string equals = pick("=|=|=|=| = ");
    bool declaresOnUse = oneIn(6);
    std::size_t density = 1 + below(7);
    std::set<const CiiElement*> written = {};

    std::string document()
    {
        std::string text = oneIn(8) ? "\uFEFF<?xml" : "<?xml";
        text += attribute("version", "1.0") + attribute("encoding", pick("UTF-8|utf-8"));
        text += (oneIn(4) ? attribute("standalone", "yes") : "") + "?>";
        text += gap(0);
        const std::string content = children(ciiTypes().front(), 1, order.presence);
        text += tagged("rsm", ciiTypes().front().name, namespaceDeclarations(), content);
        return text + gap(0);
    }

    std::size_t below(std::size_t limit) { return engine() % limit; }
    bool oneIn(std::size_t chances) { return below(chances) == 0; }

    std::string pick(std::string_view values)
    {
        const auto bars = static_cast<std::size_t>(std::ranges::count(values, '|'));
        for (std::size_t skipped = below(bars + 1); skipped > 0; --skipped)
            values.remove_prefix(values.find('|') + 1);
        return std::string(values.substr(0, values.find('|')));
    }

    std::string gap(std::size_t level)
    {
        const std::string line = newLine + std::string(level * indent, indent == 1 ? '\t' : ' ');
        return oneIn(40) ? line + pick(noises) + line : line;
    }

    std::string attribute(std::string_view name, std::string_view value) const
    {
        return std::string(" ").append(name) + equals + quote + std::string(value) + quote;
    }

    std::string attributesOf(std::string_view type, Presence presence)
    {
        std::string text;
        for (const Attribute& candidate : attributes)
            if (candidate.type == type && oneIn(presence == Presence::all ? 1 : 3))
                text += attribute(candidate.name, pick(candidate.values));
        return text;
    }

    std::string namespaceDeclarations()
    {
        const std::size_t step = oneIn(2) ? 1 : 3;
        std::string text = oneIn(2) ? attribute("xmlns:more", "urn:ledra:unused") : "";
        for (std::size_t index = below(4), left = 4; left > 0; --left, index = (index + step) % 4) {
            const std::string name = prefixes[index].empty() ? "xmlns" : "xmlns:";
            text += attribute(name + std::string(prefixes[index]), namespaces[index]);
        }
        return text;
    }

    std::string tagged(std::string_view usual, std::string_view name, std::string own, std::string_view held)
    {
        const auto space =
            static_cast<std::size_t>(std::ranges::find(prefixSets[0], usual) - prefixSets[0].begin());
        const bool declares = declaresOnUse && usual.ends_with("dt");
        own += declares ? attribute("xmlns", namespaces[space]) : "";
        std::string tag(declares ? "" : prefixes[space]);
        tag.append(tag.empty() ? "" : ":").append(name);
        if (held.empty() && oneIn(2))
            return '<' + tag + own + (oneIn(2) ? " />" : "/>");
        return '<' + tag + own + '>' + std::string(held) + "</" + tag + (oneIn(20) ? "\n>" : ">");
    }

    std::string number()
    {
        std::string text = oneIn(6) ? "-" : "";
        text += std::to_string(below(oneIn(3) ? 1000000 : 1000));
        for (std::size_t left = below(6), all = left; left > 0; --left)
            text += (left == all ? "." : "") + std::to_string(below(10));
        return text;
    }

    std::string inner(const Inner& kind)
    {
        if (oneIn(16))
            return tagged(kind.prefix, kind.rareName, "", pick(kind.rareValues));
        if (!kind.values.empty())
            return tagged(kind.prefix, kind.name, "", pick(kind.values));
        std::size_t day = 1 + below(28);
        day += 100 * (1 + below(12));
        day += 10000 * (1999 + below(40));
        const std::string date = oneIn(4) ? pick(oddDates) : "102:" + std::to_string(day);
        const std::string format = date.front() == ':' ? "" : attribute("format", date.substr(0, 3));
        return tagged(kind.prefix, kind.name, format, date.substr(date.find(':') + 1));
    }

    std::string value(const CiiElement& element)
    {
        const auto* const kind = std::ranges::find(inners, element.type, &Inner::type);
        if (kind != std::end(inners))
            return inner(*kind);
        const auto* const pool = std::ranges::find_if(pools, [&](const Pool& candidate) {
            return element.name == candidate.fits || element.type.ends_with(candidate.fits);
        });
        std::string text = pool->fits.empty() && !oneIn(5) ? number() : pick(pool->values);
        while (element.type == "Text" && oneIn(3))
            text += pick(pool->values);
        return element.type == "Text" && oneIn(400) ? text.append(5000, 'x') : text;
    }

    int count(const CiiElement& element, std::size_t level, Presence presence)
    {
        const int most = element.max < 0 ? order.repetitions : element.max;
        if (presence == Presence::required)
            return element.min;
        const bool isCut = element.min == 0 && element.content != nullptr && level > 4;
        if (presence == Presence::all)
            return written.insert(&element).second || !isCut ? most : 0;
        const std::size_t rarity = element.content == nullptr ? 1 : std::clamp<std::size_t>(level - 1, 1, 3);
        if (element.min == 0 && below(8 * rarity) >= density)
            return 0;
        return 1 + static_cast<int>(below(static_cast<std::size_t>(most)));
    }

    /// What repeats is complete the first time only, or else a document would have millions of elements.
    std::string children(const CiiType& type, std::size_t level, Presence presence)
    {
        std::string text;
        for (const CiiElement& child : type.elements) {
            for (int done = 0, times = count(child, level, presence); done < times; ++done) {
                const Presence own = done == 0 ? presence : Presence::random;
                text += gap(level);
                std::string held = child.content ? children(*child.content, level + 1, own) : value(child);
                text += tagged(child.prefix, child.name, attributesOf(child.type, own), held);
            }
        }
        return text.empty() ? text : text + gap(level - 1);
    }
};

} // namespace

std::string ciiDocument(const CiiOrder& order)
{
    return CiiWriter{order}.document();
}

} // namespace ledra::test
