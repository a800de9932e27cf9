#pragma once

#include <QString>

#include <optional>
#include <vector>

namespace ledra {

/// The states of a text, for a field that has its own way back. Letters of one run of typing are one step.
class SourceHistory
{
public:
    /// Begins anew: somebody else has set the text.
    void reset(const QString& text);

    void take(const QString& text, bool isTyping);

    std::optional<QString> back();
    std::optional<QString> forward();

private:
    std::vector<QString> states_ = {QString()};
    std::size_t now_ = 0;
    bool isTyping_ = false; ///< the newest state may still grow
};

} // namespace ledra
