#include "ui/jobs/temporary_folders.h"

#include "ui/look/message_bar.h"

#include <QDir>

namespace ledra {

std::optional<QString> TemporaryFolders::make(MessageBar& messages)
{
    if (!folder_) {
        auto created = WorkingFolder::create(QStringLiteral("LedraDocuments"));
        if (!created) {
            messages.warn(created.error().text());
            return std::nullopt;
        }
        folder_ = std::move(*created);
    }
    const QString folder = QDir(folder_->path()).filePath(QString::number(++count_));
    if (!QDir().mkpath(folder)) {
        messages.warn(MessageBar::tr("%1 cannot be written to").arg(folder));
        return std::nullopt;
    }
    return folder;
}

} // namespace ledra
