#include "ui/look/field_form.h"

#include "ui/look/field_text.h"
#include "ui/look/status_colors.h"

#include <QSignalBlocker>
#include <QVBoxLayout>

namespace ledra {

namespace {

constexpr int labelWidth = 130; // the same in all forms

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

void FieldForm::addProblem(QWidget* field, QBoxLayout& column)
{
    auto* problem = new QLabel(this);
    problem->setTextFormat(Qt::PlainText);
    problem->setWordWrap(true);
    problem->hide();
    column.setSpacing(2);
    column.addWidget(problem);
    problems_[field] = problem;
}

void FieldForm::addJudged(const QString& label, QWidget* field)
{
    auto* column = new QVBoxLayout;
    column->addWidget(field);
    addProblem(field, *column);
    form_->addRow(addLabel(label, field), column);
}

void FieldForm::say(QWidget* field, const QString& problem)
{
    QLabel* label = problems_.value(field);
    QPalette ink;
    ink.setColor(QPalette::WindowText, warningLook().ink());
    label->setPalette(ink);
    label->setText(problem);
    label->setHidden(problem.isEmpty());
    field->setAccessibleDescription(problem);
    refusals_.remove(field);
    if (lastRefused_ == field)
        lastRefused_ = nullptr;
}

void FieldForm::refuse(QWidget* field, const QString& problem)
{
    say(field, problem);
    refusals_.insert(field);
    lastRefused_ = field;
}

void FieldForm::forgetRefused()
{
    for (QWidget* field : problems_.keys())
        say(field, QString());
    refresh(); // what is wrong with that which holds is still told
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
    addJudged(label, field);
    const auto judge = [this, field, check] { say(field, check(field->text())); };
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

} // namespace ledra
