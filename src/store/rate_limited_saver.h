#pragma once

#include <QObject>
#include <QTimer>

#include <chrono>
#include <functional>

namespace ledra {

/// Saves what is changed continuously, such as a text that is being typed: soon after the last change, and at
/// the latest some time after the first. What is pending is saved when the saver goes.
class RateLimitedSaver : public QObject
{
    Q_OBJECT

public:
    static constexpr std::chrono::milliseconds quietTime{500};
    static constexpr std::chrono::milliseconds longestTime{3000};

    explicit RateLimitedSaver(std::function<void()> save, std::chrono::milliseconds quiet = quietTime,
                              std::chrono::milliseconds longest = longestTime);
    ~RateLimitedSaver() override;

    /// Something has changed.
    void schedule();

    /// Saves at once what is pending.
    void flush();

    bool isPending() const { return quiet_.isActive(); }

private:
    std::function<void()> save_;
    QTimer quiet_;   ///< starts anew with each change
    QTimer longest_; ///< starts with the first
};

} // namespace ledra
