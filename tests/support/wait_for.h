#pragma once

#include <QEventLoop>
#include <QTimer>

namespace ledra::test {

/// Runs the event loop until something asynchronous says that it is done, or until a time that only a hang
/// reaches.
class Waiting
{
public:
    /// To be called when it is done; may also be called before wait().
    void done()
    {
        isDone_ = true;
        loop_.quit();
    }

    [[nodiscard]] bool wait(int milliseconds = 60'000)
    {
        if (!isDone_) {
            QTimer::singleShot(milliseconds, &loop_, &QEventLoop::quit);
            loop_.exec();
        }
        return isDone_;
    }

private:
    QEventLoop loop_;
    bool isDone_ = false;
};

/// Runs the event loop until something is so, or until the time is over. The web engine goes on meanwhile,
/// which it hardly does while QTest waits.
template <class Condition>
[[nodiscard]] bool waitUntil(const Condition& isSo, int milliseconds = 20'000)
{
    constexpr int betweenLooks = 10;
    QEventLoop loop;
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, &loop, [&] {
        if (isSo())
            loop.quit();
    });
    look.start(betweenLooks);
    QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
    if (!isSo())
        loop.exec();
    return isSo();
}

} // namespace ledra::test
