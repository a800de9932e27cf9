#include "cli/export_report.h"

#include "cli/command.h"
#include "store/json_schema.h"

#include <unistd.h>

#include <cstdio>

namespace ledra {

template <>
inline constexpr std::tuple jsonSchema<ExportReport::Row> = {
    JSONKey{"file", &ExportReport::Row::file},
    JSONKey{"output", &ExportReport::Row::output},
    JSONKey{"message", &ExportReport::Row::message},
};

ExportReport::ExportReport(std::size_t total, ReportStyle style)
    : total_(total),
      style_(style),
      showsProgress_(style != ReportStyle::quiet && total > 1 && ::isatty(STDERR_FILENO) == 1)
{}

void ExportReport::written(const QString& source, const QString& target)
{
    clearProgress();
    if (style_ == ReportStyle::text && target != standardStream)
        writeOutput(target + u'\n');
    rows_.push_back({source, target, std::nullopt});
    advance();
}

void ExportReport::warned(const QString& source, const QString& line)
{
    clearProgress();
    sayFailure(line);
    warnings_[source] += line;
}

void ExportReport::failed(const QString& source, const QString& line)
{
    clearProgress();
    sayFailure(line);
    rows_.push_back({source, std::nullopt, line});
    advance();
}

void ExportReport::content(const QByteArray& bytes)
{
    writeOutput(bytes);
}

void ExportReport::finish()
{
    for (Row& row : rows_) {
        if (!row.message && warnings_.contains(row.file))
            row.message = warnings_[row.file].join(u'\n');
    }
    if (style_ == ReportStyle::json) {
        OrderedJSONEncoder encoder;
        encoder.outputFormatting = {JSONFormatting::prettyPrinted};
        writeOutput(encoder.encode(rows_).value());
    }
}

void ExportReport::clearProgress() const
{
    if (showsProgress_)
        std::fputs("\r\033[K", stderr);
}

void ExportReport::advance()
{
    ++done_;
    if (showsProgress_ && done_ < total_)
        std::fprintf(stderr, "\r\033[K%zu of %zu", done_, total_);
}

} // namespace ledra
