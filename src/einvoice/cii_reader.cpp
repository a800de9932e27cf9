#include "einvoice/cii_reader.h"

#include "einvoice/cii_paths.h"
#include "einvoice/cii_text.h"
#include "einvoice/cii_units.h"
#include "einvoice/xml_text.h"

#include <charconv>

namespace ledra {

namespace {

QString textAt(const Element& element, std::string_view path)
{
    return QString::fromStdString(element.textAt(path));
}

/// A code, around which white space means nothing.
QString codeAt(const Element& element, std::string_view path)
{
    const std::string text = element.textAt(path);
    const std::string_view code = trimmed(text);
    return QString::fromUtf8(code.data(), static_cast<qsizetype>(code.size()));
}

double numberAt(const Element& element, std::string_view path)
{
    return decimalFrom(element.textAt(path)).value_or(0);
}

/// Returns whether there is a day.
bool readDay(const Element& root, std::string_view path, Timestamp& moment)
{
    // At noon, so that no time zone of the neighbourhood moves the day.
    const std::optional<QDate> day = dayFrom(root.textAt(path));
    if (day)
        moment = Timestamp::fromDateTime(QDateTime(*day, QTime(12, 0)));
    return day.has_value();
}

std::int64_t integerFrom(const std::string& text)
{
    const std::string_view digits = trimmed(text);
    std::int64_t number = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    return error == std::errc() && end == digits.data() + digits.size() ? number : 0;
}

Invoice::Item readItem(const Element& line, IdSource& ids)
{
    Invoice::Item item;
    item.id = ids.newId();
    item.item = textAt(line, "SpecifiedTradeProduct/Name");
    item.quantity = numberAt(line, "BilledQuantity");
    if (const Element* quantity = line.find("BilledQuantity"))
        item.unit = unitFromCode(quantity->attribute("unitCode").value_or(std::string_view()));
    item.unitPrice = numberAt(line, "NetPriceProductTradePrice/ChargeAmount");
    item.vatPercentage = numberAt(line, "ApplicableTradeTax/RateApplicablePercent");
    return item;
}

} // namespace

bool isCrossIndustryInvoice(const Element& root)
{
    return root.localName() == "CrossIndustryInvoice";
}

CiiHeader readCrossIndustryInvoice(const Element& root, Invoice& invoice, IdSource& ids)
{
    CiiHeader header{textAt(root, "ExchangedDocument/ID"),
                     integerFrom(root.textAt("ExchangedDocument/TypeCode")),
                     dayFrom(root.textAt("DueDateDateTime/DateTimeString"))};
    if (header.typeCode == creditNoteCode)
        invoice.type = InvoiceType::cancellation;
    for (const TextPath& row : sharedTextPaths)
        invoice.*row.field = textAt(root, row.path);
    invoice.senderIban = textAt(root, "PayeePartyCreditorFinancialAccount/IBANID");
    header.hasDate = readDay(root, "ExchangedDocument/IssueDateTime/DateTimeString", invoice.date);
    header.hasServiceDate = readDay(root, "OccurrenceDateTime/DateTimeString", invoice.serviceDateStart);
    const QString reference = textAt(root, "ApplicableHeaderTradeAgreement/BuyerReference");
    if (!reference.isEmpty() && reference != noOrderNumber)
        invoice.reference = reference;
    invoice.senderAddressCountry.code = codeAt(root, "SellerTradeParty/PostalTradeAddress/CountryID");
    invoice.addressCountry.code = codeAt(root, "BuyerTradeParty/PostalTradeAddress/CountryID");
    if (const QString currency = codeAt(root, "InvoiceCurrencyCode"); !currency.isEmpty())
        invoice.currency.code = currency;
    if (const double allowance = numberAt(root, "AllowanceTotalAmount"); allowance > 0)
        invoice.discountAmount = allowance;
    root.forEach("IncludedSupplyChainTradeLineItem",
                 [&](const Element& line) { invoice.items.push_back(readItem(line, ids)); });
    return header;
}

} // namespace ledra
