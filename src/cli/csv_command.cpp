#include "cli/csv_command.h"

#include "app/reader_language.h"
#include "cli/list_options.h"
#include "cli/session.h"
#include "exchange/csv_exporter.h"
#include "platform/file_io.h"

namespace ledra {

namespace {

using Column = CSVExporter::Column;

constexpr std::array ownOptions = {
    OptionSpec{
        "columns", "", "NAMES",
        "Of name,address,date,invoiceNumber,net,vat,gross,currency,status; all unless said otherwise."},
    OptionSpec{"output", "o", "FILE", "Where to write; the standard output unless said otherwise."},
    OptionSpec{"guard-formulas", "", "",
               "Put an apostrophe before texts that a spreadsheet would run as a formula."},
    OptionSpec{"force", "", "", "Overwrite an existing file."},
};
constexpr auto options = withFilterOptions(ownOptions);

constexpr CommandSpec csvSpec = {"csv", "", "Write records as a list for spreadsheets.", options, false};

std::expected<std::set<Column>, QString> columnsFrom(const CommandArguments& arguments)
{
    std::set<Column> columns;
    for (const QString& name : arguments.value("columns").split(u',', Qt::SkipEmptyParts)) {
        const auto column = enumFromRawValue<Column>(name.trimmed().toStdString());
        if (!column)
            return std::unexpected(QStringLiteral("unknown column \"%1\"").arg(name));
        columns.insert(*column);
    }
    if (arguments.has("columns") && columns.empty())
        return std::unexpected(QStringLiteral("--columns: which columns?"));
    if (columns.empty()) {
        for (const EnumText<Column>& row : enumTexts<Column>)
            columns.insert(row.value);
    }
    return columns;
}

ExitCode writeList(const QByteArray& text, const CommandArguments& arguments, Console& console)
{
    const QString target = arguments.value("output");
    if (target.isEmpty() || target == standardStream) {
        writeOutput(text);
        return ExitCode::done;
    }
    const Overwrite overwrite = arguments.has("force") ? Overwrite::replace : Overwrite::refuse;
    if (const auto written = writeExport(target, text, overwrite); !written) {
        console.failure(QStringLiteral("Error writing CSV: ") + written.error().text());
        return ExitCode::failed;
    }
    console.information(QStringLiteral("CSV exported to: ") + target);
    if (!arguments.has("quiet"))
        writeOutput(target + u'\n');
    return ExitCode::done;
}

} // namespace

const CommandSpec& CsvCommand::spec() const
{
    return csvSpec;
}

ExitCode CsvCommand::run(const CommandArguments& arguments)
{
    if (!arguments.positional().isEmpty())
        return wrongUsage(spec(), QStringLiteral("it takes no arguments (-o FILE says where to write)"));
    const auto columns = columnsFrom(arguments);
    const std::expected<InvoiceFilter, QString> filter = filterFrom(arguments);
    if (!columns || !filter)
        return wrongUsage(spec(), columns ? filter.error() : columns.error());
    const auto session = Session::start(arguments);
    if (!session)
        return session.error();
    std::vector<const Invoice*> invoices;
    for (const InvoicePtr& record : (*session)->app().filterManager().filtered(*filter))
        invoices.push_back(&**record);
    const CSVExporter::Reader reader{QLocale::system(), readerLanguage(), arguments.has("guard-formulas")};
    return writeList(CSVExporter::text(invoices, *columns, (*session)->profile(), reader), arguments,
                     (*session)->console());
}

} // namespace ledra
