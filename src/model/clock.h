#pragma once

#include "model/timestamp.h"

#include <QUuid>

namespace ledra {

/// Tells the time; handed in wherever a record is made or judged by today, so that tests can fix it.
class Clock
{
public:
    virtual ~Clock() = default;
    virtual Timestamp now() const = 0;
};

/// The computer's clock, in whole seconds.
class SystemClock final : public Clock
{
public:
    Timestamp now() const override { return Timestamp::fromDateTime(QDateTime::currentDateTimeUtc()); }
};

/// Makes the ids of new records.
class IdSource
{
public:
    virtual ~IdSource() = default;
    virtual QUuid newId() = 0;
};

/// Random version 4 UUIDs.
class RandomIdSource final : public IdSource
{
public:
    QUuid newId() override { return QUuid::createUuid(); }
};

/// The text form of an id in files and URLs: 36 upper-case characters, no braces.
inline QString idText(const QUuid& id)
{
    return id.toString(QUuid::WithoutBraces).toUpper();
}

} // namespace ledra
