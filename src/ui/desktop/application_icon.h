#pragma once

#include "app/settings.h"

#include <QIcon>
#include <QObject>

namespace ledra {

/// The icon that the application has chosen for its windows (setting "appIcon"). Each has a drawing for light
/// and one for dark surroundings. The icon in menus and docks is that of the .desktop file; where a desktop
/// shows the windows' own, as most do in their switchers, it is the chosen one.
class ApplicationIcon : public QObject
{
    Q_OBJECT

public:
    explicit ApplicationIcon(const Settings& settings) : settings_(settings) { apply(); }

    /// To be called when the setting or the appearance has changed.
    void apply();

private:
    const Settings& settings_;
};

/// That of a choice, for the appearance in force.
QIcon applicationIcon(const QString& choice);

} // namespace ledra
