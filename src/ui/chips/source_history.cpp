#include "ui/chips/source_history.h"

namespace ledra {

void SourceHistory::reset(const QString& text)
{
    states_ = {text};
    now_ = 0;
    isTyping_ = false;
}

void SourceHistory::take(const QString& text, bool isTyping)
{
    if (text == states_[now_])
        return;
    states_.resize(now_ + 1); // what was taken back is gone
    if (isTyping && isTyping_ && now_ > 0) {
        states_[now_] = text;
    } else {
        states_.push_back(text);
        ++now_;
    }
    isTyping_ = isTyping;
}

std::optional<QString> SourceHistory::back()
{
    isTyping_ = false;
    return now_ > 0 ? std::optional(states_[--now_]) : std::nullopt;
}

std::optional<QString> SourceHistory::forward()
{
    isTyping_ = false;
    return now_ + 1 < states_.size() ? std::optional(states_[++now_]) : std::nullopt;
}

} // namespace ledra
