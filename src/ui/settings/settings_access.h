#pragma once

#include "ui/look/field_form.h"
#include "ui/settings/settings_window.h"

namespace ledra {

// A setting of the application as a field shows it. What is refused is told above the page.

inline Access<QString> textSetting(SettingsWindow& window, const char* key)
{
    const QString name = QString::fromLatin1(key);
    return {[&window, name] { return window.app().settings().text(name).value_or(QString()); },
            [&window, name](const QString& text) { window.tell(window.app().settings().set(name, text)); }};
}

inline Access<bool> truthSetting(SettingsWindow& window, const char* key)
{
    const Access<QString> text = textSetting(window, key);
    return {
        [text] { return text.read() == u"true"; },
        [text](const bool& isOn) { text.write(isOn ? QStringLiteral("true") : QStringLiteral("false")); }};
}

inline Access<int> numberSetting(SettingsWindow& window, const char* key)
{
    const Access<QString> text = textSetting(window, key);
    return {[text] { return text.read().toInt(); },
            [text](const int& number) { text.write(QString::number(number)); }};
}

} // namespace ledra
