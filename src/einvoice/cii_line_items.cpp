#include "einvoice/cii_line_items.h"

#include "einvoice/cii_text.h"
#include "einvoice/cii_units.h"

namespace ledra {

namespace {

/// Adds an element with room for as many children.
Element& add(Element& parent, const char* name, std::size_t children)
{
    auto element = std::make_unique<Element>(name);
    element->children.reserve(children);
    Element& added = *element;
    parent.children.emplace_back(std::move(element));
    return added;
}

Element& addText(Element& parent, const char* name, std::string text)
{
    Element& added = add(parent, name, 1);
    added.children.emplace_back(std::move(text));
    return added;
}

void addPrices(Element& line, double price)
{
    const std::string text = ciiUnitPrice(price);
    Element& agreement = add(line, "ram:SpecifiedLineTradeAgreement", 2);
    Element& gross = add(agreement, "ram:GrossPriceProductTradePrice", 2);
    addText(gross, "ram:ChargeAmount", text);
    Element& allowance = add(gross, "ram:AppliedTradeAllowanceCharge", 2);
    addText(add(allowance, "ram:ChargeIndicator", 1), "udt:Indicator", "false");
    addText(allowance, "ram:ActualAmount", "0.00");
    addText(add(agreement, "ram:NetPriceProductTradePrice", 1), "ram:ChargeAmount", text);
}

void addTax(Element& settlement, const std::string& exemptionReason, double rate)
{
    Element& tax = add(settlement, "ram:ApplicableTradeTax", 4);
    addText(tax, "ram:TypeCode", "VAT");
    addText(tax, "ram:ExemptionReason", exemptionReason);
    addText(tax, "ram:CategoryCode", std::string(vatCategory(rate)));
    addText(tax, "ram:RateApplicablePercent", ciiPercentage(rate));
}

std::unique_ptr<Element> lineItem(const FragmentSource& source, const Invoice::Item& item,
                                  std::size_t position)
{
    const bool isCancellation = source.invoice.type == InvoiceType::cancellation;
    auto line = std::make_unique<Element>("ram:IncludedSupplyChainTradeLineItem");
    line->children.reserve(5);
    addText(add(*line, "ram:AssociatedDocumentLineDocument", 1), "ram:LineID", std::to_string(position));
    addText(add(*line, "ram:SpecifiedTradeProduct", 1), "ram:Name", item.item.toStdString());
    addPrices(*line, netUnitPrice(source.invoice, item));
    addText(add(*line, "ram:SpecifiedLineTradeDelivery", 1), "ram:BilledQuantity",
            ciiQuantity(isCancellation ? -item.quantity : item.quantity))
        .attributes.push_back({"unitCode", std::string(unitCode(item.unit))});
    Element& settlement = add(*line, "ram:SpecifiedLineTradeSettlement", 2);
    addTax(settlement, source.exemptionReason, item.vatPercentage);
    addText(add(settlement, "ram:SpecifiedTradeSettlementLineMonetarySummation", 1), "ram:LineTotalAmount",
            ciiAmount(source.invoice.lineNet(item)));
    return line;
}

} // namespace

std::vector<std::unique_ptr<Element>> lineItems(const FragmentSource& source)
{
    std::vector<std::unique_ptr<Element>> lines;
    lines.reserve(source.invoice.items.size());
    for (const Invoice::Item& item : source.invoice.items)
        lines.push_back(lineItem(source, item, lines.size() + 1));
    return lines;
}

} // namespace ledra
