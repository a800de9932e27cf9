#pragma once

#include <QDate>
#include <QDateTime>
#include <QString>

#include <optional>

namespace ledra {

/// A moment, as data files hold it: seconds since 2001-01-01T00:00:00Z. Fractions in a file are kept; moments
/// that this system makes are whole seconds, so that the number and the ISO 8601 form both keep them.
class Timestamp
{
public:
    constexpr Timestamp() = default;
    constexpr explicit Timestamp(double secondsSinceReference) : seconds_(secondsSinceReference) {}

    [[nodiscard]] static Timestamp fromDateTime(const QDateTime& moment);

    /// "2026-03-05T10:00:00Z" or with an offset; nothing when the text is no such moment.
    [[nodiscard]] static std::optional<Timestamp> fromIso8601(const QString& text);

    constexpr double secondsSinceReference() const { return seconds_; }

    /// Whether the moment lies in the years 1 to 9999, which every calendar computation here assumes.
    bool isInCalendarRange() const;

    /// In the user's time zone.
    QDateTime toLocal() const;
    QDate localDate() const; ///< the same day as toLocal()'s, at a tenth of the cost

    /// In whole seconds, UTC: "2026-03-05T10:00:00Z".
    QString toIso8601() const;

    friend constexpr auto operator<=>(const Timestamp&, const Timestamp&) = default;

private:
    double seconds_ = 0;
};

/// "yyyy-MM-dd", the form that names files and stands in machine-readable output.
QString dayText(QDate day);

/// The day of a text in that form, of the years 1 to 9999; nothing for any other text.
std::optional<QDate> dayFromText(const QString& text);

} // namespace ledra
