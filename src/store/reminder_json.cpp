#include "store/reminder_json.h"

namespace ledra {

Decoded<Reminder> decodeReminder(const QByteArray& document, const NewRecordValues& values)
{
    JSONReader reader;
    Reminder reminder;
    reminder.date = values.now.localDate();
    if (const Decoded<void> decoded = decodeDocument(reminder, document, reader); !decoded)
        return std::unexpected(decoded.error());
    if (reminder.id.isNull())
        reminder.id = values.ids.newId();
    return reminder;
}

} // namespace ledra
