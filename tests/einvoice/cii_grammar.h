#pragma once

#include <algorithm>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

/// What a Cross Industry Invoice (D16B) may hold, for tests that make such documents.
namespace ledra::test {

/// "Type: element element …" in the order in which elements have to stand, each marked ? * + as in a DTD. The
/// type of an element follows a colon, or else is the longest type its name ends in, or else is Text. Left
/// out are optional branches that no invoice of ours meets: work items and prices of a valuation, goods and
/// equipment of a consignment, marks, disposal and return of packaging, conditions and standards of product
/// characteristics, coordinates, and when a marketplace is open.
inline constexpr std::string_view ciiGrammar =
    // The whole and its frame
    R"(CrossIndustryInvoice: ExchangedDocumentContext ExchangedDocument SupplyChainTradeTransaction
    ValuationBreakdownStatement?
ExchangedDocumentContext: SpecifiedTransactionID? TestIndicator?
    BusinessProcessSpecifiedDocumentContextParameter* BIMSpecifiedDocumentContextParameter*
    ScenarioSpecifiedDocumentContextParameter* ApplicationSpecifiedDocumentContextParameter*
    GuidelineSpecifiedDocumentContextParameter* SubsetSpecifiedDocumentContextParameter*
    MessageStandardSpecifiedDocumentContextParameter?
DocumentContextParameter: ID? Value? SpecifiedDocumentVersion?
DocumentVersion: ID? Name? IssueDateTime?
ExchangedDocument: ID Name* TypeCode:DocumentCode? IssueDateTime CopyIndicator? Purpose?
    ControlRequirementIndicator? LanguageID* PurposeCode:MessageFunctionCode? RevisionDateTime? VersionID?
    GlobalID? RevisionID? PreviousRevisionID? CategoryCode? IncludedNote* EffectiveSpecifiedPeriod?
    IssuerTradeParty?
Note: Subject? ContentCode? Content* SubjectCode? ID?
SpecifiedPeriod: DurationMeasure* InclusiveIndicator? Description* StartDateTime? EndDateTime?
    CompleteDateTime? OpenIndicator? SeasonCode? ID? Name* SequenceNumeric? StartDateFlexibilityCode?
    ContinuousIndicator? PurposeCode?
SupplyChainTradeTransaction: IncludedSupplyChainTradeLineItem* ApplicableHeaderTradeAgreement
    ApplicableHeaderTradeDelivery ApplicableHeaderTradeSettlement )"
    // Parties
    R"(TradeParty: ID* GlobalID* Name? RoleCode:PartyRoleCode* Description* SpecifiedLegalOrganization?
    DefinedTradeContact* PostalTradeAddress? URIUniversalCommunication* SpecifiedTaxRegistration*
    EndPointURIUniversalCommunication? LogoAssociatedSpecifiedBinaryFile*
LegalOrganization: LegalClassificationCode? Name? ID? TradingBusinessName? PostalTradeAddress?
    AuthorizedLegalRegistration*
LegalRegistration: TypeCode? ID?
TradeContact: ID? PersonName? DepartmentName? TypeCode:ContactTypeCode? JobTitle? Responsibility? PersonID*
    TelephoneUniversalCommunication? DirectTelephoneUniversalCommunication?
    MobileTelephoneUniversalCommunication? FaxUniversalCommunication? EmailURIUniversalCommunication?
    TelexUniversalCommunication? VOIPUniversalCommunication? InstantMessagingUniversalCommunication?
    SpecifiedNote* SpecifiedContactPerson?
ContactPerson: GivenName? MiddleName? FamilyName?
TradeAddress: ID? PostcodeCode? PostOfficeBox? BuildingName? LineOne? LineTwo? LineThree? LineFour? LineFive?
    StreetName? CityName? CitySubDivisionName? CountryID:CountryID? CountryName* CountrySubDivisionID?
    CountrySubDivisionName* AttentionOf? CareOf? BuildingNumber? DepartmentName? AdditionalStreetName?
UniversalCommunication: URIID? ChannelCode:CommunicationChannelCode? CompleteNumber?
TaxRegistration: ID? AssociatedRegisteredTax?
RegisteredTax: TypeCode? ExemptionReasonCode? ExemptionReason* CurrencyCode? Jurisdiction* Description*
    CustomsDutyIndicator? )"
    // Things that stand in many places
    R"(ReferencedDocument: IssuerAssignedID? URIID? StatusCode:DocumentStatusCode? CopyIndicator? LineID?
    TypeCode:DocumentCode? GlobalID? RevisionID? Name* AttachmentBinaryObject* Information*
    ReferenceTypeCode:ReferenceCode? SectionName* PreviousRevisionID*
    FormattedIssueDateTime:FormattedDateTime? EffectiveSpecifiedPeriod? IssuerTradeParty?
    AttachedSpecifiedBinaryFile*
SpecifiedBinaryFile: ID* Title* AuthorName* VersionID? FileName? URIID? MIMECode? EncodingCode?
    CharacterSetCode? IncludedBinaryObject* Access* Description* SizeMeasure?
    AccessAvailabilitySpecifiedPeriod?
SupplyChainEvent: ID? OccurrenceDateTime? TypeCode? Description* DescriptionBinaryObject* UnitQuantity?
    LatestOccurrenceDateTime? EarliestOccurrenceDateTime? OccurrenceSpecifiedPeriod?
    OccurrenceLogisticsLocation?
LogisticsLocation: ID? Name* TypeCode? Description* PostalTradeAddress?
TradeLocation: CountryID:CountryID? CountryName? ID? Name?
TradeCountry: ID:CountryID? Name* SubordinateTradeCountrySubDivision*
TradeCountrySubDivision: ID? Name*
SpatialDimension: ValueMeasure? TypeCode:DimensionTypeCode? Description* WidthMeasure? LengthMeasure?
    HeightMeasure? ID? DiameterMeasure:LinearUnitMeasure? )"
    // Lines
    R"(SupplyChainTradeLineItem: DescriptionCode? AssociatedDocumentLineDocument SpecifiedTradeProduct?
    SpecifiedLineTradeAgreement? SpecifiedLineTradeDelivery? SpecifiedLineTradeSettlement
    IncludedSubordinateTradeLineItem*
DocumentLineDocument: LineID? ParentLineID? LineStatusCode:LineStatusCode? LineStatusReasonCode? IncludedNote*
LineTradeAgreement: BuyerReference? BuyerRequisitionerTradeParty* ApplicableTradeDeliveryTerms?
    SellerOrderReferencedDocument? BuyerOrderReferencedDocument? QuotationReferencedDocument?
    ContractReferencedDocument? DemandForecastReferencedDocument? PromotionalDealReferencedDocument?
    AdditionalReferencedDocument* GrossPriceProductTradePrice? NetPriceProductTradePrice?
    RequisitionerReferencedDocument* ItemSellerTradeParty? ItemBuyerTradeParty? IncludedSpecifiedMarketplace?
    UltimateCustomerOrderReferencedDocument*
LineTradeDelivery: RequestedQuantity? ReceivedQuantity? BilledQuantity? ChargeFreeQuantity? PackageQuantity?
    ProductUnitQuantity? PerPackageUnitQuantity? NetWeightMeasure:WeightUnitMeasure?
    GrossWeightMeasure:WeightUnitMeasure? TheoreticalWeightMeasure:WeightUnitMeasure? DespatchedQuantity?
    SpecifiedDeliveryAdjustment* IncludedSupplyChainPackaging* RelatedSupplyChainConsignment?
    ShipToTradeParty? UltimateShipToTradeParty? ShipFromTradeParty? ActualDespatchSupplyChainEvent?
    ActualPickUpSupplyChainEvent? RequestedDeliverySupplyChainEvent? ActualDeliverySupplyChainEvent?
    ActualReceiptSupplyChainEvent? AdditionalReferencedDocument* DespatchAdviceReferencedDocument?
    ReceivingAdviceReferencedDocument? DeliveryNoteReferencedDocument? ConsumptionReportReferencedDocument?
    PackingListReferencedDocument?
LineTradeSettlement: PaymentReference* InvoiceIssuerReference? TotalAdjustmentAmount? DiscountIndicator?
    ApplicableTradeTax* BillingSpecifiedPeriod? SpecifiedTradeAllowanceCharge* SubtotalCalculatedTradeTax*
    SpecifiedLogisticsServiceCharge* SpecifiedTradePaymentTerms*
    SpecifiedTradeSettlementLineMonetarySummation? SpecifiedFinancialAdjustment* InvoiceReferencedDocument?
    AdditionalReferencedDocument* PayableSpecifiedTradeAccountingAccount*
    ReceivableSpecifiedTradeAccountingAccount* PurchaseSpecifiedTradeAccountingAccount*
    SalesSpecifiedTradeAccountingAccount* SpecifiedTradeSettlementFinancialCard?
TradeSettlementLineMonetarySummation: LineTotalAmount* ChargeTotalAmount* AllowanceTotalAmount*
    TaxBasisTotalAmount* TaxTotalAmount* GrandTotalAmount* InformationAmount* TotalAllowanceChargeAmount*
    TotalRetailValueInformationAmount* GrossLineTotalAmount* NetLineTotalAmount*
    NetIncludingTaxesLineTotalAmount* ProductWeightLossInformationAmount*
SubordinateTradeLineItem: ID* SpecifiedReferencedProduct? ApplicableTradeProduct*
    SpecifiedSubordinateLineTradeAgreement? SpecifiedSubordinateLineTradeDelivery?
    SpecifiedSubordinateLineTradeSettlement?
SubordinateLineTradeAgreement: SellerOrderReferencedDocument? BuyerOrderReferencedDocument?
    AdditionalReferencedDocument* GrossPriceProductTradePrice? NetPriceProductTradePrice?
SubordinateLineTradeDelivery: PackageQuantity? ProductUnitQuantity? PerPackageUnitQuantity?
    IncludedSupplyChainPackaging*
SubordinateLineTradeSettlement: ApplicableTradeTax?
SpecifiedMarketplace: ID? Name? VirtualIndicator? WebsiteURIID* SalesMethodCode?
DeliveryAdjustment: ReasonCode:AdjustmentReasonCode? Reason* ActualAmount* ActualQuantity? ActualDateTime? )"
    // What is sold and its price
    R"(TradeProduct: ID? GlobalID? SellerAssignedID? BuyerAssignedID? ManufacturerAssignedID? Name* TradeName?
    Description? TypeCode? NetWeightMeasure? GrossWeightMeasure? ProductGroupID* EndItemTypeCode* EndItemName*
    AreaDensityMeasure? UseDescription* BrandName? SubBrandName? DrainedNetWeightMeasure?
    VariableMeasureIndicator? ColourCode? ColourDescription* Designation*
    FormattedCancellationAnnouncedLaunchDateTime:FormattedDateTime?
    FormattedLatestProductDataChangeDateTime:FormattedDateTime? ApplicableProductCharacteristic*
    ApplicableMaterialGoodsCharacteristic* DesignatedProductClassification* IndividualTradeProductInstance*
    CertificationEvidenceReferenceReferencedDocument* InspectionReferenceReferencedDocument*
    OriginTradeCountry? LinearSpatialDimension? MinimumLinearSpatialDimension? MaximumLinearSpatialDimension?
    ManufacturerTradeParty? PresentationSpecifiedBinaryFile* MSDSReferenceReferencedDocument?
    AdditionalReferenceReferencedDocument* LegalRightsOwnerTradeParty? BrandOwnerTradeParty?
    IncludedReferencedProduct* InformationNote*
ProductCharacteristic: ID* TypeCode? Description* ValueMeasure? MeasurementMethodCode? Value* ValueCode?
    ValueDateTime? ValueIndicator? ContentTypeCode? ValueSpecifiedBinaryFile?
MaterialGoodsCharacteristic: Description* TypeCode? ProportionalConstituentPercent?
    AbsolutePresenceWeightMeasure? AbsolutePresenceVolumeMeasure?
ProductClassification: SystemID? SystemName* ClassCode? ClassName* SubClassCode? ClassProductCharacteristic*
TradeProductInstance: GlobalSerialID? BatchID? KanbanID? SupplierAssignedSerialID? BestBeforeDateTime?
    ExpiryDateTime? SellByDateTime? SerialID* RegistrationID* ProductionSupplyChainEvent?
    PackagingSupplyChainEvent? ApplicableMaterialGoodsCharacteristic* ApplicableProductCharacteristic*
ReferencedProduct: ID* GlobalID* SellerAssignedID? BuyerAssignedID? ManufacturerAssignedID*
    IndustryAssignedID* Name* Description* RelationshipTypeCode* UnitQuantity*
TradePrice: TypeCode:PriceTypeCode? ChargeAmount+ BasisQuantity? MinimumQuantity? MaximumQuantity?
    ChangeReason* OrderUnitConversionFactorNumeric? AppliedTradeAllowanceCharge* ValiditySpecifiedPeriod?
    IncludedTradeTax* DeliveryTradeLocation* TradeComparisonReferencePrice* AssociatedReferencedDocument*
ReferencePrice: ChargeAmount? BasisQuantity* NetPriceIndicator* ComparisonMethodCode?
SupplyChainPackaging: TypeCode:PackageTypeCode? Type? Description* ConditionCode? DisposalMethodCode*
    WeightMeasure* MaximumStackabilityQuantity? MaximumStackabilityWeightMeasure?
    CustomerFacingTotalUnitQuantity? LayerTotalUnitQuantity? ContentLayerQuantity? LinearSpatialDimension?
    MinimumLinearSpatialDimension? MaximumLinearSpatialDimension? ApplicableMaterialGoodsCharacteristic* )"
    // Agreement and delivery
    R"(HeaderTradeAgreement: Reference* BuyerReference? SellerTradeParty? BuyerTradeParty?
    SalesAgentTradeParty? BuyerRequisitionerTradeParty* BuyerAssignedAccountantTradeParty?
    SellerAssignedAccountantTradeParty? BuyerTaxRepresentativeTradeParty? SellerTaxRepresentativeTradeParty?
    ProductEndUserTradeParty? ApplicableTradeDeliveryTerms? SellerOrderReferencedDocument?
    BuyerOrderReferencedDocument? QuotationReferencedDocument? OrderResponseReferencedDocument?
    ContractReferencedDocument? DemandForecastReferencedDocument? SupplyInstructionReferencedDocument?
    PromotionalDealReferencedDocument? PriceListReferencedDocument? AdditionalReferencedDocument*
    RequisitionerReferencedDocument* BuyerAgentTradeParty? PurchaseConditionsReferencedDocument*
    SpecifiedProcuringProject? UltimateCustomerOrderReferencedDocument*
TradeDeliveryTerms: DeliveryTypeCode:DeliveryTermsCode? Description* RelevantTradeLocation?
ProcuringProject: ID Description? Name
HeaderTradeDelivery: RelatedSupplyChainConsignment? ShipToTradeParty? UltimateShipToTradeParty?
    ShipFromTradeParty? ActualDespatchSupplyChainEvent? ActualPickUpSupplyChainEvent?
    ActualDeliverySupplyChainEvent? ActualReceiptSupplyChainEvent? AdditionalReferencedDocument*
    DespatchAdviceReferencedDocument? ReceivingAdviceReferencedDocument? DeliveryNoteReferencedDocument?
    ConsumptionReportReferencedDocument? PreviousDeliverySupplyChainEvent* PackingListReferencedDocument?
SupplyChainConsignment: GrossWeightMeasure:WeightUnitMeasure* NetWeightMeasure*
    GrossVolumeMeasure:VolumeUnitMeasure* InsurancePremiumAmount? AssociatedInvoiceAmount* TotalChargeAmount?
    DeclaredValueForCustomsAmount? PackageQuantity? ConsignorTradeParty? ConsigneeTradeParty?
    CarrierTradeParty? FreightForwarderTradeParty? DeliveryTradeParty? CustomsImportAgentTradeParty?
    CustomsExportAgentTradeParty? GroupingCentreTradeParty* TransportContractReferencedDocument?
    AssociatedReferencedDocument* SpecifiedLogisticsTransportMovement*
LogisticsTransportMovement: StageCode:TransportMovementStageCode? ModeCode:TransportModeCode? Mode?
    UsedLogisticsTransportMeans?
LogisticsTransportMeans: TypeCode:TransportMeansTypeCode? Type? ID? Name? OwnerTradeParty? )"
    // Settlement
    R"(HeaderTradeSettlement: DuePayableAmount* CreditorReferenceTypeCode* CreditorReferenceType*
    CreditorReferenceIssuerID* CreditorReferenceID? PaymentReference* TaxCurrencyCode:CurrencyCode?
    InvoiceCurrencyCode:CurrencyCode? PaymentCurrencyCode:CurrencyCode? InvoiceIssuerReference?
    InvoiceDateTime? NextInvoiceDateTime* CreditReasonCode? CreditReason* InvoicerTradeParty?
    InvoiceeTradeParty? PayeeTradeParty? PayerTradeParty? TaxApplicableTradeCurrencyExchange?
    InvoiceApplicableTradeCurrencyExchange? PaymentApplicableTradeCurrencyExchange?
    SpecifiedTradeSettlementPaymentMeans* ApplicableTradeTax* BillingSpecifiedPeriod?
    SpecifiedTradeAllowanceCharge* SubtotalCalculatedTradeTax* SpecifiedLogisticsServiceCharge*
    SpecifiedTradePaymentTerms* SpecifiedTradeSettlementHeaderMonetarySummation? SpecifiedFinancialAdjustment*
    InvoiceReferencedDocument? ProFormaInvoiceReferencedDocument? LetterOfCreditReferencedDocument?
    FactoringAgreementReferencedDocument* FactoringListReferencedDocument*
    PayableSpecifiedTradeAccountingAccount* ReceivableSpecifiedTradeAccountingAccount*
    PurchaseSpecifiedTradeAccountingAccount* SalesSpecifiedTradeAccountingAccount*
    SpecifiedTradeSettlementFinancialCard* SpecifiedAdvancePayment* UltimatePayeeTradeParty?
TradeCurrencyExchange: SourceCurrencyCode:CurrencyCode SourceUnitBasisNumeric? TargetCurrencyCode:CurrencyCode
    TargetUnitBaseNumeric? MarketID? ConversionRate ConversionRateDateTime? AssociatedReferencedDocument*
TradeSettlementPaymentMeans: PaymentChannelCode:PaymentMeansChannelCode? TypeCode:PaymentMeansCode?
    GuaranteeMethodCode:PaymentGuaranteeMeansCode? PaymentMethodCode? Information* ID*
    ApplicableTradeSettlementFinancialCard? PayerPartyDebtorFinancialAccount?
    PayeePartyCreditorFinancialAccount? PayerSpecifiedDebtorFinancialInstitution?
    PayeeSpecifiedCreditorFinancialInstitution?
TradeSettlementFinancialCard: MicrochipIndicator? ID? TypeCode? CardholderName? ExpiryDate?
    VerificationNumeric? ValidFromDateTime? CreditLimitAmount* CreditAvailableAmount* InterestRatePercent?
    IssuingCompanyName? Description?
DebtorFinancialAccount: IBANID? AccountName? ProprietaryID?
CreditorFinancialAccount: IBANID? AccountName? ProprietaryID?
DebtorFinancialInstitution: BICID? ClearingSystemName? CHIPSUniversalID? NewZealandNCCID? IrishNSCID?
    UKSortCodeID? CHIPSParticipantID? SwissBCID? FedwireRoutingNumberID? PortugueseNCCID?
    RussianCentralBankID? ItalianDomesticID? AustrianBankleitzahlID? CanadianPaymentsAssociationID? SICID?
    GermanBankleitzahlID? SpanishDomesticInterbankingID? SouthAfricanNCCID? HongKongBankID? AustralianBSBID?
    IndianFinancialSystemID? HellenicBankID? PolishNationalClearingID? Name?
    JapanFinancialInstitutionCommonID? LocationFinancialInstitutionAddress?
    SubDivisionBranchFinancialInstitution?
CreditorFinancialInstitution: BICID? CHIPSUniversalID? NewZealandNCCID? IrishNSCID? UKSortCodeID?
    CHIPSParticipantID? SwissBCID? FedwireRoutingNumberID? PortugueseNCCID? RussianCentralBankID?
    ItalianDomesticID? AustrianBankleitzahlID? CanadianPaymentsAssociationID? SICID? GermanBankleitzahlID?
    SpanishDomesticInterbankingID? SouthAfricanNCCID? HongKongBankID? AustralianBSBID?
    IndianFinancialSystemID? HellenicBankID? PolishNationalClearingID? Name? ClearingSystemName?
    JapanFinancialInstitutionCommonID? LocationFinancialInstitutionAddress?
    SubDivisionBranchFinancialInstitution?
FinancialInstitutionAddress: PostcodeCode? BuildingNumber? LineOne? LineTwo? LineThree? LineFour? LineFive?
    StreetName? CityName? CountrySubDivisionID? CountryID? TypeCode? DepartmentName? PostOfficeBox? CityID?
    CountrySubDivisionName? CountryName?
BranchFinancialInstitution: ID? Name? LocationFinancialInstitutionAddress?
TradeTax: CalculatedAmount* TypeCode:TaxTypeCode? ExemptionReason? CalculatedRate? CalculationSequenceNumeric?
    BasisQuantity? BasisAmount* UnitBasisAmount* LineTotalBasisAmount* AllowanceChargeBasisAmount*
    CategoryCode:TaxCategoryCode? CurrencyCode:CurrencyCode? Jurisdiction* CustomsDutyIndicator?
    ExemptionReasonCode? TaxBasisAllowanceRate? TaxPointDate? Type? InformationAmount* CategoryName*
    DueDateTypeCode:TimeReferenceCode? RateApplicablePercent? SpecifiedTradeAccountingAccount*
    ServiceSupplyTradeCountry? BuyerRepayableTaxSpecifiedTradeAccountingAccount?
    SellerPayableTaxSpecifiedTradeAccountingAccount? SellerRefundableTaxSpecifiedTradeAccountingAccount?
    BuyerDeductibleTaxSpecifiedTradeAccountingAccount? BuyerNonDeductibleTaxSpecifiedTradeAccountingAccount?
    PlaceApplicableTradeLocation*
TradeAccountingAccount: ID SetTriggerCode:AccountingDocumentCode? TypeCode:AccountingAccountTypeCode?
    AmountTypeCode:AccountingAmountTypeCode? Name? CostReferenceDimensionPattern?
TradeAllowanceCharge: ChargeIndicator? ID? SequenceNumeric? CalculationPercent? BasisAmount? BasisQuantity?
    PrepaidIndicator? ActualAmount* UnitBasisAmount? ReasonCode:AllowanceChargeReasonCode? Reason?
    TypeCode:AllowanceChargeIdentificationCode? CategoryTradeTax* ActualTradeCurrencyExchange?
LogisticsServiceCharge: ID:FreightChargeTypeID? Description* PaymentArrangementCode?
    TariffClassCode:FreightChargeTariffClassCode? ChargeCategoryCode? ServiceCategoryCode? DisbursementAmount*
    AppliedAmount* AllowanceCharge? PayingPartyRoleCode:ChargePayingPartyRoleCode?
    CalculationBasisCode:LogisticsChargeCalculationBasisCode? CalculationBasis? TransportPaymentMethodCode?
    PaymentPlaceLogisticsLocation? AppliedFromLogisticsLocation? AppliedToLogisticsLocation? AppliedTradeTax*
TradePaymentTerms: ID:PaymentTermsID? FromEventCode:PaymentTermsEventTimeReferenceCode?
    SettlementPeriodMeasure? Description* DueDateDateTime? TypeCode:PaymentTermsTypeCode? InstructionTypeCode?
    DirectDebitMandateID* PartialPaymentPercent? PaymentMeansID* PartialPaymentAmount*
    ApplicableTradePaymentPenaltyTerms? ApplicableTradePaymentDiscountTerms? PayeeTradeParty*
TradePaymentPenaltyTerms: BasisDateTime? BasisPeriodMeasure? BasisAmount? CalculationPercent?
    ActualPenaltyAmount?
TradePaymentDiscountTerms: BasisDateTime? BasisPeriodMeasure? BasisAmount? CalculationPercent?
    ActualDiscountAmount?
TradeSettlementHeaderMonetarySummation: LineTotalAmount* ChargeTotalAmount* AllowanceTotalAmount*
    TaxBasisTotalAmount* TaxTotalAmount* RoundingAmount* GrandTotalAmount* InformationAmount*
    TotalPrepaidAmount* TotalDiscountAmount* TotalAllowanceChargeAmount* DuePayableAmount*
    RetailValueExcludingTaxInformationAmount* TotalDepositFeeInformationAmount*
    ProductValueExcludingTobaccoTaxInformationAmount* TotalRetailValueInformationAmount* GrossLineTotalAmount*
    NetLineTotalAmount* NetIncludingTaxesLineTotalAmount*
FinancialAdjustment: ReasonCode? Reason* ActualAmount* ActualQuantity? ActualDateTime? ClaimRelatedTradeParty?
    InvoiceReferenceReferencedDocument?
AdvancePayment: PaidAmount FormattedReceivedDateTime:FormattedDateTime? IncludedTradeTax* )"
    // The statement on how a value came about
    R"(ValuationBreakdownStatement: ID Name Description* MeasurementMethodID* CreationDateTime
    DefaultCurrencyCode:CurrencyCode DefaultLanguageCode Comment* TypeCode* RequestedActionCode* PriceListID?
    ContractualLanguageCode? ChangedRecordedStatus* CreationSpecifiedBinaryFile* ReaderSpecifiedBinaryFile*
    ReferencedSpecifiedBinaryFile*
RecordedStatus: ConditionCode ChangerName? ChangedDateTime)";

/// The types of plain values; a qualified one (TaxCategoryCode) ends in the name of one of these.
inline constexpr std::string_view ciiSimpleTypes[] = {
    "Amount",  "BinaryObject", "Code",    "Date",     "DateTime", "ID",  "Indicator",
    "Measure", "Numeric",      "Percent", "Quantity", "Rate",     "Text"};

struct CiiType;

struct CiiElement
{
    std::string_view prefix; ///< as usual: rsm or ram
    std::string name, type;
    int min = 1;
    int max = 1;                      ///< how often it may stand; -1 is without limit
    const CiiType* content = nullptr; ///< null for plain values
};

struct CiiType
{
    std::string name;
    std::vector<CiiElement> elements;
};

inline CiiElement ciiElement(std::string word, std::string_view prefix)
{
    const char mark = word.back();
    const bool isRepeatable = mark == '*' || mark == '+';
    const bool isOptional = mark == '*' || mark == '?';
    if (isRepeatable || isOptional)
        word.pop_back();
    const std::size_t end = std::min(word.find(':'), word.size());
    const std::string type = word.substr(std::min(end + 1, word.size()));
    return {prefix, word.substr(0, end), type, isOptional ? 0 : 1, isRepeatable ? -1 : 1};
}

inline void resolveType(CiiElement& element, const std::vector<CiiType>& types)
{
    std::string longest;
    const auto offer = [&](std::string_view type) {
        if (element.name.ends_with(type) && type.size() > longest.size())
            longest = type;
    };
    std::ranges::for_each(ciiSimpleTypes, offer);
    std::ranges::for_each(types, offer, &CiiType::name);
    if (element.type.empty())
        element.type = longest.empty() ? "Text" : longest;
    const auto found = std::ranges::find(types, element.type, &CiiType::name);
    element.content = found == types.end() ? nullptr : &*found;
}

/// The document's own type is the first.
inline const std::vector<CiiType>& ciiTypes()
{
    static const std::vector<CiiType> types = [] {
        std::vector<CiiType> read;
        std::istringstream words{std::string(ciiGrammar)};
        for (std::string word; words >> word;) {
            if (word.ends_with(':'))
                read.push_back({word.substr(0, word.size() - 1), {}});
            else
                read.back().elements.push_back(ciiElement(word, read.size() == 1 ? "rsm" : "ram"));
        }
        for (CiiType& type : read)
            for (CiiElement& element : type.elements)
                resolveType(element, read);
        return read;
    }();
    return types;
}

} // namespace ledra::test
