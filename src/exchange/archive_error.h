#pragma once

#include <QString>

namespace ledra {

/// Why an archive was not written or taken in.
struct ArchiveFailure
{
    QString message; ///< for users
    QString detail;  ///< what exactly, where that is known

    /// One line.
    QString text() const
    {
        return detail.isEmpty() ? message : QStringLiteral("%1 (%2)").arg(message, detail);
    }
};

} // namespace ledra
