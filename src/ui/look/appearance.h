#pragma once

#include "app/settings.h"

#include <QObject>
#include <QPalette>

namespace ledra {

/// The colours of the light and of the dark appearance.
QPalette lightPalette();
QPalette darkPalette();

/// Whether the appearance in force is the dark one.
bool isDarkAppearance();

/// Gives all windows the appearance that the settings ask for. "System" follows the desktop's own setting
/// (org.freedesktop.portal.Settings, "color-scheme"), also while the program runs, and is light where the
/// desktop does not say.
class AppearanceController : public QObject
{
    Q_OBJECT

public:
    explicit AppearanceController(const Settings& settings);

    /// To be called when the setting may have changed.
    void apply();

Q_SIGNALS:
    void changed();

private Q_SLOTS:
    void desktopSettingChanged(const QString& group, const QString& key);

private:
    bool isDarkWanted() const;

    const Settings& settings_;
    std::optional<bool> isDark_; ///< what was applied last
};

} // namespace ledra
