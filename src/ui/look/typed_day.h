#pragma once

#include <QDate>
#include <QString>

#include <optional>

namespace ledra {

/// A day as people type it: day, month and year with any marks between them or none, or the year first with
/// marks. A year of two digits, or none at all, is only read once typing has ended, when `usualYear` is
/// given: before that it may still become another one.
std::optional<QDate> dayTyped(const QString& text, std::optional<int> usualYear = {});

} // namespace ledra
