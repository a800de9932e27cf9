#include "ui/jobs/export_job.h"

#include "render/qt_web_engine.h"
#include "render/web_font_manager.h"
#include "ui/jobs/export_progress.h"

namespace ledra {

ExportJob::ExportJob(ExportOrder order, const WindowParts& parts)
    : QObject(&parts.window),
      parts_(parts),
      total_(static_cast<int>(order.sources.size())),
      batch_(std::move(order), parts.engine, parts.fonts, parts.app.console(), *this)
{
    connect(&batch_, &ExportBatch::finished, this, [this] {
        ended_(outcome_);
        deleteLater();
    });
}

void ExportJob::showProgress()
{
    auto* progress = new ExportProgress(total_, &parts_.window);
    connect(this, &ExportJob::advanced, progress, &ExportProgress::setDone);
    connect(progress, &ExportProgress::cancelled, this, &ExportJob::cancel);
    connect(&batch_, &ExportBatch::finished, progress, &QObject::deleteLater);
}

void ExportJob::start(std::function<void(const ExportOutcome&)> ended)
{
    ended_ = std::move(ended);
    batch_.start();
}

void ExportJob::cancel()
{
    outcome_.isCancelled = true;
    batch_.cancel();
}

void ExportJob::written(const QString&, const QString& target)
{
    outcome_.files += target;
    advance();
}

void ExportJob::warned(const QString&, const QString& line)
{
    outcome_.notices += line;
}

void ExportJob::failed(const QString&, const QString& line)
{
    outcome_.failures += line;
    advance();
}

void ExportJob::advance()
{
    Q_EMIT advanced(++done_);
}

} // namespace ledra
