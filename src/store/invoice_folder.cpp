#include "store/invoice_folder.h"

#include "store/data_folder.h"

#include <QDir>

#include <atomic>
#include <thread>

namespace ledra {

namespace {

constexpr qsizetype idPrefixLength = 6;
constexpr std::size_t fewFiles = 64; ///< are read without starting threads

} // namespace

/// One file on its way from the disk to the update.
struct InvoiceFolder::Reading
{
    enum class State { unread, unchanged, known, read, gone, failed };

    explicit Reading(QString fileName) : name(std::move(fileName)) {}

    QString name;
    State state = State::unread;
    FileSignature signature;
    ContentMark mark;
    std::shared_ptr<InvoiceRecord> record;
    bool lacksIds = false;
    QString error;
};

/// What a thread reads with, file after file.
struct InvoiceFolder::Tools
{
    JSONReader reader;
    QByteArray content;
};

/// What the threads that read share; none of it changes meanwhile.
struct InvoiceFolder::Place
{
    const FolderHandle& folder;
    const QHash<QString, Known>& known;
    Timestamp now;
    const QString& region;

    void read(Reading& reading, Tools& tools) const
    {
        const auto before = known.constFind(reading.name);
        const bool isKnown = before != known.constEnd();
        if (isKnown && before->isSettled && folder.signature(reading.name) == before->signature) {
            reading.state = Reading::State::unchanged;
            return;
        }
        const auto signature = folder.read(reading.name, largestRecordFile, tools.content);
        if (!signature) {
            reading.state = folder.signature(reading.name) ? Reading::State::failed : Reading::State::gone;
            reading.error = signature.error().reason;
            return;
        }
        reading.signature = *signature;
        reading.mark = ContentMark::of(tools.content);
        if (isKnown && before->mark == reading.mark) {
            reading.state = Reading::State::known;
            return;
        }
        reading.record = std::make_shared<InvoiceRecord>(newInvoice(QUuid(), now, Country{region}));
        reading.record->edit([&](Invoice& invoice) {
            const Decoded<void> decoded = decodeDocument(invoice, tools.content, tools.reader);
            reading.lacksIds = hasMissingIds(invoice);
            reading.state = decoded ? Reading::State::read : Reading::State::failed;
            reading.error = decoded ? QString() : decoded.error().text();
        });
    }
};

QString invoiceFileName(const Invoice& invoice)
{
    return dayText(invoice.date.localDate()) + u'-' + idText(invoice.id).left(idPrefixLength) +
           QStringLiteral(".json");
}

bool isInvoiceFileName(const QString& name)
{
    return name.endsWith(QStringLiteral(".json"), Qt::CaseInsensitive) &&
           !name.contains(QStringLiteral("reminder"), Qt::CaseInsensitive);
}

void InvoiceFolder::open(const QString& path)
{
    path_ = path;
    known_.clear();
}

bool InvoiceFolder::holds(const QString& name) const
{
    return known_.contains(name) || FolderHandle(path_).signature(name);
}

void InvoiceFolder::noteWritten(const QString& name, const ContentMark& mark)
{
    // Not settled: whoever writes next may do so in the same moment.
    known_.insert(name, {FolderHandle(path_).signature(name).value_or(FileSignature()), mark, false});
}

std::expected<InvoiceFolder::Update, FileError> InvoiceFolder::scan()
{
    ++work_.scans;
    std::expected<std::vector<FolderEntry>, FileError> entries = listFolder(path_);
    // A folder that was never made holds nothing; one that is away with all around it has taken nothing
    // along.
    const bool isAway = !known_.isEmpty() && invoicesFolderProblem(path_);
    if (!entries && (isAway || QDir(path_).exists()))
        return std::unexpected(entries.error());
    QStringList names;
    for (const FolderEntry& entry : entries.value_or(std::vector<FolderEntry>())) {
        if (!entry.isFolder && isInvoiceFileName(entry.name))
            names += entry.name;
    }
    Update update = lookAt(names);
    if (known_.size() > names.size()) { // what is there is known by now
        const QSet<QString> present(names.begin(), names.end());
        const QStringList known = known_.keys();
        for (const QString& name : known) {
            if (!present.contains(name) && known_.remove(name))
                update.gone += name;
        }
    }
    return update;
}

InvoiceFolder::Update InvoiceFolder::look(const QSet<QString>& names)
{
    if (invoicesFolderProblem(path_))
        return {}; // it is away, and has taken nothing along
    QStringList ours;
    std::ranges::copy_if(names, std::back_inserter(ours), isInvoiceFileName);
    return lookAt(ours);
}

InvoiceFolder::Update InvoiceFolder::lookAt(const QStringList& names)
{
    const std::int64_t beforeReading = currentNanoseconds();
    const FolderHandle folder(path_);
    const Place place{folder, known_, context_.clock.now(), context_.region};
    std::vector<Reading> readings(names.begin(), names.end());
    std::atomic<std::size_t> next = 0;
    const auto work = [&] {
        Tools tools;
        for (std::size_t i = next++; i < readings.size(); i = next++)
            place.read(readings[i], tools);
    };
    {
        std::vector<std::jthread> helpers;
        if (readings.size() > fewFiles) {
            for (unsigned i = 1; i < std::thread::hardware_concurrency(); ++i)
                helpers.emplace_back(work);
        }
        work();
    }
    Update update;
    known_.reserve(known_.size() + names.size());
    update.read.reserve(readings.size());
    for (Reading& reading : readings) {
        if (reading.state == Reading::State::failed) {
            // Perhaps another process is writing it just now; it holds the lock until the file is whole.
            const InterprocessLock::Guard guard = context_.writer.lock();
            Tools tools;
            place.read(reading, tools);
        }
        take(reading, beforeReading, update);
    }
    return update;
}

void InvoiceFolder::take(Reading& reading, std::int64_t beforeReading, Update& update)
{
    using State = Reading::State;
    if (reading.state == State::unchanged)
        return;
    ++work_.filesRead;
    if (reading.state == State::gone) {
        if (known_.remove(reading.name))
            update.gone += reading.name;
        return;
    }
    known_.insert(reading.name,
                  {reading.signature, reading.mark, isSettled(reading.signature, beforeReading)});
    if (reading.state == State::failed) {
        context_.console.failure(QStringLiteral("Error loading invoice from %1: %2")
                                     .arg(path_ + u'/' + reading.name, reading.error));
    } else if (reading.state == State::read) {
        if (reading.lacksIds)
            reading.record->edit([&](Invoice& invoice) { completeIds(invoice, context_.ids); });
        update.read.push_back(
            {reading.name, std::move(reading.record), reading.mark, reading.signature.modified});
    }
}

} // namespace ledra
