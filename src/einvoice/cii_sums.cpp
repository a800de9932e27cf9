#include "einvoice/cii_sums.h"

#include "einvoice/cii_text.h"
#include "model/invoice.h"

#include <cmath>

namespace ledra {

namespace {

std::optional<double> amountAt(const Element* start, std::string_view path)
{
    const Element* found = start ? start->child(path) : nullptr;
    return found ? decimalFrom(found->text()) : std::nullopt;
}

bool isSame(double stated, double sum)
{
    constexpr double slack = 1e-6; // of binary fractions; far below a cent
    return std::abs(stated - roundedToCents(sum)) < std::max(slack, std::abs(sum) * slack * slack);
}

QString amounts(double stated, double sum)
{
    return QStringLiteral(" (%1, not %2)")
        .arg(QString::fromStdString(ciiAmount(sum)), QString::fromStdString(ciiAmount(stated)));
}

/// What lines and allowances come to in one VAT category at one rate, or at all rates.
struct CategorySum
{
    std::string_view category;
    std::optional<double> rate;

    bool covers(const Element& tax) const
    {
        return tax.textAt("CategoryCode") == category &&
               (!rate || amountAt(&tax, "RateApplicablePercent") == rate);
    }
};

class SumCheck
{
public:
    SumCheck(const Element& transaction, const RuleReport& report)
        : transaction_(transaction),
          settlement_(transaction.child("ApplicableHeaderTradeSettlement")),
          totals_(settlement_ ? settlement_->child("SpecifiedTradeSettlementHeaderMonetarySummation")
                              : nullptr),
          report_(report)
    {}

    void run()
    {
        if (!totals_)
            return;
        checkLines();
        checkAllowances();
        checkTotals();
        checkVat();
        settlement_->forEachChild("ApplicableTradeTax", [this](const Element& group) { checkGroup(group); });
    }

private:
    std::optional<double> total(std::string_view name) const { return amountAt(totals_, name); }
    double totalOrNothing(std::string_view name) const { return total(name).value_or(0); }

    void compare(const char* rule, std::optional<double> stated, double sum, const char* text) const
    {
        if (stated && !isSame(*stated, sum))
            report_(rule, QString::fromLatin1(text) + amounts(*stated, sum));
    }

    void checkLines() const;
    void checkAllowances() const;
    void checkTotals() const;
    void checkVat() const;
    void checkGroup(const Element& group) const;
    void checkExempt(const Element& group, double basis) const;
    double basisOf(const CategorySum& wanted) const;
    double sumOfAllowances(bool isCharge, const CategorySum* wanted) const;

    const Element& transaction_;
    const Element* settlement_;
    const Element* totals_;
    const RuleReport& report_;
};

double lineTotal(const Element& line)
{
    return amountAt(
               &line,
               "SpecifiedLineTradeSettlement/SpecifiedTradeSettlementLineMonetarySummation/LineTotalAmount")
        .value_or(0);
}

void SumCheck::checkLines() const
{
    double sum = 0;
    transaction_.forEachChild("IncludedSupplyChainTradeLineItem",
                              [&sum](const Element& line) { sum += lineTotal(line); });
    compare("BR-CO-10", total("LineTotalAmount"), sum, "the lines do not add up to their sum");
}

double SumCheck::sumOfAllowances(bool isCharge, const CategorySum* wanted) const
{
    double sum = 0;
    settlement_->forEachChild("SpecifiedTradeAllowanceCharge", [&](const Element& entry) {
        const std::string indicator = entry.textAt("ChargeIndicator/Indicator");
        const bool matches = (indicator == "true" || indicator == "1") == isCharge;
        const Element* tax = entry.child("CategoryTradeTax");
        if (matches && (!wanted || (tax && wanted->covers(*tax))))
            sum += amountAt(&entry, "ActualAmount").value_or(0);
    });
    return sum;
}

void SumCheck::checkAllowances() const
{
    compare("BR-CO-11", total("AllowanceTotalAmount"), sumOfAllowances(false, nullptr),
            "the allowances do not add up to the discount");
    compare("BR-CO-12", total("ChargeTotalAmount"), sumOfAllowances(true, nullptr),
            "the charges do not add up to their total");
}

void SumCheck::checkTotals() const
{
    compare("BR-CO-13", total("TaxBasisTotalAmount"),
            totalOrNothing("LineTotalAmount") - totalOrNothing("AllowanceTotalAmount") +
                totalOrNothing("ChargeTotalAmount"),
            "the total without VAT is not lines less discount");
    const double due = totalOrNothing("GrandTotalAmount") - totalOrNothing("TotalPrepaidAmount") +
                       totalOrNothing("RoundingAmount");
    compare("BR-CO-16", total("DuePayableAmount"), due, "the amount due is not what remains of the total");
}

void SumCheck::checkVat() const
{
    const std::string currency = settlement_->textAt("InvoiceCurrencyCode");
    totals_->forEachChild("TaxTotalAmount", [&](const Element& stated) {
        if (stated.attribute("currencyID").value_or(currency) != currency)
            return;
        const std::optional<double> vat = decimalFrom(stated.text());
        double sum = 0;
        settlement_->forEachChild("ApplicableTradeTax", [&sum](const Element& group) {
            sum += amountAt(&group, "CalculatedAmount").value_or(0);
        });
        compare("BR-CO-14", vat, sum, "the VAT of the rates does not add up to the whole VAT");
        compare("BR-CO-15", total("GrandTotalAmount"),
                totalOrNothing("TaxBasisTotalAmount") + vat.value_or(0),
                "the total is not the total without VAT and the VAT");
    });
}

double SumCheck::basisOf(const CategorySum& wanted) const
{
    double lines = 0;
    transaction_.forEachChild("IncludedSupplyChainTradeLineItem", [&](const Element& line) {
        const Element* tax = line.child("SpecifiedLineTradeSettlement/ApplicableTradeTax");
        if (tax && wanted.covers(*tax))
            lines += lineTotal(line);
    });
    return lines + sumOfAllowances(true, &wanted) - sumOfAllowances(false, &wanted);
}

void SumCheck::checkGroup(const Element& group) const
{
    const std::string category = group.textAt("CategoryCode");
    const std::optional<double> basis = amountAt(&group, "BasisAmount");
    const bool hasReason = group.child("ExemptionReason") || group.child("ExemptionReasonCode");
    if (category == "E")
        checkExempt(group, basis.value_or(0));
    if (category != "S")
        return;
    const std::optional<double> rate = amountAt(&group, "RateApplicablePercent");
    compare("BR-S-08", basis, basisOf({"S", rate}),
            "the lines less the discount of a rate are not its tax basis");
    if (hasReason)
        report_("BR-S-10", QStringLiteral("a reason for exemption stands beside lines with VAT"));
    const double vat = std::abs(amountAt(&group, "CalculatedAmount").value_or(0));
    if (std::abs(vat - std::abs(basis.value_or(0)) * rate.value_or(0) / 100) >= 1)
        report_("BR-S-09", QStringLiteral("the VAT of a rate is not its share of the basis"));
}

void SumCheck::checkExempt(const Element& group, double basis) const
{
    const double sum = roundedToCents(basisOf({"E", std::nullopt}));
    if (std::abs(basis - sum) >= 1) // the official rule lets less than one unit pass
        report_("BR-E-08", QStringLiteral("the exempt lines are not their tax basis") + amounts(basis, sum));
    if (!group.child("ExemptionReason") && !group.child("ExemptionReasonCode"))
        report_("BR-E-10", QStringLiteral("lines without VAT need a reason for the exemption"));
}

} // namespace

void checkSums(const Element& transaction, const RuleReport& report)
{
    SumCheck(transaction, report).run();
}

} // namespace ledra
