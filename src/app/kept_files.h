#pragma once

#include "app/invoice_jobs.h"
#include "model/invoice.h"
#include "platform/trash_bin.h"
#include "store/conflict_store.h"
#include "store/store_context.h"

#include <QString>

#include <expected>
#include <optional>
#include <vector>

namespace ledra {

/// A deleted data file.
struct TrashedRecord
{
    TrashedFile file;
    std::optional<Invoice> invoice; ///< when it is one
};

/// A version that gave way: one that is kept, or a second file of a record.
struct KeptVersion
{
    int number =
        0; ///< stays the same as long as the version is kept; second files are counted after the others
    QString target; ///< the data file that it is a version of
    QString path;
    bool isSecondFile = false;
};

/// What was not thrown away: the trash, and versions of records that had to give way to others.
class KeptFiles
{
public:
    KeptFiles(StoreContext& context, ProfileManager& profiles, InvoiceManager& invoices)
        : context_(context), profiles_(profiles), invoices_(invoices)
    {}

    /// What was deleted from the data folder, the last first.
    std::vector<TrashedRecord> trash() const;

    /// Puts it back where it was. Refused when that place is taken, or when a record with its id exists.
    JobResult<void> restore(const TrashedRecord& record);

    std::vector<KeptVersion> conflicts() const;
    std::optional<KeptVersion> conflict(int number) const;

    /// The kept version becomes the current one, which is kept in its stead.
    JobResult<void> take(const KeptVersion& version);

    /// The kept version goes to the trash.
    JobResult<void> drop(const KeptVersion& version);

private:
    QString currentFile(const KeptVersion& version, const std::optional<Invoice>& content) const;
    std::optional<Invoice> invoiceIn(const QString& path) const;

    StoreContext& context_;
    ProfileManager& profiles_;
    InvoiceManager& invoices_;
};

} // namespace ledra
