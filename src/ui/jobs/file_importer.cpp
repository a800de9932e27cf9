#include "ui/jobs/file_importer.h"

#include "app/reader_language.h"
#include "ui/jobs/failure_texts.h"
#include "ui/jobs/file_panels.h"
#include "ui/jobs/profile_import.h"
#include "ui/jobs/question.h"
#include "ui/jobs/style_exchange.h"

#include <QFileInfo>
#include <QUndoStack>

namespace ledra {

namespace {

QString nameOf(const QString& file)
{
    return QFileInfo(file).fileName();
}

/// What is done while it lives is one step; nothing done is none.
class OneStep
{
public:
    OneStep(QUndoStack& stack, const QString& text) : stack_(stack) { stack_.beginMacro(text); }
    ~OneStep()
    {
        stack_.endMacro();
        const QUndoCommand* step = stack_.command(stack_.index() - 1);
        if (step->childCount() > 0)
            return;
        const_cast<QUndoCommand*>(step)->setObsolete(true); // so that going back takes it off the stack
        stack_.undo();
    }
    OneStep(const OneStep&) = delete;
    OneStep& operator=(const OneStep&) = delete;

private:
    QUndoStack& stack_;
};

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
            askForStyle(parts_, url.toLocalFile());
        else if (kind == HandedOver::Kind::profiles)
            askForProfiles(parts_, url.toLocalFile());
    }
    if (!documents.isEmpty())
        importDocuments(documents);
}

void FileImporter::importDocuments(const QStringList& files)
{
    const bool isOne = files.size() == 1; // who chose one file knows which failed
    QStringList failures;
    std::vector<QUuid> taken;
    std::optional<OneStep> step;
    if (!isOne)
        step.emplace(parts_.app.undoStack(), tr("Import"));
    for (const QString& file : files) {
        const JobResult<QUuid> id = importDocument(file);
        if (id)
            taken.push_back(*id);
        else if (!id.error().isReported)
            failures +=
                (isOne ? QString() : nameOf(file) + QStringLiteral(": ")) + failureText(id.error().text);
    }
    step.reset();
    if (!taken.empty())
        Q_EMIT imported(taken.back());
    tell(static_cast<int>(taken.size()), failures);
}

JobResult<QUuid> FileImporter::importDocument(const QString& file)
{
    const JobResult<ImportedInvoice> taken = parts_.app.undoableJobs().importFile(file);
    if (!taken)
        return std::unexpected(taken.error());
    const Invoice& record = **taken->record;
    for (const StatedDifference& difference : taken->differences)
        parts_.messages.warn(
            tr("%1: the document states another total: %2")
                .arg(nameOf(file), statedText(difference, record.currency, readerLanguage())));
    return record.id;
}

void FileImporter::tell(int taken, const QStringList& failures)
{
    if (taken == 1)
        parts_.messages.note(tr("Imported. “Undo” takes it out again."));
    else if (taken > 1)
        parts_.messages.note(tr("%n documents imported. “Undo” takes them out again.", nullptr, taken));
    if (failures.isEmpty())
        return;
    constexpr qsizetype mostLines = 10;
    QString text = failures.mid(0, mostLines).join(u'\n');
    const bool isCut = failures.size() > mostLines;
    if (isCut)
        text += u'\n' + tr("and %n more", nullptr, static_cast<int>(failures.size() - mostLines));
    alert(parts_.window, tr("Import Failed"), text, isCut ? failures.join(u'\n') : QString());
}

} // namespace ledra
