#include "ui/settings/kept_tabs.h"

#include "app/reader_language.h"
#include "model/amount_text.h"
#include "model/displayed_number.h"
#include "platform/file_io.h"
#include "store/json_reader.h"
#include "ui/jobs/profile_import.h"
#include "ui/settings/settings_access.h"

#include <QDialogButtonBox>
#include <QFileInfo>
#include <QFontDatabase>

namespace ledra {

namespace {

constexpr const char* choiceTexts = "Choices"; ///< the context in which the choices are translated

QString momentText(const QDateTime& moment)
{
    return documentLocale(readerLanguage()).toString(moment, QLocale::ShortFormat);
}

} // namespace

// ---- backups

BackupsTab::BackupsTab(SettingsWindow& window)
    : FilesTab(window, tr("Backups"), {tr("Made"), tr("Size"), tr("File")}, &window)
{
    auto* form = new FieldForm(this);
    form->addChoice(tr("Frequency"), choicesOf<BackupFrequency>(choiceTexts),
                    textSetting(window, "backupFrequency"));
    QComboBox* kept = form->addChoice(tr("Kept"), choicesOf<BackupRetention>(choiceTexts),
                                      textSetting(window, "backupRetention"));
    layout_->insertWidget(0, form);
    setTabOrder(kept, &list()); // within the window: the first stop of a tab without one cannot be moved
    auto* backUp = new QPushButton(tr("Back Up Now"), this);
    buttons_->insertWidget(0, backUp);
    connect(backUp, &QPushButton::clicked, this, &BackupsTab::backUp);
    addButton(tr("Restore"), [this](int row) { restore(backups_.at(static_cast<std::size_t>(row))); });
}

void BackupsTab::refresh()
{
    clear();
    const auto found = settings().app().backupManager().backups();
    if (!found)
        settings().tell(found.error().text());
    backups_ = found.value_or(std::vector<Backup>());
    for (const Backup& backup : backups_)
        addRow({momentText(backup.created), documentLocale(readerLanguage()).formattedDataSize(backup.bytes),
                QFileInfo(backup.path).fileName()});
}

void BackupsTab::backUp()
{
    BackupManager& manager = settings().app().backupManager();
    const BackupManager::Outcome outcome = manager.backUp();
    if (outcome == BackupManager::Outcome::failed)
        settings().tell(tr("The backup could not be made; the main window says why."));
    else if (outcome == BackupManager::Outcome::madeToday)
        settings().parts().messages.note(tr("There is a backup of today already."));
    refresh();
}

void BackupsTab::restore(const Backup& backup)
{
    tellImported(settings().parts(), settings().app().restoreBackup(backup.path));
}

// ---- the trash

TrashTab::TrashTab(SettingsWindow& window)
    : FilesTab(window, tr("Trash"), {tr("Deleted"), tr("Number"), tr("File")}, nullptr)
{
    addButton(tr("Restore"), [this](int row) {
        settings().tell(settings().app().keptFiles().restore(records_.at(static_cast<std::size_t>(row))));
        refresh();
    });
}

void TrashTab::refresh()
{
    clear();
    LedraApp& app = settings().app();
    records_ = app.keptFiles().trash();
    const ProfilePtr& profile = app.profileManager().activeProfile();
    const QString folder = app.profileManager().dataPlace() + u'/';
    for (const TrashedRecord& record : records_) {
        QString path = record.file.originalPath;
        addRow({momentText(record.file.deletionDate),
                record.invoice && profile ? displayedNumber(*record.invoice, **profile) : QString(),
                path.startsWith(folder) ? path.mid(folder.size()) : path});
    }
}

// ---- conflicts

ConflictsTab::ConflictsTab(SettingsWindow& window)
    : FilesTab(window, tr("Conflicts"), {tr("Kept"), tr("What"), tr("Record")}, nullptr)
{
    const auto version = [this](int row) { return versions_.at(static_cast<std::size_t>(row)); };
    addButton(tr("Show"), [this, version](int row) { show(version(row)); });
    addButton(tr("Take This Version"), [this, version](int row) {
        settings().tell(settings().app().keptFiles().take(version(row)));
        refresh();
    });
    addButton(tr("Drop"), [this, version](int row) {
        settings().tell(settings().app().keptFiles().drop(version(row)));
        refresh();
    });
}

void ConflictsTab::refresh()
{
    clear();
    LedraApp& app = settings().app();
    versions_ = app.keptFiles().conflicts();
    const QString folder = app.profileManager().dataPlace() + u'/';
    for (const KeptVersion& version : versions_)
        addRow({momentText(QFileInfo(version.path).lastModified()),
                version.isSecondFile ? tr("Second file") : tr("Other version"),
                version.target.startsWith(folder) ? version.target.mid(folder.size()) : version.target});
}

void ConflictsTab::show(const KeptVersion& version)
{
    const auto content = readFile(version.path, largestRecordFile);
    if (!content) {
        settings().tell(content.error().text());
        return;
    }
    auto* dialog = new QDialog(this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setWindowTitle(QFileInfo(version.target).fileName());
    auto* layout = new QVBoxLayout(dialog);
    auto* text = new QPlainTextEdit(QString::fromUtf8(*content), dialog);
    text->setReadOnly(true);
    text->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    text->setAccessibleName(tr("The kept version"));
    layout->addWidget(text);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, dialog);
    connect(buttons, &QDialogButtonBox::rejected, dialog, &QDialog::reject);
    layout->addWidget(buttons);
    dialog->resize(640, 560);
    dialog->open();
}

} // namespace ledra
