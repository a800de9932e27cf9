#pragma once

#include "model/invoice.h"
#include "model/new_invoices.h"
#include "store/invoice_folder.h"
#include "store/profile_manager.h"
#include "store/rate_limited_saver.h"
#include "store/store_failure.h"

#include <QHash>
#include <QObject>
#include <QTimer>
#include <QUndoStack>
#include <QUuid>

#include <expected>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace ledra {

class FolderWatcher;
struct FolderChanges;

/// A record as others see it: they look on, the store edits.
using InvoicePtr = std::shared_ptr<const InvoiceRecord>;

/// A list of records that stays as it is; a change of the list is another one.
using InvoiceList = std::shared_ptr<const std::vector<InvoicePtr>>;

/// The invoices, quotes and cancellations of the active profile.
///
/// Loads them from the profile's "Invoices" folder, makes new ones with their numbers, and writes every
/// change back as one file a record. A record keeps its identity as long as its id is known, whatever happens
/// to its file. What fails is told on the console; the record stays in memory and is written with the next
/// save.
class InvoiceManager : public QObject
{
    Q_OBJECT

public:
    /// What a process does with invoices: `never` is for commands that have nothing to do with them.
    enum class Loading { atOnce, never };

    /// Loads at once and follows the active profile from then on.
    InvoiceManager(StoreContext& context, ProfileManager& profiles, Loading loading = Loading::atOnce);
    ~InvoiceManager() override;

    /// Newest first.
    const std::vector<InvoicePtr>& invoices() const { return *invoices_; }
    const InvoiceList& list() const { return invoices_; }
    int refreshTrigger() const { return refreshTrigger_; }

    /// Grows with every change of the list or of a record in it.
    std::uint64_t contentRevision() const { return contentRevision_; }
    std::optional<QUuid> newlyCreatedInvoiceId() const { return newlyCreatedInvoiceId_; }
    std::optional<Invoice::Item> copiedItem; ///< held for pasting into another invoice

    /// Looks at the whole folder and reads what has changed.
    void loadAll();

    /// The record of that id; looks into the folder when it is not loaded.
    InvoicePtr loadById(const QUuid& id);
    InvoicePtr find(const QUuid& id) const;
    bool fileExists(const QUuid& id) const;
    QString filePath(const QUuid& id) const; ///< empty for a record without a file

    std::int64_t nextNumber(InvoiceType type) const;

    // Each of these makes a record with the next number of its type, writes it and publishes its id. `adjust`
    // changes the record before it is written.
    using Adjust = std::function<void(Invoice&)>;
    std::expected<InvoicePtr, StoreFailure> create(InvoiceType type, const Adjust& adjust = {});
    std::expected<InvoicePtr, StoreFailure> duplicate(const QUuid& id);
    std::expected<InvoicePtr, StoreFailure> createInvoiceFromQuote(const QUuid& quoteId);

    /// Also marks the invoice as cancelled.
    std::expected<InvoicePtr, StoreFailure> createCancellation(const QUuid& invoiceId);

    /// What the missing keys of a record that comes from elsewhere are filled with.
    NewRecordValues newRecordValues() { return context_.newRecordValues(); }

    /// Takes in a record that was made elsewhere. Refused when its id is known, or when another record's file
    /// has the name that it would get.
    std::expected<InvoicePtr, StoreFailure> insert(const Invoice& invoice);

    /// Undoable, on the stack in force. Setting the status that a record has does nothing.
    std::expected<void, StoreFailure> setStatus(const QUuid& id, Status status);

    /// Changes a record as it is on disk now, and writes it; the file moves when the change moves the day.
    std::expected<void, StoreFailure> edit(const QUuid& id, const std::function<void(Invoice&)>& change);

    /// The same for a change of many, such as typing: it is seen at once and written a little later.
    void editSoon(const QUuid& id, const std::function<void(Invoice&)>& change);

    /// Writes what editSoon() has left to be written.
    void flush() { saver_.flush(); }

    /// Writes all that is not written yet; the error is that of the last record that could not be.
    std::expected<void, StoreFailure> writeUnsaved();

    /// Writes a record as it is in memory.
    std::expected<void, StoreFailure> save(const QUuid& id);

    /// Takes the profile's number format and cancellation prefix of now.
    std::expected<void, StoreFailure> refreshNumberSettings(const QUuid& id);

    /// Moves the record's file to the trash.
    std::expected<void, StoreFailure> remove(const QUuid& id);

    /// Files whose record another file of the same id stands for, such as a sync service's conflict copies.
    struct SecondFile
    {
        QUuid id;
        QString path;
    };
    std::vector<SecondFile> secondFiles() const;

    /// Hands in the undo stack of the window in front; without one the store's own is used.
    void setUndoStackSource(std::function<QUndoStack*()> source) { undoStackSource_ = std::move(source); }
    QUndoStack& undoStack();

    const InvoiceFolder::Work& work() const { return folder_.work(); }

Q_SIGNALS:
    void refreshed();             ///< the list is new; refreshTrigger() has grown
    void edited(const QUuid& id); ///< a record has changed, and may not be written yet
    void saved(const QUuid& id);

private:
    struct Entry
    {
        std::shared_ptr<InvoiceRecord> record;
        QString fileName;   ///< empty before the first save
        ContentMark mark;   ///< of the file's content
        Timestamp fileDate; ///< the record's date in that content
        std::int64_t modified = 0;
        bool isUnsaved = false;
        QStringList secondFiles;
    };

    void open();
    void keepUnsaved();
    void openPlace(const QString& path);
    void follow(const FolderChanges& changes);
    bool take(InvoiceFolder::Update update);
    void takeFile(InvoiceFile& file);
    bool isThere(const QString& name) const;
    bool standsFor(Entry& entry, const InvoiceFile& file);
    void dropFile(const QString& name);
    void publish();

    template <class Make>
    std::expected<InvoicePtr, StoreFailure> make(InvoiceType type, Make&& makeRecord);
    std::expected<InvoicePtr, StoreFailure> add(Invoice invoice);
    std::expected<void, StoreFailure> write(Entry& entry);
    void change(Entry& entry, const std::function<void(Invoice&)>& change);
    QString fileNameFor(const Entry& entry) const;

    StoreContext& context_;
    ProfileManager& profiles_;
    InvoiceFolder folder_;
    QUuid profileId_;
    std::unique_ptr<FolderWatcher> watcher_;
    QHash<QUuid, Entry> entries_;
    QHash<QString, QUuid> idOfFile_; ///< by name, second files included
    InvoiceList invoices_ = std::make_shared<const std::vector<InvoicePtr>>();
    int refreshTrigger_ = 0;
    std::uint64_t contentRevision_ = 0;
    std::optional<QUuid> newlyCreatedInvoiceId_;
    QUndoStack fallbackUndoStack_;
    std::function<QUndoStack*()> undoStackSource_;
    std::expected<void, StoreFailure> lastStatusChange_;
    RateLimitedSaver saver_;
    QTimer retry_; ///< runs while something could not be written
};

} // namespace ledra
