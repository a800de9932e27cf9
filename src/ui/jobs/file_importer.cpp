#include "ui/jobs/file_importer.h"

#include "app/reader_language.h"
#include "ui/jobs/file_panels.h"
#include "ui/jobs/question.h"

#include <QFileInfo>
#include <QUndoStack>

namespace ledra {

namespace {

QString nameOf(const QString& file)
{
    return QFileInfo(file).fileName();
}

} // namespace

void FileImporter::importPDFs()
{
    askForFiles(parts_, {tr("Import PDF"), tr("PDF (*.pdf)")},
                [this](const QStringList& files) { importDocuments(files); });
}

void FileImporter::importEInvoices()
{
    askForFiles(parts_, {tr("Import E-Invoices"), tr("E-Invoices (*.xml *.pdf)")},
                [this](const QStringList& files) { importDocuments(files); });
}

void FileImporter::importDropped(const QList<QUrl>& urls)
{
    QStringList documents;
    for (const QUrl& url : urls) {
        const HandedOver::Kind kind = classify(url).kind;
        if (kind == HandedOver::Kind::invoiceLink)
            parts_.app.appDelegate().open({url});
        else if (!url.isLocalFile())
            parts_.messages.warn(tr("%1 is no file of this computer.").arg(url.toDisplayString()));
        else if (kind == HandedOver::Kind::plugin)
            parts_.app.appDelegate().open({url});
        else if (kind == HandedOver::Kind::document)
            documents += url.toLocalFile();
        else if (kind == HandedOver::Kind::styling)
            askForStyling(url.toLocalFile());
        else if (kind == HandedOver::Kind::profiles)
            askForProfiles(url.toLocalFile());
    }
    if (!documents.isEmpty())
        importDocuments(documents);
}

void FileImporter::importDocuments(const QStringList& files)
{
    QUndoStack& stack = parts_.app.undoStack();
    QStringList failures;
    std::optional<QUuid> last;
    if (files.size() > 1)
        stack.beginMacro(tr("Import"));
    for (const QString& file : files) {
        if (const std::optional<QUuid> id = importDocument(file, failures))
            last = id;
    }
    if (files.size() > 1)
        stack.endMacro();
    if (!failures.isEmpty())
        alert(parts_.window, tr("Import Failed"), failures.join(u'\n'));
    if (last)
        Q_EMIT imported(*last);
}

std::optional<QUuid> FileImporter::importDocument(const QString& file, QStringList& failures)
{
    const JobResult<ImportedInvoice> taken = parts_.app.undoableJobs().importFile(file);
    if (!taken) {
        failures += nameOf(file) + QStringLiteral(": ") + taken.error().text;
        return std::nullopt;
    }
    const Invoice& record = **taken->record;
    for (const StatedDifference& difference : taken->differences)
        parts_.messages.warn(
            tr("%1: the document states another total: %2")
                .arg(nameOf(file), statedText(difference, record.currency, readerLanguage())));
    return record.id;
}

void FileImporter::askForProfiles(const QString& file)
{
    ask(parts_.window,
        {tr("Do you want to import profiles from “%1”?").arg(nameOf(file)),
         tr("They are added beside the profiles that you have."),
         {tr("Import")}},
        [this, file](int) { importProfiles(file); });
}

void FileImporter::importProfiles(const QString& file)
{
    const auto result = parts_.app.profileImporter().importFile(file);
    if (!result) {
        parts_.app.console().information(QStringLiteral("Import failed: ") + result.error().text());
        alert(parts_.window, tr("Import Failed"), result.error().text());
        return;
    }
    if (!result->failures.empty())
        alert(parts_.window, tr("Import Completed with Issues"), result->summary());
    else
        parts_.messages.note(result->summary().trimmed());
}

void FileImporter::askForStyling(const QString& file)
{
    const QString profile = (*parts_.app.profileManager().activeProfile())->displayName();
    ask(parts_.window,
        {tr("Do you want to use the style of “%1”?").arg(nameOf(file)),
         tr("It replaces fonts, colours, page layout, logo and style sheet of the profile “%1”, for "
            "documents "
            "of the past as well. An earlier logo and style sheet go to the trash.")
             .arg(profile),
         {tr("Import")}},
        [this, file](int) { importStyling(file); });
}

void FileImporter::importStyling(const QString& file)
{
    if (const auto taken = parts_.app.stylingImporter().importFile(file); !taken)
        alert(parts_.window, tr("Import Failed"), taken.error().text());
}

} // namespace ledra
