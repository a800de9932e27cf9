#include "ui/reminders/reminder_export.h"

#include "app/export_batch.h"
#include "app/export_sources.h"
#include "render/qt_web_engine.h"
#include "render/web_font_manager.h"

#include <QDir>
#include <QFileDialog>

namespace ledra {

namespace {

const QString folderKey = QStringLiteral("MainWindow.exportFolder");

/// A batch that is under way, with what the window says of it. It ends itself.
class ReminderExport final : public QObject, public ExportObserver
{
    Q_OBJECT

public:
    ReminderExport(const WindowParts& parts, std::vector<ExportSource> sources, const QString& target)
        : QObject(&parts.window),
          messages_(parts.messages),
          batch_({.sources = std::move(sources), .target = target, .overwrite = Overwrite::replace},
                 parts.engine, parts.fonts, parts.app.console(), *this)
    {
        connect(&batch_, &ExportBatch::finished, this, &ReminderExport::finish);
        batch_.start();
    }

    void written(const QString&, const QString& target) override { targets_ += target; }
    void warned(const QString&, const QString& line) override { messages_.warn(line); }
    void failed(const QString&, const QString& line) override { messages_.warn(line); }
    void content(const QByteArray&) override {}

private:
    void finish()
    {
        if (targets_.size() == 1)
            messages_.note(tr("Saved as %1").arg(QDir::toNativeSeparators(targets_.front())));
        else if (!targets_.isEmpty())
            messages_.note(tr("%n reminders saved", nullptr, static_cast<int>(targets_.size())));
        deleteLater();
    }

    MessageBar& messages_;
    ExportBatch batch_;
    QStringList targets_;
};

QString dialogTitle()
{
    return ReminderExport::tr("Export as PDF");
}

/// Empty when nothing was chosen.
QString chosenFile(QWidget& window, const QString& folder, const QString& stem)
{
    QFileDialog dialog(&window, dialogTitle(), folder, ReminderExport::tr("PDF files (*.pdf)"));
    dialog.setAcceptMode(QFileDialog::AcceptSave); // which asks before a file is replaced
    dialog.setDefaultSuffix(QStringLiteral("pdf"));
    dialog.selectFile(stem + QStringLiteral(".pdf"));
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}

} // namespace

void exportReminders(const WindowParts& parts, const std::vector<ReminderPtr>& reminders)
{
    const std::vector<ExportSource> sources = reminderSources(reminders, parts.app);
    if (sources.empty())
        return;
    UserDefaults& defaults = parts.app.defaults();
    const bool isOne = sources.size() == 1;
    const QString folder = defaults.value(folderKey).toString();
    const QString target = isOne ? chosenFile(parts.window, folder, sources.front().stem)
                                 : QFileDialog::getExistingDirectory(&parts.window, dialogTitle(), folder);
    if (target.isEmpty())
        return;
    if (const auto kept = defaults.setValue(folderKey, isOne ? QFileInfo(target).absolutePath() : target);
        !kept)
        parts.app.console().failure(kept.error());
    writeReminders(parts, reminders, target);
}

void writeReminders(const WindowParts& parts, const std::vector<ReminderPtr>& reminders,
                    const QString& target)
{
    std::vector<ExportSource> sources = reminderSources(reminders, parts.app);
    if (sources.size() < reminders.size())
        parts.messages.warn(ReminderExport::tr("Letters whose invoice has been deleted were left out."));
    new ReminderExport(parts, std::move(sources), target); // which the window owns
}

} // namespace ledra

#include "reminder_export.moc"
