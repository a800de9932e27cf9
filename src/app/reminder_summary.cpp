#include "app/reminder_summary.h"

#include "model/displayed_number.h"
#include "model/reminder_variable.h"
#include "store/reminder_json.h"

namespace ledra {

void encode(const ReminderSummary& summary, JSONEncoderState& state)
{
    const Reminder& reminder = summary.reminder;
    KeyedEncodingContainer object = state.keyedContainer();
    encodeMembers(reminder, object);
    object.encode("headline", reminderHeadline(reminder.number));
    object.encode("paymentDeadline", dayText(reminder.date.addDays(summary.paymentDeadlineDays)));
    if (!summary.invoice)
        return;
    object.encode("invoiceNumber", displayedNumber(*summary.invoice, summary.profile));
    object.encode("amount", summary.invoice->total());
    object.encode("interestAmount", roundedToCents(interestAmount(reminder, *summary.invoice)));
    object.encode("currency", summary.invoice->currency);
}

} // namespace ledra
