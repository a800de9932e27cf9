#pragma once

#include <QElapsedTimer>
#include <QHash>
#include <QObject>
#include <QSet>
#include <QString>
#include <QTimer>

#include <cstdint>
#include <memory>

class QSocketNotifier;
struct inotify_event;

namespace ledra {

/// What happened in a watched folder since the last report.
struct FolderChanges
{
    QSet<QString> names; ///< entries that are new, rewritten in place, replaced, moved away or removed
    bool rescan = false; ///< too much happened to say what, or the folder itself came or went: list it anew
};

/// Reports what other programs, and this one, do to the direct entries of one folder.
///
/// A single change is reported as soon as the event loop turns. A storm, or an overflow of the kernel's event
/// queue, ends in one report that asks for a rescan. The folder may be missing: it is reported when it
/// appears, and when it goes.
class FolderWatcher : public QObject
{
    Q_OBJECT

public:
    explicit FolderWatcher(QString folder, QObject* parent = nullptr);
    ~FolderWatcher() override;

    const QString& folder() const { return folder_; }

Q_SIGNALS:
    void changed(const ledra::FolderChanges& changes);

private:
    void watchPath();
    void addWatch(const QString& directory, const QString& step);

    void onReadable();
    void onTimeout();
    [[nodiscard]] bool gather();
    [[nodiscard]] bool take(const inotify_event& event);
    void takeEntry(const QString& name, std::uint32_t what);

    void report();
    void emitPending();
    void awaitQuiet();

    QString folder_;
    int queue_ = -1; ///< the kernel's event queue
    std::unique_ptr<QSocketNotifier> readable_;
    /// By watch descriptor, the entries of a directory through which the way to the folder leads on; the
    /// folder itself has an empty one.
    QHash<int, QSet<QString>> steps_;
    bool isThere_ = false;     ///< the folder itself is watched
    bool pathChanged_ = false; ///< the watches may no longer be those of the path
    bool warned_ = false;

    FolderChanges pending_;
    QSet<QString> created_; ///< files of which only the beginning was seen: see takeEntry()
    QTimer timer_;          ///< the end of a storm or, outside of one, the patience with created_
    QElapsedTimer storm_;   ///< valid while there is one
    QElapsedTimer window_;  ///< since when spent_ is counted
    qsizetype spent_ = 0;
};

} // namespace ledra
