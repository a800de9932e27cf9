#include "app/settings.h"

#include "app/document_export.h"
#include "store/backup_manager.h"

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

const std::array specs = {
    SettingSpec{"termsAccepted", "false", truthValues, "Whether the terms of use have been accepted."},
    SettingSpec{"collectData", "false", truthValues,
                "Keep signs of usage in a file of your own; nothing is sent."},
    SettingSpec{"showBadge", "true", truthValues, "Show a count on the icon in the dock."},
    SettingSpec{"appIcon", "standard", rawValues<AppIcon>, "The icon of the application."},
    SettingSpec{"appearance", "system", rawValues<Appearance>, "Light or dark windows."},
    SettingSpec{"invoiceDarkMode", "false", truthValues, "Show documents dark in dark windows."},
    SettingSpec{"defaultExportFormat", "pdf", rawValues<ExportFormat>, "The format of the export button."},
    SettingSpec{"backupFrequency", "1", rawValues<BackupFrequency>, "Days between backups."},
    SettingSpec{"backupRetention", "thirty", rawValues<BackupRetention>, "How many backups are kept."},
    SettingSpec{"autoExportInvoicesEnabled", "false", truthValues,
                "Write the PDF of each final invoice into the profile's folder for that."},
    SettingSpec{"autoExportInvoicesXMLEnabled", "false", truthValues, "The same for its XRechnung."},
    SettingSpec{"autoExportInvoicesZUGFeRDEnabled", "false", truthValues, "The same for its ZUGFeRD PDF."},
    SettingSpec{"paymentDeadlineDays", "14", nullptr, "Days from a reminder to its payment deadline.", 365},
};

/// Whether a text is a value of the setting.
bool isAllowed(const SettingSpec& spec, const QString& text)
{
    if (spec.allowed)
        return spec.allowed().contains(text);
    bool isNumber = false;
    const int number = text.toInt(&isNumber);
    return isNumber && number >= 0 && number <= spec.most;
}

QString allowedText(const SettingSpec& spec)
{
    return spec.allowed ? QStringLiteral("is none of ") + spec.allowed().join(QStringLiteral(", "))
                        : QStringLiteral("is no whole number from 0 to %1").arg(spec.most);
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
    return isAllowed(*spec, stored) ? stored : QString::fromLatin1(spec->absent);
}

std::expected<void, QString> Settings::set(const QString& key, const QString& text)
{
    const SettingSpec* spec = findSetting(key);
    if (!spec)
        return unknownSetting(key);
    if (!isAllowed(*spec, text))
        return std::unexpected(QStringLiteral("%1: \"%2\" %3").arg(key, text, allowedText(*spec)));
    if (!spec->allowed)
        return defaults_.setValue(key, text.toInt());
    const bool isTruth = spec->allowed == truthValues;
    return defaults_.setValue(key, isTruth ? QVariant(text == u"true") : QVariant(text));
}

} // namespace ledra
