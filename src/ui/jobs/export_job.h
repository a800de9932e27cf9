#pragma once

#include "app/export_batch.h"
#include "ui/window_parts.h"

#include <memory>

namespace ledra {

/// How an export ended.
struct ExportOutcome
{
    QStringList files; ///< in the order in which they were written
    QStringList notices;
    QStringList failures;
    bool isCancelled = false;
};

/// An export under way in the window. It deletes itself when it has ended.
class ExportJob final : public QObject, private ExportObserver
{
    Q_OBJECT

public:
    ExportJob(ExportOrder order, const WindowParts& parts);

    /// Shows how far it is, with a way out, unless it is done in a moment.
    void showProgress();

    void start(std::function<void(const ExportOutcome&)> ended);
    void cancel();

Q_SIGNALS:
    void advanced(int documents); ///< that are done

private:
    void written(const QString& source, const QString& target) override;
    void warned(const QString& source, const QString& line) override;
    void failed(const QString& source, const QString& line) override;
    void content(const QByteArray&) override {}
    void advance();

    const WindowParts& parts_;
    int total_;
    int done_ = 0;
    ExportOutcome outcome_;
    std::function<void(const ExportOutcome&)> ended_;
    ExportBatch batch_;
};

} // namespace ledra
