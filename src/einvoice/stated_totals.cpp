#include "einvoice/stated_totals.h"

#include "einvoice/cii_text.h"
#include "model/amount_text.h"
#include "model/document_labels.h"

#include <cmath>

namespace ledra {

namespace {

constexpr double halfCent = 0.005;

std::optional<double> amountOf(const Element& summation, std::string_view name)
{
    const Element* found = summation.find(name);
    return found ? decimalFrom(found->text()) : std::nullopt;
}

/// The VAT total in the document's currency; another one may be stated in the currency of the accounts.
std::optional<double> taxTotalOf(const Element& summation, const Currency& currency)
{
    std::optional<double> total;
    summation.forEach("TaxTotalAmount", [&](const Element& amount) {
        const std::string code = currency.code.toStdString();
        if (!total && amount.attribute("currencyID").value_or(code) == code)
            total = decimalFrom(amount.text());
    });
    return total;
}

class Comparison
{
public:
    void compare(const char* label, std::optional<double> stated, double here)
    {
        if (stated && std::abs(*stated - here) >= halfCent)
            differences_.push_back({label, *stated, here});
    }

    void mention(const char* label, std::optional<double> stated)
    {
        if (stated && std::abs(*stated) >= halfCent)
            differences_.push_back({label, *stated, std::nullopt});
    }

    std::vector<StatedDifference> take() { return std::move(differences_); }

private:
    std::vector<StatedDifference> differences_;
};

} // namespace

std::vector<StatedDifference> statedDifferences(const Element& root, const Invoice& invoice)
{
    const Element* summation = root.find("SpecifiedTradeSettlementHeaderMonetarySummation");
    if (!summation)
        return {};
    const double subtotal = roundedToCents(invoice.subtotal());
    const double total = roundedToCents(invoice.total());
    double vat = 0;
    for (const VATAmount& amount : invoice.vatAmounts())
        vat += amount.amount;
    Comparison comparison;
    comparison.compare("Subtotal", amountOf(*summation, "LineTotalAmount"), subtotal);
    comparison.compare("Discount", amountOf(*summation, "AllowanceTotalAmount"), invoice.discount());
    comparison.mention("Charges", amountOf(*summation, "ChargeTotalAmount"));
    comparison.compare("Total VAT", taxTotalOf(*summation, invoice.currency), roundedToCents(vat));
    comparison.compare("Total", amountOf(*summation, "GrandTotalAmount"), total);
    comparison.mention("Rounding", amountOf(*summation, "RoundingAmount"));
    comparison.mention("Already Paid", amountOf(*summation, "TotalPrepaidAmount"));
    comparison.compare("Amount Due", amountOf(*summation, "DuePayableAmount"), total);
    return comparison.take();
}

QString statedText(const StatedDifference& difference, const Currency& currency, Language language)
{
    const QString label = documentLabel(QString::fromLatin1(difference.label), language);
    const QString stated = amountText(difference.stated, currency, language);
    if (!difference.here)
        return documentLabel(QStringLiteral("Stated Amount"), language,
                             {{QStringLiteral("label"), label}, {QStringLiteral("amount"), stated}});
    return documentLabel(QStringLiteral("Stated Amount Instead"), language,
                         {{QStringLiteral("label"), label},
                          {QStringLiteral("amount"), stated},
                          {QStringLiteral("here"), amountText(*difference.here, currency, language)}});
}

} // namespace ledra
