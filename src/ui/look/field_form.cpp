#include "ui/look/field_form.h"

#include "app/reader_language.h"
#include "model/amount_text.h"
#include "ui/editor/typed_number.h"
#include "ui/look/status_colors.h"

#include <QCompleter>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace ledra {

namespace {

constexpr int labelWidth = 130; // the same in all forms

/// Shows a text without moving the cursor of somebody who types it.
void showText(QLineEdit& field, const QString& text)
{
    if (field.text() == text)
        return;
    const QSignalBlocker quiet(field);
    const int cursor = field.cursorPosition();
    field.setText(text);
    field.setCursorPosition(field.hasFocus() ? cursor : 0); // of a long text the beginning
}

void showProblem(QLabel& label, QLineEdit& field, const QString& problem)
{
    QPalette ink;
    ink.setColor(QPalette::WindowText, warningLook().ink());
    label.setPalette(ink);
    label.setText(problem);
    label.setHidden(problem.isEmpty());
    field.setAccessibleDescription(problem);
}

} // namespace

FieldForm::FieldForm(QWidget* parent) : QWidget(parent), form_(new QFormLayout(this))
{
    form_->setContentsMargins(0, 0, 0, 0);
    form_->setHorizontalSpacing(12);
    form_->setVerticalSpacing(8);
    form_->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    form_->setLabelAlignment(Qt::AlignLeft);
}

void FieldForm::follow(std::function<void()> refresh)
{
    refresh();
    refreshers_.push_back(std::move(refresh));
}

void FieldForm::refresh() const
{
    for (const auto& each : refreshers_)
        each();
}

QLabel* FieldForm::addLabel(const QString& label, QWidget* field)
{
    auto* text = new QLabel(label, this);
    text->setMinimumWidth(labelWidth);
    text->setBuddy(field);
    text->setForegroundRole(QPalette::PlaceholderText);
    field->setAccessibleName(label);
    return text;
}

void FieldForm::addField(const QString& label, QWidget* field)
{
    form_->addRow(addLabel(label, field), field);
}

QLabel* FieldForm::addHint(const QString& text)
{
    auto* hint = new QLabel(text, this);
    hint->setWordWrap(true);
    hint->setForegroundRole(QPalette::PlaceholderText);
    addField(QString(), hint);
    return hint;
}

QLabel* FieldForm::makeProblem(QLineEdit* field, QLayout& column)
{
    auto* problem = new QLabel(this);
    problem->setTextFormat(Qt::PlainText);
    problem->setWordWrap(true);
    problem->hide();
    column.addWidget(field);
    column.addWidget(problem);
    return problem;
}

QLineEdit* FieldForm::addLine(const QString& label, const Access<QString>& access, const Check& check)
{
    auto* field = new QLineEdit(this);
    connect(field, &QLineEdit::textEdited, this, [access](const QString& text) { access.write(text); });
    if (!check) {
        addField(label, field);
        follow([field, access] { showText(*field, access.read()); });
        return field;
    }
    auto* column = new QVBoxLayout;
    column->setSpacing(2);
    QLabel* problem = makeProblem(field, *column);
    form_->addRow(addLabel(label, field), column);
    const auto judge = [field, problem, check] { showProblem(*problem, *field, check(field->text())); };
    connect(field, &QLineEdit::textEdited, this, judge);
    follow([field, access, judge] {
        showText(*field, access.read());
        judge();
    });
    return field;
}

QPlainTextEdit* FieldForm::addParagraph(const QString& label, const Access<QString>& access, int lines)
{
    auto* field = new QPlainTextEdit(this);
    field->setTabChangesFocus(true);
    constexpr int frame = 14;
    field->setFixedHeight(lines * field->fontMetrics().lineSpacing() + frame);
    addField(label, field);
    connect(field, &QPlainTextEdit::textChanged, this,
            [field, access] { access.write(field->toPlainText()); });
    follow([field, access] {
        const QString text = access.read();
        if (field->toPlainText() == text)
            return;
        const QSignalBlocker quiet(field);
        field->setPlainText(text);
    });
    return field;
}

QLineEdit* FieldForm::makeNumber(const QString& label, const Access<double>& access, int leastDecimals,
                                 const QString& unit, QWidget*& row)
{
    auto* field = new QLineEdit(this);
    field->setAlignment(Qt::AlignRight);
    field->setAccessibleName(label);
    row = new QWidget(this);
    auto* column = new QVBoxLayout(row);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(2);
    QLabel* problem = makeProblem(field, *column);
    constexpr int width = 120;
    field->setFixedWidth(width);
    auto* line = new QHBoxLayout;
    line->addWidget(field);
    line->addWidget(new QLabel(unit, row));
    line->addStretch();
    column->insertLayout(0, line);
    const QLocale locale = documentLocale(readerLanguage());
    const auto show = [field, problem, access, leastDecimals, locale] {
        showText(*field, numberForTyping(access.read(), leastDecimals, locale));
        showProblem(*problem, *field, QString());
    };
    connect(field, &QLineEdit::textEdited, this, [field, problem, access, locale](const QString& text) {
        const std::optional<double> number = text.trimmed().isEmpty() ? 0 : numberTyped(text, locale);
        const bool isFine = number && *number >= 0;
        showProblem(*problem, *field, isFine ? QString() : tr("“%1” is not a number").arg(text));
        if (isFine)
            access.write(*number);
    });
    connect(field, &QLineEdit::editingFinished, this, show);
    follow([field, show] {
        if (!field->hasFocus()) // it is being typed
            show();
    });
    return field;
}

QLineEdit* FieldForm::addNumber(const QString& label, const Access<double>& access, int leastDecimals,
                                const QString& unit)
{
    QWidget* row = nullptr;
    QLineEdit* field = makeNumber(label, access, leastDecimals, unit, row);
    form_->addRow(addLabel(label, field), row);
    return field;
}

QLineEdit* FieldForm::addSwitchedNumber(const QString& label, const Access<double>& access,
                                        const QString& unit)
{
    auto* isOn = new QCheckBox(label, this);
    QWidget* row = nullptr;
    QLineEdit* field = makeNumber(label, access, 2, unit, row);
    form_->addRow(isOn, row);
    connect(isOn, &QCheckBox::clicked, this, [access, row, field](bool isWanted) {
        row->setVisible(isWanted);
        if (isWanted)
            field->setFocus();
        else
            access.write(0);
    });
    follow([isOn, row, field, access] {
        if (access.read() == 0 && field->hasFocus())
            return; // the figure is yet to be typed
        isOn->setChecked(access.read() != 0);
        row->setVisible(isOn->isChecked());
    });
    return field;
}

QSpinBox* FieldForm::addCount(const QString& label, const Access<int>& access, int least, int most)
{
    auto* field = new QSpinBox(this);
    field->setRange(least, most);
    field->setFocusPolicy(Qt::StrongFocus); // the wheel scrolls the page
    field->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    constexpr int width = 120;
    field->setMinimumWidth(width);
    addField(label, field);
    connect(field, &QSpinBox::valueChanged, this, [access](int value) { access.write(value); });
    follow([field, access] {
        const QSignalBlocker quiet(field);
        field->setValue(access.read());
    });
    return field;
}

QCheckBox* FieldForm::addToggle(const QString& text, const Access<bool>& access)
{
    auto* field = new QCheckBox(text, this);
    addField(QString(), field);
    field->setAccessibleName(text);
    connect(field, &QCheckBox::clicked, this, [access](bool isOn) { access.write(isOn); });
    follow([field, access] { field->setChecked(access.read()); });
    return field;
}

QComboBox* FieldForm::addChoice(const QString& label, const std::vector<FieldChoice>& choices,
                                const Access<QString>& access, bool isSearchable)
{
    auto* field = new QComboBox(this);
    for (const FieldChoice& choice : choices)
        field->addItem(choice.text, choice.value);
    field->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    field->setMinimumContentsLength(12);
    field->setFocusPolicy(Qt::StrongFocus);
    addField(label, field);
    const auto show = [field, access] {
        const QString value = access.read();
        int row = field->findData(value);
        if (row < 0) { // a code that a file holds and nobody knows stays what it is
            field->addItem(value, value);
            row = field->count() - 1;
        }
        const QSignalBlocker quiet(field);
        field->setCurrentIndex(row);
        if (field->isEditable() && !field->lineEdit()->hasFocus())
            field->lineEdit()->setText(field->itemText(row));
    };
    connect(field, &QComboBox::activated, this,
            [field, access](int row) { access.write(field->itemData(row).toString()); });
    if (isSearchable) {
        field->setEditable(true);
        field->setInsertPolicy(QComboBox::NoInsert);
        field->completer()->setCompletionMode(QCompleter::PopupCompletion);
        field->completer()->setFilterMode(Qt::MatchContains);
        field->lineEdit()->setAccessibleName(label);
        connect(field->lineEdit(), &QLineEdit::editingFinished, this, [field, access] {
            const int row = field->findText(field->currentText(), Qt::MatchFixedString);
            if (row >= 0 && field->itemData(row).toString() != access.read())
                access.write(field->itemData(row).toString());
            else // what was typed and is no entry goes back to what holds
                field->lineEdit()->setText(field->itemText(field->findData(access.read())));
        });
    }
    follow(show);
    return field;
}

} // namespace ledra
