#pragma once

#include "model/text_enum.h"
#include "platform/user_defaults.h"

#include <QString>
#include <QStringList>
#include <QVariant>

#include <expected>
#include <optional>
#include <span>

namespace ledra {

/// The icon that the application gives itself.
enum class AppIcon { standard, forest, paper };

template <>
inline constexpr std::array enumTexts<AppIcon> = {
    EnumText{AppIcon::standard, "standard", "Standard"},
    EnumText{AppIcon::forest, "forest", "Forest"},
    EnumText{AppIcon::paper, "paper", "Paper"},
};

/// Light, dark, or what the desktop has.
enum class Appearance { system, light, dark };

template <>
inline constexpr std::array enumTexts<Appearance> = {
    EnumText{Appearance::system, "system", "System"},
    EnumText{Appearance::light, "light", "Light"},
    EnumText{Appearance::dark, "dark", "Dark"},
};

/// The language of the window: what the system speaks, or one of those that the interface is translated to.
enum class WantedLanguage { system, english, german };

template <>
inline constexpr std::array enumTexts<WantedLanguage> = {
    EnumText{WantedLanguage::system, "system", "System"},
    EnumText{WantedLanguage::english, "en", "English"},
    EnumText{WantedLanguage::german, "de", "German"},
};

/// One setting of the application that users may change directly.
struct SettingSpec
{
    const char* key;
    const char* absent;       ///< the value that holds when none is stored
    QStringList (*allowed)(); ///< its values; null for whole numbers from `least` to `most`, or any text
    const char* help;
    int most = 0;
    int least = 0;
    std::optional<QString> (*problem)(const QString&) =
        nullptr; ///< what is wrong with a text; for texts only
};

/// All of them, in the order in which they are listed.
std::span<const SettingSpec> settingSpecs();

/// The application's settings by their keys, as texts that are checked when they are set.
class Settings
{
public:
    explicit Settings(UserDefaults& defaults) : defaults_(defaults) {}

    [[nodiscard]] std::expected<QString, QString> text(const QString& key) const;
    [[nodiscard]] std::expected<void, QString> set(const QString& key, const QString& text);

    /// The value of a setting whose values are whole numbers.
    int number(const char* key) const { return text(QString::fromLatin1(key)).value_or(QString()).toInt(); }

    bool boolean(const char* key) const { return text(QString::fromLatin1(key)) == QStringLiteral("true"); }

private:
    UserDefaults& defaults_;
};

} // namespace ledra
