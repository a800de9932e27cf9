#include "ui/jobs/document_printer.h"

#include "platform/file_io.h"
#include "ui/jobs/export_orders.h"
#include "ui/jobs/file_reveal.h"

#include <QFileInfo>
#include <QPrintDialog>
#include <QProcess>
#include <QStandardPaths>

namespace ledra {

namespace {

struct Sides
{
    QPrinter::DuplexMode mode;
    const char* name;
};

// What CUPS calls the two sides of a sheet; automatic is left to the printer.
constexpr std::array sides = {
    Sides{QPrinter::DuplexNone, "one-sided"},
    Sides{QPrinter::DuplexLongSide, "two-sided-long-edge"},
    Sides{QPrinter::DuplexShortSide, "two-sided-short-edge"},
};

QPageSize::PageSizeId paperOf(PageFormat format)
{
    return format == PageFormat::usLetter ? QPageSize::Letter : QPageSize::A4;
}

} // namespace

PrintOrder printOrder(const QPrinter& printer)
{
    const auto row = std::ranges::find(sides, printer.duplex(), &Sides::mode);
    return {printer.printerName(),
            printer.docName(),
            printer.copyCount(),
            printer.pageRanges().toString(),
            row == sides.end() ? QString() : QString::fromLatin1(row->name),
            printer.outputFileName()};
}

QStringList printArguments(const PrintOrder& order, const QStringList& files)
{
    QStringList arguments;
    const std::pair<const char*, QString> options[] = {
        {"-d", order.printer},
        {"-t", order.title},
        {"-n", QString::number(order.copies)},
        {"-P", order.pages},
        {"-o", order.sides.isEmpty() ? QString() : QStringLiteral("sides=") + order.sides}};
    for (const auto& [name, value] : options) {
        if (!value.isEmpty())
            arguments += {QString::fromLatin1(name), value};
    }
    return arguments + QStringList{QStringLiteral("--")} + files;
}

DocumentPrinter::DocumentPrinter(const WindowParts& parts, TemporaryDocuments& documents)
    : QObject(&parts.window), parts_(parts), documents_(documents)
{}

void DocumentPrinter::print(const std::vector<InvoicePtr>& records)
{
    if (records.empty())
        return;
    const DocumentSetting setting = parts_.app.documentSetting();
    const auto printer = std::make_shared<QPrinter>(QPrinter::HighResolution);
    printer->setDocName(records.size() == 1 ? documentTitle(**records.front(), setting.profile)
                                            : tr("%n documents", nullptr, static_cast<int>(records.size())));
    printer->setPageSize(QPageSize(paperOf(setting.styling.pageFormat)));
    auto* dialog = new QPrintDialog(printer.get(), &parts_.window);
    dialog->setWindowTitle(tr("Print"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setOption(QAbstractPrintDialog::PrintPageRange, records.size() == 1);
    connect(dialog, &QDialog::accepted, this,
            [this, printer, records] { print(records, printOrder(*printer)); });
    dialog->open();
}

void DocumentPrinter::print(const std::vector<InvoicePtr>& records, const PrintOrder& order)
{
    documents_.make(records, ExportFormat::pdf, ExportPurpose::temporary, tr("Print"),
                    [this, order](const QStringList& files) {
                        if (order.output.isEmpty())
                            handOver(order, files);
                        else
                            writeTo(order.output, files);
                    });
}

/// "lp" has copied the files when it ends.
void DocumentPrinter::handOver(const PrintOrder& order, const QStringList& files)
{
    const QString tool = QStandardPaths::findExecutable(QStringLiteral("lp"));
    if (tool.isEmpty()) {
        parts_.messages.warn(
            tr("Nothing can be printed: the command “lp” of CUPS (package cups-client) is not "
               "there."),
            {{tr("Show File"), [files] { FileReveal().show(files); }}});
        return;
    }
    auto* process = new QProcess(this);
    connect(process, &QProcess::finished, this,
            [this, process, order](int code, QProcess::ExitStatus status) {
                process->deleteLater();
                const QString said = QString::fromLocal8Bit(process->readAllStandardError()).trimmed();
                if (code == 0 && status == QProcess::NormalExit)
                    parts_.messages.note(tr("Sent to the printer: %1").arg(order.title));
                else
                    parts_.messages.warn(tr("%1 was not printed: %2").arg(order.title, said));
            });
    process->start(tool, printArguments(order, files));
}

/// Several documents go beside one another, named after the file.
void DocumentPrinter::writeTo(const QString& target, const QStringList& files)
{
    QStringList written;
    for (const QString& file : files) {
        QString place = target;
        if (files.size() > 1)
            place = QFileInfo(target).absolutePath() + u'/' + QFileInfo(target).completeBaseName() + u' ' +
                    QFileInfo(file).fileName();
        constexpr qint64 most = qint64{1} << 30;
        const auto content = readFile(file, most);
        const auto done = content ? writeExport(place, *content, Overwrite::replace)
                                  : std::expected<void, FileError>(std::unexpected(content.error()));
        if (done)
            written += place;
        else
            parts_.messages.warn(done.error().text());
    }
    if (!written.isEmpty())
        parts_.messages.inform(tr("Printed to: %1").arg(written.front()),
                               {{tr("Show"), [written] { FileReveal().show(written); }}});
}

} // namespace ledra
