#include "app/record_lookup.h"

#include "model/clock.h"
#include "model/displayed_number.h"

namespace ledra {

namespace {

constexpr qsizetype shortestPrefix = 6;

/// The one candidate, or a list of all of them as an error.
template <class Record, class Describe>
std::expected<Record, QString> only(const std::vector<Record>& candidates, const QString& text,
                                    const Describe& describe)
{
    if (candidates.size() == 1)
        return candidates.front();
    QString lines = QStringLiteral("\"%1\" may mean any of").arg(text);
    for (const Record& candidate : candidates)
        lines += QStringLiteral("\n  ") + describe(candidate);
    return std::unexpected(lines);
}

template <class Record>
std::vector<Record> select(const std::vector<Record>& records, const auto& condition)
{
    std::vector<Record> selected;
    std::ranges::copy_if(records, std::back_inserter(selected), condition);
    return selected;
}

bool isIdPrefix(const QString& text)
{
    return text.size() >= shortestPrefix;
}

} // namespace

std::expected<InvoicePtr, QString> lookUpInvoice(const InvoiceManager& invoices,
                                                 const ProfileManager& profiles, const QString& text)
{
    const ProfilePtr& profile = profiles.activeProfile();
    if (!profile)
        return std::unexpected(QStringLiteral("there is no profile"));
    if (InvoicePtr found = invoices.find(QUuid::fromString(text)))
        return found;
    const auto describe = [&](const InvoicePtr& invoice) {
        return QStringList{idText((*invoice)->id), displayedNumber(**invoice, **profile),
                           dayText((*invoice)->date.localDate())}
            .join(QStringLiteral("  "));
    };
    std::vector<InvoicePtr> candidates = select(invoices.invoices(), [&](const InvoicePtr& invoice) {
        return displayedNumber(**invoice, **profile) == text;
    });
    if (candidates.empty() && isIdPrefix(text))
        candidates = select(invoices.invoices(), [&](const InvoicePtr& invoice) {
            return idText((*invoice)->id).startsWith(text, Qt::CaseInsensitive);
        });
    if (candidates.empty())
        return std::unexpected(
            QStringLiteral("no invoice, quote or cancellation is called \"%1\"").arg(text));
    return only(candidates, text, describe);
}

namespace {

/// An invoice's reminder of a stage, or its latest without one; null when it has none.
ReminderPtr reminderOf(ReminderManager& reminders, const QUuid& invoiceId, std::optional<qlonglong> stage)
{
    const std::vector<ReminderPtr> all = reminders.remindersOf(invoiceId);
    if (!stage)
        return all.empty() ? nullptr : all.back();
    const auto found =
        std::ranges::find(all, *stage, [](const ReminderPtr& each) { return (*each)->number; });
    return found == all.end() ? nullptr : *found;
}

} // namespace

std::expected<ReminderPtr, QString> lookUpReminder(ReminderManager& reminders, const InvoiceManager& invoices,
                                                   const ProfileManager& profiles, const QString& text)
{
    if (ReminderPtr found = reminders.find(QUuid::fromString(text)))
        return found;
    const auto startsSo = [&](const ReminderPtr& reminder) {
        return idText((*reminder)->id).startsWith(text, Qt::CaseInsensitive);
    };
    if (const auto candidates = select(reminders.reminders(), startsSo);
        isIdPrefix(text) && !candidates.empty())
        return only(candidates, text, [](const ReminderPtr& each) { return idText((*each)->id); });
    bool hasStage = false;
    const qlonglong stage = text.section(u':', -1).toLongLong(&hasStage);
    hasStage = hasStage && text.contains(u':');
    const QString invoiceText = hasStage ? text.section(u':', 0, -2) : text;
    const auto invoice = lookUpInvoice(invoices, profiles, invoiceText);
    ReminderPtr found =
        invoice ? reminderOf(reminders, (**invoice)->id, hasStage ? std::optional(stage) : std::nullopt)
                : nullptr;
    if (!found)
        return std::unexpected(invoice ? QStringLiteral("there is no such reminder: ") + text
                                       : invoice.error());
    return found;
}

std::expected<ProfilePtr, QString> lookUpProfile(const ProfileManager& profiles, const QString& text)
{
    const auto describe = [](const ProfilePtr& profile) {
        return (*profile)->profileName.value_or(QString()) + QStringLiteral("  ") + idText((*profile)->id);
    };
    const auto matching = [&](const auto& condition) { return select(profiles.profiles(), condition); };
    std::vector<ProfilePtr> candidates =
        matching([&](const ProfilePtr& profile) { return (*profile)->profileName == text; });
    if (candidates.empty())
        candidates = matching([&](const ProfilePtr& profile) { return (*profile)->displayName() == text; });
    if (candidates.empty() && isIdPrefix(text))
        candidates = matching([&](const ProfilePtr& profile) {
            return idText((*profile)->id).startsWith(text, Qt::CaseInsensitive);
        });
    if (candidates.empty())
        return std::unexpected(QStringLiteral("no profile is called \"%1\"").arg(text));
    return only(candidates, text, describe);
}

} // namespace ledra
