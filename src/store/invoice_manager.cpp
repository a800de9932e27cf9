#include "store/invoice_manager.h"

#include "model/displayed_number.h"
#include "platform/folder_watcher.h"
#include "store/set_status_command.h"

#include <QFileInfo>
#include <QPointer>

namespace ledra {

namespace {

StoreFailure unknownId(const QUuid& id)
{
    return {QStringLiteral("no record has the id ") + idText(id), false};
}

} // namespace

InvoiceManager::InvoiceManager(StoreContext& context, ProfileManager& profiles, Loading loading)
    : context_(context), profiles_(profiles), folder_(context), saver_([this] { (void)writeUnsaved(); })
{
    constexpr std::chrono::seconds untilRetry(5);
    retry_.setInterval(untilRetry);
    connect(&retry_, &QTimer::timeout, this, [this] { (void)writeUnsaved(); });
    if (loading == Loading::never)
        return;
    open();
    connect(&profiles, &ProfileManager::activeProfileChanged, this, &InvoiceManager::open);
    connect(&profiles, &ProfileManager::dataFolderChanged, this, &InvoiceManager::open);
}

InvoiceManager::~InvoiceManager()
{
    saver_.flush(); // which may start the timer, a later member
    keepUnsaved();
}

// ---- making

std::int64_t InvoiceManager::nextNumber(InvoiceType type) const
{
    std::vector<const Invoice*> records;
    records.reserve(invoices_->size());
    for (const InvoicePtr& invoice : *invoices_)
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
    InvoicePtr record = entry.record;
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
    this->change(*entry, change);
    return write(*entry);
}

/// Changes a record in memory, and the list where that moves it.
void InvoiceManager::change(Entry& entry, const std::function<void(Invoice&)>& change)
{
    const auto placeInList = [&] { return std::pair((*entry.record)->date, (*entry.record)->number); };
    const auto before = placeInList();
    entry.record->edit(change);
    ++contentRevision_;
    if (placeInList() != before)
        publish();
    Q_EMIT edited((*entry.record)->id);
}

void InvoiceManager::editSoon(const QUuid& id, const std::function<void(Invoice&)>& change)
{
    const auto entry = entries_.find(id);
    if (entry == entries_.end())
        return;
    entry->isUnsaved = true;
    saver_.schedule();
    this->change(*entry, change);
}

std::expected<void, StoreFailure> InvoiceManager::writeUnsaved()
{
    std::expected<void, StoreFailure> result;
    for (Entry& entry : entries_) {
        if (!entry.isUnsaved)
            continue;
        if (auto written = write(entry); !written)
            result = std::move(written);
    }
    if (result)
        retry_.stop();
    else if (!retry_.isActive())
        retry_.start();
    return result;
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
    QString proper = invoiceFileName(invoice);
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
    const auto fail = [&](const QString& reason) {
        entry.isUnsaved = true;
        const QString line = QStringLiteral("Error saving invoice: ") + reason;
        context_.console.failure(line);
        return std::unexpected(StoreFailure{line, true});
    };
    if (const std::optional<QString> problem = invoicesFolderProblem(folder_.path()))
        return fail(*problem);
    const auto written = context_.writer.write({
        .path = folder_.path() + u'/' + name,
        .content = fileText(invoice),
        .known = isNew ? std::nullopt : std::optional(entry.mark),
        .moved = moves ? folder_.path() + u'/' + entry.fileName : QString(),
    });
    if (!written)
        return fail(written.error().text());
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
