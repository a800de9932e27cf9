#pragma once

#include <QString>
#include <QVariant>

namespace ledra {

/// The application-wide settings: one INI file, `$XDG_CONFIG_HOME/Ledra/Ledra.conf`, with the keys as
/// documented.
class UserDefaults
{
public:
    virtual ~UserDefaults() = default;

    /// The value under a key; invalid when there is none.
    virtual QVariant value(const QString& key) const = 0;

    bool boolean(const QString& key, bool absent) const
    {
        const QVariant found = value(key);
        return found.isValid() ? found.toBool() : absent;
    }
};

/// The user's own file.
class FileUserDefaults final : public UserDefaults
{
public:
    QVariant value(const QString& key) const override;
};

} // namespace ledra
