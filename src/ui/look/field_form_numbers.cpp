#include "app/reader_language.h"
#include "app/typed_number.h"
#include "model/amount_text.h"
#include "ui/look/field_form.h"
#include "ui/look/field_text.h"

#include <QVBoxLayout>

namespace ledra {

namespace {

/// What has no text is 0.
std::optional<double> amountTyped(const QString& text, const QLocale& locale)
{
    const std::optional<double> number = text.trimmed().isEmpty() ? 0 : numberTyped(text, locale);
    return number && *number >= 0 ? number : std::nullopt;
}

QString amountProblem(const QString& text, const QLocale& locale)
{
    if (amountTyped(text, locale))
        return {};
    return numberTyped(text, locale) ? FieldForm::tr("“%1” is less than zero").arg(text)
                                     : FieldForm::tr("“%1” is not a number").arg(text);
}

} // namespace

QLineEdit* FieldForm::makeNumber(const QString& label, const Access<double>& access, int leastDecimals,
                                 const Unit& unit, QWidget*& row)
{
    auto* field = new QLineEdit(this);
    field->setAlignment(Qt::AlignRight);
    field->setAccessibleName(label);
    constexpr int width = 120;
    field->setFixedWidth(width);
    row = new QWidget(this);
    auto* column = new QVBoxLayout(row);
    column->setContentsMargins(0, 0, 0, 0);
    auto* sign = new QLabel(row);
    auto* line = new QHBoxLayout;
    line->addWidget(field);
    line->addWidget(sign);
    line->addStretch();
    column->addLayout(line);
    addProblem(field, *column);
    const QLocale locale = documentLocale(readerLanguage());
    const auto shownText = [access, leastDecimals, locale] {
        return numberForTyping(access.read(), leastDecimals, locale);
    };
    connect(field, &QLineEdit::textEdited, this, [this, field, access, locale](const QString& text) {
        say(field, amountProblem(text, locale));
        if (const std::optional<double> amount = amountTyped(text, locale))
            access.write(*amount);
    });
    connect(field, &QLineEdit::editingFinished, this, [this, field, locale, shownText] {
        const QString problem = amountProblem(field->text(), locale);
        showText(*field, shownText());
        if (!problem.isEmpty())
            refuse(field, problem);
    });
    follow([this, field, sign, unit, shownText] {
        sign->setText(unit());
        if (field->hasFocus() || field->text() == shownText())
            return; // it is being typed, or what was refused is still to be read
        showText(*field, shownText());
        say(field, QString());
    });
    return field;
}

QLineEdit* FieldForm::addNumber(const QString& label, const Access<double>& access, int leastDecimals,
                                const Unit& unit)
{
    QWidget* row = nullptr;
    QLineEdit* field = makeNumber(label, access, leastDecimals, unit, row);
    form_->addRow(addLabel(label, field), row);
    return field;
}

QLineEdit* FieldForm::addSwitchedNumber(const QString& label, const Access<double>& access, const Unit& unit)
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

} // namespace ledra
