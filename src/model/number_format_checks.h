#pragma once

#include "model/profile.h"

#include <QString>

namespace ledra {

/// What a number format is likely not meant to be.
enum class NumberFormatProblem {
    none,
    empty,
    noNumber,        ///< all documents get the same number
    noYear,          ///< numbers begin anew each year and nothing tells the years apart
    unknownVariable, ///< braces that hold no variable are printed as they stand
};

struct NumberFormatFinding
{
    NumberFormatProblem problem = NumberFormatProblem::none;
    QString detail = {}; ///< the braces in question
};

/// The gravest problem of a profile's format.
NumberFormatFinding checkNumberFormat(const QString& format, NumberResetFrequency frequency);

/// The first pair of braces in a format that is no variable; empty when there is none.
QString unknownVariable(const QString& format);

/// One line, with "%1" for the detail; empty for none.
QString displayText(NumberFormatProblem problem);

} // namespace ledra
