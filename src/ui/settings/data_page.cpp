#include "ui/settings/data_page.h"

#include "app/data_move.h"
#include "ui/settings/kept_tabs.h"
#include "ui/settings/settings_window.h"

#include <QFileDialog>
#include <QHeaderView>
#include <QTabWidget>

namespace ledra {

DataPage::DataPage(SettingsWindow& window) : QWidget(&window)
{
    auto* layout = new QVBoxLayout(this);
    auto* tabs = new QTabWidget(this);
    layout->addWidget(tabs);
    tabs->addTab(new FolderTab(window), tr("Folder"));
    tabs->addTab(new BackupsTab(window), tr("Backups"));
    tabs->addTab(new TrashTab(window), tr("Trash"));
    tabs->addTab(new ConflictsTab(window), tr("Conflicts"));
    for (int tab = 0; tab < tabs->count(); ++tab)
        tabs->widget(tab)->setAutoFillBackground(true); // the frame's own ground is no ground for texts
}

// ---- the folder

FolderTab::FolderTab(SettingsWindow& window)
    : window_(window), path_(new QLabel(this)), reset_(new QPushButton(tr("Use the Usual Folder"), this))
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(16, 14, 16, 14);
    layout->addWidget(new QLabel(tr("All profiles with their invoices lie in"), this));
    path_->setTextFormat(Qt::PlainText);
    path_->setWordWrap(true);
    path_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    path_->setAccessibleName(tr("Data folder"));
    QFont font = path_->font();
    font.setWeight(QFont::DemiBold);
    path_->setFont(font);
    layout->addWidget(path_);
    auto* buttons = new QHBoxLayout;
    auto* move = new QPushButton(tr("Move…"), this);
    buttons->addWidget(move);
    buttons->addWidget(reset_);
    buttons->addStretch();
    layout->addLayout(buttons);
    auto* hint = new QLabel(tr("A folder that other computers share will do: changes of others are seen, and "
                               "what two have changed at once is kept twice."),
                            this);
    hint->setWordWrap(true);
    hint->setForegroundRole(QPalette::PlaceholderText);
    layout->addWidget(hint);
    layout->addStretch();
    connect(move, &QPushButton::clicked, this, &FolderTab::move);
    connect(reset_, &QPushButton::clicked, this, &FolderTab::reset);
    connect(&window.app().profileManager(), &ProfileManager::dataFolderChanged, this, &FolderTab::refresh);
    refresh();
}

void FolderTab::refresh()
{
    const ProfileManager& profiles = window_.app().profileManager();
    path_->setText(profiles.dataPlace());
    reset_->setEnabled(profiles.customDataPath().has_value());
}

namespace {

/// What did not come along.
void tellMigration(SettingsWindow& window, const Migration& migration)
{
    if (migration.error)
        window.tell(*migration.error);
    for (const QString& name : migration.stayed)
        window.tell(
            FolderTab::tr("%1 stays where it is, since the other folder holds one of that name").arg(name));
}

} // namespace

void FolderTab::move()
{
    auto* dialog = new QFileDialog(this, tr("Move the Data"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::Directory);
    connect(dialog, &QFileDialog::fileSelected, this, [this](const QString& folder) {
        const auto moved = moveData(window_.app().profileManager(), folder);
        if (moved)
            tellMigration(window_, *moved);
        else
            window_.tell(moved.error());
        refresh();
    });
    dialog->open();
}

void FolderTab::reset()
{
    tellMigration(window_, window_.app().profileManager().resetDataFolderToDefault());
    refresh();
}

// ---- lists of files

FilesTab::FilesTab(SettingsWindow& window, const QString& name, const QStringList& columns, QWidget* parent)
    : QWidget(parent),
      layout_(new QVBoxLayout(this)),
      buttons_(new QHBoxLayout),
      window_(window),
      list_(new QTreeWidget(this))
{
    layout_->setContentsMargins(16, 14, 16, 14);
    layout_->addWidget(list_, 1);
    layout_->addLayout(buttons_);
    buttons_->addStretch();
    list_->setAccessibleName(name);
    list_->setHeaderLabels(columns);
    list_->setRootIsDecorated(false);
    list_->setAlternatingRowColors(true);
    list_->setUniformRowHeights(true);
    list_->setStyleSheet(QStringLiteral("QTreeWidget::item { padding: 4px 5px; }"));
    connect(list_, &QTreeWidget::currentItemChanged, this, &FilesTab::offer);
}

void FilesTab::addButton(const QString& text, const std::function<void(int)>& run)
{
    auto* button = new QPushButton(text, this);
    buttons_->insertWidget(buttons_->count() - 1, button);
    forChosen_.push_back(button);
    connect(button, &QPushButton::clicked, this, [this, run] {
        if (list_->currentItem())
            run(list_->indexOfTopLevelItem(list_->currentItem()));
    });
    offer();
}

void FilesTab::offer()
{
    for (QPushButton* button : forChosen_)
        button->setEnabled(list_->currentItem() != nullptr);
}

void FilesTab::clear()
{
    list_->clear();
    offer();
}

void FilesTab::addRow(const QStringList& texts)
{
    auto* item = new QTreeWidgetItem(list_, texts); // which the list owns
    item->setToolTip(static_cast<int>(texts.size()) - 1, texts.back());
    for (int column = 0; column + 1 < texts.size(); ++column)
        list_->resizeColumnToContents(column);
}

void FilesTab::showEvent(QShowEvent* event)
{
    refresh();
    QWidget::showEvent(event);
}

} // namespace ledra
