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

} // namespace ledra::test
