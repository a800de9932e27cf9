// Times the work on e-invoices, warm: making the XML of an invoice, putting it onto a finished PDF, and
// reading a large document beside libxml2. Prints one line "name seconds" for each median, which bench/run
// makes a table of.
//   usage: einvoice_bench INVOICE.json PAGE.pdf [XML-FILE]     with XML-FILE the XML is written there as well

#include "einvoice/xml_generator.h"
#include "einvoice/zugferd_generator.h"
#include "platform/file_io.h"
#include "store/invoice_json.h"
#include "timing.h"

#include <libxml/parser.h>

namespace {

using namespace ledra;
using bench::median;
using bench::require;
using bench::secondsOf;

constexpr int warmRounds = 50;
constexpr int rounds = 401;
constexpr qint64 largestInput = qint64{64} * 1024 * 1024;
constexpr std::size_t largeDocument = std::size_t{1024} * 1024; // bytes

template <class Work>
double warmMedian(int warm, int count, const Work& work)
{
    std::vector<double> times;
    for (int round = -warm; round < count; ++round) {
        const double seconds = secondsOf(work);
        if (round >= 0)
            times.push_back(seconds);
    }
    return median(times);
}

QByteArray made(const Invoice& invoice)
{
    static const Profile profile;
    return XMLGenerator::generate(invoice, profile, [](const QUuid&) { return std::nullopt; }).value();
}

void timeGeneration(const Invoice& invoice)
{
    qsizetype length = 0;
    std::printf("einvoice_cii_own %.9f\n",
                warmMedian(warmRounds, rounds, [&] { length = made(invoice).size(); }));
    require(length > 10'000, "the e-invoice is too short to be one");
}

void timeHybrid(const QByteArray& pdf, const QByteArray& xml)
{
    qsizetype length = 0;
    std::printf("einvoice_hybrid_own %.9f\n", warmMedian(warmRounds, rounds, [&] {
                    length = ZUGFeRDGenerator::createHybrid(pdf, xml).value().size();
                }));
    require(length > xml.size(), "the hybrid lacks the e-invoice");
}

void timeReading(Invoice invoice)
{
    const std::vector<Invoice::Item> items = invoice.items;
    std::string text = made(invoice).toStdString();
    while (text.size() < largeDocument) { // by a tenth of what is there, so that it ends a little above that
        const std::size_t more = invoice.items.size() / items.size() / 10 + 1;
        for (std::size_t i = 0; i < more; ++i)
            invoice.items.insert(invoice.items.end(), items.begin(), items.end());
        text = made(invoice).toStdString();
    }
    constexpr int parseRounds = 41; // in turn, so that both meet the same weather
    std::vector<double> own;
    std::vector<double> peer;
    for (int round = 0; round < parseRounds; ++round) {
        bool isRead = true;
        own.push_back(secondsOf([&] { isRead = XMLDocument::parse(text).has_value(); }));
        xmlDocPtr document = nullptr;
        peer.push_back(secondsOf([&] {
            document =
                xmlReadMemory(text.data(), static_cast<int>(text.size()), "", "UTF-8", XML_PARSE_NONET);
            if (document)
                xmlFreeDoc(document);
        }));
        require(isRead && document, "the large document cannot be read");
    }
    std::printf("einvoice_parse_bytes %zu\n", text.size());
    std::printf("einvoice_parse_own %.9f\neinvoice_parse_libxml2 %.9f\n", median(own), median(peer));
}

} // namespace

int main(int argc, char** argv)
{
    require(argc >= 3, "usage: einvoice_bench INVOICE.json PAGE.pdf [XML-FILE]");
    const auto json = readFile(QString::fromLocal8Bit(argv[1]), largestInput);
    const auto pdf = readFile(QString::fromLocal8Bit(argv[2]), largestInput);
    require(json && pdf, "the invoice or the PDF cannot be read");
    RandomIdSource ids;
    const Decoded<Invoice> invoice = decodeInvoice(*json, {SystemClock().now(), ids, QStringLiteral("DE")});
    require(invoice.has_value(), "the invoice cannot be read");
    const QByteArray xml = made(*invoice);
    if (argc > 3)
        require(writeExport(QString::fromLocal8Bit(argv[3]), xml, Overwrite::replace).has_value(),
                "the XML cannot be written");
    timeGeneration(*invoice);
    timeHybrid(*pdf, xml);
    timeReading(*invoice);
    return EXIT_SUCCESS;
}
