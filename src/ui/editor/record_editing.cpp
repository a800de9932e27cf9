#include "ui/editor/record_editing.h"

#include "app/reader_language.h"
#include "model/amount_text.h"

namespace ledra {

void RecordEditing::setRecord(const InvoicePtr& record)
{
    if (record == record_)
        return;
    record_ = record;
    isForced_ = false;
    wasLocked_ = isLocked();
    observation_.reset();
    if (record_) {
        observation_ = record_->observe([this](const Changes<Invoice>&) {
            Q_EMIT changed();
            if (std::exchange(wasLocked_, isLocked()) != isLocked())
                Q_EMIT lockChanged();
        });
    }
    Q_EMIT recordChanged();
    Q_EMIT changed();
    Q_EMIT lockChanged();
}

void RecordEditing::unlock()
{
    isForced_ = true;
    wasLocked_ = false;
    Q_EMIT lockChanged();
}

void RecordEditing::change(const std::function<void(Invoice&)>& change, EditKind kind)
{
    if (!record_)
        return;
    const QUuid id = (*record_)->id;
    const Force force = isForced_ ? Force::yes : Force::no;
    if (!parts_.succeeded(parts_.app.undoableJobs().edit(id, change, kind, force)))
        Q_EMIT changed(); // the fields show again what holds
}

QLocale RecordEditing::locale() const
{
    return documentLocale(readerLanguage());
}

} // namespace ledra
