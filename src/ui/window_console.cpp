#include "ui/window_console.h"

#include <QElapsedTimer>

#include <cstdio>

namespace ledra {

namespace {

qint64 milliseconds()
{
    static const QElapsedTimer timer = [] {
        QElapsedTimer started;
        started.start();
        return started;
    }();
    return timer.elapsed();
}

} // namespace

void WindowConsole::print(const QString& line)
{
    constexpr qsizetype most = 200;
    lastLines_ += line;
    if (lastLines_.size() > most)
        lastLines_.removeFirst();
    const QByteArray bytes = line.toUtf8() + '\n';
    std::fwrite(bytes.constData(), 1, static_cast<std::size_t>(bytes.size()), stdout);
    std::fflush(stdout);
}

void WindowConsole::failure(const QString& line)
{
    constexpr qint64 minute = 60'000;
    print(line);
    const qint64 now = milliseconds();
    const auto told = toldAt_.constFind(line);
    if (told != toldAt_.constEnd() && now - *told < minute)
        return;
    toldAt_[line] = now;
    Q_EMIT failed(line);
}

void WindowConsole::information(const QString& line)
{
    print(line);
}

} // namespace ledra
