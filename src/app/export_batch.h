#pragma once

#include "app/document_export.h"
#include "app/in_turn.h"

#include <QObject>
#include <QSet>

#include <vector>

namespace ledra {

/// One document of a batch.
struct ExportSource
{
    QString file;                                               ///< where the record comes from
    QString label;                                              ///< how messages name it
    QString stem;                                               ///< of the document's file name
    std::function<std::expected<ExportRecord, QString>()> read; ///< the error is a complete line
    std::shared_ptr<const DocumentSetting> setting;
};

/// What the log says of the files of a batch, before a path or an error; an empty text says nothing.
struct ExportLog
{
    const char* saved = "";
    const char* failed = "";
    const char* hybridFailed = "Failed to create PDF for ZUGFeRD export"; ///< a complete line
};

/// What becomes of the files that a user asks for.
enum class ExportPurpose { keeping, sharing, temporary };

/// The log of exports that a user asks for.
ExportLog exportLog(ExportFormat format, ExportPurpose purpose = ExportPurpose::keeping);

/// What a batch writes and where.
struct ExportOrder
{
    std::vector<ExportSource> sources;
    ExportFormat format = ExportFormat::pdf;
    QString target; ///< a folder, a file for a single document, or "-" for the standard output
    Overwrite overwrite = Overwrite::refuse;
    bool allowMissing = false;  ///< e-invoices are written with fields missing as well
    bool missingIsTold = false; ///< which these are is known already, and not told again
    ExportLog log = {};
};

/// How a batch tells what happens to its documents, in the order in which they were asked for. It names them
/// by the files of their records. A line is complete: it names the document.
class ExportObserver
{
public:
    virtual ~ExportObserver() = default;
    virtual void written(const QString& source, const QString& target) = 0;
    virtual void warned(const QString& source, const QString& line) = 0; ///< before or after written()
    virtual void failed(const QString& source, const QString& line) = 0;
    virtual void content(const QByteArray& bytes) = 0; ///< for the standard output
};

/// Exports many documents, several of them under way at a time. A document that fails is told and the others
/// go on. Records are read when their turn comes, so that memory does not grow with the batch.
class ExportBatch : public QObject
{
    Q_OBJECT

public:
    ExportBatch(ExportOrder order, WebEngine& engine, WebFontManager& fonts, Console& console,
                ExportObserver& observer);

    /// Works until everything is done; then says finished().
    void start();

    /// Writes nothing from now on. What is under way runs out, then it says finished().
    void cancel();

    bool hasFailures() const { return failures_ > 0; }

Q_SIGNALS:
    void finished();

private:
    void startMore();
    void startOne(std::size_t turn);
    void done(std::size_t turn, const QString& target,
              const std::expected<ExportedDocument, QString>& document);
    void write(std::size_t turn, const QString& target, const ExportedDocument& document);
    void fail(std::size_t turn, const QString& line);
    void warn(std::size_t turn, const QString& line);
    void logFailure(const QString& error);
    bool mayBeWritten(std::size_t turn, const Invoice& invoice);
    std::expected<QString, QString> targetOf(const ExportSource& source);

    ExportOrder order_;
    WebFontManager& fonts_;
    DocumentExport export_;
    Console& console_;
    ExportObserver& observer_;
    InTurn inTurn_; ///< turns are indices of the sources
    std::size_t next_ = 0;
    int underWay_ = 0;
    int failures_ = 0;
    bool isCancelled_ = false;
    QSet<QString> targets_; ///< that this batch writes
};

} // namespace ledra
