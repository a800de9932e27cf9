#include "app/settings.h"

#include "app/document_export.h"
#include "store/backup_manager.h"
#include "textparser/answer_reader.h"
#include "textparser/local_endpoint.h"

namespace ledra {

namespace {

template <TextEnum E>
QStringList rawValues()
{
    QStringList values;
    for (const EnumText<E>& row : enumTexts<E>)
        values += QString::fromUtf8(row.rawValue.data(), static_cast<qsizetype>(row.rawValue.size()));
    return values;
}

QStringList truthValues()
{
    return {QStringLiteral("true"), QStringLiteral("false")};
}

std::optional<QString> endpointProblem(const QString& text)
{
    const std::expected<QUrl, QString> endpoint = localEndpoint(text);
    return endpoint ? std::nullopt : std::optional(endpoint.error());
}

std::optional<QString> nameProblem(const QString& text)
{
    const bool isLine = text.isEmpty() || cleanText(text, TextLength::line) == text;
    return isLine && text.size() <= longestLine ? std::nullopt
                                                : std::optional(QStringLiteral("is no name of a model"));
}

const std::array specs = {
    SettingSpec{"termsAccepted", "false", truthValues, "Whether the terms of use have been accepted."},
    SettingSpec{"collectData", "false", truthValues,
                "Keep signs of usage in a file of your own; nothing is sent."},
    SettingSpec{"showBadge", "true", truthValues, "Show a count on the icon in the dock."},
    SettingSpec{"appIcon", "standard", rawValues<AppIcon>, "The icon of the application."},
    SettingSpec{"appearance", "system", rawValues<Appearance>, "Light or dark windows."},
    SettingSpec{"language", "system", rawValues<WantedLanguage>, "The language of the window."},
    SettingSpec{"invoiceDarkMode", "false", truthValues, "Show documents dark in dark windows."},
    SettingSpec{"defaultExportFormat", "pdf", rawValues<ExportFormat>, "The format of the export button."},
    SettingSpec{"backupFrequency", "1", rawValues<BackupFrequency>, "Days between backups."},
    SettingSpec{"backupRetention", "thirty", rawValues<BackupRetention>, "How many backups are kept."},
    SettingSpec{"autoExportInvoicesEnabled", "false", truthValues,
                "Write the PDF of each final invoice into the profile's folder for that."},
    SettingSpec{"autoExportInvoicesXMLEnabled", "false", truthValues, "The same for its XRechnung."},
    SettingSpec{"autoExportInvoicesZUGFeRDEnabled", "false", truthValues, "The same for its ZUGFeRD PDF."},
    SettingSpec{"Plugins.checkForUpdatesEnabled", "false", truthValues,
                "Update plugins from their repositories when the window opens."},
    SettingSpec{"Plugins.callSeconds", "10", nullptr, "Seconds that a plugin's script may take.", 600},
    SettingSpec{"paymentDeadlineDays", "14", nullptr, "Days from a reminder to its payment deadline.", 365},
    SettingSpec{"textParserEndpoint", defaultEndpoint, nullptr,
                "The address of the model server on this computer that reads texts.", 0, 0, endpointProblem},
    SettingSpec{"textParserModel", "", nullptr, "The model that it is to use; none: its first.", 0, 0,
                nameProblem},
    SettingSpec{"textParserTimeout", "120", nullptr, "Seconds for which a model may say nothing.", 3600, 1},
};

/// What is wrong with a text as a value of the setting; nothing when it is one.
std::optional<QString> problemOf(const SettingSpec& spec, const QString& text)
{
    if (spec.problem)
        return spec.problem(text);
    if (spec.allowed)
        return spec.allowed().contains(text)
                   ? std::nullopt
                   : std::optional(QStringLiteral("is none of ") + spec.allowed().join(QStringLiteral(", ")));
    bool isNumber = false;
    const int number = text.toInt(&isNumber);
    if (isNumber && number >= spec.least && number <= spec.most)
        return std::nullopt;
    return QStringLiteral("is no whole number from %1 to %2").arg(spec.least).arg(spec.most);
}

const SettingSpec* findSetting(const QString& key)
{
    const auto found = std::ranges::find_if(
        specs, [&](const SettingSpec& spec) { return key == QLatin1StringView(spec.key); });
    return found == specs.end() ? nullptr : &*found;
}

std::unexpected<QString> unknownSetting(const QString& key)
{
    return std::unexpected(QStringLiteral("there is no setting \"%1\"").arg(key));
}

} // namespace

std::span<const SettingSpec> settingSpecs()
{
    return specs;
}

std::expected<QString, QString> Settings::text(const QString& key) const
{
    const SettingSpec* spec = findSetting(key);
    if (!spec)
        return unknownSetting(key);
    // A value that a newer version or a slip of the hand has left counts as absent.
    const QString stored = defaults_.value(key).toString();
    return problemOf(*spec, stored) ? QString::fromLatin1(spec->absent) : stored;
}

std::expected<void, QString> Settings::set(const QString& key, const QString& text)
{
    const SettingSpec* spec = findSetting(key);
    if (!spec)
        return unknownSetting(key);
    if (const std::optional<QString> problem = problemOf(*spec, text))
        return std::unexpected(QStringLiteral("%1: \"%2\" %3").arg(key, text, *problem));
    if (!spec->allowed && !spec->problem)
        return defaults_.setValue(key, text.toInt());
    const bool isTruth = spec->allowed == truthValues;
    return defaults_.setValue(key, isTruth ? QVariant(text == u"true") : QVariant(text));
}

} // namespace ledra
