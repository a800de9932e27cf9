#include "ui/reminders/field_guard.h"
#include "ui/reminders/reminder_editor.h"
#include "ui/reminders/variable_buttons.h"
#include "ui/reminders/variable_text_edit.h"

#include <QFormLayout>
#include <QVBoxLayout>

namespace ledra {

namespace {

QHBoxLayout* withRemark(QWidget* field, QLabel* remark)
{
    auto* row = new QHBoxLayout; // which the form takes over
    row->addWidget(field);
    row->addSpacing(4);
    row->addWidget(remark, 1);
    return row;
}

} // namespace

void ReminderEditor::setUpFields()
{
    constexpr int numberWidth = 122;
    QFont large = headline_->font();
    large.setPointSizeF(large.pointSizeF() * 1.3);
    large.setWeight(QFont::DemiBold);
    headline_->setFont(large);
    for (QLabel* label : {about_, deadline_, interestAmount_, sum_}) {
        label->setTextFormat(Qt::PlainText);
        label->setWordWrap(true);
        label->setForegroundRole(QPalette::PlaceholderText);
    }
    stage_->setAccessibleName(tr("Stage"));
    date_->setAccessibleName(tr("Date"));
    interest_->setSuffix(QStringLiteral(" %"));
    for (QWidget* field :
         {static_cast<QWidget*>(date_), static_cast<QWidget*>(interest_), static_cast<QWidget*>(fee_)})
        field->setFixedWidth(numberWidth);
    text_->setAccessibleName(tr("Text"));
    text_->setMinimumHeight(160);
    reset_->setToolTip(tr("Write the usual letter of this stage again"));
    for (QWidget* field :
         {static_cast<QWidget*>(stage_), static_cast<QWidget*>(date_), static_cast<QWidget*>(interest_),
          static_cast<QWidget*>(fee_), static_cast<QWidget*>(text_)})
        guard_->watch(field);
}

void ReminderEditor::layOut()
{
    auto* textTitle = new QHBoxLayout;
    auto* title = new QLabel(tr("&Text"), this);
    title->setBuddy(text_);
    textTitle->addWidget(title, 1);
    textTitle->addWidget(reset_);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(16, 14, 16, 14);
    layout->setSpacing(6);
    layout->addWidget(headline_);
    layout->addWidget(about_);
    layout->addSpacing(8);
    layout->addLayout(makeForm());
    layout->addSpacing(8);
    layout->addLayout(textTitle);
    layout->addWidget(text_, 1);
    constexpr int columns = 3;
    layout->addWidget(new QLabel(tr("Insert:"), this));
    layout->addWidget(new VariableButtons(*text_, columns, this));
    setMinimumWidth(390);
    setFocusProxy(text_);
}

QFormLayout* ReminderEditor::makeForm()
{
    auto* form = new QFormLayout;
    form->setLabelAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    form->setHorizontalSpacing(14);
    form->setVerticalSpacing(7);
    form->addRow(tr("Stage"), stage_);
    form->addRow(tr("Date"), withRemark(date_, deadline_));
    form->addRow(tr("Interest rate"), withRemark(interest_, interestAmount_));
    form->addRow(tr("Late payment fee"), withRemark(fee_, sum_));
    return form;
}

} // namespace ledra
