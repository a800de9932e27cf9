#include "app/kept_files.h"

#include "store/invoice_folder.h"

#include <QFileInfo>

namespace ledra {

namespace {

JobFailure failure(const FileError& error)
{
    return {JobFailure::Kind::store, error.text(), false};
}

} // namespace

std::optional<Invoice> KeptFiles::invoiceIn(const QString& path) const
{
    if (!path.endsWith(QStringLiteral(".json"), Qt::CaseInsensitive))
        return std::nullopt;
    const auto content = readFile(path, largestRecordFile);
    JSONReader reader;
    const Decoded<Invoice> invoice =
        content ? decodeInvoiceAsFound(*content, context_.clock.now(), context_.region, reader)
                : std::unexpected(DecodingError{});
    return invoice && !invoice->id.isNull() ? std::optional(*invoice) : std::nullopt;
}

// ---- the trash

std::vector<TrashedRecord> KeptFiles::trash() const
{
    std::vector<TrashedRecord> records;
    for (const TrashedFile& file : context_.trash.filesFrom(profiles_.dataPlace()))
        records.push_back({file, invoiceIn(file.path)});
    return records;
}

JobResult<void> KeptFiles::restore(const TrashedRecord& record)
{
    if (record.invoice && invoices_.find(record.invoice->id))
        return std::unexpected(JobFailure{
            .text =
                QStringLiteral("a record with the id %1 exists already").arg(idText(record.invoice->id))});
    if (const auto restored = context_.trash.restore(record.file); !restored)
        return std::unexpected(failure(restored.error()));
    profiles_.reload();
    invoices_.loadAll();
    return {};
}

// ---- conflicts

std::vector<KeptVersion> KeptFiles::conflicts() const
{
    std::vector<KeptVersion> versions;
    for (const Conflict& conflict : context_.writer.conflicts().all())
        versions.push_back({conflict.number, conflict.target, conflict.path, false});
    int number = versions.empty() ? 0 : versions.back().number;
    for (const InvoiceManager::SecondFile& second : invoices_.secondFiles())
        versions.push_back({++number, invoices_.filePath(second.id), second.path, true});
    return versions;
}

std::optional<KeptVersion> KeptFiles::conflict(int number) const
{
    for (const KeptVersion& version : conflicts()) {
        if (version.number == number)
            return version;
    }
    return std::nullopt;
}

/// The file that holds the record now: it may have moved since, with its date.
QString KeptFiles::currentFile(const KeptVersion& version, const std::optional<Invoice>& content) const
{
    if (!content || invoiceIn(version.target))
        return version.target;
    const QString folder = QFileInfo(version.target).path();
    InvoiceFolder place(context_);
    place.open(folder);
    if (const auto found = place.scan()) {
        for (const InvoiceFile& file : found->read) {
            if ((*file.record)->id == content->id)
                return folder + u'/' + file.name;
        }
    }
    return version.target;
}

JobResult<void> KeptFiles::take(const KeptVersion& version)
{
    const InterprocessLock::Guard guard = context_.writer.lock();
    const auto content = readFile(version.path, largestRecordFile);
    if (!content)
        return std::unexpected(failure(content.error()));
    const std::optional<Invoice> invoice = invoiceIn(version.path);
    const QString file = currentFile(version, invoice);
    if (!QFileInfo(QFileInfo(file).path()).isDir())
        return std::unexpected(
            JobFailure{.text = file + QStringLiteral(": its folder is no more; the version stays kept")});

    DataFileWriter::Order order{.path = file, .content = *content};
    if (const auto current = readFile(file, largestRecordFile)) {
        if (const auto kept = context_.writer.conflicts().keep(file, *current); !kept)
            return std::unexpected(failure(kept.error()));
        order.known = ContentMark::of(*current);
        const std::optional<Invoice> before = invoiceIn(file);
        if (before && invoice && before->date.localDate() != invoice->date.localDate()) {
            order.path = QFileInfo(file).path() + u'/' + invoiceFileName(*invoice);
            order.moved = order.path == file ? QString() : file;
        }
    }
    if (const auto written = context_.writer.write(order); !written)
        return std::unexpected(failure(written.error()));
    const JobResult<void> dropped = drop(version);
    profiles_.reload();
    invoices_.loadAll();
    return dropped;
}

JobResult<void> KeptFiles::drop(const KeptVersion& version)
{
    if (const auto trashed = context_.trash.put(version.path); !trashed)
        return std::unexpected(failure(trashed.error()));
    if (version.isSecondFile)
        invoices_.loadAll();
    else if (const auto forgotten = context_.writer.conflicts().forget(version.number); !forgotten)
        return std::unexpected(failure(forgotten.error()));
    return {};
}

} // namespace ledra
