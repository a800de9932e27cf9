#include "cli/edit_commands.h"

#include "app/item_text.h"
#include "cli/assignments.h"
#include "store/invoice_json.h"

namespace ledra {

namespace {

constexpr OptionSpec forceOption = {"force", "", "", "Do it even if the record is sent, paid or cancelled."};

constexpr std::array setOptions = {
    forceOption,
    OptionSpec{"item", "", "ITEM", "Add a line: 'TEXT;QUANTITY;UNIT;PRICE;VAT'; again for each line."},
    OptionSpec{"remove-item", "", "POSITION", "Remove a line, counted from 0."},
};
constexpr std::array deleteOptions = {forceOption};

constexpr CommandSpec setSpec = {"set", "ID [KEY=VALUE…]",
                                 "Set fields of a record, such as recipient.address.city=Köln.", setOptions,
                                 false};
constexpr CommandSpec statusSpec = {
    "status", "ID draft|sent|paid|cancelled", "Set the status of a record.", {}, false};
constexpr CommandSpec deleteSpec = {"delete", "ID", "Move a record to the trash.", deleteOptions, false};

/// Everything that one "set" changes.
struct Edits
{
    std::vector<Assignment> assignments;
    std::vector<Invoice::Item> newItems;
    std::optional<std::size_t> removed;
};

JobFailure refused(const QString& text)
{
    return {JobFailure::Kind::refused, text, false};
}

JobResult<Edits> editsFrom(Session& session, const CommandArguments& arguments)
{
    Edits edits;
    const auto assignments = assignmentsFrom(arguments.positional().mid(1), fixedInvoiceKeys());
    if (!assignments)
        return std::unexpected(refused(assignments.error()));
    edits.assignments = *assignments;
    for (const QString& text : arguments.values("item")) {
        const auto item = itemFrom(text, session.profile(), session.app().ids(), Session::reading());
        if (!item)
            return std::unexpected(refused(item.error()));
        edits.newItems.push_back(*item);
    }
    if (arguments.has("remove-item")) {
        bool isNumber = false;
        edits.removed = arguments.value("remove-item").toULongLong(&isNumber);
        if (!isNumber)
            return std::unexpected(refused(QStringLiteral("--remove-item: which position?")));
    }
    return edits;
}

Assigned apply(Invoice& invoice, const Edits& edits)
{
    if (Assigned assigned = applyAll(invoice, edits.assignments, Session::reading()); !assigned)
        return assigned;
    if (edits.removed && *edits.removed >= invoice.items.size())
        return std::unexpected(QStringLiteral("there is no line %1").arg(*edits.removed));
    if (edits.removed)
        invoice.items.erase(invoice.items.begin() + static_cast<std::ptrdiff_t>(*edits.removed));
    invoice.items.insert(invoice.items.end(), edits.newItems.begin(), edits.newItems.end());
    return {};
}

} // namespace

QStringList fixedInvoiceKeys()
{
    return {QStringLiteral("version"), QStringLiteral("type"), QStringLiteral("id"), QStringLiteral("status"),
            QStringLiteral("statusUpdateDate")};
}

// ---- set

const CommandSpec& SetCommand::spec() const
{
    return setSpec;
}

std::optional<QString> SetCommand::usageProblem(const QStringList& rest,
                                                const CommandArguments& arguments) const
{
    if (rest.isEmpty() && !arguments.has("item") && !arguments.has("remove-item"))
        return QStringLiteral("what is to be set? Give KEY=VALUE, --item or --remove-item");
    const auto assignments = assignmentsFrom(rest, fixedInvoiceKeys());
    return assignments ? std::nullopt : std::optional(assignments.error());
}

JobResult<InvoicePtr> SetCommand::perform(Session& session, const InvoicePtr& record,
                                          const CommandArguments& arguments)
{
    const JobResult<Edits> edits = editsFrom(session, arguments);
    if (!edits)
        return std::unexpected(edits.error());
    Invoice trial = **record;
    if (const Assigned assigned = apply(trial, *edits); !assigned)
        return std::unexpected(refused(assigned.error()));
    const auto change = [&](Invoice& invoice) { (void)apply(invoice, *edits); }; // the trial has gone well
    const auto done = session.app().jobs().edit((*record)->id, change, forceFrom(arguments));
    if (!done)
        return std::unexpected(done.error());
    return record;
}

// ---- status

const CommandSpec& StatusCommand::spec() const
{
    return statusSpec;
}

std::optional<QString> StatusCommand::usageProblem(const QStringList& rest, const CommandArguments&) const
{
    if (rest.size() != 1)
        return QStringLiteral("a record and a status are needed");
    Status status{};
    const Assigned assigned = assignText(status, rest.front(), {});
    return assigned ? std::nullopt : std::optional(assigned.error());
}

JobResult<InvoicePtr> StatusCommand::perform(Session& session, const InvoicePtr& record,
                                             const CommandArguments& arguments)
{
    Status status{};
    (void)assignText(status, arguments.positional().at(1), {}); // usageProblem() has looked at it
    const auto done = session.app().jobs().setStatus((*record)->id, status);
    if (!done)
        return std::unexpected(done.error());
    return record;
}

// ---- delete

const CommandSpec& DeleteCommand::spec() const
{
    return deleteSpec;
}

JobResult<InvoicePtr> DeleteCommand::perform(Session& session, const InvoicePtr& record,
                                             const CommandArguments& arguments)
{
    const auto done = session.app().jobs().remove((*record)->id, forceFrom(arguments));
    if (!done)
        return std::unexpected(done.error());
    return record; // --json shows what was deleted
}

} // namespace ledra
