#pragma once

#include "model/text_enum.h"

namespace ledra {

enum class InvoiceType { invoice, cancellation, quote };
enum class Status { draft, sent, paid, cancelled };
enum class Unit { piece, hour, day, week, lumpSum };
enum class Language { english, german };
enum class VATExemptionReason {
    none,
    reverseCharge,
    smallBusiness,
    educationalServices,
    medicalServices,
    insuranceFinancial,
    residentialRental
};
enum class NumberResetFrequency { year, never };
enum class PageFormat { a4, usLetter };
enum class AccentColorUsage { important, labels, logo, headline };
enum class BackgroundPattern { none, dots, frame };
enum class LineStyle { single, double_, dotted, dashed };

template <>
inline constexpr std::array enumTexts<InvoiceType> = {
    EnumText{InvoiceType::invoice, "invoice", "Invoice"},
    EnumText{InvoiceType::cancellation, "cancellation", "Cancellation"},
    EnumText{InvoiceType::quote, "quote", "Quote"},
};

template <>
inline constexpr std::array enumTexts<Status> = {
    EnumText{Status::draft, "Draft", "Draft"},
    EnumText{Status::sent, "Sent", "Sent"},
    EnumText{Status::paid, "Paid", "Paid"},
    EnumText{Status::cancelled, "Cancelled", "Cancelled"},
};

template <>
inline constexpr std::array enumTexts<Unit> = {
    EnumText{Unit::piece, "Piece", "Piece"},
    EnumText{Unit::hour, "Hour", "Hour"},
    EnumText{Unit::day, "Day", "Day"},
    EnumText{Unit::week, "Week", "Week"},
    EnumText{Unit::lumpSum, "Lump Sum", "Lump Sum"},
};

template <>
inline constexpr std::array enumTexts<Language> = {
    EnumText{Language::english, "en", "English"},
    EnumText{Language::german, "de", "German"},
};

/// The display texts are the keys of the document's language tables as well; see exemptionText().
template <>
inline constexpr std::array enumTexts<VATExemptionReason> = {
    EnumText{VATExemptionReason::none, "none", "None"},
    EnumText{VATExemptionReason::reverseCharge, "reverseCharge", "VAT Reverse Charge"},
    EnumText{VATExemptionReason::smallBusiness, "smallBusiness", "VAT Exemption Small Business"},
    EnumText{VATExemptionReason::educationalServices, "educationalServices",
             "VAT Exemption Educational Services"},
    EnumText{VATExemptionReason::medicalServices, "medicalServices", "VAT Exemption Medical Services"},
    EnumText{VATExemptionReason::insuranceFinancial, "insuranceFinancial",
             "VAT Exemption Insurance Financial"},
    EnumText{VATExemptionReason::residentialRental, "residentialRental", "VAT Exemption Residential Rental"},
};

template <>
inline constexpr std::array enumTexts<NumberResetFrequency> = {
    EnumText{NumberResetFrequency::year, "year", "Yearly"},
    EnumText{NumberResetFrequency::never, "never", "Never"},
};

template <>
inline constexpr std::array enumTexts<PageFormat> = {
    EnumText{PageFormat::a4, "a4", "A4"},
    EnumText{PageFormat::usLetter, "usLetter", "US Letter"},
};

template <>
inline constexpr std::array enumTexts<AccentColorUsage> = {
    EnumText{AccentColorUsage::important, "important", "Most Important Info"},
    EnumText{AccentColorUsage::labels, "labels", "Labels"},
    EnumText{AccentColorUsage::logo, "logo", "Logo"},
    EnumText{AccentColorUsage::headline, "headline", "Headline"},
};

template <>
inline constexpr std::array enumTexts<BackgroundPattern> = {
    EnumText{BackgroundPattern::none, "none", "None"},
    EnumText{BackgroundPattern::dots, "dots", "Dots"},
    EnumText{BackgroundPattern::frame, "frame", "Frame"},
};

template <>
inline constexpr std::array enumTexts<LineStyle> = {
    EnumText{LineStyle::single, "single", "Single"},
    EnumText{LineStyle::double_, "double", "Double"},
    EnumText{LineStyle::dotted, "dotted", "Dotted"},
    EnumText{LineStyle::dashed, "dashed", "Dashed"},
};

} // namespace ledra
