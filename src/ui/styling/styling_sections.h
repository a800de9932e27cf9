#pragma once

#include "ui/look/field_form.h"
#include "ui/look/section.h"
#include "ui/styling/styling_editing.h"

#include <QPushButton>
#include <QTimer>

namespace ledra {

// The parts of the styling inspector.

/// Paper and what stands on it.
class PageSection : public Section
{
    Q_OBJECT

public:
    PageSection(StylingEditing& editing, QWidget* parent);
};

/// The four font slots.
class FontsSection : public Section
{
    Q_OBJECT

public:
    FontsSection(StylingEditing& editing, QWidget* parent);

private:
    struct Slot;
    void addSlot(StylingEditing& editing, FieldForm* form, const Slot& slot);
    static void setFamily(StylingEditing& editing, const Slot& slot, const QString& family);
    static void setFace(StylingEditing& editing, const Slot& slot, const QString& faceID);
};

/// The two colours, and where the accent colour is used.
class ColorsSection : public Section
{
    Q_OBJECT

public:
    ColorsSection(StylingEditing& editing, QWidget* parent);
};

/// How the rows of the tables are told apart.
class TableSection : public Section
{
    Q_OBJECT

public:
    TableSection(StylingEditing& editing, QWidget* parent);
};

/// The logo, by drag and drop or from a dialog.
class LogoSection : public Section
{
    Q_OBJECT

public:
    LogoSection(StylingEditing& editing, QWidget* parent);

private:
    void addSize(StylingEditing& editing, FieldForm* form);
};

/// Rules of one's own, which come after all others.
class StyleSheetSection : public Section
{
    Q_OBJECT

public:
    StyleSheetSection(StylingEditing& editing, QWidget* parent);
    ~StyleSheetSection() override;

private:
    void show();
    void write();

    StylingEditing& editing_;
    QUuid shown_; ///< whose style sheet it is
    QPlainTextEdit* text_;
    QPushButton* remove_;
    QTimer pause_; ///< until somebody who is typing has stopped
};

} // namespace ledra
