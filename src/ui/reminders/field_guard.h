#pragma once

#include <QObject>

namespace ledra {

/// Keeps fields from what is not theirs: the keys of undo and redo belong to the window, and the wheel
/// scrolls what is around a field that has not been gone to.
class FieldGuard : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// Watches a field and what it is made of.
    void watch(QWidget* field);

    bool eventFilter(QObject* field, QEvent* event) override;

Q_SIGNALS:
    void pausing(); ///< the field is being left, or a step back may be coming
};

} // namespace ledra
