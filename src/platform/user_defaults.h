#pragma once

#include <QString>
#include <QVariant>

#include <expected>

namespace ledra {

/// The application-wide settings: one INI file, `$XDG_CONFIG_HOME/Ledra/Ledra.conf`, with the keys as
/// documented.
class UserDefaults
{
public:
    virtual ~UserDefaults() = default;

    /// The value under a key; invalid when there is none.
    virtual QVariant value(const QString& key) const = 0;

    /// Both are durable when they return; the error is one line that names the file.
    [[nodiscard]] virtual std::expected<void, QString> setValue(const QString& key,
                                                                const QVariant& value) = 0;
    [[nodiscard]] virtual std::expected<void, QString> remove(const QString& key) = 0;

    bool boolean(const QString& key, bool absent) const
    {
        const QVariant found = value(key);
        return found.isValid() ? found.toBool() : absent;
    }
};

/// The user's own file. Every call reads and writes the file itself, so that two processes see each other's
/// settings.
class FileUserDefaults final : public UserDefaults
{
public:
    static QString path();

    QVariant value(const QString& key) const override;
    std::expected<void, QString> setValue(const QString& key, const QVariant& value) override;
    std::expected<void, QString> remove(const QString& key) override;
};

} // namespace ledra
