#include "ui/settings/plugins_page.h"

#include "ui/look/icons.h"
#include "ui/look/status_colors.h"
#include "ui/plugins/plugin_words.h"
#include "ui/settings/plugin_detail.h"
#include "ui/settings/settings_window.h"

#include <QHeaderView>
#include <QSignalBlocker>
#include <QSplitter>
#include <QVBoxLayout>

namespace ledra {

namespace {

enum Column { nameColumn, versionColumn, authorColumn, descriptionColumn };

} // namespace

PluginsPage::PluginsPage(SettingsWindow& window)
    : QWidget(&window),
      window_(window),
      pages_(new QStackedWidget(this)),
      list_(new QTreeWidget),
      detail_(new PluginDetail(window)),
      update_(new QPushButton(tr("Update"))),
      updateAll_(new QPushButton(tr("Check for Updates"))),
      reveal_(new QPushButton(tr("Reveal"))),
      remove_(new QPushButton(tr("Remove…"))),
      checks_(new QCheckBox(tr("Check for updates when Ledra starts, and install them")))
{
    setAcceptDrops(true);
    auto* layout = new QVBoxLayout(this);
    pages_->addWidget(makeEmpty());
    pages_->addWidget(makeList());
    layout->addWidget(pages_, 1);
    layout->addLayout(makeButtons());
    layout->addLayout(makeSwitches());
    connectManager();
    fill();
    QMetaObject::invokeMethod(this, &PluginsPage::installPending, Qt::QueuedConnection);
}

PluginManager& PluginsPage::plugins() const
{
    return window_.app().pluginManager();
}

QWidget* PluginsPage::makeList()
{
    list_->setAccessibleName(tr("Plugins"));
    list_->setHeaderLabels({tr("Name"), tr("Version"), tr("Author"), tr("Description")});
    list_->setRootIsDecorated(false);
    list_->setAlternatingRowColors(true);
    list_->setUniformRowHeights(true);
    list_->setIconSize(QSize(16, 16));
    list_->setStyleSheet(QStringLiteral("QTreeWidget::item { padding: 4px 5px; }"));
    auto* parts = new QSplitter(Qt::Vertical);
    parts->setChildrenCollapsible(false);
    parts->addWidget(list_);
    parts->addWidget(detail_);
    parts->setStretchFactor(1, 1);
    parts->setSizes({150, 350});
    connect(list_, &QTreeWidget::currentItemChanged, this, &PluginsPage::showChosen);
    connect(list_, &QTreeWidget::itemChanged, this, [this](QTreeWidgetItem* item, int column) {
        if (column == nameColumn)
            setEnabled(*item);
    });
    return parts;
}

void PluginsPage::connectManager()
{
    LedraApp& app = window_.app();
    connect(&plugins(), &PluginManager::pluginsChanged, this, &PluginsPage::fill);
    connect(&plugins(), &PluginManager::stateChanged, this, &PluginsPage::showWarning);
    connect(&app, &LedraApp::openPluginSettings, this, &PluginsPage::installPending);
}

QString PluginsPage::chosen() const
{
    const QTreeWidgetItem* item = list_->currentItem();
    return item ? item->data(nameColumn, Qt::UserRole).toString() : QString();
}

void PluginsPage::choose(const QString& id)
{
    for (int row = 0; row < list_->topLevelItemCount(); ++row) {
        if (list_->topLevelItem(row)->data(nameColumn, Qt::UserRole) == id)
            list_->setCurrentItem(list_->topLevelItem(row));
    }
}

/// Keeps the chosen plugin; if that is gone, or at first, the first one is chosen.
void PluginsPage::fill()
{
    const QString before = chosen();
    {
        const QSignalBlocker quiet(list_);
        list_->clear();
        for (const Plugin& plugin : plugins().plugins())
            addRow(plugin);
        list_->setCurrentItem(list_->topLevelItem(0));
        choose(before);
        for (const Column column : {nameColumn, versionColumn, authorColumn})
            list_->resizeColumnToContents(column);
    }
    pages_->setCurrentIndex(list_->topLevelItemCount() > 0 ? 1 : 0);
    showChosen();
}

void PluginsPage::addRow(const Plugin& plugin)
{
    const PluginManifest& manifest = plugin.manifest;
    const QString description = manifest.description.value_or(QString());
    auto* item = new QTreeWidgetItem(list_, {manifest.name, manifest.version.value_or(QString()),
                                             manifest.author.value_or(QString()), description});
    item->setData(nameColumn, Qt::UserRole, plugin.id());
    const bool isOn = plugins().isEnabled(plugin.id());
    item->setCheckState(nameColumn, isOn ? Qt::Checked : Qt::Unchecked);
    item->setData(nameColumn, Qt::AccessibleTextRole,
                  isOn ? tr("%1, switched on").arg(manifest.name)
                       : tr("%1, switched off").arg(manifest.name));
    showWarning(plugin.id());
}

/// A drawing beside the name of a plugin that has failed; the detail says why.
void PluginsPage::showWarning(const QString& id)
{
    const QSignalBlocker quiet(list_);
    for (int row = 0; row < list_->topLevelItemCount(); ++row) {
        QTreeWidgetItem& item = *list_->topLevelItem(row);
        if (item.data(nameColumn, Qt::UserRole) != id)
            continue;
        const QString error = plugins().runtime(id).lastError;
        item.setIcon(nameColumn,
                     error.isEmpty() ? lineIcon("plugin") : lineIcon("warning", warningLook().ink()));
        item.setData(nameColumn, Qt::AccessibleDescriptionRole, error);
    }
    list_->viewport()->update();
}

void PluginsPage::showChosen()
{
    const Plugin* plugin = plugins().find(chosen());
    update_->setEnabled(plugin && plugin->manifest.url && openUpdates_ == 0);
    updateAll_->setEnabled(openUpdates_ == 0 && !plugins().plugins().empty());
    reveal_->setEnabled(plugin != nullptr);
    remove_->setEnabled(plugin != nullptr);
    detail_->setPlugin(chosen());
}

/// Later, since the list is filled anew by it.
void PluginsPage::setEnabled(const QTreeWidgetItem& item)
{
    const QString id = item.data(nameColumn, Qt::UserRole).toString();
    const bool isOn = item.checkState(nameColumn) == Qt::Checked;
    if (isOn == plugins().isEnabled(id))
        return;
    QMetaObject::invokeMethod(
        this,
        [this, id, isOn] {
            const auto done = plugins().setEnabled(id, isOn);
            window_.tell(done);
            if (!done)
                fill(); // the switch shows what holds
        },
        Qt::QueuedConnection);
}

} // namespace ledra
