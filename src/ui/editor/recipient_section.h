#pragma once

#include "model/recipient.h"
#include "ui/editor/editor_fields.h"
#include "ui/look/section.h"

#include <QCompleter>

namespace ledra {

/// Whom the document is for. Names complete from all recipients that the profile has written to; a contact
/// that is dropped fills everything.
class RecipientSection : public Section
{
    Q_OBJECT

public:
    RecipientSection(RecordEditing& editing, QWidget* parent);

    /// The name of a country in the language of the window, for all that are known.
    static std::vector<ChoiceField::Choice> countries();

    QWidget* firstField() const { return business_; }

protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void completeFrom(QLineEdit* field);
    void take(const Recipient& recipient);

    RecordEditing& editing_;
    QLineEdit* business_;
};

} // namespace ledra
