#pragma once

#include "ui/window_parts.h"

#include <QDBusConnection>
#include <QObject>

namespace ledra {

/// A letter to be written in the user's mail program.
struct Mail
{
    QString recipient; ///< empty for none
    QString subject;
    QStringList files;
};

/// Opens letters in the user's mail program: through the desktop's portal, else through xdg-email. Where
/// there is neither, says so and offers the files.
class MailSender : public QObject
{
    Q_OBJECT

public:
    explicit MailSender(const WindowParts& parts, QDBusConnection bus = QDBusConnection::sessionBus());

    void compose(const Mail& mail);

private Q_SLOTS:
    void answered(uint response, const QVariantMap& results);

private:
    bool composeByPortal(const Mail& mail);
    void composeByTool(const Mail& mail);
    void sayFailed(const Mail& mail, const QString& reason);

    const WindowParts& parts_;
    QDBusConnection bus_;
    Mail waiting_; ///< handed to the portal last
};

/// The address if it is one that can be handed on. What comes out of a received document may hold more than
/// that: options of a command, or fields of a mail address that attach files.
QString safeAddress(const QString& text);

} // namespace ledra
