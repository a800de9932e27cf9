// What is done on the page of plugins: installing, updating, removing.

#include "ui/jobs/file_reveal.h"
#include "ui/look/empty_state.h"
#include "ui/plugins/install_dialog.h"
#include "ui/settings/plugins_page.h"
#include "ui/settings/settings_window.h"

#include <QDragEnterEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QMenu>
#include <QMessageBox>
#include <QMimeData>
#include <QPointer>
#include <QVBoxLayout>

namespace ledra {

QWidget* PluginsPage::makeEmpty()
{
    auto* empty = new EmptyState;
    const QStringList lines =
        tr("No plugins installed.\nAdd a .ledraplugin folder to get started.").split(u'\n');
    empty->setContent("plugin", lines.front(), lines.mid(1).join(u'\n'), tr("Choose Folder…"));
    connect(empty, &EmptyState::clicked, this, &PluginsPage::chooseFolder);
    return empty;
}

QLayout* PluginsPage::makeButtons()
{
    auto* install = new QPushButton(tr("Install…"));
    auto* sources = new QMenu(install);
    sources->addAction(tr("From Folder…"), this, &PluginsPage::chooseFolder);
    sources->addAction(tr("From Archive…"), this, &PluginsPage::chooseArchive);
    install->setMenu(sources);
    auto* row = new QHBoxLayout;
    for (QPushButton* button : {install, updateAll_, update_, reveal_, remove_}) {
        button->setAccessibleName(button->text());
        button->setAutoDefault(false); // Return in the list presses none of them
        row->addWidget(button);
    }
    row->insertStretch(2);
    update_->setToolTip(tr("Install the newest version of the chosen plugin’s repository"));
    reveal_->setToolTip(tr("Show the chosen plugin’s folder"));
    connect(updateAll_, &QPushButton::clicked, this, &PluginsPage::updateAll);
    connect(update_, &QPushButton::clicked, this, &PluginsPage::updateChosen);
    connect(reveal_, &QPushButton::clicked, this, &PluginsPage::reveal);
    connect(remove_, &QPushButton::clicked, this, &PluginsPage::remove);
    return row;
}

QLayout* PluginsPage::makeSwitches()
{
    checks_->setAccessibleName(checks_->text());
    checks_->setToolTip(
        tr("Asks the repositories of the plugins. A new version may talk to no more hosts than "
           "you have allowed."));
    checks_->setChecked(plugins().checksForUpdates());
    connect(checks_, &QCheckBox::clicked, this, [this](bool isOn) {
        window_.tell(plugins().setChecksForUpdates(isOn));
        checks_->setChecked(plugins().checksForUpdates());
    });
    auto* row = new QHBoxLayout;
    row->addWidget(checks_);
    return row;
}

// ---- in

void PluginsPage::chooseFolder()
{
    auto* dialog = new QFileDialog(this, tr("Install Plugin"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::Directory);
    dialog->setLabelText(QFileDialog::Accept, tr("Install"));
    connect(dialog, &QFileDialog::fileSelected, this, &PluginsPage::install);
    dialog->open();
}

void PluginsPage::chooseArchive()
{
    auto* dialog = new QFileDialog(this, tr("Install Plugin"), QString(), tr("Plugins (*.ledraplugin.zip)"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::ExistingFile);
    dialog->setLabelText(QFileDialog::Accept, tr("Install"));
    connect(dialog, &QFileDialog::fileSelected, this, &PluginsPage::install);
    dialog->open();
}

void PluginsPage::install(const QString& path)
{
    plugins().pendingPackages += QUrl::fromLocalFile(path);
    installPending();
}

/// What the user, the desktop or the main window has handed over, one package after the other.
void PluginsPage::installPending()
{
    while (!isAsking_ && !plugins().pendingPackages.isEmpty()) {
        const QUrl package = plugins().pendingPackages.takeFirst();
        if (package.isLocalFile())
            ask(package.toLocalFile());
        else
            window_.tell(tr("%1 is no file of this computer.").arg(package.toDisplayString()));
    }
}

void PluginsPage::ask(const QString& path)
{
    isAsking_ = true;
    askToInstall({.app = window_.app(),
                  .over = window_,
                  .path = path,
                  .refused =
                      [this, path](const QString& error) {
                          window_.tell(QFileInfo(QDir::cleanPath(path)).fileName() + QStringLiteral(": ") +
                                       error);
                      },
                  .installed =
                      [this](const Plugin& plugin) {
                          choose(plugin.id());
                          window_.parts().messages.note(tr("%1 is installed").arg(plugin.manifest.name));
                      },
                  .settled =
                      [this] {
                          isAsking_ = false;
                          installPending();
                      }});
}

void PluginsPage::dragEnterEvent(QDragEnterEvent* event)
{
    if (event->mimeData()->hasUrls())
        event->acceptProposedAction();
}

void PluginsPage::dropEvent(QDropEvent* event)
{
    event->acceptProposedAction();
    plugins().pendingPackages += event->mimeData()->urls();
    installPending();
}

// ---- out

void PluginsPage::remove()
{
    const Plugin* plugin = plugins().find(chosen());
    if (!plugin)
        return;
    QMessageBox question(QMessageBox::Warning, tr("Remove Plugin"),
                         tr("Remove the plugin “%1”?").arg(plugin->manifest.name), QMessageBox::NoButton,
                         this);
    question.setTextFormat(Qt::PlainText);
    question.setInformativeText(tr("Its folder goes to the trash. What it has done to your invoices stays."));
    const QPushButton* erase = question.addButton(tr("Remove"), QMessageBox::DestructiveRole);
    question.setDefaultButton(question.addButton(QMessageBox::Cancel));
    const QString id = plugin->id();
    question.exec();
    if (question.clickedButton() == erase)
        window_.tell(plugins().remove(id));
}

void PluginsPage::reveal()
{
    if (const Plugin* plugin = plugins().find(chosen()))
        FileReveal().show({plugin->directory});
}

// ---- updates

void PluginsPage::updateChosen()
{
    update({chosen()});
}

void PluginsPage::updateAll()
{
    QStringList ids;
    for (const Plugin& plugin : plugins().plugins()) {
        if (plugin.manifest.url)
            ids += plugin.id();
    }
    if (ids.isEmpty())
        window_.parts().messages.note(tr("No plugin names a repository to update from."));
    update(ids);
}

void PluginsPage::update(const QStringList& ids)
{
    updated_.clear();
    hasFailed_ = false;
    openUpdates_ += static_cast<int>(ids.size());
    showChosen();
    for (const QString& id : ids) {
        const QString name = plugins().find(id)->manifest.name;
        plugins().update(id, [self = QPointer(this), name](const PluginUpdater::Outcome& outcome) {
            if (!self)
                return;
            --self->openUpdates_;
            if (!outcome) {
                self->hasFailed_ = true;
                self->window_.tell(name + QStringLiteral(": ") + outcome.error());
            } else if (*outcome) {
                self->updated_ += tr("%1 was updated to %2").arg(name, **outcome);
            }
            self->tellUpdates();
        });
    }
}

/// Once all have answered.
void PluginsPage::tellUpdates()
{
    showChosen();
    if (openUpdates_ > 0)
        return;
    if (!updated_.isEmpty())
        window_.parts().messages.note(updated_.join(u'\n'));
    else if (!hasFailed_)
        window_.parts().messages.note(tr("There is nothing newer."));
}

} // namespace ledra
