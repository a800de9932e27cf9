#pragma once

#include "app/export_batch.h"

#include <QHash>
#include <QStringList>

#include <cstddef>
#include <vector>

namespace ledra {

/// What is written on standard output about a batch; failures always go to standard error.
enum class ReportStyle {
    text,  ///< the files written, one a line
    json,  ///< at the end, a list with an object for each document
    quiet, ///< nothing
};

/// Tells how a batch of exports goes, with a progress line on a terminal.
class ExportReport final : public ExportObserver
{
public:
    ExportReport(std::size_t total, ReportStyle style);

    void written(const QString& source, const QString& target) override;
    void warned(const QString& source, const QString& line) override;
    void failed(const QString& source, const QString& line) override;
    void content(const QByteArray& bytes) override;

    /// After the last document.
    void finish();

    /// One document of the list that ReportStyle::json writes.
    struct Row
    {
        QString file;
        std::optional<QString> output;
        std::optional<QString> message;
    };

private:
    void clearProgress() const;
    void advance();

    std::size_t total_;
    std::size_t done_ = 0;
    ReportStyle style_;
    bool showsProgress_;
    std::vector<Row> rows_;
    QHash<QString, QStringList> warnings_; ///< by the records' files
};

} // namespace ledra
