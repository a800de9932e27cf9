#include "app/invoice_summary.h"

#include "model/amount_text.h"
#include "model/displayed_number.h"
#include "model/document_labels.h"
#include "model/html_text.h"
#include "model/postal_address.h"
#include "store/invoice_json.h"

#include <algorithm>

namespace ledra {

namespace {

constexpr Language terminalLanguage = Language::english;
constexpr int labelWidth = 16;
constexpr int descriptionWidth = 44;
constexpr int amountWidth = 16;

QString field(const char* label, const QString& value)
{
    if (value.isEmpty())
        return {};
    return QString::fromLatin1(label).leftJustified(labelWidth) + value + u'\n';
}

class SummaryWriter
{
public:
    explicit SummaryWriter(const InvoiceSummary& summary) : summary_(summary), invoice_(summary.invoice) {}

    QString text() const { return heading() + u'\n' + items() + u'\n' + totals(); }

private:
    QString amount(double value) const { return amountText(value, invoice_.currency, terminalLanguage); }

    QString day(std::string_view key, QDate day) const
    {
        return summary_.isStated(key) ? dayText(day) : QString();
    }

    QString heading() const
    {
        const ReceivedHead* received = summary_.received;
        const bool overdue = invoice_.isOverdue(summary_.now);
        const QString due =
            day("dueDate", invoice_.dueDay()) + (overdue ? QStringLiteral(" (overdue)") : QString());
        const bool isQuote = invoice_.type == InvoiceType::quote;
        return (received ? received->title : displayText(invoice_.type)) + u' ' +
               displayedNumber(invoice_, summary_.profile) + u'\n' +
               field("Status", received ? QString() : displayText(invoice_.status)) +
               field("Date", day("date", invoice_.date.localDate())) +
               field(isQuote ? "Valid until" : "Due", due) +
               field("From", senderAddress(invoice_).firstName()) +
               field("To", recipientAddress(invoice_).lines().join(QStringLiteral(", "))) +
               field("Reference", invoice_.reference.value_or(QString()));
    }

    QString items() const
    {
        QString lines;
        for (const Invoice::Item& item : invoice_.items) {
            const QString description = textLines(item.item).value(0);
            const QString shown = description.size() > descriptionWidth
                                      ? description.left(descriptionWidth - 1) + u'…'
                                      : description;
            const QString quantity = quantityText(item.quantity, terminalLanguage) + u' ' +
                                     unitLabel(item.unit, item.quantity, terminalLanguage);
            lines += shown.leftJustified(descriptionWidth) + quantity.rightJustified(amountWidth) +
                     amount(item.unitPrice).rightJustified(amountWidth) +
                     amount(invoice_.lineNet(item)).rightJustified(amountWidth) + u'\n';
        }
        return lines;
    }

    QString total(const QString& label, double value) const
    {
        const int before = descriptionWidth + amountWidth;
        return QString(before, u' ') + label.rightJustified(amountWidth) +
               amount(value).rightJustified(amountWidth) + u'\n';
    }

    QString totals() const
    {
        QString lines = total(QStringLiteral("Subtotal"), invoice_.subtotal());
        if (invoice_.discount() != 0)
            lines += total(QStringLiteral("Discount"), -invoice_.discount());
        for (const VATAmount& vat : invoice_.vatAmounts())
            lines += total(QStringLiteral("VAT ") + percentText(vat.rate, terminalLanguage), vat.amount);
        return lines + total(QStringLiteral("Total"), invoice_.total());
    }

    const InvoiceSummary& summary_;
    const Invoice& invoice_;
};

/// The keys of the record's file, but for those that its document says nothing of.
void encodeStated(const InvoiceSummary& summary, KeyedEncodingContainer& object)
{
    const auto encodeOne = [&](const auto& entry) {
        if (summary.isStated(entry.name))
            encodeEntry(entry, summary.invoice, object);
    };
    std::apply([&](const auto&... entry) { (encodeOne(entry), ...); }, jsonSchema<Invoice>);
}

} // namespace

void encode(const InvoiceSummary& summary, JSONEncoderState& state)
{
    const Invoice& invoice = summary.invoice;
    KeyedEncodingContainer object = state.keyedContainer();
    encodeStated(summary, object);
    object.encode("formattedNumber", displayedNumber(invoice, summary.profile));
    object.encode("subtotal", invoice.subtotal());
    object.encode("discount", invoice.discount());
    UnkeyedEncodingContainer amounts = object.nestedUnkeyedContainer("vatAmounts");
    for (const VATAmount& vat : invoice.vatAmounts()) {
        KeyedEncodingContainer entry = amounts.nestedKeyedContainer();
        entry.encode("rate", vat.rate);
        entry.encode("amount", vat.amount);
    }
    object.encode("total", invoice.total());
    if (!summary.isStated("dueDate"))
        return;
    object.encode("dueDate", dayText(invoice.dueDay()));
    object.encode("isOverdue", invoice.isOverdue(summary.now));
}

QByteArray summaryJson(const Invoice& invoice, const Profile& profile, Timestamp now)
{
    OrderedJSONEncoder encoder;
    encoder.outputFormatting = {JSONFormatting::prettyPrinted};
    return encoder.encode(InvoiceSummary{invoice, profile, now}).value();
}

QString summaryText(const InvoiceSummary& summary)
{
    return SummaryWriter(summary).text();
}

} // namespace ledra
