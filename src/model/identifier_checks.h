#pragma once

#include "model/text_enum.h"

#include <QString>

namespace ledra {

/// What is wrong with an identifier of a bank or a tax office.
enum class IdentifierProblem {
    none,
    ibanForm,
    ibanLength,
    ibanCheckDigits,
    bicForm,
    bicCountry,
    taxNumberForm,
    vatPrefix,
    vatForm,
    vatCheckDigits,
};

/// The display texts stand under the field; "none" has none.
template <>
inline constexpr std::array enumTexts<IdentifierProblem> = {
    EnumText{IdentifierProblem::none, "none", ""},
    EnumText{IdentifierProblem::ibanForm, "ibanForm",
             "An IBAN begins with two letters and two digits: DE89 3704 0044 0532 0130 00"},
    EnumText{IdentifierProblem::ibanLength, "ibanLength", "IBANs of this country have another length"},
    EnumText{IdentifierProblem::ibanCheckDigits, "ibanCheckDigits",
             "The check digits do not fit: a character is wrong, or two are swapped"},
    EnumText{IdentifierProblem::bicForm, "bicForm", "A BIC has 8 or 11 letters and digits: COBADEFFXXX"},
    EnumText{IdentifierProblem::bicCountry, "bicCountry", "The fifth and sixth letter name no country"},
    EnumText{IdentifierProblem::taxNumberForm, "taxNumberForm",
             "German tax numbers have 10 to 13 digits: 29/815/08154"},
    EnumText{IdentifierProblem::vatPrefix, "vatPrefix", "A VAT ID begins with the letters of its country"},
    EnumText{IdentifierProblem::vatForm, "vatForm", "VAT IDs of this country look different"},
    EnumText{IdentifierProblem::vatCheckDigits, "vatCheckDigits",
             "The check digit does not fit: a character is wrong, or two are swapped"},
};

// Each takes the text as it was typed: blanks, and the marks that people write for reading, count for
// nothing. An empty text has no problem.

/// ISO 13616: the length of the country and the check digits. Of a country without a known length only the
/// latter are looked at.
IdentifierProblem ibanProblem(const QString& text);

/// ISO 9362.
IdentifierProblem bicProblem(const QString& text);

/// @param country the code of the country that taxes; only German numbers have a form that is checked
IdentifierProblem taxNumberProblem(const QString& text, const QString& country);

/// The form of all member states of the European Union, and Northern Ireland, and the check digits of AT, BE,
/// DE, ES, FR, HR, IT, NL and PL. Numbers of other countries pass, unless an EU state taxes the profile and
/// the letters in front are missing.
///
/// @param country the code of the country that taxes
IdentifierProblem vatNumberProblem(const QString& text, const QString& country);

} // namespace ledra
