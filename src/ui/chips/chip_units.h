#pragma once

#include <QString>

#include <vector>

namespace ledra {

/// A stretch of a text: a token that is shown as a chip, or the letters between two of them.
struct ChipPiece
{
    QString text;
    bool isChip = false;
};

/// Which stretches of a text are chips, and what they are called.
class ChipLanguage
{
public:
    virtual ~ChipLanguage() = default;

    /// The text in pieces, which joined are the text again.
    virtual std::vector<ChipPiece> pieces(const QString& text) const = 0;

    /// What the chip of a token says, in the language of the window.
    virtual QString label(const QString& token) const = 0;
};

/// A letter of a text, or a chip: what is one character in the editor.
struct ChipUnit
{
    QChar letter;
    QString token = {}; ///< of a chip, as the text writes it; empty for a letter

    bool isChip() const { return !token.isEmpty(); }
    friend bool operator==(const ChipUnit&, const ChipUnit&) = default;
};

using ChipUnits = std::vector<ChipUnit>;

ChipUnit chipOf(const QString& token);

/// A text with its tokens recognised. Lines end with "\n", however they ended.
ChipUnits unitsOf(const QString& source, const ChipLanguage& language);

/// The text with tokens again.
QString sourceOf(const ChipUnits& units);

/// The stretch in which two texts differ.
struct Difference
{
    std::size_t begin;
    std::size_t oldEnd;
    std::size_t newEnd;
};
Difference differenceOf(const ChipUnits& before, const ChipUnits& after);

} // namespace ledra
