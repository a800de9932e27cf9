#include "ui/editor/editor_fields.h"

#include "app/typed_number.h"
#include "ui/look/status_colors.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QFocusEvent>
#include <QSignalBlocker>

namespace ledra {

namespace {

/// Ties a field to the record: `refresh` runs when the record or its values change.
template <class Refresh>
void followRecord(RecordEditing& editing, QWidget* field, const Refresh& refresh)
{
    QObject::connect(&editing, &RecordEditing::changed, field, [&editing, refresh] {
        if (editing.record())
            refresh();
    });
    if (editing.record())
        refresh();
}

/// Shows a text without moving the cursor of somebody who types it.
void showText(QLineEdit& field, const QString& text)
{
    if (field.text() == text)
        return;
    const QSignalBlocker quiet(field);
    const int cursor = field.cursorPosition();
    field.setText(text);
    if (field.hasFocus())
        field.setCursorPosition(cursor);
}

void markWrong(QWidget& field, const QString& reason)
{
    QPalette palette;
    if (!reason.isEmpty())
        palette.setColor(QPalette::Text, warningLook().ink());
    field.setPalette(palette);
    field.setToolTip(reason);
}

} // namespace

TextField::TextField(RecordEditing& editing, QString Invoice::* member, QWidget* parent) : QLineEdit(parent)
{
    connect(this, &QLineEdit::textEdited, this, [&editing, member](const QString& text) {
        editing.change([&](Invoice& invoice) { invoice.*member = text; }, EditKind::typing);
    });
    followRecord(editing, this, [this, &editing, member] { showText(*this, editing.invoice().*member); });
}

OptionalTextField::OptionalTextField(RecordEditing& editing, std::optional<QString> Invoice::* member,
                                     QWidget* parent)
    : QLineEdit(parent)
{
    connect(this, &QLineEdit::textEdited, this, [&editing, member](const QString& text) {
        editing.change(
            [&](Invoice& invoice) { invoice.*member = text.isEmpty() ? std::nullopt : std::optional(text); },
            EditKind::typing);
    });
    followRecord(editing, this, [this, &editing, member] {
        showText(*this, (editing.invoice().*member).value_or(QString()));
    });
}

ParagraphField::ParagraphField(RecordEditing& editing, QString Invoice::* member, int leastLines,
                               QWidget* parent)
    : QPlainTextEdit(parent), leastLines_(leastLines)
{
    setTabChangesFocus(true);
    setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    connect(this, &QPlainTextEdit::textChanged, this, [this, &editing, member] {
        fitHeight();
        const QString text = toPlainText();
        editing.change([&](Invoice& invoice) { invoice.*member = text; }, EditKind::typing);
    });
    followRecord(editing, this, [this, &editing, member] {
        const QString& text = editing.invoice().*member;
        if (toPlainText() == text)
            return;
        const QSignalBlocker quiet(this);
        setPlainText(text);
        moveCursor(QTextCursor::End);
        fitHeight();
    });
    fitHeight();
}

void ParagraphField::resizeEvent(QResizeEvent* event)
{
    QPlainTextEdit::resizeEvent(event);
    fitHeight();
}

void ParagraphField::fitHeight()
{
    constexpr int mostLines = 14;
    const int lines = static_cast<int>(document()->size().height()); // a plain text's height is in lines
    const int shown = std::clamp(lines, leastLines_, mostLines);
    setFixedHeight(shown * fontMetrics().lineSpacing() + 14);
}

NumberField::NumberField(RecordEditing& editing, int leastDecimals, Read read, Write write, QWidget* parent)
    : QLineEdit(parent),
      editing_(editing),
      leastDecimals_(leastDecimals),
      read_(std::move(read)),
      write_(std::move(write))
{
    setAlignment(Qt::AlignRight);
    connect(this, &QLineEdit::textEdited, this, &NumberField::take);
    connect(this, &QLineEdit::editingFinished, this, [this] {
        markWrong(*this, {});
        if (editing_.record())
            showText(*this, numberForTyping(read_(editing_.invoice()), leastDecimals_, editing_.locale()));
    });
    followRecord(editing, this, [this] { refresh(); });
}

void NumberField::refresh()
{
    const double number = read_(editing_.invoice());
    if (hasFocus() && numberTyped(text(), editing_.locale()) == number)
        return; // it is being typed
    showText(*this, numberForTyping(number, leastDecimals_, editing_.locale()));
}

void NumberField::take(const QString& text)
{
    const std::optional<double> number = text.trimmed().isEmpty() ? 0 : numberTyped(text, editing_.locale());
    markWrong(*this, number ? QString() : tr("“%1” is not a number").arg(text));
    if (!number) {
        editing_.parts().messages.note(toolTip());
        return;
    }
    editing_.change([&](Invoice& invoice) { write_(invoice, *number); }, EditKind::typing);
}

ChoiceField::ChoiceField(RecordEditing& editing, const std::vector<Choice>& choices, Read read, Write write,
                         bool isSearchable, QWidget* parent)
    : QComboBox(parent), editing_(editing), read_(std::move(read)), write_(std::move(write))
{
    for (const Choice& choice : choices)
        addItem(choice.text, choice.value);
    setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(8);
    setFocusPolicy(Qt::StrongFocus); // the wheel scrolls the editor
    if (isSearchable) {
        setEditable(true);
        setInsertPolicy(NoInsert);
        completer()->setCompletionMode(QCompleter::PopupCompletion);
        completer()->setFilterMode(Qt::MatchContains);
    }
    connect(this, &QComboBox::activated, this, [this](int row) {
        const QString value = itemData(row).toString();
        editing_.change([&](Invoice& invoice) { write_(invoice, value); }, EditKind::single);
    });
    followRecord(editing, this, [this] { refresh(); });
}

void ChoiceField::refresh()
{
    const QString value = read_(editing_.invoice());
    int row = findData(value);
    if (row < 0) { // a code that a file holds and nobody knows stays what it is
        addItem(value, value);
        row = count() - 1;
    }
    const QSignalBlocker quiet(this);
    if (row != currentIndex())
        setCurrentIndex(row);
    if (isEditable() && !hasFocus())
        lineEdit()->setText(itemText(row));
}

void ChoiceField::focusOutEvent(QFocusEvent* event)
{
    QComboBox::focusOutEvent(event);
    if (isEditable() && event->reason() != Qt::PopupFocusReason)
        takeTyped();
}

/// What was typed and is no entry goes back to what holds.
void ChoiceField::takeTyped()
{
    const int row = findText(currentText(), Qt::MatchFixedString);
    const QString value = itemData(row).toString();
    if (row >= 0 && editing_.record() && value != read_(editing_.invoice()))
        editing_.change([&](Invoice& invoice) { write_(invoice, value); }, EditKind::single);
    else if (editing_.record())
        lineEdit()->setText(itemText(findData(read_(editing_.invoice()))));
}

CountField::CountField(RecordEditing& editing, std::int64_t Invoice::* member, int least, int most,
                       QWidget* parent)
    : QSpinBox(parent)
{
    setRange(least, most);
    setFocusPolicy(Qt::StrongFocus);
    connect(this, &QSpinBox::valueChanged, this, [&editing, member](int value) {
        editing.change([&](Invoice& invoice) { invoice.*member = value; }, EditKind::typing);
    });
    followRecord(editing, this, [this, &editing, member] {
        const QSignalBlocker quiet(this);
        const auto value =
            static_cast<int>(std::clamp<std::int64_t>(editing.invoice().*member, minimum(), maximum()));
        if (QSpinBox::value() != value)
            setValue(value);
    });
}

void openSuggestions(QCompleter& completer)
{
    completer.complete();
    completer.popup()->setCurrentIndex(QModelIndex());
}

QFormLayout* newForm()
{
    auto* form = new QFormLayout; // the section that it is put in owns it
    form->setContentsMargins(0, 0, 0, 0);
    form->setHorizontalSpacing(10);
    form->setVerticalSpacing(6);
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    form->setLabelAlignment(Qt::AlignLeft);
    return form;
}

QLabel* addRow(QFormLayout* form, const QString& label, QWidget* field)
{
    auto* text = new QLabel(label);
    constexpr int labelWidth = 100; // the same in all sections
    text->setMinimumWidth(labelWidth);
    text->setBuddy(field);
    text->setForegroundRole(QPalette::PlaceholderText);
    field->setAccessibleName(label);
    form->addRow(text, field);
    return text;
}

} // namespace ledra
