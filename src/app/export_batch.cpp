#include "app/export_batch.h"

#include "einvoice/missing_fields.h"

#include <QDir>
#include <QFileInfo>
#include <QPointer>
#include <QTimer>

#include <set>

namespace ledra {

namespace {

// Enough to keep every page of the engine busy while documents are measured one by one.
constexpr int mostUnderWay = 24;

struct LogRow
{
    ExportFormat format;
    ExportPurpose purpose;
    ExportLog log;
};

constexpr std::array logs = {
    LogRow{
        ExportFormat::zugferd, ExportPurpose::keeping, {"ZUGFeRD PDF saved to ", "ZUGFeRD export failed: "}},
    LogRow{ExportFormat::zugferd,
           ExportPurpose::sharing,
           {"", "ZUGFeRD export failed: ", "Failed to create PDF for ZUGFeRD share"}},
    LogRow{ExportFormat::zugferd,
           ExportPurpose::temporary,
           {"", "ZUGFeRD export failed: ", "Failed to create PDF for ZUGFeRD temp file"}},
    LogRow{ExportFormat::xrechnung, ExportPurpose::keeping, {"XML saved to ", "Error exporting XML: "}},
    LogRow{ExportFormat::xrechnung, ExportPurpose::sharing, {"", "Error preparing XML for sharing: "}},
    LogRow{ExportFormat::xrechnung, ExportPurpose::temporary, {"", "Failed to create XRechnung temp file: "}},
};

} // namespace

ExportLog exportLog(ExportFormat format, ExportPurpose purpose)
{
    const auto row = std::ranges::find_if(
        logs, [&](const LogRow& each) { return each.format == format && each.purpose == purpose; });
    return row == logs.end() ? ExportLog() : row->log;
}

ExportBatch::ExportBatch(ExportOrder order, WebEngine& engine, WebFontManager& fonts, Console& console,
                         ExportObserver& observer)
    : order_(std::move(order)),
      fonts_(fonts),
      export_(engine, console, order_.log.hybridFailed),
      console_(console),
      observer_(observer)
{
    std::set<const DocumentSetting*> settings;
    for (const ExportSource& source : order_.sources) {
        if (settings.insert(source.setting.get()).second)
            fonts_.loadFor(source.setting->styling);
    }
}

void ExportBatch::start()
{
    QTimer::singleShot(0, this, &ExportBatch::startMore);
}

void ExportBatch::startMore()
{
    while (underWay_ < mostUnderWay && next_ < order_.sources.size())
        startOne(next_++);
    if (underWay_ == 0)
        Q_EMIT finished();
}

void ExportBatch::cancel()
{
    isCancelled_ = true;
    inTurn_.tellAll(); // these files stand
    next_ = order_.sources.size();
}

std::expected<QString, QString> ExportBatch::targetOf(const ExportSource& source)
{
    if (order_.target == standardStream)
        return order_.target;
    const bool isFolder = QFileInfo(order_.target).isDir();
    const QString name = source.stem + fileExtension(order_.format);
    QString target = isFolder ? QDir(order_.target).filePath(name) : order_.target;
    const QString absolute = QFileInfo(target).absoluteFilePath();
    if (targets_.contains(absolute))
        return std::unexpected(source.label +
                               QStringLiteral(": another document of this batch is written to ") + target);
    if (order_.overwrite == Overwrite::refuse && QFileInfo::exists(target))
        return std::unexpected(source.label + QStringLiteral(": ") + target +
                               QStringLiteral(" exists already (--force overwrites it)"));
    targets_.insert(absolute);
    return target;
}

/// Whether an e-invoice has what it needs; says what it lacks.
bool ExportBatch::mayBeWritten(std::size_t turn, const Invoice& invoice)
{
    const QStringList missing = isEInvoice(order_.format) ? missingFields(invoice) : QStringList();
    if (missing.isEmpty() || (order_.allowMissing && order_.missingIsTold))
        return true;
    const QString line = missingFieldsText(missing);
    if (order_.allowMissing)
        warn(turn, line);
    else
        fail(turn, order_.sources[turn].label + QStringLiteral(": ") + line);
    return order_.allowMissing;
}

void ExportBatch::startOne(std::size_t turn)
{
    const ExportSource& source = order_.sources[turn];
    const std::expected<ExportRecord, QString> record = source.read();
    if (!record) {
        fail(turn, record.error());
        return;
    }
    if (!mayBeWritten(turn, record->invoice))
        return;
    const std::expected<QString, QString> target = targetOf(source);
    if (!target) {
        fail(turn, target.error());
        return;
    }
    ++underWay_;
    export_.run(*record, *source.setting, fonts_, order_.format,
                [self = QPointer(this), turn,
                 target = *target](const std::expected<ExportedDocument, QString>& document) {
                    if (self) // else the window that wanted it has gone
                        self->done(turn, target, document);
                });
}

void ExportBatch::done(std::size_t turn, const QString& target,
                       const std::expected<ExportedDocument, QString>& document)
{
    --underWay_;
    if (isCancelled_) {
        // nothing is written or told any more
    } else if (document) {
        write(turn, target, *document);
    } else {
        logFailure(document.error());
        fail(turn, order_.sources[turn].label + QStringLiteral(": ") + document.error());
    }
    startMore();
}

void ExportBatch::write(std::size_t turn, const QString& target, const ExportedDocument& document)
{
    const ExportSource& source = order_.sources[turn];
    if (target == standardStream) {
        observer_.content(document.content);
    } else if (const auto written = writeExport(target, document.content, order_.overwrite); !written) {
        logFailure(written.error().text());
        fail(turn, source.label + QStringLiteral(": ") + written.error().text());
        return;
    }
    if (*order_.log.saved != '\0')
        console_.information(QString::fromLatin1(order_.log.saved) + target);
    inTurn_.tell(turn, [this, turn, target] { observer_.written(order_.sources[turn].file, target); });
    for (const QString& notice : document.notices)
        warn(turn, notice);
    if (!document.isMeasured) {
        ++failures_;
        warn(turn, QStringLiteral("the pages could not be measured; check the breaks in ") + target);
    }
    inTurn_.done(turn);
}

void ExportBatch::warn(std::size_t turn, const QString& line)
{
    inTurn_.tell(turn, [this, turn, line] {
        const ExportSource& source = order_.sources[turn];
        observer_.warned(source.file, source.label + QStringLiteral(": ") + line);
    });
}

void ExportBatch::fail(std::size_t turn, const QString& line)
{
    ++failures_;
    inTurn_.tell(turn, [this, turn, line] { observer_.failed(order_.sources[turn].file, line); });
    inTurn_.done(turn);
}

void ExportBatch::logFailure(const QString& error)
{
    if (*order_.log.failed != '\0')
        console_.information(QString::fromLatin1(order_.log.failed) + error);
}

} // namespace ledra
