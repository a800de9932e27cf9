#pragma once

#include "app/filter_manager.h"
#include "cli/command.h"

#include <array>
#include <expected>

namespace ledra {

/// The options by which "list" and "export" choose records.
inline constexpr std::array filterOptions = {
    OptionSpec{"type", "", "TYPE", "Only these: invoice, quote or cancellation."},
    OptionSpec{"status", "", "STATUS", "Only these: draft, sent, paid or cancelled."},
    OptionSpec{"overdue", "", "", "Only what is sent and past its due date."},
    OptionSpec{"year", "", "YEAR", "Only those dated in that year."},
    OptionSpec{"search", "", "TEXT", "Only those in which every word of the text occurs."},
};

/// The options as one table, behind a command's own ones.
template <std::size_t count>
constexpr auto withFilterOptions(const std::array<OptionSpec, count>& own)
{
    std::array<OptionSpec, count + filterOptions.size()> all{};
    std::ranges::copy(own, all.begin());
    std::ranges::copy(filterOptions, all.begin() + count);
    return all;
}

/// The filter that the options say; the error is a matter of wrong usage.
[[nodiscard]] std::expected<InvoiceFilter, QString> filterFrom(const CommandArguments& arguments);

bool hasFilter(const CommandArguments& arguments);

} // namespace ledra
