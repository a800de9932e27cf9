#pragma once

#include <QString>

namespace ledra {

/// Why a store did not do what it was asked to.
struct StoreFailure
{
    QString text;            ///< one line
    bool isReported = false; ///< the console has said it already
};

} // namespace ledra
