#include "einvoice/cii_rules.h"

#include "einvoice/cii_sums.h"
#include "einvoice/xml_text.h"
#include "model/country.h"
#include "model/region.h"

#include <array>
#include <set>

namespace ledra {

namespace {

/// What must stand at a path below some element.
struct Requirement
{
    const char* rule;
    std::string_view path;
    const char* text;
    bool needsText = true; ///< else the element alone will do
};

constexpr std::array documentRequirements = {
    Requirement{"BR-01", "ExchangedDocumentContext/GuidelineSpecifiedDocumentContextParameter/ID",
                "the document does not say which rules it follows"},
    Requirement{"BR-02", "ExchangedDocument/ID", "the invoice number is missing"},
    Requirement{"BR-03", "ExchangedDocument/IssueDateTime/DateTimeString[format=102]",
                "the invoice date is missing"},
    Requirement{"BR-04", "ExchangedDocument/TypeCode", "the type of the document is missing"},
};

constexpr std::array transactionRequirements = {
    Requirement{"BR-05", "ApplicableHeaderTradeSettlement/InvoiceCurrencyCode", "the currency is missing"},
    Requirement{"BR-06", "ApplicableHeaderTradeAgreement/SellerTradeParty/Name",
                "the seller's name is missing"},
    Requirement{"BR-07", "ApplicableHeaderTradeAgreement/BuyerTradeParty/Name",
                "the buyer's name is missing"},
    Requirement{"BR-08", "ApplicableHeaderTradeAgreement/SellerTradeParty/PostalTradeAddress",
                "the seller's address is missing", false},
    Requirement{"BR-09", "ApplicableHeaderTradeAgreement/SellerTradeParty/PostalTradeAddress/CountryID",
                "the seller's country is missing"},
    Requirement{"BR-10", "ApplicableHeaderTradeAgreement/BuyerTradeParty/PostalTradeAddress",
                "the buyer's address is missing", false},
    Requirement{"BR-11", "ApplicableHeaderTradeAgreement/BuyerTradeParty/PostalTradeAddress/CountryID",
                "the buyer's country is missing"},
    Requirement{"BR-16", "IncludedSupplyChainTradeLineItem", "there is no line", false},
    Requirement{"BR-CO-18", "ApplicableHeaderTradeSettlement/ApplicableTradeTax", "there is no VAT breakdown",
                false},
    Requirement{"BR-DE-1", "ApplicableHeaderTradeSettlement/SpecifiedTradeSettlementPaymentMeans",
                "the payment instructions are missing", false},
    Requirement{"BR-DE-2", "ApplicableHeaderTradeAgreement/SellerTradeParty/DefinedTradeContact",
                "the seller's contact is missing", false},
    Requirement{"BR-DE-15", "ApplicableHeaderTradeAgreement/BuyerReference",
                "the buyer's reference is missing (public offices ask for their Leitweg-ID)"},
};

constexpr std::array summationRequirements = {
    Requirement{"BR-12", "LineTotalAmount", "the sum of the lines is missing", false},
    Requirement{"BR-13", "TaxBasisTotalAmount", "the total without VAT is missing", false},
    Requirement{"BR-14", "GrandTotalAmount", "the total with VAT is missing", false},
    Requirement{"BR-15", "DuePayableAmount", "the amount due is missing", false},
};

constexpr std::array sellerAddressRequirements = {
    Requirement{"BR-DE-3", "CityName", "the seller's city is missing"},
    Requirement{"BR-DE-4", "PostcodeCode", "the seller's postcode is missing"},
};

constexpr std::array contactRequirements = {
    Requirement{"BR-DE-6", "TelephoneUniversalCommunication/CompleteNumber",
                "the seller's phone number is missing"},
    Requirement{"BR-DE-7", "EmailURIUniversalCommunication/URIID", "the seller's email is missing"},
};

constexpr std::array buyerAddressRequirements = {
    Requirement{"BR-DE-8", "CityName", "the buyer's city is missing"},
    Requirement{"BR-DE-9", "PostcodeCode", "the buyer's postcode is missing"},
};

constexpr std::array lineRequirements = {
    Requirement{"BR-21", "AssociatedDocumentLineDocument/LineID", "a line has no number"},
    Requirement{"BR-22", "SpecifiedLineTradeDelivery/BilledQuantity", "a line has no quantity", false},
    Requirement{"BR-24",
                "SpecifiedLineTradeSettlement/SpecifiedTradeSettlementLineMonetarySummation/LineTotalAmount",
                "a line has no total", false},
    Requirement{"BR-25", "SpecifiedTradeProduct/Name", "a line has no description"},
    Requirement{"BR-26", "SpecifiedLineTradeAgreement/NetPriceProductTradePrice/ChargeAmount",
                "a line has no price", false},
};

class RuleCheck
{
public:
    explicit RuleCheck(const Element& root) : root_(root) {}

    std::vector<BrokenRule> run();

private:
    void breakRule(const char* rule, const QString& text)
    {
        if (found_.insert(rule).second)
            broken_.push_back({QString::fromLatin1(rule), text});
    }
    void breakIf(bool isBroken, const char* rule, const char* text)
    {
        if (isBroken)
            breakRule(rule, QString::fromUtf8(text));
    }

    template <std::size_t count>
    void require(const Element* start, const std::array<Requirement, count>& requirements);
    void checkParties(const Element& agreement);
    void checkAccount(const Element& settlement);
    void checkCodes();
    void checkVatNumbers();

    const Element& root_;
    std::vector<BrokenRule> broken_;
    std::set<std::string_view> found_;
};

template <std::size_t count>
void RuleCheck::require(const Element* start, const std::array<Requirement, count>& requirements)
{
    if (!start)
        return;
    for (const Requirement& requirement : requirements) {
        const Element* found = start->child(requirement.path);
        breakIf(!found || (requirement.needsText && isBlank(found->text())), requirement.rule,
                requirement.text);
    }
}

std::vector<BrokenRule> RuleCheck::run()
{
    require(&root_, documentRequirements);
    const Element* transaction = root_.child("SupplyChainTradeTransaction");
    if (!transaction) {
        breakRule("BR-16", QStringLiteral("there is no line"));
        return std::move(broken_);
    }
    require(transaction, transactionRequirements);
    transaction->forEachChild("IncludedSupplyChainTradeLineItem",
                              [&](const Element& line) { require(&line, lineRequirements); });
    if (const Element* agreement = transaction->child("ApplicableHeaderTradeAgreement"))
        checkParties(*agreement);
    if (const Element* settlement = transaction->child("ApplicableHeaderTradeSettlement")) {
        require(settlement->child("SpecifiedTradeSettlementHeaderMonetarySummation"), summationRequirements);
        checkAccount(*settlement);
    }
    checkCodes();
    checkVatNumbers();
    checkSums(*transaction, [this](const char* rule, const QString& text) { breakRule(rule, text); });
    return std::move(broken_);
}

void RuleCheck::checkParties(const Element& agreement)
{
    const Element* seller = agreement.child("SellerTradeParty");
    if (!seller)
        return;
    require(seller->child("PostalTradeAddress"), sellerAddressRequirements);
    if (const Element* contact = seller->child("DefinedTradeContact")) {
        breakIf(!contact->child("PersonName") && !contact->child("DepartmentName"), "BR-DE-5",
                "the seller's contact person is missing");
        require(contact, contactRequirements);
    }
    require(agreement.child("BuyerTradeParty/PostalTradeAddress"), buyerAddressRequirements);
    const bool isIdentified = seller->child("ID") || seller->child("GlobalID") ||
                              seller->child("SpecifiedLegalOrganization/ID") ||
                              seller->child("SpecifiedTaxRegistration/ID[schemeID=VA]");
    breakIf(!isIdentified, "BR-CO-26",
            "the seller has no VAT identification number; a tax number alone is not enough");
    const bool isTaxed =
        seller->child("SpecifiedTaxRegistration/ID[schemeID=VA]") ||
        seller->child("SpecifiedTaxRegistration/ID[schemeID=FC]") ||
        agreement.child("SellerTaxRepresentativeTradeParty/SpecifiedTaxRegistration/ID[schemeID=VA]");
    root_.forEach("SpecifiedLineTradeSettlement", [&](const Element& line) {
        const std::string category = line.textAt("ApplicableTradeTax/CategoryCode");
        breakIf(!isTaxed && category == "S", "BR-S-02", "the seller has neither VAT number nor tax number");
        breakIf(!isTaxed && category == "E", "BR-E-02", "the seller has neither VAT number nor tax number");
    });
    root_.forEach("CategoryTradeTax", [&](const Element& allowance) {
        const std::string category = allowance.textAt("CategoryCode");
        breakIf(!isTaxed && category == "S", "BR-S-03", "the seller has neither VAT number nor tax number");
        breakIf(!isTaxed && category == "E", "BR-E-03", "the seller has neither VAT number nor tax number");
    });
}

void RuleCheck::checkAccount(const Element& settlement)
{
    settlement.forEachChild("SpecifiedTradeSettlementPaymentMeans", [&](const Element& means) {
        const std::string type = means.textAt("TypeCode");
        if (type != "30" && type != "58") // credit transfer, SEPA credit transfer (UNTDID 4461)
            return;
        const Element* account = means.child("PayeePartyCreditorFinancialAccount");
        breakIf(!account, "BR-DE-23-a", "the account to pay to is missing");
        const bool hasNumber = account && (account->child("IBANID") || account->child("ProprietaryID"));
        breakIf(account && !hasNumber, "BR-50", "the number of the account to pay to is missing");
        breakIf(account && !hasNumber, "BR-61", "the number of the account to pay to is missing");
        breakIf(!hasNumber, "CII-SR-470", "the number of the account to pay to is missing");
    });
}

QString shown(const std::string& code)
{
    return u'"' + QString::fromStdString(code) + u'"';
}

void RuleCheck::checkCodes()
{
    root_.forEach("CountryID", [&](const Element& country) {
        const QString code = QString::fromStdString(country.text()).trimmed();
        // Northern Ireland and Kosovo have a code of their own here; XK is not among them.
        const bool isKnown = code == u"1A" || code == u"XI" || (findCountry(code) && code != u"XK");
        if (!isKnown && !code.isEmpty())
            breakRule("BR-CL-14", shown(country.text()) + QStringLiteral(" is no country code"));
    });
    const auto checkCurrency = [this](const char* rule, const std::string& text) {
        const QString code = QString::fromStdString(text).trimmed();
        if (!isKnownCurrency(code) && !code.isEmpty())
            breakRule(rule, shown(text) + QStringLiteral(" is no currency code"));
    };
    root_.forEach("TaxTotalAmount", [&](const Element& amount) {
        checkCurrency("BR-CL-03", std::string(amount.attribute("currencyID").value_or(std::string_view())));
    });
    root_.forEach("InvoiceCurrencyCode",
                  [&](const Element& currency) { checkCurrency("BR-CL-04", currency.text()); });
}

void RuleCheck::checkVatNumbers()
{
    root_.forEach("SpecifiedTaxRegistration", [&](const Element& registration) {
        const Element* number = registration.child("ID[schemeID=VA]");
        if (!number)
            return;
        const QString prefix = QString::fromStdString(number->text()).left(2);
        const bool isKnown =
            prefix == u"EL" || prefix == u"XI" || prefix == u"1A" || (findCountry(prefix) && prefix != u"XK");
        if (!isKnown)
            breakRule("BR-CO-09",
                      QStringLiteral("the VAT number %1 does not begin with the code of its country")
                          .arg(shown(number->text())));
    });
}

} // namespace

std::vector<BrokenRule> brokenRules(const Element& root)
{
    return RuleCheck(root).run();
}

} // namespace ledra
