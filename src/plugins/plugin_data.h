#pragma once

#include "model/invoice.h"
#include "model/profile.h"

#include <QByteArray>
#include <QJsonObject>
#include <QString>

#include <expected>
#include <optional>
#include <span>

namespace ledra {

class JSONEncoderState;

// What crosses the boundary to plugins, as JSON text.

/// An invoice as plugins see it first: "id", "number", "formattedNumber", "status", "total", "currency",
/// "date" (yyyy-MM-dd), "reference" and "name".
struct PluginSummary
{
    const Invoice& invoice;
    const Profile& profile;
};
void encode(const PluginSummary& summary, JSONEncoderState& state);

QByteArray summariesJson(std::span<const Invoice> invoices, const Profile& profile);

/// The whole record as in its file, and the summary under "summary".
QByteArray recordJson(const Invoice& invoice, const Profile& profile);
QByteArray recordsJson(std::span<const Invoice> invoices, const Profile& profile);

/// A file that a plugin is to read: {fileName, content, encoding}; content that is no text is "base64".
QJsonObject inputObject(const QString& fileName, const QByteArray& content);

/// A list of arguments from JSON texts.
QByteArray argumentList(std::initializer_list<QByteArray> arguments);
QByteArray jsonText(const QJsonObject& object);

/// What an export gives out: a file's content and the name that the plugin proposes for it.
struct PluginOutput
{
    QString fileName; ///< a bare name, fit for any folder
    QByteArray content;
};

/// @param proposed the name where the plugin gives none
[[nodiscard]] std::expected<PluginOutput, QString> outputFrom(const QByteArray& json,
                                                              const QString& proposed);

/// A stranger's name as one for a file: without folders, control characters and a dot in front.
QString plainFileName(const QString& name);

} // namespace ledra
