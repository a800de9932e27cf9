#include "cli/list_options.h"

#include "store/key_value.h"

namespace ledra {

bool hasFilter(const CommandArguments& arguments)
{
    return std::ranges::any_of(filterOptions,
                               [&](const OptionSpec& option) { return arguments.has(option.name); });
}

std::expected<InvoiceFilter, QString> filterFrom(const CommandArguments& arguments)
{
    InvoiceFilter filter;
    Assigned assigned;
    const auto take = [&](const char* option, auto& field) {
        if (assigned && arguments.has(option))
            assigned = assignText(field, arguments.value(option), ValueReading{});
        if (!assigned && assigned.error().front() != u'-')
            assigned =
                std::unexpected(QStringLiteral("--%1: ").arg(QString::fromLatin1(option)) + assigned.error());
    };
    std::optional<std::int64_t> year;
    take("type", filter.type);
    take("status", filter.status);
    take("year", year);
    if (!assigned)
        return std::unexpected(assigned.error());
    if (year && (*year < 1 || *year > 9998))
        return std::unexpected(QStringLiteral("--year: \"%1\" is not a year").arg(*year));
    if (year)
        filter.year = static_cast<int>(*year);
    filter.overdueOnly = arguments.has("overdue");
    filter.search = arguments.value("search");
    return filter;
}

} // namespace ledra
