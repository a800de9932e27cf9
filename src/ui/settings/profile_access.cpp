#include "ui/settings/profile_access.h"

#include <algorithm>
#include <limits>

namespace ledra {

Access<int> ProfileAccess::count(std::int64_t Profile::* member)
{
    const Access<std::int64_t> access = field(member);
    return {[access] {
                constexpr std::int64_t most = std::numeric_limits<int>::max();
                return static_cast<int>(std::clamp<std::int64_t>(access.read(), 0, most));
            },
            [access](const int& value) { access.write(value); }};
}

} // namespace ledra
