#include "ui/jobs/file_panels.h"

#include <QCoreApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QStandardPaths>

namespace ledra {

namespace {

const QString exportFolderKey = QStringLiteral("MainWindow.exportFolder");
const QString importFolderKey = QStringLiteral("MainWindow.importFolder");

QString translated(const char* text)
{
    return QCoreApplication::translate("FilePanels", text);
}

void followFolder(QFileDialog& dialog, const WindowParts& parts, const QString& key)
{
    const QString kept = parts.app.defaults().value(key).toString();
    const QStringList places = {kept, QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation)};
    const auto place =
        std::ranges::find_if(places, [](const QString& each) { return QFileInfo(each).isDir(); });
    dialog.setDirectory(place == places.end() ? QDir::homePath() : *place);
    QObject::connect(&dialog, &QDialog::accepted, &dialog, [&dialog, &parts, key] {
        const bool isFolder = dialog.fileMode() == QFileDialog::Directory;
        const QString file = dialog.selectedFiles().value(0);
        const QString folder = isFolder ? file : QFileInfo(file).absolutePath();
        if (const auto set = parts.app.defaults().setValue(key, folder); !set)
            parts.app.console().failure(set.error());
    });
}

QFileDialog* newPanel(const WindowParts& parts, const QString& title, const QString& filter = {})
{
    auto* dialog = new QFileDialog(&parts.window, title, QString(), filter);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    return dialog;
}

QFileDialog* newOpenPanel(const WindowParts& parts, const OpenPanel& panel)
{
    QFileDialog* dialog = newPanel(parts, panel.title, panel.filter);
    dialog->setLabelText(QFileDialog::Accept, panel.button.isEmpty()
                                                  ? translated(QT_TRANSLATE_NOOP("FilePanels", "Import"))
                                                  : panel.button);
    followFolder(*dialog, parts, importFolderKey);
    return dialog;
}

} // namespace

void setUpSavePanel(QFileDialog& dialog, const WindowParts& parts, const SavePanel& panel)
{
    dialog.setWindowTitle(panel.title);
    dialog.setNameFilter(panel.filter);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(QFileInfo(panel.name).suffix());
    dialog.setLabelText(QFileDialog::Accept, panel.button.isEmpty()
                                                 ? translated(QT_TRANSLATE_NOOP("FilePanels", "Export"))
                                                 : panel.button);
    followFolder(dialog, parts, exportFolderKey);
    dialog.selectFile(panel.name);
}

void askForTarget(const WindowParts& parts, const SavePanel& panel,
                  const std::function<void(const QString&)>& chosen)
{
    QFileDialog* dialog = newPanel(parts, panel.title);
    setUpSavePanel(*dialog, parts, panel);
    QObject::connect(dialog, &QFileDialog::fileSelected, dialog, chosen);
    dialog->open();
}

void askForFolder(const WindowParts& parts, const QString& title,
                  const std::function<void(const QString&)>& chosen)
{
    QFileDialog* dialog = newPanel(parts, title);
    dialog->setFileMode(QFileDialog::Directory);
    dialog->setOption(QFileDialog::ShowDirsOnly);
    dialog->setLabelText(QFileDialog::Accept, translated(QT_TRANSLATE_NOOP("FilePanels", "Export")));
    followFolder(*dialog, parts, exportFolderKey);
    QObject::connect(dialog, &QFileDialog::fileSelected, dialog, chosen);
    dialog->open();
}

void askForFile(const WindowParts& parts, const OpenPanel& panel,
                const std::function<void(const QString&)>& chosen)
{
    QFileDialog* dialog = newOpenPanel(parts, panel);
    dialog->setFileMode(QFileDialog::ExistingFile);
    QObject::connect(dialog, &QFileDialog::fileSelected, dialog, chosen);
    dialog->open();
}

void askForFiles(const WindowParts& parts, const OpenPanel& panel,
                 const std::function<void(const QStringList&)>& chosen)
{
    QFileDialog* dialog = newOpenPanel(parts, panel);
    dialog->setFileMode(QFileDialog::ExistingFiles);
    QObject::connect(dialog, &QFileDialog::filesSelected, dialog, chosen);
    dialog->open();
}

} // namespace ledra
