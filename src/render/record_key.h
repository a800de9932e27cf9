#pragma once

#include "store/json_schema.h"

namespace ledra {

/// The part of a cache key that stands for a record.
template <HasJSONSchema T>
QByteArray recordKey(const T& record)
{
    return OrderedJSONEncoder().encode(record).value_or(QByteArray("encoding failed"));
}

} // namespace ledra
