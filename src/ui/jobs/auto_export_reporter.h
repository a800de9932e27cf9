#pragma once

#include "app/export_batch.h"
#include "ui/look/message_bar.h"

namespace ledra {

/// Tells in a window what the automatic export does: failures and warnings until they are read, and nothing
/// of what goes as it should.
class AutoExportReporter final : public ExportObserver
{
public:
    explicit AutoExportReporter(MessageBar& messages) : messages_(messages) {}

    void written(const QString&, const QString&) override {}
    void warned(const QString&, const QString& line) override { tell(line); }
    void failed(const QString&, const QString& line) override { tell(line); }
    void content(const QByteArray&) override {}

private:
    void tell(const QString& line) { messages_.warn(MessageBar::tr("Automatic export: %1").arg(line)); }

    MessageBar& messages_;
};

} // namespace ledra
