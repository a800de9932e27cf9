#pragma once

#include <cstdint>
#include <optional>

namespace ledra::bench {

/// The proportional set size of this process and all that descend from it, the web engine's helpers among
/// them, in kilobytes: memory that several of them share counts once. Nothing where the kernel does not tell.
std::optional<std::int64_t> proportionalMemory();

} // namespace ledra::bench
