#include "store/invoice_folder.h"

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
    Reading(QString fileName, const FileSignature& found) : name(std::move(fileName)), signature(found) {}

    QString name;
    FileSignature signature;
    ContentMark mark;
    bool isKnown = false; ///< with this content
    std::expected<Invoice, QString> invoice = std::unexpected(QString());

    void run(const QString& path, const QHash<QString, Known>& known, Timestamp now, const QString& region,
             JSONReader& reader)
    {
        const std::expected<QByteArray, FileError> content = readFile(path, largestRecordFile);
        if (!content) {
            invoice = std::unexpected(content.error().reason);
            return;
        }
        mark = ContentMark::of(*content);
        const auto before = known.constFind(name);
        isKnown = before != known.constEnd() && before->mark == mark;
        if (isKnown)
            return;
        Decoded<Invoice> decoded = decodeInvoiceAsFound(*content, now, region, reader);
        if (decoded)
            invoice = std::move(*decoded);
        else
            invoice = std::unexpected(decoded.error().text());
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
    return known_.contains(name) || signatureOf(path_ + u'/' + name);
}

void InvoiceFolder::noteWritten(const QString& name, const ContentMark& mark)
{
    // Not settled: whoever writes next may do so in the same moment.
    known_.insert(name, {signatureOf(path_ + u'/' + name).value_or(FileSignature()), mark, false});
}

std::expected<InvoiceFolder::Update, FileError> InvoiceFolder::scan()
{
    ++work_.scans;
    std::expected<std::vector<FolderEntry>, FileError> entries = listFolder(path_);
    if (!entries && QDir(path_).exists())
        return std::unexpected(entries.error());
    if (!entries)
        entries.emplace();
    std::erase_if(*entries, [](const FolderEntry& entry) {
        return entry.isFolder || !isInvoiceFileName(entry.name);
    });
    Update update = lookAt(*entries);
    if (known_.size() > static_cast<qsizetype>(entries->size())) { // what is there is known by now
        QSet<QString> present;
        for (const FolderEntry& entry : *entries)
            present.insert(entry.name);
        for (const QString& name : known_.keys()) {
            if (!present.contains(name))
                update.gone += name;
        }
        for (const QString& name : std::as_const(update.gone))
            known_.remove(name);
    }
    return update;
}

InvoiceFolder::Update InvoiceFolder::look(const QSet<QString>& names)
{
    std::vector<FolderEntry> entries;
    QStringList gone;
    for (const QString& name : names) {
        if (!isInvoiceFileName(name))
            continue;
        if (const auto signature = signatureOf(path_ + u'/' + name))
            entries.push_back({name, false, *signature});
        else if (known_.remove(name))
            gone += name;
    }
    Update update = lookAt(entries);
    update.gone += gone;
    return update;
}

InvoiceFolder::Update InvoiceFolder::lookAt(const std::vector<FolderEntry>& entries)
{
    std::vector<Reading> readings;
    for (const FolderEntry& entry : entries) {
        const auto before = known_.constFind(entry.name);
        if (before == known_.constEnd() || !before->isSettled || before->signature != entry.signature)
            readings.emplace_back(entry.name, entry.signature);
    }
    const std::int64_t beforeReading = currentNanoseconds();
    const Timestamp now = context_.clock.now();
    std::atomic<std::size_t> next = 0;
    const auto work = [&] {
        JSONReader reader;
        for (std::size_t i = next++; i < readings.size(); i = next++)
            readings[i].run(path_ + u'/' + readings[i].name, known_, now, context_.region, reader);
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
    for (Reading& reading : readings)
        take(reading, beforeReading, update);
    return update;
}

void InvoiceFolder::take(Reading& reading, std::int64_t beforeReading, Update& update)
{
    ++work_.filesRead;
    if (!reading.isKnown && !reading.invoice) {
        // Perhaps another process is writing it just now; it holds the lock until the file is whole.
        const InterprocessLock::Guard guard = context_.writer.lock();
        JSONReader reader;
        reading.run(path_ + u'/' + reading.name, known_, context_.clock.now(), context_.region, reader);
    }
    known_.insert(reading.name,
                  {reading.signature, reading.mark, isSettled(reading.signature, beforeReading)});
    if (reading.isKnown)
        return;
    if (!reading.invoice) {
        context_.console.failure(QStringLiteral("Error loading invoice from %1: %2")
                                     .arg(path_ + u'/' + reading.name, reading.invoice.error()));
        return;
    }
    completeIds(*reading.invoice, context_.ids);
    update.read.push_back(
        {reading.name, std::move(*reading.invoice), reading.mark, reading.signature.modified});
}

} // namespace ledra
