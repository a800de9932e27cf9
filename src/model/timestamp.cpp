#include "model/timestamp.h"

#include <QTimeZone>

#include <cmath>
#include <ctime>

namespace ledra {

namespace {

constexpr qint64 referenceUnixSeconds = 978307200; // 2001-01-01T00:00:00Z
constexpr double firstYearStart = -63113904000.0;  // 0001-01-01T00:00:00Z
constexpr double lastYearEnd = 252423993600.0;     // 10000-01-01T00:00:00Z

} // namespace

Timestamp Timestamp::fromDateTime(const QDateTime& moment)
{
    return Timestamp(static_cast<double>(moment.toSecsSinceEpoch() - referenceUnixSeconds));
}

std::optional<Timestamp> Timestamp::fromIso8601(const QString& text)
{
    const QDateTime moment = QDateTime::fromString(text, Qt::ISODate);
    if (!moment.isValid() || !text.contains(u'T'))
        return std::nullopt;
    return fromDateTime(moment);
}

bool Timestamp::isInCalendarRange() const
{
    return seconds_ >= firstYearStart && seconds_ < lastYearEnd;
}

QDateTime Timestamp::toLocal() const
{
    const auto milliseconds = static_cast<qint64>(std::floor(seconds_ * 1000.0));
    return QDateTime::fromMSecsSinceEpoch(milliseconds + referenceUnixSeconds * 1000);
}

QDate Timestamp::localDate() const
{
    const auto unixSeconds = static_cast<std::time_t>(std::floor(seconds_) + double{referenceUnixSeconds});
    std::tm parts{};
    if (::localtime_r(&unixSeconds, &parts) == nullptr)
        return toLocal().date();
    constexpr int firstYear = 1900;
    return {parts.tm_year + firstYear, parts.tm_mon + 1, parts.tm_mday};
}

QString Timestamp::toIso8601() const
{
    return toLocal().toUTC().toString(Qt::ISODate);
}

QString dayText(QDate day)
{
    if (!day.isValid() || day.year() < 0 || day.year() > 9999)
        return day.toString(QStringLiteral("yyyy-MM-dd"));
    // By hand, since lists have many: a pattern is read anew for each date.
    QString text = QStringLiteral("0000-00-00");
    const auto put = [&text](qsizetype end, int value) {
        for (; value > 0; value /= 10)
            text[--end] = QChar(u'0' + value % 10);
    };
    put(4, day.year());
    put(7, day.month());
    put(10, day.day());
    return text;
}

std::optional<QDate> dayFromText(const QString& text)
{
    const QDate day = QDate::fromString(text, QStringLiteral("yyyy-MM-dd"));
    return day.isValid() && day.year() >= 1 && day.year() <= 9999 ? std::optional(day) : std::nullopt;
}

} // namespace ledra
