#include "platform/folder_watcher.h"
#include "store/invoice_manager.h"

#include <QFileInfo>
#include <QRegularExpression>

namespace ledra {

namespace {

/// A day, a hyphen, the beginning of the id and ".json".
bool isProperName(const QString& name, const QUuid& id)
{
    static const QRegularExpression pattern(QStringLiteral("^\\d{4}-\\d{2}-\\d{2}-([0-9A-F]{6})\\.json$"));
    const QRegularExpressionMatch match = pattern.match(name);
    return match.hasMatch() && idText(id).startsWith(match.captured(1));
}

bool comesBefore(const InvoicePtr& left, const InvoicePtr& right)
{
    const Invoice& a = **left;
    const Invoice& b = **right;
    if (a.date != b.date)
        return a.date > b.date;
    return a.number != b.number ? a.number > b.number : a.id < b.id;
}

} // namespace

/// Turns to the folder of the active profile.
void InvoiceManager::open()
{
    const ProfilePtr& profile = profiles_.activeProfile();
    const QUuid profileId = profile ? (*profile)->id : QUuid();
    const std::optional<QString> place = profile ? profiles_.profilePlace(**profile) : std::nullopt;
    const QString path = place ? *place + QStringLiteral("/Invoices") : QString();
    if (path == folder_.path() && profileId == profileId_)
        return;
    if (profileId != profileId_) {
        (void)writeUnsaved(); // the last chance; what is refused stays with the recovery
        keepUnsaved();
        entries_.clear();
        fallbackUndoStack_.clear();
        newlyCreatedInvoiceId_.reset();
        profileId_ = profileId;
    }
    openPlace(path);
}

/// Keeps what could not be written as a conflict where the folder is away, which nobody has tried to write
/// then.
void InvoiceManager::keepUnsaved()
{
    if (!invoicesFolderProblem(folder_.path()))
        return;
    for (const Entry& entry : std::as_const(entries_)) {
        if (entry.isUnsaved)
            (void)context_.writer.conflicts().keep(folder_.path() + u'/' + fileNameFor(entry),
                                                   fileText(**entry.record));
    }
}

void InvoiceManager::openPlace(const QString& path)
{
    folder_.open(path);
    idOfFile_.clear();
    for (Entry& entry : entries_) // the same profile in another place
        entry.secondFiles.clear();
    watcher_.reset();
    if (context_.watchesFolders && !path.isEmpty()) {
        watcher_ = std::make_unique<FolderWatcher>(path);
        connect(watcher_.get(), &FolderWatcher::changed, this, &InvoiceManager::follow, Qt::QueuedConnection);
    }
    loadAll();
    const auto isLost = [this](const auto& entry) {
        return !entry->isUnsaved && !idOfFile_.contains(entry->fileName);
    };
    const qsizetype before = entries_.size();
    entries_.removeIf([&](QHash<QUuid, Entry>::iterator entry) { return isLost(entry); });
    if (entries_.size() != before)
        publish();
}

void InvoiceManager::loadAll()
{
    if (auto update = folder_.scan())
        (void)take(std::move(*update));
    else
        context_.console.failure(QStringLiteral("Error loading invoices: ") + update.error().text());
    publish();
}

/// What the watcher reports; own writes end here, since they are known.
void InvoiceManager::follow(const FolderChanges& changes)
{
    if (changes.rescan) {
        auto update = folder_.scan();
        if (!update)
            context_.console.failure(QStringLiteral("Error loading invoices: ") + update.error().text());
        else if (take(std::move(*update)))
            publish();
    } else if (take(folder_.look(changes.names))) {
        publish();
    }
}

/// Brings the records in line with what was found; says whether anything was.
bool InvoiceManager::take(InvoiceFolder::Update update)
{
    if (update.isEmpty())
        return false;
    entries_.reserve(entries_.size() + static_cast<qsizetype>(update.read.size()));
    idOfFile_.reserve(entries_.capacity());
    for (InvoiceFile& file : update.read)
        takeFile(file);
    for (const QString& name : std::as_const(update.gone))
        dropFile(name);
    return true;
}

void InvoiceManager::takeFile(InvoiceFile& file)
{
    const QUuid id = (*file.record)->id;
    if (const QUuid before = idOfFile_.value(file.name, id); before != id)
        dropFile(file.name); // it holds another record now
    Entry& entry = entries_[id];
    const bool isSecond =
        entry.fileName != file.name && idOfFile_.contains(entry.fileName) && isThere(entry.fileName);
    idOfFile_.insert(file.name, id);
    if (isSecond && !standsFor(entry, file))
        return;
    entry.fileName = file.name;
    entry.modified = file.modified;
    if (entry.isUnsaved)
        return; // its mark stays that of the version it was made from: saving will find the other one
    entry.mark = file.mark;
    entry.fileDate = (*file.record)->date;
    if (entry.record)
        entry.record->edit([&](Invoice& invoice) { invoice = **file.record; });
    else
        entry.record = std::move(file.record);
}

/// Whether a file is there when nobody is writing: a record that moves has two files for a moment.
bool InvoiceManager::isThere(const QString& name) const
{
    const InterprocessLock::Guard guard = context_.writer.lock();
    return QFileInfo::exists(folder_.path() + u'/' + name);
}

/// Decides between two files of one record: the properly named one stands for it, of two such the later one.
/// The other is reported and left as it is.
bool InvoiceManager::standsFor(Entry& entry, const InvoiceFile& file)
{
    const bool wasProper = isProperName(entry.fileName, (*file.record)->id);
    const bool isProper = isProperName(file.name, (*file.record)->id);
    const bool wins = wasProper == isProper ? file.modified > entry.modified : isProper;
    const QString winner = wins ? file.name : entry.fileName;
    const QString other = wins ? entry.fileName : file.name;
    entry.secondFiles.removeAll(winner);
    if (!entry.secondFiles.contains(other))
        entry.secondFiles += other;
    context_.console.failure(QStringLiteral("%1: a second file of the record in %2; it is left as it is")
                                 .arg(folder_.path() + u'/' + other, winner));
    return wins;
}

void InvoiceManager::dropFile(const QString& name)
{
    const QUuid id = idOfFile_.take(name);
    const auto entry = entries_.find(id);
    if (entry == entries_.end() || entry->secondFiles.removeAll(name) > 0 || entry->fileName != name)
        return;
    entry->fileName.clear();
    if (!entry->secondFiles.isEmpty()) {
        const QString other = entry->secondFiles.takeFirst();
        folder_.noteGone(other); // so that it is read again
        (void)take(folder_.look({other}));
    } else if (!entry->isUnsaved) {
        entries_.erase(entry);
    }
}

void InvoiceManager::publish()
{
    std::vector<InvoicePtr> list;
    list.reserve(static_cast<std::size_t>(entries_.size()));
    for (const Entry& entry : std::as_const(entries_))
        list.push_back(entry.record);
    std::ranges::sort(list, comesBefore);
    invoices_ = std::make_shared<const std::vector<InvoicePtr>>(std::move(list));
    ++refreshTrigger_;
    ++contentRevision_;
    context_.console.information(QStringLiteral("InvoiceManager: Loaded %1 invoices, refreshTrigger: %2")
                                     .arg(invoices_->size())
                                     .arg(refreshTrigger_));
    Q_EMIT refreshed();
}

InvoicePtr InvoiceManager::find(const QUuid& id) const
{
    const auto entry = entries_.constFind(id);
    return entry == entries_.constEnd() ? nullptr : entry->record;
}

InvoicePtr InvoiceManager::loadById(const QUuid& id)
{
    if (!entries_.contains(id))
        follow({{}, true});
    if (!entries_.contains(id))
        context_.console.failure(QStringLiteral("Error loading invoice by ID %1: %2")
                                     .arg(idText(id), QStringLiteral("no such record")));
    return find(id);
}

QString InvoiceManager::filePath(const QUuid& id) const
{
    const QString name = entries_.value(id).fileName;
    return name.isEmpty() ? QString() : folder_.path() + u'/' + name;
}

bool InvoiceManager::fileExists(const QUuid& id) const
{
    const QString path = filePath(id);
    return !path.isEmpty() && QFileInfo::exists(path);
}

std::vector<InvoiceManager::SecondFile> InvoiceManager::secondFiles() const
{
    std::vector<SecondFile> files;
    for (auto entry = entries_.constBegin(); entry != entries_.constEnd(); ++entry) {
        for (const QString& name : entry->secondFiles)
            files.push_back({entry.key(), folder_.path() + u'/' + name});
    }
    std::ranges::sort(files, {}, &SecondFile::path);
    return files;
}

} // namespace ledra
