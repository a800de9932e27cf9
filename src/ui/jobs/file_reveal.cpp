#include "ui/jobs/file_reveal.h"

#include <QCoreApplication>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDesktopServices>
#include <QFileInfo>
#include <QUrl>

namespace ledra {

namespace {

void openFolderOf(const QString& file)
{
    QDesktopServices::openUrl(QUrl::fromLocalFile(QFileInfo(file).absolutePath()));
}

} // namespace

void FileReveal::show(const QStringList& files) const
{
    if (files.isEmpty())
        return;
    if (!bus_.isConnected()) {
        openFolderOf(files.front());
        return;
    }
    QStringList urls;
    for (const QString& file : files)
        urls += QUrl::fromLocalFile(file).toString(QUrl::FullyEncoded);
    QDBusMessage call = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.FileManager1"), QStringLiteral("/org/freedesktop/FileManager1"),
        QStringLiteral("org.freedesktop.FileManager1"), QStringLiteral("ShowItems"));
    call << urls << QString();
    auto* watcher = new QDBusPendingCallWatcher(bus_.asyncCall(call), QCoreApplication::instance());
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, watcher, [watcher, file = files.front()] {
        if (watcher->isError())
            openFolderOf(file);
        watcher->deleteLater();
    });
}

} // namespace ledra
