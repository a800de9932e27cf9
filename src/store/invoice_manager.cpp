#include "store/invoice_manager.h"

#include "model/displayed_number.h"
#include "platform/folder_watcher.h"

#include <QFileInfo>
#include <QPointer>
#include <QRegularExpression>
#include <QUndoCommand>

namespace ledra {

namespace {

/// Sets a status together with the moment of its change.
class SetStatusCommand final : public QUndoCommand
{
public:
    using Apply = std::function<void(Status, Timestamp)>;

    SetStatusCommand(Status before, Timestamp dateBefore, Status after, Timestamp dateAfter, Apply apply)
        : before_(before),
          after_(after),
          dateBefore_(dateBefore),
          dateAfter_(dateAfter),
          apply_(std::move(apply))
    {
        setText(displayText(after));
    }

    void undo() override { apply_(before_, dateBefore_); }
    void redo() override { apply_(after_, dateAfter_); }

private:
    Status before_;
    Status after_;
    Timestamp dateBefore_;
    Timestamp dateAfter_;
    Apply apply_;
};

/// "yyyy-MM-dd-XXXXXX.json" with the beginning of the id.
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

StoreFailure unknownId(const QUuid& id)
{
    return {QStringLiteral("no record has the id ") + idText(id), false};
}

} // namespace

InvoiceManager::InvoiceManager(StoreContext& context, ProfileManager& profiles)
    : context_(context), profiles_(profiles), folder_(context), saver_([this] { writeUnsaved(); })
{
    open();
    connect(&profiles, &ProfileManager::activeProfileChanged, this, &InvoiceManager::open);
    connect(&profiles, &ProfileManager::dataFolderChanged, this, &InvoiceManager::open);
}

InvoiceManager::~InvoiceManager() = default;

// ---- loading

/// Turns to the folder of the active profile.
void InvoiceManager::open()
{
    const ProfilePtr& profile = profiles_.activeProfile();
    const QUuid profileId = profile ? (*profile)->id : QUuid();
    const QString path =
        profile ? profiles_.subfolder(**profile, QStringLiteral("Invoices"), false).value_or(QString())
                : QString();
    if (path == folder_.path() && profileId == profileId_)
        return;
    if (profileId != profileId_) {
        writeUnsaved(); // the last chance
        entries_.clear();
        fallbackUndoStack_.clear();
        newlyCreatedInvoiceId_.reset();
        profileId_ = profileId;
    }
    openPlace(path);
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
    invoices_.clear();
    invoices_.reserve(static_cast<std::size_t>(entries_.size()));
    for (const Entry& entry : std::as_const(entries_))
        invoices_.push_back(entry.record);
    std::ranges::sort(invoices_, comesBefore);
    ++refreshTrigger_;
    ++contentRevision_;
    context_.console.information(QStringLiteral("InvoiceManager: Loaded %1 invoices, refreshTrigger: %2")
                                     .arg(invoices_.size())
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

// ---- making

std::int64_t InvoiceManager::nextNumber(InvoiceType type) const
{
    std::vector<const Invoice*> records;
    records.reserve(invoices_.size());
    for (const InvoicePtr& invoice : invoices_)
        records.push_back(&**invoice);
    const ProfilePtr& profile = profiles_.activeProfile();
    const auto frequency = profile ? (*profile)->resetNumberFrequency : NumberResetFrequency::year;
    return ledra::nextNumber(records, type, frequency, context_.clock.now().localDate().year());
}

template <class Make>
std::expected<InvoicePtr, StoreFailure> InvoiceManager::make(InvoiceType type, Make&& makeRecord)
{
    const ProfilePtr profile = profiles_.activeProfile();
    if (!profile)
        return std::unexpected(StoreFailure{QStringLiteral("there is no active profile")});
    // From looking which numbers are taken to writing the record nobody else may take one.
    const InterprocessLock::Guard guard = context_.writer.lock();
    follow({{}, true});
    const Timestamp now = context_.clock.now();
    const std::int64_t number = numberForNew(nextNumber(type), type, **profile, now.localDate().year());
    return add(std::forward<Make>(makeRecord)(NewInvoiceOrder{**profile, number, now, context_.ids}));
}

std::expected<InvoicePtr, StoreFailure> InvoiceManager::create(InvoiceType type, const Adjust& adjust)
{
    return make(type, [&](const NewInvoiceOrder& order) {
        Invoice invoice = invoiceFromProfile(type, order);
        if (adjust)
            adjust(invoice);
        return invoice;
    });
}

std::expected<InvoicePtr, StoreFailure> InvoiceManager::duplicate(const QUuid& id)
{
    const InvoicePtr source = loadById(id);
    if (!source)
        return std::unexpected(unknownId(id));
    return make((*source)->type, [&](const NewInvoiceOrder& order) { return duplicateOf(**source, order); });
}

std::expected<InvoicePtr, StoreFailure> InvoiceManager::createInvoiceFromQuote(const QUuid& quoteId)
{
    const InvoicePtr quote = loadById(quoteId);
    if (!quote)
        return std::unexpected(unknownId(quoteId));
    return make(InvoiceType::invoice,
                [&](const NewInvoiceOrder& order) { return invoiceFromQuote(**quote, order); });
}

std::expected<InvoicePtr, StoreFailure> InvoiceManager::createCancellation(const QUuid& invoiceId)
{
    const InvoicePtr invoice = loadById(invoiceId);
    if (!invoice)
        return std::unexpected(unknownId(invoiceId));
    const InterprocessLock::Guard guard = context_.writer.lock();
    const auto cancellation = make(InvoiceType::cancellation, [&](const NewInvoiceOrder& order) {
        return cancellationOf(**invoice, order);
    });
    if (!cancellation)
        return cancellation;
    const auto marked = edit(invoiceId, [&](Invoice& cancelled) {
        if (cancelled.status == Status::cancelled)
            return;
        cancelled.status = Status::cancelled;
        cancelled.statusUpdateDate = context_.clock.now();
    });
    if (!marked)
        return std::unexpected(marked.error());
    publish();
    return cancellation;
}

std::expected<InvoicePtr, StoreFailure> InvoiceManager::insert(const Invoice& invoice)
{
    const InterprocessLock::Guard guard = context_.writer.lock();
    follow({{}, true});
    if (entries_.contains(invoice.id))
        return std::unexpected(
            StoreFailure{QStringLiteral("a record with the id %1 exists already").arg(idText(invoice.id))});
    if (folder_.holds(invoiceFileName(invoice)))
        return std::unexpected(
            StoreFailure{QStringLiteral("another record's file is named ") + invoiceFileName(invoice)});
    return add(invoice);
}

std::expected<InvoicePtr, StoreFailure> InvoiceManager::add(Invoice invoice)
{
    while (!entries_.contains(invoice.id) && folder_.holds(invoiceFileName(invoice)))
        invoice.id = context_.ids.newId(); // six characters are few: on some days two ids begin alike
    const QUuid id = invoice.id;
    Entry& entry = entries_[id];
    entry.record = std::make_shared<InvoiceRecord>(std::move(invoice));
    const InvoicePtr record = entry.record;
    const auto written = write(entry);
    newlyCreatedInvoiceId_ = id;
    publish();
    if (!written)
        return std::unexpected(written.error());
    return record;
}

// ---- changing

QUndoStack& InvoiceManager::undoStack()
{
    QUndoStack* inForce = undoStackSource_ ? undoStackSource_() : nullptr;
    return inForce ? *inForce : fallbackUndoStack_;
}

std::expected<void, StoreFailure> InvoiceManager::setStatus(const QUuid& id, Status status)
{
    const InvoicePtr record = find(id);
    if (!record)
        return std::unexpected(unknownId(id));
    if ((*record)->status == status)
        return {};
    // The stack may be a window's and outlive this store.
    const auto apply = [self = QPointer(this), id](Status value, Timestamp date) {
        if (!self)
            return;
        self->lastStatusChange_ = self->edit(id, [&](Invoice& invoice) {
            invoice.status = value;
            invoice.statusUpdateDate = date;
        });
    };
    auto* command = new SetStatusCommand((*record)->status, (*record)->statusUpdateDate, status,
                                         context_.clock.now(), apply);
    undoStack().push(command); // owns the command and applies it
    return lastStatusChange_;
}

std::expected<void, StoreFailure> InvoiceManager::edit(const QUuid& id,
                                                       const std::function<void(Invoice&)>& change)
{
    const InterprocessLock::Guard guard = context_.writer.lock();
    if (const auto entry = entries_.constFind(id); entry != entries_.constEnd() && !entry->fileName.isEmpty())
        follow({{entry->fileName}, false});
    const auto entry = entries_.find(id);
    if (entry == entries_.end())
        return std::unexpected(unknownId(id));
    const auto placeInList = [&] { return std::pair((*entry->record)->date, (*entry->record)->number); };
    const auto before = placeInList();
    entry->record->edit(change);
    ++contentRevision_;
    const auto written = write(*entry);
    if (placeInList() != before)
        publish();
    return written;
}

void InvoiceManager::editSoon(const QUuid& id, const std::function<void(Invoice&)>& change)
{
    const auto entry = entries_.find(id);
    if (entry == entries_.end())
        return;
    entry->record->edit(change);
    ++contentRevision_;
    entry->isUnsaved = true;
    saver_.schedule();
}

void InvoiceManager::writeUnsaved()
{
    for (Entry& entry : entries_) {
        if (entry.isUnsaved)
            (void)write(entry); // told on the console
    }
}

std::expected<void, StoreFailure> InvoiceManager::save(const QUuid& id)
{
    const auto entry = entries_.find(id);
    return entry == entries_.end() ? std::unexpected(unknownId(id)) : write(*entry);
}

/// The name under which a record is written: the one it has, unless an edit has moved its day. The name is
/// not worked out anew otherwise, since the local day of a moment changes with the time zone.
QString InvoiceManager::fileNameFor(const Entry& entry) const
{
    const Invoice& invoice = **entry.record;
    const QString proper = invoiceFileName(invoice);
    if (entry.fileName.isEmpty())
        return proper;
    const bool keepsDay = invoice.date.localDate() == entry.fileDate.localDate();
    return keepsDay || (proper != entry.fileName && folder_.holds(proper)) ? entry.fileName : proper;
}

std::expected<void, StoreFailure> InvoiceManager::write(Entry& entry)
{
    const Invoice& invoice = **entry.record;
    const QString name = fileNameFor(entry);
    const bool moves = !entry.fileName.isEmpty() && name != entry.fileName;
    const bool isNew = entry.fileName.isEmpty();
    const auto written = context_.writer.write({
        .path = folder_.path() + u'/' + name,
        .content = fileText(invoice),
        .known = isNew ? std::nullopt : std::optional(entry.mark),
        .moved = moves ? folder_.path() + u'/' + entry.fileName : QString(),
    });
    if (!written) {
        entry.isUnsaved = true;
        const QString line = QStringLiteral("Error saving invoice: ") + written.error().text();
        context_.console.failure(line);
        return std::unexpected(StoreFailure{line, true});
    }
    if (moves) {
        folder_.noteGone(entry.fileName);
        idOfFile_.remove(entry.fileName);
    }
    folder_.noteWritten(name, *written);
    idOfFile_.insert(name, invoice.id);
    entry.fileName = name;
    entry.modified = currentNanoseconds();
    entry.mark = *written;
    entry.fileDate = invoice.date;
    entry.isUnsaved = false;
    Q_EMIT saved(invoice.id);
    return {};
}

std::expected<void, StoreFailure> InvoiceManager::refreshNumberSettings(const QUuid& id)
{
    const ProfilePtr& profile = profiles_.activeProfile();
    if (!profile)
        return std::unexpected(StoreFailure{QStringLiteral("there is no active profile")});
    return edit(id, [&](Invoice& invoice) {
        invoice.numberFormat = (*profile)->numberFormat;
        invoice.cancellationPrefix = (*profile)->cancellationPrefix;
    });
}

std::expected<void, StoreFailure> InvoiceManager::remove(const QUuid& id)
{
    const InterprocessLock::Guard guard = context_.writer.lock();
    const auto entry = entries_.constFind(id);
    if (entry == entries_.constEnd())
        return std::unexpected(unknownId(id));
    // Second files go along: otherwise one of them would be the record at the next start.
    for (const QString& name : QStringList(entry->secondFiles) + QStringList(entry->fileName)) {
        const QString path = folder_.path() + u'/' + name;
        if (name.isEmpty() || !QFileInfo::exists(path))
            continue;
        if (const auto trashed = context_.trash.put(path); !trashed)
            return std::unexpected(StoreFailure{trashed.error().text()});
        folder_.noteGone(name);
        idOfFile_.remove(name);
    }
    entries_.remove(id);
    publish();
    return {};
}

} // namespace ledra
