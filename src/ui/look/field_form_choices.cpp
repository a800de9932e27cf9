#include "ui/look/field_form.h"

#include <QCompleter>
#include <QSignalBlocker>

namespace ledra {

QComboBox* FieldForm::addChoice(const QString& label, const std::vector<FieldChoice>& choices,
                                const Access<QString>& access, bool isSearchable)
{
    auto* field = new QComboBox(this);
    for (const FieldChoice& choice : choices)
        field->addItem(choice.text, choice.value);
    field->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    field->setMinimumContentsLength(12);
    field->setFocusPolicy(Qt::StrongFocus);
    if (isSearchable)
        addJudged(label, field);
    else
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
    if (isSearchable)
        makeSearchable(field, access);
    follow(show);
    return field;
}

/// What was typed and is no entry goes back to what holds.
void FieldForm::makeSearchable(QComboBox* field, const Access<QString>& access)
{
    field->setEditable(true);
    field->setInsertPolicy(QComboBox::NoInsert);
    field->completer()->setCompletionMode(QCompleter::PopupCompletion);
    field->completer()->setFilterMode(Qt::MatchContains);
    QLineEdit* line = field->lineEdit();
    line->setAccessibleName(field->accessibleName());
    connect(line, &QLineEdit::textEdited, this, [this, field] { say(field, QString()); });
    connect(field, &QComboBox::activated, this, [this, field] { say(field, QString()); });
    connect(line, &QLineEdit::editingFinished, this, [this, field, line, access] {
        const QString typed = line->text();
        const int row = field->findText(typed, Qt::MatchFixedString);
        if (row >= 0 && field->itemData(row).toString() != access.read())
            access.write(field->itemData(row).toString());
        line->setText(field->itemText(field->findData(access.read())));
        if (row < 0)
            refuse(field, typed.isEmpty() ? tr("One from the list is needed")
                                          : tr("“%1” is not in the list").arg(typed));
    });
}

} // namespace ledra
