#pragma once

#include "ui/editor/editor_fields.h"
#include "ui/look/section.h"

namespace ledra {

class ItemsModel;
class ItemsView;

// The parts of the editor below the recipient.

/// Invoice date, when the work was done, and when payment is due.
class DatesSection : public Section
{
    Q_OBJECT

public:
    DatesSection(RecordEditing& editing, QWidget* parent);

private:
    void addServicePeriod(RecordEditing& editing, QFormLayout* form);
};

/// The number, its format and what stands for {VAR} in it.
class NumberSection : public Section
{
    Q_OBJECT

public:
    NumberSection(RecordEditing& editing, QWidget* parent);
};

/// The lines, the discount and what it all comes to.
class ItemsSection : public Section
{
    Q_OBJECT

public:
    ItemsSection(RecordEditing& editing, QWidget* parent);

    ItemsView& view() { return *view_; }

private:
    void addTools(RecordEditing& editing);
    void addDiscount(RecordEditing& editing, QFormLayout* form);

    ItemsModel* model_;
    ItemsView* view_;
    QLabel* totals_;
};

/// Note with bold and italic words, and the reference: what stays free on records that others hold.
class NoteSection : public Section
{
    Q_OBJECT

public:
    NoteSection(RecordEditing& editing, QWidget* parent);
};

/// Terms, taxes, currency and language.
class TermsSection : public Section
{
    Q_OBJECT

public:
    TermsSection(RecordEditing& editing, QWidget* parent);
};

/// The sender as the record holds it, copied from the profile.
class SenderSection : public Section
{
    Q_OBJECT

public:
    SenderSection(RecordEditing& editing, QWidget* parent);
};

/// Puts marks around the chosen words, or takes them away again: "**" for bold, "*" for italic.
void toggleEmphasis(QPlainTextEdit& text, const QString& mark);

} // namespace ledra
