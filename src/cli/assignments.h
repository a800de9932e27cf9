#pragma once

#include "store/key_value.h"

#include <QString>
#include <QStringList>

#include <expected>
#include <vector>

namespace ledra {

/// One "KEY=VALUE" of a command line.
struct Assignment
{
    QString key;
    QString value;
};

/// Splits them at their first "=". Keys that are `fixed` belong to the record itself and are refused.
[[nodiscard]] std::expected<std::vector<Assignment>, QString> assignmentsFrom(const QStringList& texts,
                                                                              const QStringList& fixed);

/// Applies all of them, or none: the error names the first that does not fit.
template <class T>
Assigned applyAll(T& record, const std::vector<Assignment>& assignments, const ValueReading& reading)
{
    T changed = record;
    for (const Assignment& assignment : assignments) {
        if (Assigned assigned = assignByKey(changed, assignment.key, assignment.value, reading); !assigned)
            return assigned;
    }
    record = std::move(changed);
    return {};
}

} // namespace ledra
