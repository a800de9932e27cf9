#pragma once

#include "model/clock.h"

#include <cstddef>
#include <cstdint>

namespace ledra {

// What a file is read with must not differ between two runs, or a kept input would not show its fault again.

struct FixedClock final : Clock
{
    Timestamp now() const override { return Timestamp(800'000'000); }
};

struct CountedIds final : IdSource
{
    QUuid newId() override { return QUuid(++count_, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0); }

private:
    uint count_ = 0;
};

/// An input as a copy of its own, so that a read beyond its end is met.
inline QByteArray inputBytes(const std::uint8_t* data, std::size_t size)
{
    return {reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)};
}

} // namespace ledra
