#include "ui/jobs/export_flow.h"

#include "ui/jobs/export_orders.h"
#include "ui/jobs/file_panels.h"
#include "ui/jobs/file_reveal.h"
#include "ui/jobs/missing_fields_question.h"
#include "ui/jobs/question.h"

#include <QCoreApplication>
#include <QFileInfo>

namespace ledra {

namespace {

struct ExportFlow
{
    Q_DECLARE_TR_FUNCTIONS(ExportFlow)
};

struct TitleRow
{
    ExportFormat format;
    const char* title;
};

constexpr std::array titles = {
    TitleRow{ExportFormat::pdf, QT_TRANSLATE_NOOP("ExportFlow", "Export as PDF")},
    TitleRow{ExportFormat::zugferd, QT_TRANSLATE_NOOP("ExportFlow", "Export as ZUGFeRD PDF")},
    TitleRow{ExportFormat::xrechnung, QT_TRANSLATE_NOOP("ExportFlow", "Export as XRechnung")},
    TitleRow{ExportFormat::html, QT_TRANSLATE_NOOP("ExportFlow", "Export as HTML")},
};

/// A line each, or all in one where they would push each other out of the bar.
void warn(MessageBar& messages, const QStringList& lines, const QString& heading)
{
    constexpr qsizetype mostRows = 3;
    constexpr qsizetype mostLines = 10;
    if (lines.size() <= mostRows) {
        for (const QString& line : lines)
            messages.warn(line);
        return;
    }
    QString text = heading + u'\n' + lines.mid(0, mostLines).join(u'\n');
    if (lines.size() > mostLines)
        text += u'\n' + ExportFlow::tr("and %n more", nullptr, static_cast<int>(lines.size() - mostLines));
    messages.warn(text);
}

/// An e-invoice that the user waits for is not left to a line at the edge.
void tellEnd(const WindowParts& parts, ExportOutcome outcome, const ExportOrder& order)
{
    if (order.format == ExportFormat::zugferd && order.sources.size() == 1 && !outcome.failures.isEmpty()) {
        QString reason = outcome.failures.takeFirst();
        if (const QString start = order.sources.front().label + QStringLiteral(": ");
            reason.startsWith(start))
            reason.remove(0, start.size());
        alert(parts.window, ExportFlow::tr("ZUGFeRD Export Failed"), reason);
    }
    tellProblems(parts.messages, outcome);
    tellFiles(parts, outcome.files);
    if (outcome.isCancelled && outcome.files.isEmpty())
        parts.messages.note(ExportFlow::tr("Export cancelled"));
}

void run(const WindowParts& parts, const ExportOrder& order)
{
    auto* job = new ExportJob(order, parts); // which deletes itself
    job->showProgress();
    job->start([&parts, order](const ExportOutcome& outcome) { tellEnd(parts, outcome, order); });
}

/// Asks once what becomes of files that are in the folder already.
void runInFolder(const WindowParts& parts, ExportOrder order, const QString& folder)
{
    order.target = folder;
    const QStringList existing = existingFiles(order);
    if (existing.isEmpty()) {
        run(parts, order);
        return;
    }
    const QString title =
        existing.size() == 1
            ? ExportFlow::tr("“%1” exists already.").arg(QFileInfo(existing.front()).fileName())
            : ExportFlow::tr("%n of the files exist already.", nullptr, static_cast<int>(existing.size()));
    const QString text = ExportFlow::tr("Replacing a file in “%1” overwrites what is in it.")
                             .arg(QFileInfo(folder).fileName());
    ask(parts.window,
        {title, text, {ExportFlow::tr("Replace"), ExportFlow::tr("Keep Both")}, QMessageBox::Warning},
        [&parts, order](int answer) mutable {
            order.overwrite = answer == 0 ? Overwrite::replace : Overwrite::refuse;
            if (answer == 1)
                keepBoth(order);
            run(parts, order);
        });
}

void chooseTarget(const WindowParts& parts, ExportOrder order)
{
    const QString title = exportTitle(order.format);
    if (order.sources.size() > 1) {
        askForFolder(parts, title,
                     [&parts, order](const QString& folder) { runInFolder(parts, order, folder); });
        return;
    }
    const QString name = order.sources.front().stem + fileExtension(order.format);
    askForTarget(parts, {title, name, fileFilter(order.format)},
                 [&parts, order](const QString& file) mutable {
                     order.target = file;
                     order.overwrite = Overwrite::replace; // the panel has asked
                     run(parts, order);
                 });
}

} // namespace

QString exportTitle(ExportFormat format)
{
    const auto row = std::ranges::find(titles, format, &TitleRow::format);
    return row == titles.end() ? QString() : ExportFlow::tr(row->title);
}

void tellFiles(const WindowParts& parts, const QStringList& files)
{
    if (files.isEmpty())
        return;
    const QString line =
        files.size() == 1 ? ExportFlow::tr("Exported: %1").arg(QFileInfo(files.front()).fileName())
                          : ExportFlow::tr("%n documents exported", nullptr, static_cast<int>(files.size()));
    parts.messages.inform(line, {{ExportFlow::tr("Show"), [files] { FileReveal().show(files); }}});
}

void tellProblems(MessageBar& messages, const ExportOutcome& outcome)
{
    warn(messages, outcome.failures,
         ExportFlow::tr("%n documents were not exported:", nullptr,
                        static_cast<int>(outcome.failures.size())));
    warn(messages, outcome.notices, ExportFlow::tr("Before you send them:"));
}

void exportToFiles(const WindowParts& parts, const std::vector<InvoicePtr>& records, ExportFormat format)
{
    if (records.empty())
        return;
    askAboutMissingFields(parts.window, exportTitle(format),
                          exportOrder(records, parts.app, format, ExportPurpose::keeping),
                          [&parts](ExportOrder order) { chooseTarget(parts, std::move(order)); });
}

} // namespace ledra
