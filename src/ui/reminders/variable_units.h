#pragma once

#include "model/reminder_variable.h"

#include <vector>

namespace ledra {

/// A letter of a text, or a variable: what is one character in the editor.
struct TextUnit
{
    QChar letter;
    std::optional<ReminderVariable> variable = {};

    friend bool operator==(const TextUnit&, const TextUnit&) = default;
};

using TextUnits = std::vector<TextUnit>;

/// A text with its tokens recognised. Lines end with "\n", however they ended.
TextUnits unitsOf(const QString& source);

/// The text with tokens again.
QString sourceOf(const TextUnits& units);

/// The stretch in which two texts differ.
struct Difference
{
    std::size_t begin;
    std::size_t oldEnd;
    std::size_t newEnd;
};
Difference differenceOf(const TextUnits& before, const TextUnits& after);

} // namespace ledra
