#pragma once

#include "model/invoice.h"

#include <array>
#include <string_view>

namespace ledra {

/// A path in a Cross Industry Invoice and the field of the record whose text stands there.
struct TextPath
{
    std::string_view path;
    QString Invoice::* field;
};

/// What is written and read alike.
inline constexpr std::array sharedTextPaths = {
    TextPath{"ExchangedDocument/IncludedNote/Content", &Invoice::note},
    TextPath{"SellerTradeParty/Name", &Invoice::senderName},
    TextPath{"SellerTradeParty/SpecifiedLegalOrganization/TradingBusinessName", &Invoice::senderBusinessName},
    TextPath{"SellerTradeParty/Description", &Invoice::senderAdditionalNumbers},
    TextPath{"TelephoneUniversalCommunication/CompleteNumber", &Invoice::senderPhone},
    TextPath{"EmailURIUniversalCommunication/URIID", &Invoice::senderEmail},
    TextPath{"SellerTradeParty/PostalTradeAddress/PostcodeCode", &Invoice::senderAddressPostcode},
    TextPath{"SellerTradeParty/PostalTradeAddress/LineOne", &Invoice::senderAddressLineOne},
    TextPath{"SellerTradeParty/PostalTradeAddress/LineTwo", &Invoice::senderAddressLineTwo},
    TextPath{"SellerTradeParty/PostalTradeAddress/CityName", &Invoice::senderAddressCity},
    TextPath{"SellerTradeParty/PostalTradeAddress/CountrySubDivisionName", &Invoice::senderAddressState},
    TextPath{"SellerTradeParty/SpecifiedTaxRegistration/ID[schemeID=FC]", &Invoice::senderTaxNumber},
    TextPath{"SellerTradeParty/SpecifiedTaxRegistration/ID[schemeID=VA]", &Invoice::senderVatNumber},
    TextPath{"BuyerTradeParty/Name", &Invoice::name},
    TextPath{"BuyerTradeParty/SpecifiedLegalOrganization/TradingBusinessName", &Invoice::businessName},
    TextPath{"BuyerTradeParty/PostalTradeAddress/PostcodeCode", &Invoice::addressPostcode},
    TextPath{"BuyerTradeParty/PostalTradeAddress/LineOne", &Invoice::addressLineOne},
    TextPath{"BuyerTradeParty/PostalTradeAddress/LineTwo", &Invoice::addressLineTwo},
    TextPath{"BuyerTradeParty/PostalTradeAddress/CityName", &Invoice::addressCity},
    TextPath{"BuyerTradeParty/PostalTradeAddress/CountrySubDivisionName", &Invoice::addressState},
    TextPath{"BuyerTradeParty/URIUniversalCommunication/URIID", &Invoice::email},
    TextPath{"PayeeSpecifiedCreditorFinancialInstitution/BICID", &Invoice::senderBic},
};

} // namespace ledra
