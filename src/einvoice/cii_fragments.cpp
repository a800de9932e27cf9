#include "einvoice/cii_fragments.h"

#include "einvoice/cii_text.h"
#include "einvoice/xml_text.h"

#include <cmath>

namespace ledra {

namespace {

/// Writes elements as text; names come without their prefix where that is "ram".
class FragmentWriter
{
public:
    /// An element around what a function writes.
    template <class Content>
    void group(std::string_view name, const Content& content)
    {
        text_.append("<ram:").append(name).append(1, '>');
        content();
        text_.append("</ram:").append(name).append(1, '>');
    }

    void element(std::string_view name, std::string_view value)
    {
        group(name, [&] { appendEscaped(text_, value); });
    }

    void elementIfPresent(std::string_view name, std::string_view value)
    {
        if (!value.empty())
            element(name, value);
    }

    /// A charge indicator that says "allowance".
    void allowanceIndicator()
    {
        group("ChargeIndicator", [&] { text_ += "<udt:Indicator>false</udt:Indicator>"; });
    }

    std::string take() { return std::move(text_); }

private:
    std::string text_;
};

void writeAllowance(FragmentWriter& writer, const Invoice& invoice, const VATGroup& group)
{
    writer.allowanceIndicator();
    if (invoice.discountPercentage && *invoice.discountPercentage > 0) {
        writer.element("CalculationPercent", ciiPercentage(*invoice.discountPercentage));
        writer.element("BasisAmount", ciiAmount(group.originalBasis));
    }
    writer.element("ActualAmount", ciiAmount(discountShare(invoice, group)));
    writer.element("ReasonCode", "95"); // UNTDID 5189: discount
    writer.group("CategoryTradeTax", [&] {
        writer.element("TypeCode", "VAT");
        writer.element("CategoryCode", vatCategory(group.rate));
        writer.element("RateApplicablePercent", ciiPercentage(group.rate));
    });
}

} // namespace

std::string_view vatCategory(double rate)
{
    return rate == 0 ? "E" : "S";
}

double netUnitPrice(const Invoice& invoice, const Invoice::Item& item)
{
    const bool containsVat = invoice.grossPrices && item.vatPercentage > 0;
    return std::abs(containsVat ? item.unitPrice / (1 + item.vatPercentage / 100.0) : item.unitPrice);
}

std::string vatBreakdown(const FragmentSource& source)
{
    FragmentWriter writer;
    for (const VATGroup& group : source.groups) {
        writer.group("ApplicableTradeTax", [&] {
            writer.element("CalculatedAmount", ciiAmount(group.vatAmount));
            writer.element("TypeCode", "VAT");
            writer.elementIfPresent("ExemptionReason", source.exemptionReason);
            writer.element("BasisAmount", ciiAmount(group.discountedBasis));
            writer.element("CategoryCode", vatCategory(group.rate));
            writer.element("RateApplicablePercent", ciiPercentage(group.rate));
        });
    }
    return writer.take();
}

std::string allowances(const FragmentSource& source)
{
    if (source.invoice.discount() == 0)
        return {};
    FragmentWriter writer;
    for (const VATGroup& group : source.groups)
        writer.group("SpecifiedTradeAllowanceCharge", [&] { writeAllowance(writer, source.invoice, group); });
    return writer.take();
}

std::string referencedDocument(std::string_view cancelledNumber)
{
    if (cancelledNumber.empty())
        return {};
    FragmentWriter writer;
    writer.group("AdditionalReferencedDocument", [&] {
        writer.element("IssuerAssignedID", cancelledNumber);
        writer.element("TypeCode", "130");
    });
    return writer.take();
}

} // namespace ledra
