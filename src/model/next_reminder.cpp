#include "model/next_reminder.h"

#include "model/document_labels.h"

#include <algorithm>

namespace ledra {

namespace {

constexpr std::int64_t lastLetter = 3; // later stages get the same letter

std::int64_t nextStage(const Profile& profile, std::span<const Reminder> earlier)
{
    if (earlier.empty())
        return profile.friendlyReminderEnabled ? 0 : 1;
    return std::ranges::max(earlier, {}, &Reminder::number).number + 1;
}

} // namespace

Reminder nextReminder(const Invoice& invoice, const Profile& profile, std::span<const Reminder> earlier,
                      QDate today)
{
    Reminder reminder;
    reminder.invoiceId = invoice.id;
    reminder.date = today;
    reminder.number = nextStage(profile, earlier);
    if (reminder.number > 0) {
        reminder.interestPercentage = profile.latePaymentInterestRate;
        reminder.fee = profile.latePaymentFee;
    }
    reminder.text = firstReminderText(reminder, invoice, profile);
    return reminder;
}

QString firstReminderText(const Reminder& reminder, const Invoice& invoice, const Profile& profile)
{
    if (!profile.reminderTemplate.trimmed().isEmpty())
        return profile.reminderTemplate;
    return usualReminderText(reminder, invoice, invoice.language.value_or(profile.language));
}

QString usualReminderText(const Reminder& reminder, const Invoice& invoice, Language language)
{
    const auto wording = [&](const QString& key) { return documentLabel(key, language); };
    const QString stage = QString::number(std::clamp<std::int64_t>(reminder.number, 0, lastLetter));
    const bool hasName = !invoice.name.trimmed().isEmpty();
    QStringList paragraphs = {wording(hasName ? QStringLiteral("Reminder Salutation")
                                              : QStringLiteral("Reminder Salutation Nobody")),
                              wording(QStringLiteral("Reminder Opening ") + stage)};
    if (reminder.interestPercentage > 0)
        paragraphs += wording(QStringLiteral("Reminder Interest"));
    if (reminder.fee > 0)
        paragraphs += wording(QStringLiteral("Reminder Fee"));
    paragraphs += wording(QStringLiteral("Reminder Request ") + stage);
    paragraphs += wording(QStringLiteral("Reminder Closing")) + u'\n' + invoice.senderName;
    return paragraphs.join(QStringLiteral("\n\n")).trimmed();
}

} // namespace ledra
