#include "ui/settings/profiles_page.h"

#include "ui/look/profile_symbols.h"
#include "ui/settings/profile_forms.h"
#include "ui/settings/settings_window.h"

#include <QMessageBox>
#include <QScrollArea>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace ledra {

ProfilesPage::ProfilesPage(SettingsWindow& window)
    : QWidget(&window),
      window_(window),
      editing_(window.app().profileManager()),
      list_(new QListWidget(this)),
      tabs_(new QTabWidget(this)),
      use_(new QPushButton(tr("Use"), this)),
      remove_(new QPushButton(tr("Delete…"), this))
{
    auto* columns = new QHBoxLayout(this);
    columns->setSpacing(16);
    columns->addWidget(makeList());
    fill();
    columns->addWidget(makeTabs(), 1);
    ProfileManager& profiles = window.app().profileManager();
    connect(&profiles, &ProfileManager::profilesChanged, this, &ProfilesPage::fill);
    connect(&profiles, &ProfileManager::activeProfileChanged, this, &ProfilesPage::fill);
    connect(&editing_, &ProfileEditing::failed, this, &ProfilesPage::tell);
}

/// Fields that are left when the page goes still write, for which they need what they edit.
ProfilesPage::~ProfilesPage()
{
    delete tabs_;
    editing_.flush();
}

QWidget* ProfilesPage::makeList()
{
    auto* column = new QWidget(this);
    constexpr int width = 216;
    column->setFixedWidth(width);
    auto* layout = new QVBoxLayout(column);
    layout->setContentsMargins(0, 0, 0, 0);
    list_->setAccessibleName(tr("Profiles"));
    list_->setIconSize(QSize(16, 16));
    list_->setWordWrap(true); // a long name goes on below
    list_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    list_->setStyleSheet(QStringLiteral("QListWidget::item { padding: 5px 4px; }"));
    layout->addWidget(list_, 1);
    auto* create = new QPushButton(tr("New Profile"), column);
    auto* rename = new QPushButton(tr("Rename"), column);
    use_->setToolTip(tr("Show the invoices of this profile"));
    auto* grid = new QGridLayout;
    grid->setSpacing(6);
    grid->addWidget(create, 0, 0, 1, 2);
    grid->addWidget(use_, 1, 0);
    grid->addWidget(rename, 1, 1);
    grid->addWidget(remove_, 2, 0, 1, 2);
    layout->addLayout(grid);
    QWidget* before = list_;
    for (QWidget* button : std::initializer_list<QWidget*>{create, use_, rename, remove_})
        QWidget::setTabOrder(std::exchange(before, button), button);
    connect(list_, &QListWidget::currentRowChanged, this, &ProfilesPage::showChosen);
    connect(create, &QPushButton::clicked, this, &ProfilesPage::create);
    connect(rename, &QPushButton::clicked, this, &ProfilesPage::startRenaming);
    connect(remove_, &QPushButton::clicked, this, &ProfilesPage::remove);
    connect(use_, &QPushButton::clicked, this, &ProfilesPage::use);
    return column;
}

QWidget* ProfilesPage::makeTabs()
{
    for (const ProfileFormPage& page : profileFormPages()) {
        auto* form = new FieldForm;
        page.fill(*form, editing_);
        auto* column = new QWidget;
        auto* layout = new QVBoxLayout(column);
        layout->setContentsMargins(16, 14, 16, 14);
        layout->addWidget(form);
        layout->addStretch();
        connect(&editing_, &ProfileEditing::changed, form, &FieldForm::refresh);
        auto* scroll = new QScrollArea;
        scroll->setWidget(column);
        scroll->setWidgetResizable(true);
        scroll->setFrameShape(QFrame::NoFrame);
        scroll->setFocusPolicy(Qt::NoFocus); // its fields take the focus
        scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        tabs_->addTab(scroll, QCoreApplication::translate("ProfileForms", page.title));
    }
    tabs_->setUsesScrollButtons(true);
    return tabs_;
}

QUuid ProfilesPage::chosen() const
{
    const QListWidgetItem* item = list_->currentItem();
    return item ? item->data(Qt::UserRole).toUuid() : QUuid();
}

void ProfilesPage::tell(const QString& line)
{
    window_.tell(line);
    hasFailed_ = true;
}

/// Keeps the chosen profile; if that is gone, or at first, the one in use is chosen.
void ProfilesPage::fill()
{
    if (std::exchange(hasFailed_, false))
        window_.parts().messages.clear(); // by now it could be done
    const ProfileManager& profiles = window_.app().profileManager();
    const QUuid before = chosen();
    const bool staysChosen = profiles.find(before) != nullptr;
    {
        const QSignalBlocker quiet(list_);
        list_->clear();
        for (const ProfilePtr& profile : profiles.profiles()) {
            const bool isInUse = profile == profiles.activeProfile();
            const QString name = (*profile)->displayName();
            auto* item = new QListWidgetItem(isInUse ? tr("%1 (in use)").arg(name) : name, list_);
            item->setIcon(profileIcon((*profile)->icon));
            item->setData(Qt::UserRole, (*profile)->id);
            QFont font = item->font();
            font.setBold(isInUse);
            item->setFont(font);
            if (staysChosen ? (*profile)->id == before : isInUse)
                list_->setCurrentItem(item);
        }
    }
    showChosen();
}

void ProfilesPage::showChosen()
{
    const ProfileManager& profiles = window_.app().profileManager();
    const ProfilePtr& inUse = profiles.activeProfile();
    use_->setEnabled(inUse && (*inUse)->id != chosen());
    remove_->setEnabled(profiles.profiles().size() > 1);
    if (chosen() == editing_.profile().id)
        return;
    editing_.setProfile(chosen());
    for (FieldForm* form : tabs_->findChildren<FieldForm*>())
        form->forgetRefused(); // of another profile
}

void ProfilesPage::create()
{
    ProfileManager& profiles = window_.app().profileManager();
    const auto created = profiles.createProfile(profiles.uniqueName(tr("New Profile")));
    if (!created) {
        tell(created.error().text);
        return;
    }
    for (int row = 0; row < list_->count(); ++row) {
        if (list_->item(row)->data(Qt::UserRole).toUuid() == (**created)->id)
            list_->setCurrentRow(row);
    }
    startRenaming();
}

void ProfilesPage::startRenaming()
{
    tabs_->setCurrentIndex(0);
    auto* name = tabs_->findChild<QLineEdit*>(QString::fromLatin1(profileNameField));
    name->setFocus();
    name->selectAll();
}

void ProfilesPage::remove()
{
    const QString name = editing_.profile().displayName();
    QMessageBox question(QMessageBox::Warning, tr("Delete Profile"), tr("Delete the profile “%1”?").arg(name),
                         QMessageBox::NoButton, this);
    question.setInformativeText(tr("All its invoices and reminders go to the trash with it. From there the "
                                   "whole folder can be brought back."));
    const QPushButton* erase = question.addButton(tr("Delete"), QMessageBox::DestructiveRole);
    question.setDefaultButton(question.addButton(QMessageBox::Cancel));
    question.exec();
    if (question.clickedButton() != erase)
        return;
    editing_.flush();
    const auto removed = window_.app().profileManager().removeProfile(chosen());
    if (!removed)
        tell(removed.error().text);
}

void ProfilesPage::use()
{
    editing_.flush();
    window_.app().profileManager().resolveActiveProfile(chosen());
    fill();
}

} // namespace ledra
