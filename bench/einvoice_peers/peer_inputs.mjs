// The same facts in the input form of each library. A key without a value is left out of the document by the
// first library; the second one wants it absent.

const UNTIL_DUE = "Zahlbar bis ";
const CREDIT_TRANSFER = "58"; // SEPA

function zugferdParty(party) {
  return {
    name: party.name,
    tradeContact: { name: party.contact, phoneNumber: party.phone, emailAddress: party.email },
    postalAddress: {
      postCode: party.postcode, line1: party.street, line2: party.addition, city: party.city,
      countryCode: party.country, countrySubdivision: party.state,
    },
    electronicAddress: { value: party.email, schemeIdentifier: "EM" },
    taxRegistration: { vatIdentifier: party.vatNumber, localIdentifier: party.taxNumber },
  };
}

const zugferdLine = (line) => ({
  identifier: line.id,
  tradeProduct: { name: line.name, description: line.description },
  tradeAgreement: { netTradePrice: { chargeAmount: line.price } },
  tradeDelivery: { billedQuantity: { amount: line.quantity, unitMeasureCode: line.unitCode } },
  tradeSettlement: {
    tradeTax: { typeCode: "VAT", categoryCode: line.category, rateApplicablePercent: line.percent },
    monetarySummation: { lineTotalAmount: line.net },
  },
});

export function zugferdInput(facts) {
  const { period } = facts;
  return {
    businessProcessType: "urn:fdc:peppol.eu:2017:poacc:billing:01:1.0",
    number: facts.number, typeCode: "380", issueDate: new Date(facts.date),
    includedNote: facts.note && [{ content: facts.note }],
    transaction: {
      line: facts.lines.map(zugferdLine),
      tradeAgreement: {
        buyerReference: facts.reference, seller: zugferdParty(facts.seller), buyer: zugferdParty(facts.buyer),
      },
      tradeDelivery: period && { information: { deliveryDate: new Date(period.end) } },
      tradeSettlement: {
        currencyCode: facts.currency, remittanceInformation: facts.number,
        invoicingPeriod: period && { startDate: new Date(period.start), endDate: new Date(period.end) },
        paymentInstruction: {
          typeCode: CREDIT_TRANSFER, sellerBankInformation: { serviceProviderIdentifier: facts.bic },
          transfers: [{ paymentAccountIdentifier: facts.iban, accountName: facts.seller.name }],
        },
        vatBreakdown: facts.taxes.map((group) => ({
          typeCode: "VAT", categoryCode: group.category, rateApplicablePercent: group.percent,
          basisAmount: group.basis, calculatedAmount: group.tax,
        })),
        paymentTerms: { description: UNTIL_DUE + facts.due, dueDate: new Date(facts.due) },
        monetarySummation: {
          lineTotalAmount: facts.net, taxBasisTotalAmount: facts.net, grandTotalAmount: facts.gross,
          taxTotal: { amount: facts.tax, currencyCode: facts.currency }, duePayableAmount: facts.gross,
        },
      },
    },
  };
}

const present = (value) => JSON.parse(JSON.stringify(value)); // drops the keys without a value

const amount = (name, value, currency) => ({ [`cbc:${name}`]: value, [`cbc:${name}@currencyID`]: currency });
const category = (tax) => ({
  "cbc:ID": tax.category, "cbc:Percent": tax.percent, "cac:TaxScheme": { "cbc:ID": "VAT" },
});
const taxScheme = (number, scheme) => ({ "cbc:CompanyID": number, "cac:TaxScheme": { "cbc:ID": scheme } });

function ublParty(party, schemes) {
  return {
    "cbc:EndpointID": party.email, "cbc:EndpointID@schemeID": "EM",
    "cac:PartyName": { "cbc:Name": party.name },
    "cac:PostalAddress": {
      "cbc:StreetName": party.street, "cbc:AdditionalStreetName": party.addition, "cbc:CityName": party.city,
      "cbc:PostalZone": party.postcode, "cbc:CountrySubentity": party.state,
      "cac:Country": { "cbc:IdentificationCode": party.country },
    },
    "cac:PartyTaxScheme": schemes,
    "cac:PartyLegalEntity": { "cbc:RegistrationName": party.name },
    "cac:Contact": { "cbc:Name": party.contact, "cbc:Telephone": party.phone, "cbc:ElectronicMail": party.email },
  };
}

const ublLine = (line, currency) => ({
  "cbc:ID": line.id, "cbc:InvoicedQuantity": line.quantity, "cbc:InvoicedQuantity@unitCode": line.unitCode,
  ...amount("LineExtensionAmount", line.net, currency),
  "cac:Item": {
    "cbc:Description": line.description, "cbc:Name": line.name, "cac:ClassifiedTaxCategory": category(line),
  },
  "cac:Price": amount("PriceAmount", line.price, currency),
});

export function eInvoiceInput(facts) {
  const { currency, seller, buyer, period } = facts;
  const sellerSchemes = [
    ...(seller.vatNumber ? [taxScheme(seller.vatNumber, "VAT")] : []),
    ...(seller.taxNumber ? [taxScheme(seller.taxNumber, "FC")] : []),
  ];
  return present({ "ubl:Invoice": {
    "cbc:ID": facts.number, "cbc:IssueDate": facts.date, "cbc:DueDate": facts.due, "cbc:InvoiceTypeCode": "380",
    "cbc:Note": facts.note && [facts.note], "cbc:DocumentCurrencyCode": currency, "cbc:BuyerReference": facts.reference,
    "cac:InvoicePeriod": period && { "cbc:StartDate": period.start, "cbc:EndDate": period.end },
    "cac:AccountingSupplierParty": { "cac:Party": ublParty(seller, sellerSchemes) },
    "cac:AccountingCustomerParty": {
      "cac:Party": ublParty(buyer, buyer.vatNumber && taxScheme(buyer.vatNumber, "VAT")),
    },
    "cac:Delivery": period && { "cbc:ActualDeliveryDate": period.end },
    "cac:PaymentMeans": [{
      "cbc:PaymentMeansCode": CREDIT_TRANSFER, "cbc:PaymentID": facts.number,
      "cac:PayeeFinancialAccount": {
        "cbc:ID": facts.iban, "cbc:Name": seller.name,
        "cac:FinancialInstitutionBranch": facts.bic && { "cbc:ID": facts.bic },
      },
    }],
    "cac:PaymentTerms": { "cbc:Note": UNTIL_DUE + facts.due },
    "cac:TaxTotal": [{
      ...amount("TaxAmount", facts.tax, currency),
      "cac:TaxSubtotal": facts.taxes.map((group) => ({
        ...amount("TaxableAmount", group.basis, currency), ...amount("TaxAmount", group.tax, currency),
        "cac:TaxCategory": category(group),
      })),
    }],
    "cac:LegalMonetaryTotal": {
      ...amount("LineExtensionAmount", facts.net, currency), ...amount("TaxExclusiveAmount", facts.net, currency),
      ...amount("TaxInclusiveAmount", facts.gross, currency), ...amount("PayableAmount", facts.gross, currency),
    },
    "cac:InvoiceLine": facts.lines.map((line) => ublLine(line, currency)),
  } });
}
