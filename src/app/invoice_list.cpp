#include "app/invoice_list.h"

#include "model/displayed_number.h"
#include "store/invoice_json.h"

#include <span>
#include <thread>

namespace ledra {

namespace {

/// One object of the list.
struct Row
{
    const Invoice& invoice;
    const Profile& profile;
    Timestamp now;
};

void encode(const Row& row, JSONEncoderState& state)
{
    const Invoice& invoice = row.invoice;
    KeyedEncodingContainer object = state.keyedContainer();
    object.encode("id", invoice.id);
    object.encode("type", invoice.type);
    object.encode("number", invoice.number);
    object.encode("formattedNumber", displayedNumber(invoice, row.profile));
    object.encode("status", invoice.status);
    object.encode("date", dayText(invoice.date.localDate()));
    object.encode("dueDate", dayText(invoice.dueDay()));
    object.encode("name", recipientName(invoice));
    object.encode("total", invoice.total());
    object.encode("currency", invoice.currency);
    object.encode("isOverdue", invoice.isOverdue(row.now));
}

// Long lists are written in parts, side by side, whose texts are joined.
constexpr std::size_t fewRows = 1000;
constexpr QByteArrayView arrayBegin = "[\n";
constexpr QByteArrayView arrayEnd = "\n]\n";

QByteArray arrayText(std::span<const InvoicePtr> invoices, const Profile& profile, Timestamp now)
{
    std::vector<Row> rows;
    rows.reserve(invoices.size());
    for (const InvoicePtr& invoice : invoices)
        rows.push_back({**invoice, profile, now});
    OrderedJSONEncoder encoder;
    encoder.outputFormatting = {JSONFormatting::prettyPrinted};
    return encoder.encode(rows).value_or(QByteArray());
}

} // namespace

QString recipientName(const Invoice& invoice)
{
    return invoice.businessName.isEmpty() ? invoice.name : invoice.businessName;
}

QByteArray listJson(const std::vector<InvoicePtr>& invoices, const Profile& profile, Timestamp now)
{
    const std::size_t parts =
        invoices.size() < fewRows ? 1 : std::max(1U, std::thread::hardware_concurrency());
    std::vector<QByteArray> texts(parts);
    const auto write = [&](std::size_t part) {
        const std::span all(invoices);
        const std::size_t begin = all.size() * part / parts;
        const std::size_t end = all.size() * (part + 1) / parts;
        texts[part] = arrayText(all.subspan(begin, end - begin), profile, now);
    };
    {
        std::vector<std::jthread> threads;
        for (std::size_t part = 1; part < parts; ++part)
            threads.emplace_back(write, part);
        write(0);
    }
    QByteArray text = texts.front();
    for (std::size_t part = 1; part < parts; ++part) {
        text.chop(arrayEnd.size());
        text += ",\n" + texts[part].mid(arrayBegin.size());
    }
    return text;
}

} // namespace ledra
