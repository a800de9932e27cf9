#pragma once

#include "app/bare_files.h"
#include "app/document_export.h"

#include <QObject>
#include <QSet>

#include <vector>

namespace ledra {

/// What a batch writes and where.
struct ExportOrder
{
    std::vector<QString> files; ///< invoice files
    ExportFormat format = ExportFormat::pdf;
    QString target; ///< a folder, a file for a single document, or "-" for the standard output
    Overwrite overwrite = Overwrite::refuse;
    Profile profile;
    Styling styling;
};

/// How a batch tells what happens to its documents. A line is complete: it names the document.
class ExportObserver
{
public:
    virtual ~ExportObserver() = default;
    virtual void written(const QString& source, const QString& target) = 0;
    virtual void warned(const QString& source, const QString& line) = 0; ///< beside written()
    virtual void failed(const QString& source, const QString& line) = 0;
    virtual void content(const QByteArray& bytes) = 0; ///< for the standard output
};

/// Exports many documents, several of them under way at a time. A document that fails is told and the others
/// go on. Records are read when their turn comes, so that memory does not grow with the batch.
class ExportBatch : public QObject
{
    Q_OBJECT

public:
    ExportBatch(ExportOrder order, BareFiles& files, WebEngine& engine, WebFontManager& fonts,
                Console& console, ExportObserver& observer);

    /// Works until everything is done; then says finished().
    void start();

    bool hasFailures() const { return failures_ > 0; }

Q_SIGNALS:
    void finished();

private:
    void startMore();
    void startOne(const QString& source);
    void done(const QString& source, const QString& target,
              const std::expected<ExportedDocument, QString>& document);
    void write(const QString& source, const QString& target, const ExportedDocument& document);
    void fail(const QString& source, const QString& line);
    std::expected<QString, QString> targetOf(const QString& source);

    ExportOrder order_;
    BareFiles& files_;
    WebFontManager& fonts_;
    DocumentExport export_;
    ExportObserver& observer_;
    std::size_t next_ = 0;
    int underWay_ = 0;
    int failures_ = 0;
    QSet<QString> targets_; ///< that this batch writes
};

} // namespace ledra
