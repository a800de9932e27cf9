#include "ui/jobs/mail_sender.h"

#include "ui/jobs/file_reveal.h"

#include <QDBusMetaType>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusUnixFileDescriptor>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>

namespace ledra {

namespace {

const QString portalService = QStringLiteral("org.freedesktop.portal.Desktop");

/// Open files, which is what a portal takes instead of names: who asks may live in a sandbox.
QList<QDBusUnixFileDescriptor> descriptors(const QStringList& files)
{
    QList<QDBusUnixFileDescriptor> opened;
    for (const QString& name : files) {
        QFile file(name);
        if (file.open(QIODevice::ReadOnly))
            opened += QDBusUnixFileDescriptor(file.handle()); // which duplicates it
    }
    return opened;
}

} // namespace

QString safeAddress(const QString& text)
{
    static const QRegularExpression form(QStringLiteral("^[\\w.!+~][\\w.!+~'-]*@[\\w-]+(\\.[\\w-]+)*$"),
                                         QRegularExpression::UseUnicodePropertiesOption);
    const QString address = text.trimmed();
    return form.match(address).hasMatch() ? address : QString();
}

MailSender::MailSender(const WindowParts& parts, QDBusConnection bus)
    : QObject(&parts.window), parts_(parts), bus_(std::move(bus))
{
    qDBusRegisterMetaType<QList<QDBusUnixFileDescriptor>>();
}

void MailSender::compose(const Mail& mail)
{
    if (!composeByPortal(mail))
        composeByTool(mail);
}

/// False where there is no bus at all; that there is no portal on it comes out later.
bool MailSender::composeByPortal(const Mail& mail)
{
    const QList<QDBusUnixFileDescriptor> attached = descriptors(mail.files);
    if (!bus_.isConnected() || attached.size() != mail.files.size())
        return false;
    QVariantMap options = {{QStringLiteral("subject"), mail.subject},
                           {QStringLiteral("attachment_fds"), QVariant::fromValue(attached)}};
    if (const QString address = safeAddress(mail.recipient); !address.isEmpty())
        options.insert(QStringLiteral("address"), address);
    QDBusMessage call = QDBusMessage::createMethodCall(
        portalService, QStringLiteral("/org/freedesktop/portal/desktop"),
        QStringLiteral("org.freedesktop.portal.Email"), QStringLiteral("ComposeEmail"));
    call << QString() << options;
    auto* watcher = new QDBusPendingCallWatcher(bus_.asyncCall(call), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher, mail] {
        const QDBusPendingReply<QDBusObjectPath> reply = *watcher;
        watcher->deleteLater();
        if (reply.isError()) {
            composeByTool(mail);
            return;
        }
        waiting_ = mail;
        bus_.connect(portalService, reply.value().path(), QStringLiteral("org.freedesktop.portal.Request"),
                     QStringLiteral("Response"), this, SLOT(answered(uint, QVariantMap)));
    });
    return true;
}

void MailSender::answered(uint response, const QVariantMap&)
{
    constexpr uint failed = 2; // 1: the user has changed their mind
    if (response == failed)
        composeByTool(std::exchange(waiting_, {}));
}

void MailSender::composeByTool(const Mail& mail)
{
    const QString tool = QStandardPaths::findExecutable(QStringLiteral("xdg-email"));
    if (tool.isEmpty()) {
        sayFailed(mail, tr("No mail program can be opened: neither the desktop's mail portal nor xdg-email "
                           "(package xdg-utils) is there."));
        return;
    }
    QStringList arguments = {QStringLiteral("--utf8"), QStringLiteral("--subject"), mail.subject};
    for (const QString& file : mail.files)
        arguments += {QStringLiteral("--attach"), file};
    if (const QString address = safeAddress(mail.recipient); !address.isEmpty())
        arguments += address;
    auto* process = new QProcess(this);
    connect(process, &QProcess::finished, this, [this, process, mail](int code, QProcess::ExitStatus status) {
        process->deleteLater();
        if (code != 0 || status != QProcess::NormalExit)
            sayFailed(mail, tr("The mail program could not be opened."));
    });
    process->start(tool, arguments);
}

void MailSender::sayFailed(const Mail& mail, const QString& reason)
{
    parts_.messages.warn(reason, {{tr("Show File"), [files = mail.files] { FileReveal().show(files); }}});
}

} // namespace ledra
