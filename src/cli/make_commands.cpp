#include "cli/make_commands.h"

#include "app/item_text.h"
#include "cli/assignments.h"
#include "cli/edit_commands.h"
#include "store/invoice_json.h"

namespace ledra {

namespace {

constexpr std::array newOptions = {
    OptionSpec{"set", "", "KEY=VALUE", "Set a field, such as recipient.name=Ada; again for each field."},
    OptionSpec{"item", "", "ITEM", "Add a line: 'TEXT;QUANTITY;UNIT;PRICE;VAT'; again for each line."},
};

constexpr CommandSpec newSpec = {"new", "invoice|quote", "Make an invoice or a quote; prints its id.",
                                 newOptions, false};
constexpr CommandSpec duplicateSpec = {
    "duplicate", "ID", "Make a new draft with the content of a record.", {}, false};
constexpr CommandSpec cancelSpec = {"cancel", "ID", "Make the cancellation of an invoice.", {}, false};
constexpr CommandSpec convertSpec = {"convert", "QUOTE-ID", "Make the invoice for a quote.", {}, false};

/// What the options say about a new record; the error is one line.
std::expected<Invoice, QString> filled(Invoice invoice, const std::vector<Assignment>& assignments,
                                       const std::vector<Invoice::Item>& items)
{
    invoice.items = items;
    if (const Assigned assigned = applyAll(invoice, assignments, Session::reading()); !assigned)
        return std::unexpected(assigned.error());
    return invoice;
}

} // namespace

const CommandSpec& NewCommand::spec() const
{
    return newSpec;
}

ExitCode NewCommand::run(const CommandArguments& arguments)
{
    const QString kind = arguments.positional().join(u' ');
    if (kind != u"invoice" && kind != u"quote")
        return wrongUsage(spec(), QStringLiteral("\"invoice\" or \"quote\"?"));
    const InvoiceType type = kind == u"quote" ? InvoiceType::quote : InvoiceType::invoice;
    const auto assignments = assignmentsFrom(arguments.values("set"), fixedInvoiceKeys());
    if (!assignments)
        return wrongUsage(spec(), assignments.error());
    const auto session = Session::start(arguments);
    if (!session)
        return session.error();

    std::vector<Invoice::Item> items;
    for (const QString& text : arguments.values("item")) {
        const auto item = itemFrom(text, (*session)->profile(), (*session)->app().ids(), Session::reading());
        if (!item)
            return failed(item.error());
        items.push_back(*item);
    }
    // Tried on an empty record first: one that cannot be filled shall not be made.
    if (const auto trial = filled(Invoice(), *assignments, items); !trial)
        return failed(trial.error());
    const auto fill = [&](Invoice& invoice) {
        if (auto done = filled(invoice, *assignments, items))
            invoice = std::move(*done);
    };
    const JobResult<InvoicePtr> made = (*session)->app().jobs().create(type, fill);
    if (!made)
        return failed(made.error());
    tellRecord(**session, *made, arguments, true);
    return ExitCode::done;
}

JobResult<InvoicePtr> CopyCommand::perform(Session& session, const InvoicePtr& record,
                                           const CommandArguments&)
{
    return (session.app().jobs().*job_)((*record)->id);
}

std::unique_ptr<Command> makeDuplicateCommand()
{
    return std::make_unique<CopyCommand>(duplicateSpec, &InvoiceJobs::duplicate);
}

std::unique_ptr<Command> makeCancelCommand()
{
    return std::make_unique<CopyCommand>(cancelSpec, &InvoiceJobs::cancel);
}

std::unique_ptr<Command> makeConvertCommand()
{
    return std::make_unique<CopyCommand>(convertSpec, &InvoiceJobs::convert);
}

} // namespace ledra
