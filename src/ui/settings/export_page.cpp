#include "ui/settings/export_page.h"

#include "render/qt_web_engine.h"
#include "render/web_font_manager.h"
#include "ui/jobs/export_flow.h"
#include "ui/settings/settings_access.h"
#include "ui/settings/settings_forms.h"

#include <QFileDialog>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace ledra {

ExportPage::ExportPage(SettingsWindow& window) : QWidget(&window), window_(window)
{
    QVBoxLayout* page = newFormPage(this);
    form_ = addForm(page, tr("Automatic export"));
    addFormats(*form_);
    addFolder(*form_);
    addExportAll(*form_);
    connect(&window.app().profileManager(), &ProfileManager::activeProfileChanged, form_,
            &FieldForm::refresh);
    page->addStretch();
}

ExportPage::~ExportPage() = default;

void ExportPage::addFormats(FieldForm& form)
{
    struct Row
    {
        QString title;
        const char* key;
    };
    form.addWide(new QLabel(tr("Invoices that are sent are written into a folder by themselves, as"), &form));
    for (const Row& row : {Row{tr("PDF"), "autoExportInvoicesEnabled"},
                           Row{tr("XRechnung (XML)"), "autoExportInvoicesXMLEnabled"},
                           Row{tr("ZUGFeRD PDF"), "autoExportInvoicesZUGFeRDEnabled"}}) {
        const Access<bool> setting = truthSetting(window_, row.key);
        form.addToggle(row.title, {setting.read, [setting, &form](const bool& isOn) {
                                       setting.write(isOn);
                                       form.refresh();
                                   }});
    }
}

void ExportPage::addFolder(FieldForm& form)
{
    auto* folder = new QLabel(&form);
    folder->setWordWrap(true);
    folder->setTextFormat(Qt::PlainText);
    folder->setTextInteractionFlags(Qt::TextSelectableByMouse);
    form.addField(tr("Folder"), folder);
    auto* choose = new QPushButton(tr("Choose Folder…"), &form);
    choose->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    choose->setAccessibleName(tr("Choose Folder…"));
    form.addField(QString(), choose);
    form.follow([this, folder] {
        const QString name = (*window_.app().profileManager().activeProfile())->displayName();
        const std::optional<QString> path = window_.app().autoExportFolder().path();
        folder->setText(path ? tr("%1 (profile “%2”)").arg(*path, name)
                             : tr("None is chosen for the profile “%1”, or it is gone.").arg(name));
    });
    connect(choose, &QPushButton::clicked, this, [this, &form] { chooseFolder(form); });
}

void ExportPage::chooseFolder(FieldForm& form)
{
    auto* dialog = new QFileDialog(this, tr("Choose Folder"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::Directory);
    connect(dialog, &QFileDialog::fileSelected, this, [this, &form](const QString& path) {
        window_.tell(window_.app().autoExportFolder().choose(path));
        form.refresh();
    });
    dialog->open();
}

void ExportPage::addExportAll(FieldForm& form)
{
    exportAll_ = new QPushButton(tr("Export All Now"), &form);
    exportAll_->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    exportAll_->setAccessibleName(exportAll_->text());
    exportAll_->setToolTip(tr("Writes all invoices of the profile that were sent, the earlier ones too"));
    form.addField(QString(), exportAll_);
    form.follow([this] {
        const bool isSetUp = !autoExportFormats(window_.app().settings()).empty() &&
                             window_.app().autoExportFolder().path().has_value();
        exportAll_->setEnabled(isSetUp && !exporter_);
    });
    connect(exportAll_, &QPushButton::clicked, this, &ExportPage::autoExportExportAllEligible);
}

void ExportPage::autoExportExportAllEligible()
{
    const WindowParts& parts = window_.parts();
    outcome_ = {};
    exporter_ = std::make_unique<AutoExport>(parts.app, parts.engine, parts.fonts,
                                             static_cast<ExportObserver&>(*this));
    connect(exporter_.get(), &AutoExport::finished, this, &ExportPage::tellEnd, Qt::QueuedConnection);
    form_->refresh();
    exporter_->exportAllEligible();
}

void ExportPage::tellEnd()
{
    exporter_.reset();
    form_->refresh();
    const WindowParts& parts = window_.parts();
    tellProblems(parts.messages, outcome_);
    tellFiles(parts, outcome_.files);
    if (outcome_.files.isEmpty() && outcome_.failures.isEmpty())
        parts.messages.note(tr("No invoice has been sent yet"));
}

void ExportPage::written(const QString&, const QString& target)
{
    outcome_.files += target;
}

void ExportPage::warned(const QString&, const QString& line)
{
    outcome_.notices += line;
}

void ExportPage::failed(const QString&, const QString& line)
{
    outcome_.failures += line;
}

} // namespace ledra
