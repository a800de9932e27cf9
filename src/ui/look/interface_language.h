#pragma once

#include "app/settings.h"

#include <QTranslator>

namespace ledra {

/// Has the interface speak the language of the setting "language": English, in which it is written, German,
/// or what the system speaks. Dates and amounts in lists and fields follow. Qt's own dialogs follow where its
/// translations are installed.
class InterfaceLanguage
{
public:
    explicit InterfaceLanguage(const Settings& settings);

    /// Whether the setting asks for another language than the one in force.
    bool isOutdated() const;

    /// Speaks what the setting asks for. Texts that were made before stay as they are.
    void apply();

private:
    QString wanted() const;

    const Settings& settings_;
    QString inForce_;
    QTranslator own_;
    QTranslator qt_;
};

} // namespace ledra
