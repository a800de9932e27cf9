#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace ledra {

// What came along with a received e-invoice is from somebody else: it is looked at only by programs for
// documents, under a name that leads nowhere.

/// Takes an attachment out of a received file; nothing when the file is gone or the attachment is damaged.
std::optional<QByteArray> receivedAttachment(const QString& path, const QString& name);

/// The name under which an attachment is saved: no folder, nothing that turns letters around or hides them,
/// nothing that means something to the system, and not too long.
QString attachmentFileName(const QString& name);

/// Whether an attachment may be handed to the program that the desktop has for it: it is of a kind that
/// e-invoices may carry (EN 16931, BT-125-1) and begins as that kind does. Everything else, programs and
/// starters above all, can only be saved.
bool mayBeOpened(const QString& name, const QByteArray& content);

/// The same by the name alone, before the content is taken out.
bool isOpenableName(const QString& name);

} // namespace ledra
