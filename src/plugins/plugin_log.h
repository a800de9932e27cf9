#pragma once

#include "model/timestamp.h"

#include <QHash>
#include <QString>

#include <deque>

namespace ledra {

/// What a plugin has said or done.
struct PluginLogLine
{
    Timestamp time;
    QString text;
};

/// The last lines of each plugin since the program was started.
class PluginLog
{
public:
    void add(const QString& id, const PluginLogLine& line);
    void forget(const QString& id) { lines_.remove(id); }

    /// The newest at the end.
    std::deque<PluginLogLine> lines(const QString& id) const { return lines_.value(id); }

private:
    QHash<QString, std::deque<PluginLogLine>> lines_;
};

} // namespace ledra
