// Writes and reads ten thousand invoice files in memory, with this project's own code and with nlohmann's
// library in turn. Prints one line "name seconds" for each median, which bench/run makes a table of.

#include "nlohmann_invoice.h"
#include "sample_invoices.h"
#include "store/invoice_json.h"
#include "timing.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace {

using namespace ledra;
using bench::median;
using bench::require;
using bench::secondsOf;

constexpr int invoiceCount = 10'000;
constexpr int rounds = 5;

/// Seconds of each round.
struct Times
{
    std::vector<double> encoding;
    std::vector<double> reading;

    std::vector<double> sums() const
    {
        std::vector<double> sums(encoding.size());
        std::ranges::transform(encoding, reading, sums.begin(), std::plus());
        return sums;
    }
};

std::vector<QByteArray> ownRound(const std::vector<Invoice>& invoices, Times& times)
{
    std::vector<QByteArray> files(invoices.size());
    times.encoding.push_back(
        secondsOf([&] { std::ranges::transform(invoices, files.begin(), fileText<Invoice>); }));

    std::vector<Invoice> read;
    read.reserve(invoices.size());
    RandomIdSource ids;
    const NewRecordValues values{SystemClock().now(), ids, QStringLiteral("DE")};
    times.reading.push_back(secondsOf([&] {
        JSONReader reader;
        for (const QByteArray& file : files)
            read.push_back(decodeInvoice(file, values, reader).value());
    }));
    require(read == invoices, "reading differs from what was written");
    return files;
}

std::vector<std::string> peerRound(const std::vector<Invoice>& invoices, Times& times)
{
    std::vector<std::string> files(invoices.size());
    times.encoding.push_back(secondsOf([&] {
        std::ranges::transform(invoices, files.begin(), [](const Invoice& invoice) {
            return nlohmann::ordered_json(invoice).dump(2) + '\n';
        });
    }));

    std::vector<Invoice> read;
    read.reserve(invoices.size());
    times.reading.push_back(secondsOf([&] {
        for (const std::string& file : files)
            nlohmann::ordered_json::parse(file).get_to(read.emplace_back());
    }));
    require(read == invoices, "the peer's reading differs from what was written");
    return files;
}

void report(const char* who, const Times& times)
{
    std::printf("json_encode_%s %.6f\n", who, median(times.encoding));
    std::printf("json_read_%s %.6f\n", who, median(times.reading));
    std::printf("json_sum_%s %.6f\n", who, median(times.sums()));
}

} // namespace

int main()
{
    const std::vector<Invoice> invoices = bench::sampleInvoices(invoiceCount);
    Times own;
    Times peer;
    for (int round = 0; round < rounds; ++round) {
        const std::vector<QByteArray> ownFiles = ownRound(invoices, own);
        const std::vector<std::string> peerFiles = peerRound(invoices, peer);
        require(std::ranges::equal(ownFiles, peerFiles, {}, &QByteArray::toStdString),
                "the two write different files");
    }
    report("own", own);
    report("peer", peer);
    return EXIT_SUCCESS;
}
