#pragma once

#include "model/enumerations.h"

#include <array>
#include <string_view>

namespace ledra {

/// The code of a unit in UN/ECE Recommendation 20.
struct UnitCode
{
    Unit unit;
    std::string_view code;
};

inline constexpr std::array unitCodes = {
    UnitCode{Unit::piece, "H87"}, UnitCode{Unit::hour, "HUR"},   UnitCode{Unit::day, "DAY"},
    UnitCode{Unit::week, "WEE"},  UnitCode{Unit::lumpSum, "LS"},
};

constexpr std::string_view unitCode(Unit unit)
{
    for (const UnitCode& row : unitCodes) {
        if (row.unit == unit)
            return row.code;
    }
    return unitCodes.front().code;
}

/// The unit of a code; pieces for a code that stands for no unit of ours.
constexpr Unit unitFromCode(std::string_view code)
{
    for (const UnitCode& row : unitCodes) {
        if (row.code == code)
            return row.unit;
    }
    return Unit::piece;
}

} // namespace ledra
