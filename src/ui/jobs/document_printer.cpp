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

/// "lp" has copied the files when it ends.
void handOver(const WindowParts& parts, const PrintOrder& order, const QStringList& files)
{
    const QString tool = QStandardPaths::findExecutable(QStringLiteral("lp"));
    if (tool.isEmpty()) {
        parts.messages.warn(
            DocumentPrinter::tr(
                "Nothing can be printed: the command “lp” of CUPS (package cups-client) is not "
                "there."),
            {{DocumentPrinter::tr("Show File"), [files] { FileReveal().show(files); }}});
        return;
    }
    auto* process = new QProcess(&parts.window);
    // The process may outlive the parts of its window, but says nothing once the messages are gone.
    MessageBar* messages = &parts.messages;
    QObject::connect(
        process, &QProcess::finished, messages,
        [messages, process, order](int code, QProcess::ExitStatus status) {
            process->deleteLater();
            const QString said = QString::fromLocal8Bit(process->readAllStandardError()).trimmed();
            if (code == 0 && status == QProcess::NormalExit)
                messages->note(DocumentPrinter::tr("Sent to the printer: %1").arg(order.title));
            else
                messages->warn(DocumentPrinter::tr("%1 was not printed: %2").arg(order.title, said));
        });
    process->start(tool, printArguments(order, files));
}

/// Several documents go beside one another, named after the file.
void writeTo(const WindowParts& parts, const QString& target, const QStringList& files)
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
            parts.messages.warn(done.error().text());
    }
    if (!written.isEmpty())
        parts.messages.inform(DocumentPrinter::tr("Printed to: %1").arg(written.front()),
                              {{DocumentPrinter::tr("Show"), [written] { FileReveal().show(written); }}});
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
    const bool isOne = records.size() == 1;
    ask(parts_,
        {isOne ? documentTitle(**records.front(), setting.profile)
               : tr("%n documents", nullptr, static_cast<int>(records.size())),
         setting.styling.pageFormat, isOne},
        [this, records](const PrintOrder& order) { print(records, order); });
}

void DocumentPrinter::ask(const WindowParts& parts, const PrintQuestion& question,
                          const std::function<void(const PrintOrder&)>& accepted)
{
    const auto printer = std::make_shared<QPrinter>(QPrinter::HighResolution);
    printer->setDocName(question.title);
    printer->setPageSize(QPageSize(paperOf(question.paper)));
    auto* dialog = new QPrintDialog(printer.get(), &parts.window);
    dialog->setWindowTitle(tr("Print"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setOption(QAbstractPrintDialog::PrintPageRange, question.isOneDocument);
    connect(dialog, &QDialog::accepted, &parts.window,
            [printer, accepted] { accepted(printOrder(*printer)); });
    dialog->open();
}

void DocumentPrinter::print(const std::vector<InvoicePtr>& records, const PrintOrder& order)
{
    documents_.make(records, ExportFormat::pdf, ExportPurpose::temporary, tr("Print"),
                    [this, order](const QStringList& files) { printFiles(parts_, order, files); });
}

void DocumentPrinter::printFiles(const WindowParts& parts, const PrintOrder& order, const QStringList& files)
{
    if (order.output.isEmpty())
        handOver(parts, order, files);
    else
        writeTo(parts, order.output, files);
}

} // namespace ledra
