#pragma once

#include "ui/editor/record_editing.h"

#include <QLabel>
#include <QPushButton>
#include <QScrollArea>

namespace ledra {

class ItemsSection;
class RecipientSection;

/// The record as a form, in the order in which a person writes an invoice. What others hold is shown and
/// locked, with the ways on.
class EditorPanel : public QWidget
{
    Q_OBJECT

public:
    explicit EditorPanel(const WindowParts& parts, QWidget* parent = nullptr);

    void setRecord(const InvoicePtr& record);
    RecordEditing& editing() { return editing_; }

    /// Goes to the first field.
    void start();

Q_SIGNALS:
    void closeWanted();
    void made(const QUuid& id); ///< a record that goes on where the locked one ends

private:
    QWidget* makeHeader();
    QWidget* makeLockNotice();
    void addSections(QVBoxLayout* layout);
    void showLock();
    void showHeader();
    void cancelAndDuplicate();

    const WindowParts& parts_;
    RecordEditing editing_;
    QLabel* title_;
    QWidget* lockNotice_;
    QLabel* lockText_;
    QPushButton* cancelAndDuplicate_;
    QPushButton* editAnyway_;
    QScrollArea* scroll_;
    RecipientSection* recipient_ = nullptr;
    std::vector<QWidget*> guarded_; ///< what is locked with the record
};

} // namespace ledra
