#include "platform/folder_watcher.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSocketNotifier>

#include <sys/inotify.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <utility>

namespace ledra {
namespace {

constexpr std::uint32_t pathEvents = IN_CREATE | IN_DELETE | IN_MOVE | IN_DELETE_SELF | IN_MOVE_SELF;
constexpr std::uint32_t folderEvents = pathEvents | IN_CLOSE_WRITE;

constexpr int quiet = 100;            // milliseconds without events that end a storm
constexpr qint64 longestStorm = 2000; // milliseconds
// So many names may be reported within `quiet`; a report counts as some, so that the ninth makes a storm.
constexpr qsizetype budget = 256;
constexpr qsizetype leastCost = budget / 8;
// Enough for a full queue of the kernel; not more, as a busy writer could fill it faster than it is read.
constexpr std::size_t bufferSize = 65'536;
constexpr int mostReads = 16;
constexpr int mostSteps = 500; // links may lead in a circle
constexpr const char* unseen = "Changes in \"%s\" may go unseen";

/// Whether it is a file of one name: its writer will close it, or it was linked here and lost its other name.
bool mayBeUnfinished(const QString& path)
{
    struct stat state = {};
    return ::lstat(QFile::encodeName(path).constData(), &state) == 0 && S_ISREG(state.st_mode) &&
           state.st_nlink == 1;
}

} // namespace

FolderWatcher::FolderWatcher(QString folder, QObject* parent)
    : QObject(parent), folder_(std::move(folder)), queue_(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC))
{
    if (queue_ < 0) {
        qErrnoWarning(unseen, qPrintable(folder_));
        return;
    }
    timer_.setSingleShot(true);
    connect(&timer_, &QTimer::timeout, this, &FolderWatcher::onTimeout);
    readable_ = std::make_unique<QSocketNotifier>(queue_, QSocketNotifier::Read);
    connect(readable_.get(), &QSocketNotifier::activated, this, &FolderWatcher::onReadable);
    watchPath();
}

FolderWatcher::~FolderWatcher()
{
    readable_.reset();
    ::close(queue_);
}

/// Watches every directory on the way to the folder, as far as it exists, since any of them may be moved away
/// or come later. Links are followed step by step, as they may be pointed elsewhere. A directory is watched
/// before the next step is looked at, so that nothing slips through between the two.
void FolderWatcher::watchPath()
{
    for (const int old : std::exchange(steps_, {}).keys()) {
        ::inotify_rm_watch(queue_, old);
    }
    isThere_ = false;
    QString directory = QStringLiteral("/");
    QStringList ahead = QDir(folder_).absolutePath().split(u'/', Qt::SkipEmptyParts);
    for (int steps = 0; !ahead.isEmpty() && steps < mostSteps; ++steps) {
        const QString step = ahead.takeFirst();
        addWatch(directory, step);
        const QFileInfo next(directory + step);
        if (next.isSymLink()) {
            ahead = next.symLinkTarget().split(u'/', Qt::SkipEmptyParts) + ahead;
            directory = QStringLiteral("/");
        } else if (next.isDir()) {
            directory = next.filePath() + u'/';
        } else {
            return;
        }
    }
    if (ahead.isEmpty()) {
        addWatch(directory, {});
    }
}

/// Without a step it is the folder itself.
void FolderWatcher::addWatch(const QString& directory, const QString& step)
{
    const std::uint32_t events = step.isEmpty() ? folderEvents : pathEvents;
    const int descriptor = ::inotify_add_watch(queue_, QFile::encodeName(directory).constData(),
                                               events | IN_ONLYDIR | IN_MASK_ADD);
    if (descriptor >= 0) {
        steps_[descriptor].insert(step);
        isThere_ = step.isEmpty();
        return;
    }
    // What is gone by now, the directory above tells of; what may be passed but not listed hardly ever goes.
    const bool isUsual = errno == ENOENT || errno == ENOTDIR || (errno == EACCES && !step.isEmpty());
    if (!isUsual && !std::exchange(warned_, true)) {
        qErrnoWarning(unseen, qPrintable(folder_));
    }
}

void FolderWatcher::onReadable()
{
    const bool isStirred = gather();
    if (!storm_.isValid()) {
        report();
    } else if (isStirred) {
        awaitQuiet();
    }
}

void FolderWatcher::onTimeout()
{
    const bool isStirred = gather(); // what came while the event loop was held up
    if (!storm_.isValid()) {
        pending_.names |= std::exchange(created_, {});
        report();
    } else if (const bool isLong = storm_.elapsed() >= longestStorm; isStirred && !isLong) {
        awaitQuiet();
    } else {
        storm_.invalidate();
        window_.start();
        spent_ = isLong ? budget : 0; // what follows a long one at once is still the storm
        pending_.rescan = true;
        emitPending();
    }
}

/// Takes what the kernel has ready. True when any of it concerns the folder.
bool FolderWatcher::gather()
{
    alignas(inotify_event) std::array<char, bufferSize> buffer;
    bool isStirred = false;
    ssize_t length = 0;
    for (int reads = 0; reads < mostReads && (length = ::read(queue_, buffer.data(), buffer.size())) > 0;
         ++reads) {
        for (const char* at = buffer.data(); at < buffer.data() + length;) {
            const auto* event = reinterpret_cast<const inotify_event*>(at);
            isStirred = take(*event) || isStirred;
            at += sizeof(inotify_event) + event->len;
        }
    }
    if (std::exchange(pathChanged_, false)) {
        const bool wasThere = isThere_;
        watchPath();
        pending_.rescan = pending_.rescan || wasThere || isThere_;
    }
    return isStirred;
}

bool FolderWatcher::take(const inotify_event& event)
{
    if ((event.mask & IN_Q_OVERFLOW) != 0) {
        pathChanged_ = true; // the event that would have told may be among the lost ones
        storm_.start();
        return true;
    }
    const auto steps = steps_.constFind(event.wd);
    if (steps == steps_.constEnd()) {
        return false;
    }
    const QString name = event.len > 0 ? QFile::decodeName(event.name) : QString();
    const bool isOfPath = name.isEmpty() || steps->contains(name); // no name: the directory itself went
    pathChanged_ = pathChanged_ || isOfPath;
    const bool isEntry = !name.isEmpty() && steps->contains(QString());
    if (isEntry && !storm_.isValid()) { // the end of a storm asks for everything anyway
        takeEntry(name, event.mask);
    }
    return isOfPath || isEntry;
}

/// A new file is reported when its writer closes it, lest it be read half-written. It cannot be told from one
/// that was linked here, after which nothing more comes; therefore it is not waited for long.
void FolderWatcher::takeEntry(const QString& name, std::uint32_t what)
{
    if ((what & IN_CREATE) != 0 && mayBeUnfinished(folder_ + u'/' + name)) {
        created_.insert(name);
    } else {
        created_.remove(name);
        pending_.names.insert(name);
    }
}

/// Reports what is pending, or lets a storm begin.
void FolderWatcher::report()
{
    if (!created_.isEmpty() && !timer_.isActive()) {
        timer_.start(quiet);
    }
    if (!pending_.rescan && pending_.names.isEmpty()) {
        return;
    }
    if (!window_.isValid() || window_.elapsed() > quiet) {
        window_.start();
        spent_ = 0;
    }
    spent_ += std::max(leastCost, pending_.names.size());
    if (spent_ > budget) {
        storm_.start();
        awaitQuiet();
    } else {
        emitPending();
    }
}

void FolderWatcher::emitPending()
{
    if (pending_.rescan) {
        pending_.names.clear();
        created_.clear();
    }
    Q_EMIT changed(std::exchange(pending_, {})); // last, as a receiver may run the event loop
}

void FolderWatcher::awaitQuiet()
{
    const auto left = static_cast<int>(longestStorm - storm_.elapsed());
    timer_.start(std::clamp(left, 0, quiet));
}

} // namespace ledra
