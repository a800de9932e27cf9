#pragma once

#include "ui/chips/chip_units.h"

namespace ledra {

/// The variables of number formats, "{YYYY}". Which braces are one is for the format's own parser to say.
class NumberFormatLanguage final : public ChipLanguage
{
public:
    std::vector<ChipPiece> pieces(const QString& text) const override;

    /// "Year 2026": what the variable is and what it looks like today.
    QString label(const QString& token) const override;
};

} // namespace ledra
