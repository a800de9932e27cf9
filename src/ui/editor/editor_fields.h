#pragma once

#include "ui/editor/record_editing.h"
#include "ui/look/day_line.h"
#include "ui/look/field_form.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QSpinBox>

class QCompleter;

namespace ledra {

// Fields of the editor, each tied to one field of the record: what is typed changes the record at once, and
// what changes the record otherwise is shown.

/// A line of text.
class TextField : public QLineEdit
{
    Q_OBJECT

public:
    TextField(RecordEditing& editing, QString Invoice::* member, QWidget* parent);
};

/// A line of text that is absent when it is empty.
class OptionalTextField : public QLineEdit
{
    Q_OBJECT

public:
    OptionalTextField(RecordEditing& editing, std::optional<QString> Invoice::* member, QWidget* parent);
};

/// Text of several lines, as high as it needs to be.
class ParagraphField : public QPlainTextEdit
{
    Q_OBJECT

public:
    ParagraphField(RecordEditing& editing, QString Invoice::* member, int leastLines, QWidget* parent);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void fitHeight();
    int leastLines_;
};

/// A number in its own words; what is no number is told and not taken.
class NumberField : public QLineEdit
{
    Q_OBJECT

public:
    using Read = std::function<double(const Invoice&)>;
    using Write = std::function<void(Invoice&, double)>;
    NumberField(RecordEditing& editing, int leastDecimals, Read read, Write write, QWidget* parent);

    void refresh();

private:
    void take(const QString& text);

    RecordEditing& editing_;
    int leastDecimals_;
    Read read_;
    Write write_;
};

/// A day, typed as a whole or taken from a calendar; the moment behind it is noon of that day. What is no day
/// stays as it was typed, is told and not taken.
class DayField : public DayLine
{
    Q_OBJECT

public:
    using Read = std::function<std::optional<Timestamp>(const Invoice&)>;
    using Write = std::function<void(Invoice&, Timestamp)>;
    DayField(RecordEditing& editing, Read read, Write write, QWidget* parent);
    DayField(RecordEditing& editing, Timestamp Invoice::* member, QWidget* parent);

private:
    void refresh();

    RecordEditing& editing_;
    Read read_;
    Write write_;
};

/// Noon of a day.
Timestamp noonOf(QDate day);

/// A choice from a list that is searched by typing; `read` gives the text of the entry's data.
class ChoiceField : public QComboBox
{
    Q_OBJECT

public:
    using Choice = FieldChoice;
    using Read = std::function<QString(const Invoice&)>;
    using Write = std::function<void(Invoice&, const QString&)>;
    ChoiceField(RecordEditing& editing, const std::vector<Choice>& choices, Read read, Write write,
                bool isSearchable, QWidget* parent);

protected:
    void focusOutEvent(QFocusEvent* event) override; ///< the line inside has no focus of its own

private:
    void refresh();
    void takeTyped();

    RecordEditing& editing_;
    Read read_;
    Write write_;
};

/// A whole number.
class CountField : public QSpinBox
{
    Q_OBJECT

public:
    CountField(RecordEditing& editing, std::int64_t Invoice::* member, int least, int most, QWidget* parent);
};

/// Opens the suggestions of a completer with none of them chosen: Enter and Tab take only one that somebody
/// has moved to.
void openSuggestions(QCompleter& completer);

/// A form whose labels stand above or beside their fields, as wide as the editor.
QFormLayout* newForm();

/// Adds a row whose label belongs to the field, for readers and for the keyboard.
QLabel* addRow(QFormLayout* form, const QString& label, QWidget* field);

} // namespace ledra
