#pragma once

#include "platform/console.h"
#include "platform/user_defaults.h"

#include <QString>
#include <QUuid>

#include <expected>
#include <optional>

namespace ledra {

/// The folder into which a profile's final invoices are exported by themselves. It is remembered by what it
/// is, so that another folder that comes to stand at its path is not taken for it.
class AutoExportFolder
{
public:
    AutoExportFolder(UserDefaults& defaults, Console& console, const QUuid& profileId)
        : defaults_(defaults), console_(console), profileId_(profileId)
    {}

    /// Nothing when none was chosen, or when it is not there any more; the console says so then.
    std::optional<QString> path() const;

    /// Remembers a folder that is there.
    [[nodiscard]] std::expected<void, QString> choose(const QString& folder);

private:
    QString key(const char* prefix) const;

    UserDefaults& defaults_;
    Console& console_;
    QUuid profileId_;
};

} // namespace ledra
