#include "ui/plugins/install_dialog.h"

#include "ui/look/icons.h"
#include "ui/plugins/plugin_words.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace ledra {

namespace {

QLabel* addLabel(QVBoxLayout& column, const QString& text, bool isFaint = false)
{
    auto* label = new QLabel;
    label->setTextFormat(Qt::PlainText); // strangers' texts stand in it
    label->setText(text);
    label->setWordWrap(true);
    if (isFaint)
        label->setForegroundRole(QPalette::PlaceholderText);
    label->setHidden(text.isEmpty());
    column.addWidget(label);
    return label;
}

} // namespace

InstallDialog::InstallDialog(const InspectedPackage& package, QWidget* parent)
    : QDialog(parent), package_(package)
{
    constexpr int width = 460;
    constexpr int iconSize = 40;
    setWindowTitle(tr("Install Plugin"));
    setMinimumWidth(width);
    auto* icon = new QLabel(this);
    icon->setPixmap(lineIcon("plugin").pixmap(QSize(iconSize, iconSize), devicePixelRatioF()));
    auto* column = new QVBoxLayout;
    column->setSpacing(8);
    addTexts(*column);
    addWishes(*column);
    auto* top = new QHBoxLayout;
    top->setSpacing(16);
    top->addWidget(icon, 0, Qt::AlignTop);
    top->addLayout(column, 1);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Cancel, this);
    QPushButton* install =
        buttons->addButton(package.isInstalled ? tr("Replace") : tr("Install"), QDialogButtonBox::AcceptRole);
    install->setDefault(true);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(20, 18, 20, 14);
    layout->setSpacing(16);
    layout->addLayout(top);
    layout->addWidget(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

void InstallDialog::addTexts(QVBoxLayout& column)
{
    const Plugin& plugin = package_.plugin;
    QLabel* title = addLabel(column, tr("Install the plugin “%1”?").arg(plugin.manifest.name));
    QFont font = title->font();
    font.setBold(true);
    title->setFont(font);
    addLabel(column, originText(plugin), true);
    addLabel(column, plugin.manifest.description.value_or(QString()));
    if (!package_.isInstalled)
        return;
    const QString version = package_.installedVersion.value_or(QString());
    addLabel(
        column,
        version.isEmpty()
            ? tr("It replaces the plugin “%1” that is installed.").arg(plugin.id())
            : tr("It replaces the plugin “%1” that is installed, version %2.").arg(plugin.id(), version));
}

void InstallDialog::addWishes(QVBoxLayout& column)
{
    const Plugin& plugin = package_.plugin;
    QStringList wishes = capabilityTexts(plugin);
    if (const QString timer = timerText(plugin); !timer.isEmpty())
        wishes += timer;
    addLabel(column, wishes.join(u'\n'));
    const QStringList hosts = plugin.wantedHosts();
    if (hosts.isEmpty()) {
        addLabel(column, tr("It does not use the network."), true);
        return;
    }
    addLabel(column, tr("It wants to send and receive data, your invoices among them, over the network:"));
    auto* list = addLabel(column, hosts.join(u'\n'));
    list->setIndent(12);
    list->setAccessibleName(tr("Hosts"));
    mayTalk_ = new QCheckBox(tr("Let it talk to these hosts"));
    mayTalk_->setAccessibleDescription(hosts.join(QStringLiteral(", ")));
    mayTalk_->setChecked(true);
    column.addWidget(mayTalk_);
}

QStringList InstallDialog::confirmedHosts() const
{
    return mayTalk_ && mayTalk_->isChecked() ? package_.plugin.wantedHosts() : QStringList();
}

void askToInstall(const Installation& installation)
{
    const auto inspected = installation.app.pluginManager().inspect(installation.path);
    if (!inspected) {
        installation.app.pluginManager().showInstallDialog = false;
        installation.refused(inspected.error());
        installation.settled();
        return;
    }
    installation.app.pluginManager().showInstallDialog = true;
    auto* dialog = new InstallDialog(*inspected, &installation.over);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    QObject::connect(dialog, &QDialog::finished, dialog, [installation, dialog](int result) {
        PluginManager& plugins = installation.app.pluginManager();
        plugins.showInstallDialog = false;
        if (result == QDialog::Accepted) {
            const auto installed = plugins.install(installation.path, dialog->confirmedHosts());
            if (installed)
                installation.installed(*installed);
            else
                installation.refused(installed.error());
        }
        installation.settled();
    });
    dialog->open();
}

} // namespace ledra
