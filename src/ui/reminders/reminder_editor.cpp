#include "ui/reminders/reminder_editor.h"

#include "app/invoice_list.h"
#include "app/reader_language.h"
#include "model/amount_text.h"
#include "model/displayed_number.h"
#include "model/next_reminder.h"
#include "ui/reminders/field_guard.h"
#include "ui/reminders/reminder_words.h"
#include "ui/reminders/variable_text_edit.h"

#include <QScopedValueRollback>
#include <QSignalBlocker>

namespace ledra {

namespace {

QString amountIn(const Invoice& invoice, double amount)
{
    return amountText(amount, invoice.currency, readerLanguage());
}

} // namespace

ReminderEditor::ReminderEditor(const WindowParts& parts, QWidget* parent)
    : QWidget(parent),
      parts_(parts),
      headline_(new QLabel(this)),
      about_(new QLabel(this)),
      stage_(new QComboBox(this)),
      date_(new DayLine(this)),
      deadline_(new QLabel(this)),
      interest_(new DecimalField(tr("Interest rate"), 1000, this)),
      interestAmount_(new QLabel(this)),
      fee_(new DecimalField(tr("Late payment fee"), 1e6, this)),
      sum_(new QLabel(this)),
      reset_(new QPushButton(tr("Reset Text"), this)),
      text_(new VariableTextEdit(this)),
      guard_(new FieldGuard(this))
{
    using namespace std::chrono_literals;
    pause_.setSingleShot(true);
    pause_.setInterval(400ms);
    runPause_.setSingleShot(true);
    runPause_.setInterval(2s);
    setUpFields();
    layOut();
    connectFields();
    setReminder(nullptr);
}

void ReminderEditor::connectFields()
{
    connect(stage_, &QComboBox::activated, this, [this](int row) {
        const auto stage = stage_->itemData(row).toLongLong();
        changeTerm(stage_, EditKind::single, [stage](Reminder& reminder) { reminder.number = stage; });
    });
    connect(date_, &DayLine::refused, this,
            [this](const QString& problem) { parts_.messages.note(problem); });
    connect(date_, &DayLine::chosen, this, [this](QDate day) {
        changeTerm(date_, EditKind::typing, [day](Reminder& reminder) { reminder.date = day; });
    });
    connect(interest_, &QDoubleSpinBox::valueChanged, this, [this](double rate) {
        changeTerm(interest_, EditKind::typing,
                   [rate](Reminder& reminder) { reminder.interestPercentage = rate; });
    });
    connect(fee_, &QDoubleSpinBox::valueChanged, this, [this](double fee) {
        changeTerm(fee_, EditKind::typing, [fee](Reminder& reminder) { reminder.fee = fee; });
    });
    connect(text_, &VariableTextEdit::typed, this, [this] { changeText(EditKind::typing); });
    connect(text_, &VariableTextEdit::replaced, this, [this] { changeText(EditKind::single); });
    connect(reset_, &QPushButton::clicked, this, &ReminderEditor::resetText);
    connect(guard_, &FieldGuard::pausing, this, [this] {
        flush();
        ++run_;
    });
    connect(&pause_, &QTimer::timeout, this, &ReminderEditor::flush);
    connect(&runPause_, &QTimer::timeout, this, [this] { ++run_; });
    LedraApp& app = parts_.app;
    connect(&app.reminderManager(), &ReminderManager::refreshed, this, &ReminderEditor::follow);
    for (const auto signal : {&InvoiceManager::edited, &InvoiceManager::saved})
        connect(&app.invoiceManager(), signal, this, &ReminderEditor::showRemarks);
    connect(&app.invoiceManager(), &InvoiceManager::refreshed, this, &ReminderEditor::showRemarks);
    text_->setValues([this](ReminderVariable variable) {
        const InvoicePtr reminded = invoice();
        return reminder_ && reminded
                   ? variableValue(variable, {**reminder_, **reminded, profile(), paymentDays()})
                   : QString();
    });
}

InvoicePtr ReminderEditor::invoice() const
{
    return reminder_ ? parts_.app.invoiceManager().find((*reminder_)->invoiceId) : nullptr;
}

void ReminderEditor::setReminder(const ReminderPtr& reminder)
{
    flush();
    reminder_ = reminder;
    id_ = reminder ? (*reminder)->id : QUuid();
    ++run_;
    date_->forget();
    observation_ = reminder ? reminder->observe([this](const Changes<Reminder>&) {
        showFields();
        Q_EMIT changed();
    })
                            : nullptr;
    setEnabled(reminder != nullptr);
    showFields();
}

/// The reminder may have been deleted, by another program too, or brought back.
void ReminderEditor::follow()
{
    const ReminderPtr now = parts_.app.reminderManager().find(id_);
    if (now == reminder_)
        return;
    pending_ = nullptr;
    const QUuid id = id_;
    setReminder(now);
    id_ = id;
}

void ReminderEditor::change(const QObject* field, EditKind kind, Change change)
{
    if (!reminder_)
        return;
    if (pendingField_ != field || pendingKind_ != kind)
        flush();
    pending_ = std::move(change);
    pendingField_ = field;
    pendingKind_ = kind;
    runPause_.start();
    if (kind == EditKind::single)
        flush();
    else if (!pause_.isActive()) // also somebody who types without a pause is saved
        pause_.start();
}

/// A letter that nobody has changed goes with its stage and names interest and fee where there are any.
void ReminderEditor::changeTerm(const QObject* field, EditKind kind, const Change& change)
{
    const InvoicePtr reminded = invoice();
    if (!reminded) {
        this->change(field, kind, change);
        return;
    }
    this->change(field, kind, [change, invoice = **reminded, profile = profile()](Reminder& reminder) {
        const bool isUnchanged = reminder.text == firstReminderText(reminder, invoice, profile);
        change(reminder);
        if (isUnchanged)
            reminder.text = firstReminderText(reminder, invoice, profile);
    });
}

void ReminderEditor::changeText(EditKind kind)
{
    change(text_, kind, [text = text_->source()](Reminder& reminder) { reminder.text = text; });
}

void ReminderEditor::resetText()
{
    if (const InvoicePtr reminded = invoice())
        change(reset_, EditKind::single, [&](Reminder& reminder) {
            reminder.text = firstReminderText(reminder, **reminded, profile());
        });
}

void ReminderEditor::flush()
{
    pause_.stop();
    const Change change = std::exchange(pending_, nullptr);
    const QObject* field = std::exchange(pendingField_, nullptr);
    if (!change || !reminder_)
        return;
    const QScopedValueRollback writing(isWriting_, field == text_);
    (void)parts_.succeeded(parts_.app.undoableReminderJobs().edit(id_, change, pendingKind_, run_));
}

void ReminderEditor::hideEvent(QHideEvent* event)
{
    flush();
    QWidget::hideEvent(event);
}

void ReminderEditor::showStages(std::int64_t stage)
{
    constexpr std::int64_t usual = 4;
    std::vector<std::int64_t> stages;
    for (std::int64_t each = 0; each <= usual; ++each)
        stages.push_back(each);
    if (stage < 0 || stage > usual)
        stages.push_back(stage);
    stage_->clear();
    for (const std::int64_t each : stages) {
        const QString headline = headlineText(each);
        const bool isNumbered = each != 0;
        stage_->addItem(isNumbered ? QStringLiteral("%1 · %2").arg(each).arg(headline) : headline,
                        QVariant::fromValue<qlonglong>(each));
    }
    stage_->setCurrentIndex(stage_->findData(QVariant::fromValue<qlonglong>(stage)));
}

/// What is being typed is left alone.
void ReminderEditor::showFields()
{
    const Reminder shown = reminder_ ? **reminder_ : Reminder();
    showStages(shown.number);
    if (pendingField_ != date_)
        date_->setDay(shown.date);
    if (pendingField_ != interest_)
        interest_->show(shown.interestPercentage);
    if (pendingField_ != fee_)
        fee_->show(shown.fee);
    if (pendingField_ != text_)
        text_->setSource(shown.text, !isWriting_);
    showRemarks();
}

void ReminderEditor::showRemarks()
{
    const InvoicePtr reminded = invoice();
    reset_->setEnabled(reminded != nullptr);
    headline_->setText(reminder_ ? headlineText((*reminder_)->number) : QString());
    for (QLabel* remark : {about_, deadline_, interestAmount_, sum_})
        remark->clear();
    if (!reminder_)
        return;
    const Reminder& reminder = **reminder_;
    const QDate deadline = reminder.date.addDays(paymentDays());
    deadline_->setText(tr("pay by %1").arg(date_->textOf(deadline)));
    if (!reminded) {
        about_->setText(tr("The invoice has been deleted."));
        return;
    }
    const Invoice& invoice = **reminded;
    about_->setText(
        tr("Invoice %1, %2, due on %3")
            .arg(displayedNumber(invoice, profile()), recipientName(invoice), spokenDay(invoice.dueDay())));
    fee_->setSuffix(u' ' + invoice.currency.symbol());
    const qint64 late = invoice.dueDay().daysTo(reminder.date);
    if (late > 0 && reminder.interestPercentage > 0)
        interestAmount_->setText(
            tr("%1 for %2").arg(amountIn(invoice, interestAmount(reminder, invoice)), daysText(late)));
    sum_->setText(tr("altogether %1").arg(amountIn(invoice, amountToPay(reminder, invoice))));
}

} // namespace ledra
