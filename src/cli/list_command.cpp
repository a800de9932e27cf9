#include "cli/list_command.h"

#include "app/invoice_list.h"
#include "cli/list_options.h"
#include "cli/session.h"
#include "cli/text_table.h"
#include "model/amount_text.h"
#include "model/displayed_number.h"

namespace ledra {

namespace {

constexpr CommandSpec listSpec = {"list", "", "List invoices, quotes and cancellations, the newest first.",
                                  filterOptions, false};

QString listText(const std::vector<InvoicePtr>& invoices, const Profile& profile, Timestamp now)
{
    std::vector<QStringList> rows;
    for (const InvoicePtr& record : invoices) {
        const Invoice& invoice = **record;
        const bool isInvoice = invoice.type == InvoiceType::invoice;
        rows.push_back(
            {displayedNumber(invoice, profile), dayText(invoice.date.localDate()),
             isInvoice ? QString() : displayText(invoice.type),
             displayText(invoice.status) + (invoice.isOverdue(now) ? QStringLiteral(", overdue") : QString()),
             recipientName(invoice), amountText(invoice.total(), invoice.currency, Language::english)});
    }
    return textTable(rows, {Align::left, Align::left, Align::left, Align::left, Align::left, Align::right});
}

} // namespace

const CommandSpec& ListCommand::spec() const
{
    return listSpec;
}

ExitCode ListCommand::run(const CommandArguments& arguments)
{
    if (!arguments.positional().isEmpty())
        return wrongUsage(spec(), QStringLiteral("it takes no arguments (--search TEXT looks for a text)"));
    const std::expected<InvoiceFilter, QString> filter = filterFrom(arguments);
    if (!filter)
        return wrongUsage(spec(), filter.error());
    const auto session = Session::start(arguments);
    if (!session)
        return session.error();
    const std::vector<InvoicePtr> invoices = (*session)->app().filterManager().filtered(*filter);
    if (arguments.has("json"))
        writeOutput(listJson(invoices, (*session)->profile(), (*session)->now()));
    else
        writeOutput(listText(invoices, (*session)->profile(), (*session)->now()));
    return ExitCode::done;
}

} // namespace ledra
