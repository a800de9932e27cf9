#include "plugins/plugin_log.h"

namespace ledra {

void PluginLog::add(const QString& id, const PluginLogLine& line)
{
    constexpr std::size_t most = 200;
    std::deque<PluginLogLine>& lines = lines_[id];
    lines.push_back(line);
    if (lines.size() > most)
        lines.pop_front();
}

} // namespace ledra
