#pragma once

#include "app/auto_export.h"
#include "ui/jobs/export_job.h"

#include <QWidget>

#include <memory>

class QPushButton;

namespace ledra {

class FieldForm;
class SettingsWindow;

/// Which final invoices are exported by themselves, and where to; and all of them at once.
class ExportPage final : public QWidget, private ExportObserver
{
    Q_OBJECT

public:
    explicit ExportPage(SettingsWindow& window);
    ~ExportPage() override;

private:
    void addFormats(FieldForm& form);
    void addFolder(FieldForm& form);
    void addExportAll(FieldForm& form);
    void chooseFolder(FieldForm& form);
    void autoExportExportAllEligible();
    void tellEnd();

    void written(const QString& source, const QString& target) override;
    void warned(const QString& source, const QString& line) override;
    void failed(const QString& source, const QString& line) override;
    void content(const QByteArray&) override {}

    SettingsWindow& window_;
    FieldForm* form_ = nullptr;
    QPushButton* exportAll_ = nullptr;
    std::unique_ptr<AutoExport> exporter_; ///< of all, while it is under way
    ExportOutcome outcome_;
};

} // namespace ledra
