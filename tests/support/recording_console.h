#pragma once

#include "platform/console.h"

#include <QStringList>

namespace ledra::test {

/// A console that keeps what it is told.
class RecordingConsole final : public Console
{
public:
    void failure(const QString& line) override { failures += line; }
    void information(const QString& line) override { informations += line; }

    QStringList failures;
    QStringList informations;
};

} // namespace ledra::test
