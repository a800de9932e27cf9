#pragma once

#include "app/search_index.h"
#include "model/enumerations.h"
#include "store/invoice_manager.h"

#include <QObject>
#include <QString>

#include <optional>
#include <vector>

namespace ledra {

/// What a filter bar narrows a list down to; everything that is set must hold.
struct Narrowing
{
    std::optional<InvoiceType> type = {};
    std::optional<Status> status = {};
    std::optional<QDate> from = {}; ///< the first day of the record's date
    std::optional<QDate> to = {};   ///< the last one
    std::optional<Currency> currency = {};

    friend bool operator==(const Narrowing&, const Narrowing&) = default;
};

/// What a list shows; everything that is set must hold.
struct InvoiceFilter
{
    std::optional<InvoiceType> type = {};
    std::optional<Status> status = {};
    bool overdueOnly = false;
    bool leavesOutQuotes = false;
    std::optional<int> year = {}; ///< of the record's date
    QString search = {};          ///< words that all occur somewhere in the record
    Narrowing narrowing = {};

    friend bool operator==(const InvoiceFilter&, const InvoiceFilter&) = default;
};

/// The filter in force and what it leaves of the list.
class FilterManager : public QObject
{
    Q_OBJECT

public:
    FilterManager(const InvoiceManager& invoices, const ProfileManager& profiles, const Clock& clock);

    const InvoiceFilter& filter() const { return filter_; }
    void setFilter(const InvoiceFilter& filter);

    /// The records that pass, in the order of the list.
    std::vector<InvoicePtr> filtered() { return filtered(filter_); }
    std::vector<InvoicePtr> filtered(const InvoiceFilter& filter);

Q_SIGNALS:
    void changed();

private:
    void updateIndex();

    const InvoiceManager& invoices_;
    const ProfileManager& profiles_;
    const Clock& clock_;
    InvoiceFilter filter_;
    SearchIndex index_;
    std::optional<std::pair<std::uint64_t, unsigned>> indexedState_; ///< revisions of invoices and profiles
};

} // namespace ledra
