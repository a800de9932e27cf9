#pragma once

#include "store/store_failure.h"

#include <QString>

#include <expected>
#include <type_traits>
#include <utility>

namespace ledra {

/// Whether a record may be changed that has left the house.
enum class Force { no, yes };

/// Why a job was not done.
struct JobFailure
{
    enum class Kind {
        guarded, ///< done with Force::yes
        refused, ///< it makes no sense
        store,   ///< the store could not
    };

    Kind kind = Kind::refused;
    QString text;
    bool isReported = false; ///< the console has said it already
};

template <class T>
using JobResult = std::expected<T, JobFailure>;

/// What a store answered, as a job's answer.
template <class T>
JobResult<T> jobResult(std::expected<T, StoreFailure> result)
{
    if (!result)
        return std::unexpected(
            JobFailure{JobFailure::Kind::store, result.error().text, result.error().isReported});
    if constexpr (std::is_void_v<T>)
        return {};
    else
        return std::move(*result);
}

} // namespace ledra
