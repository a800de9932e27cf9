#pragma once

#include "model/invoice.h"
#include "platform/folder_listing.h"
#include "store/content_mark.h"
#include "store/store_context.h"

#include <QHash>
#include <QSet>
#include <QString>

#include <expected>
#include <memory>
#include <vector>

namespace ledra {

/// An invoice file that was read.
struct InvoiceFile
{
    QString name;
    std::shared_ptr<InvoiceRecord> record;
    ContentMark mark;
    std::int64_t modified = 0; ///< nanoseconds since 1970
};

/// The name that a record's file gets when it is made: its local day, a hyphen, the first six characters of
/// its id.
QString invoiceFileName(const Invoice& invoice);

/// Whether a file of this name holds an invoice: the extension is "json", and it is no reminder's.
bool isInvoiceFileName(const QString& name);

/// The folder of a profile's invoices as it was last seen. It finds out which files are new or have changed
/// by their signatures and contents, and reads only those, on all processors.
class InvoiceFolder
{
public:
    explicit InvoiceFolder(StoreContext& context) : context_(context) {}

    /// Turns to a folder and forgets what was seen in another one.
    void open(const QString& path);
    const QString& path() const { return path_; }

    /// What has changed since the last look. A file that cannot be read is told on the console, once for each
    /// change of it, and is in neither list.
    struct Update
    {
        std::vector<InvoiceFile> read; ///< new or with another content
        QStringList gone;
        bool isEmpty() const { return read.empty() && gone.isEmpty(); }
    };

    /// Looks at the whole folder; a missing one is empty.
    [[nodiscard]] std::expected<Update, FileError> scan();

    /// Looks at these files only.
    Update look(const QSet<QString>& names);

    /// A file was written by this process, or has gone by its doing.
    void noteWritten(const QString& name, const ContentMark& mark);
    void noteGone(const QString& name) { known_.remove(name); }

    bool holds(const QString& name) const;

    /// How much was done so far.
    struct Work
    {
        int scans = 0;
        int filesRead = 0;
    };
    const Work& work() const { return work_; }

private:
    struct Known
    {
        FileSignature signature;
        ContentMark mark;
        bool isSettled = false;
    };
    struct Reading;
    struct Tools;
    struct Place;

    Update lookAt(const QStringList& names);
    void take(Reading& reading, std::int64_t beforeReading, Update& update);

    StoreContext& context_;
    QString path_;
    QHash<QString, Known> known_;
    Work work_;
};

} // namespace ledra
