#pragma once

#include "ui/window_parts.h"

#include <QObject>

namespace ledra {

/// The record in the editor, and how it is changed. A record that others hold is locked until somebody
/// insists on changing it.
class RecordEditing : public QObject
{
    Q_OBJECT

public:
    explicit RecordEditing(const WindowParts& parts) : parts_(parts) {}

    /// Null for none.
    void setRecord(const InvoicePtr& record);
    const InvoicePtr& record() const { return record_; }
    const Invoice& invoice() const { return **record_; } ///< only with a record

    bool isLocked() const { return record_ && isGuarded(**record_) && !isForced_; }
    bool isForced() const { return isForced_; }
    void unlock();

    /// Seen at once, written a little later, with its way back.
    void change(const std::function<void(Invoice&)>& change, EditKind kind);

    const WindowParts& parts() const { return parts_; }
    const Profile& profile() const { return **parts_.app.profileManager().activeProfile(); }
    QLocale locale() const; ///< in which numbers and days are shown and typed

Q_SIGNALS:
    void recordChanged(); ///< it is another one
    void changed();       ///< its values are others; also after recordChanged()
    void lockChanged();

private:
    const WindowParts& parts_;
    InvoicePtr record_;
    Observation observation_;
    bool isForced_ = false;
    bool wasLocked_ = false;
};

} // namespace ledra
