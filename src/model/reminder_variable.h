#pragma once

#include "model/profile.h"
#include "model/reminder.h"
#include "model/text_enum.h"

namespace ledra {

/// What a reminder's text can name, as a token such as "{{invoice-number}}".
enum class ReminderVariable {
    name,
    invoiceNumber,
    invoiceDate,
    amount,
    paymentDeadline,
    dueDate,
    interestAmount,
    interestRate,
    feeAmount,
};

template <>
inline constexpr std::array enumTexts<ReminderVariable> = {
    EnumText{ReminderVariable::name, "name", "Recipient"},
    EnumText{ReminderVariable::invoiceNumber, "invoice-number", "Invoice Number"},
    EnumText{ReminderVariable::invoiceDate, "invoice-date", "Invoice Date"},
    EnumText{ReminderVariable::amount, "amount", "Amount Due"},
    EnumText{ReminderVariable::paymentDeadline, "payment-deadline", "Payment Deadline"},
    EnumText{ReminderVariable::dueDate, "due-date", "Due Date"},
    EnumText{ReminderVariable::interestAmount, "interest-amount", "Interest Amount"},
    EnumText{ReminderVariable::interestRate, "interest-rate", "Interest Rate"},
    EnumText{ReminderVariable::feeAmount, "fee-amount", "Late Payment Fee"},
};

// Days from a reminder's date to its payment deadline, unless the user has chosen otherwise.
inline constexpr int usualPaymentDeadlineDays = 14;

/// What the values of the variables come from. The invoice is the one that the reminder is about.
struct ReminderFacts
{
    const Reminder& reminder;
    const Invoice& invoice;
    const Profile& profile;
    int paymentDeadlineDays = usualPaymentDeadlineDays;

    Language language() const { return invoice.language.value_or(profile.language); }

    /// Counted from the reminder's date.
    QDate paymentDeadline() const { return reminder.date.addDays(paymentDeadlineDays); }
};

/// "{{invoice-number}}".
QString token(ReminderVariable variable);

/// What a variable stands for, in the invoice's language.
QString variableValue(ReminderVariable variable, const ReminderFacts& facts);

/// The reminder's text with every token replaced by its variable's value, in one pass: a value that looks
/// like a token stays as it is.
QString expandedReminderText(const ReminderFacts& facts);

} // namespace ledra
