#pragma once

#include "platform/console.h"

#include <QHash>
#include <QObject>

namespace ledra {

/// The console of a window: everything goes to the standard output, and failures are told to the window as
/// well. A line that comes again within a minute, as when a folder is gone and every save fails, is told to
/// the window once.
class WindowConsole final : public QObject, public Console
{
    Q_OBJECT

public:
    void failure(const QString& line) override;
    void information(const QString& line) override;

    /// What was said last, the newest at the end; for a report of a problem.
    const QStringList& lastLines() const { return lastLines_; }

Q_SIGNALS:
    void failed(const QString& line);

private:
    void print(const QString& line);

    QStringList lastLines_;
    QHash<QString, qint64> toldAt_; ///< milliseconds
};

} // namespace ledra
