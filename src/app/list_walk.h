#pragma once

#include "store/invoice_manager.h"

#include <algorithm>
#include <optional>
#include <span>

namespace ledra {

/// Goes through an earlier state of the list side by side with the present one, so that what was found out
/// about a record is found again without looking it up. Two states have mostly the same records in the same
/// order; those that are no longer there, or elsewhere now, are passed over.
class ListWalk
{
public:
    /// Where the next record of the present list stands in the earlier one, if that is near.
    std::optional<std::size_t> placeOf(const InvoicePtr& record, std::span<const InvoicePtr> earlier)
    {
        constexpr std::size_t farthest = 64;
        const std::size_t last = std::min(passed_ + farthest, earlier.size());
        for (std::size_t place = passed_; place < last; ++place) {
            if (earlier[place] == record) {
                passed_ = place + 1;
                return place;
            }
        }
        return {};
    }

private:
    std::size_t passed_ = 0;
};

} // namespace ledra
