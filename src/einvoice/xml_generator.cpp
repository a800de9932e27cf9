#include "einvoice/xml_generator.h"

#include "einvoice/cii_line_items.h"
#include "einvoice/cii_paths.h"
#include "einvoice/cii_text.h"
#include "einvoice/missing_fields.h"
#include "einvoice/resource_text.h"
#include "model/displayed_number.h"
#include "model/document_labels.h"

#include <array>
#include <span>

namespace ledra {

namespace {

// What stands in a second place; it is not read there.
constexpr std::array furtherTextPaths = {
    TextPath{"SellerTradeParty/DefinedTradeContact/PersonName", &Invoice::senderName},
    TextPath{"SellerTradeParty/URIUniversalCommunication/URIID", &Invoice::senderEmail},
    TextPath{"PayeePartyCreditorFinancialAccount/AccountName", &Invoice::senderName},
};

std::string withoutWhiteSpace(QString text)
{
    return text.removeIf([](QChar c) { return c.isSpace(); }).toStdString();
}

std::string day(Timestamp moment)
{
    return ciiDate(moment.localDate());
}

void setHeader(Element& root, const Invoice& invoice, const Profile& profile)
{
    const bool isCancellation = invoice.type == InvoiceType::cancellation;
    const Timestamp service = invoice.serviceDateEnd.value_or(invoice.serviceDateStart);
    root.setText("ExchangedDocument/ID", displayedNumber(invoice, profile).toStdString());
    root.setText("ExchangedDocument/TypeCode", isCancellation ? "381" : "380"); // UNTDID 1001
    root.setText("ExchangedDocument/IssueDateTime/DateTimeString", day(invoice.date));
    root.setText("ApplicableHeaderTradeAgreement/BuyerReference",
                 invoice.reference.value_or(QString()).toStdString());
    const auto setTexts = [&](std::span<const TextPath> rows) {
        for (const TextPath& row : rows)
            root.setText(row.path, (invoice.*row.field).toStdString());
    };
    setTexts(sharedTextPaths);
    setTexts(furtherTextPaths);
    root.setText("SellerTradeParty/PostalTradeAddress/CountryID",
                 invoice.senderAddressCountry.code.toStdString());
    root.setText("BuyerTradeParty/PostalTradeAddress/CountryID", invoice.addressCountry.code.toStdString());
    root.setText("OccurrenceDateTime/DateTimeString", day(service));
    root.setText("InvoiceCurrencyCode", invoice.currency.code.toStdString());
    root.setText("PayeePartyCreditorFinancialAccount/IBANID", withoutWhiteSpace(invoice.senderIban));
    root.setText("DueDateDateTime/DateTimeString", ciiDate(invoice.dueDay()));
}

void setTotals(Element& root, const Invoice& invoice)
{
    const double subtotal = invoice.subtotal();
    const double discount = invoice.discount();
    double vat = 0;
    for (const VATAmount& amount : invoice.vatAmounts())
        vat += amount.amount;
    const std::string total = ciiAmount(invoice.total());
    root.setText("LineTotalAmount", ciiAmount(subtotal));
    root.setText("AllowanceTotalAmount", ciiAmount(discount));
    root.setText("TaxBasisTotalAmount", ciiAmount(subtotal - discount));
    root.setText("TaxTotalAmount", ciiAmount(vat));
    root.setAttribute("TaxTotalAmount", "currencyID", invoice.currency.code.toStdString());
    root.setText("GrandTotalAmount", total);
    root.setText("DuePayableAmount", total);
}

std::string cancelledNumber(const Invoice& invoice, const Profile& profile, const InvoiceLookup& invoices)
{
    if (invoice.type != InvoiceType::cancellation || !invoice.cancelledInvoiceId)
        return {};
    const std::optional<Invoice> cancelled = invoices(*invoice.cancelledInvoiceId);
    return cancelled ? displayedNumber(*cancelled, profile).toStdString() : std::string();
}

/// Fills a template, of which the caller keeps a copy if it needs one, and writes it.
QByteArray filled(const XMLDocument& document, const Invoice& invoice, const Profile& profile,
                  const InvoiceLookup& invoices)
{
    Element& root = *document.root;
    const Language language = invoice.language.value_or(profile.language);
    const FragmentSource source{invoice, vatGroups(invoice),
                                exemptionText(invoice.vatExemptionReason, language).toStdString()};
    setHeader(root, invoice, profile);
    setTotals(root, invoice); // before the lines come in, which have totals of the same names
    root.replaceWithElements("SupplyChainTradeTransaction/IncludedSupplyChainTradeLineItem",
                             lineItems(source));
    root.replaceWithFragment("ApplicableHeaderTradeSettlement/ApplicableTradeTax", vatBreakdown(source));
    root.replaceWithFragment("ApplicableHeaderTradeSettlement/SpecifiedTradeAllowanceCharge",
                             allowances(source));
    root.replaceWithFragment("ApplicableHeaderTradeAgreement/AdditionalReferencedDocument",
                             referencedDocument(cancelledNumber(invoice, profile, invoices)));
    return QByteArray::fromStdString(document.serialise());
}

/// The shipped template; parsed once, since it is the same for all documents.
const std::optional<XMLDocument>& shippedTemplate()
{
    static const std::optional<XMLDocument> document = [] {
        const std::optional<QByteArray> text = einvoiceResource(QStringLiteral("faktur-x.xml"));
        return text ? XMLDocument::parse(text->toStdString()) : std::nullopt;
    }();
    return document;
}

} // namespace

std::optional<QByteArray> XMLGenerator::generate(const Invoice& invoice, const Profile& profile,
                                                 const InvoiceLookup& invoices, std::string_view templateText)
{
    const std::optional<XMLDocument> document = XMLDocument::parse(templateText);
    return document ? std::optional(filled(*document, invoice, profile, invoices)) : std::nullopt;
}

std::optional<QByteArray> XMLGenerator::generate(const Invoice& invoice, const Profile& profile,
                                                 const InvoiceLookup& invoices)
{
    const std::optional<XMLDocument>& document = shippedTemplate();
    if (!document)
        return std::nullopt;
    return filled(XMLDocument{document->root->clone()}, invoice, profile, invoices);
}

QStringList XMLGenerator::validate(const Invoice& invoice)
{
    return missingFields(invoice);
}

} // namespace ledra
