#pragma once

#include <QJsonObject>
#include <QObject>
#include <QString>

#include <expected>
#include <functional>

namespace ledra {

// Some plugins rely on a companion script that users put in place themselves, to reach other programs of
// theirs. Here it is any executable file of this name.

/// The script in a folder; the error says that it is missing and where it belongs.
[[nodiscard]] std::expected<QString, QString> findConnector(const QString& folder);

/// Starts the script with its handler's name, "ledraRun", as the argument and the value as JSON on its
/// standard input; what it writes has to be JSON again, which comes back under "value". It ends with its
/// owner.
void callConnector(const QString& script, const QJsonObject& detail, QObject* owner,
                   const std::function<void(const std::expected<QJsonObject, QString>&)>& answer);

} // namespace ledra
