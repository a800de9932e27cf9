#pragma once

#include "platform/file_device.h"
#include "store/profile_manager.h"
#include "support/recording_console.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTimeZone>

#include <map>

namespace ledra::test {

inline QStringList texts(std::initializer_list<const char*> list)
{
    QStringList texts;
    for (const char* text : list)
        texts += QString::fromUtf8(text);
    return texts;
}

/// A clock that a test sets.
struct FixedClock final : Clock
{
    Timestamp now() const override { return moment; }
    void set(const char* iso) { moment = Timestamp::fromIso8601(QString::fromLatin1(iso)).value(); }

    Timestamp moment = Timestamp::fromIso8601(QStringLiteral("2026-03-05T10:00:00Z")).value();
};

/// Hands out the ids that a test has laid ready, then random ones.
struct PreparedIds final : IdSource
{
    QUuid newId() override { return prepared.isEmpty() ? QUuid::createUuid() : prepared.takeFirst(); }

    QList<QUuid> prepared;
};

/// Settings in memory.
struct MemoryDefaults final : UserDefaults
{
    QVariant value(const QString& key) const override
    {
        const auto found = values.find(key);
        return found == values.end() ? QVariant() : found->second;
    }
    std::expected<void, QString> setValue(const QString& key, const QVariant& value) override
    {
        values[key] = value;
        return {};
    }
    std::expected<void, QString> remove(const QString& key) override
    {
        values.erase(key);
        return {};
    }

    std::map<QString, QVariant> values;
};

/// All that stores need, in a folder of its own.
struct StoreHome
{
    explicit StoreHome(bool watches = false)
        : writer(folder.filePath(QStringLiteral("support")), device, console),
          trash(folder.filePath(QStringLiteral("support/Trash"))),
          context{folder.filePath(QStringLiteral("support")),
                  QStringLiteral("DE"),
                  clock,
                  ids,
                  defaults,
                  writer,
                  trash,
                  console,
                  watches}
    {}

    QString path(const QString& name) const { return folder.filePath(name); }
    QString data(const QString& name = {}) const { return path(QStringLiteral("support/Data/") + name); }

    /// Writes a file of somebody else's, with the folders above it.
    bool put(const QString& file, const QByteArray& content) const
    {
        QFile target(file);
        return QDir().mkpath(QFileInfo(file).path()) && target.open(QIODevice::WriteOnly) &&
               target.write(content) == content.size();
    }

    /// The names in a folder, sorted, with blanks between them.
    static QString names(const QString& folder)
    {
        return QDir(folder)
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name)
            .join(u' ');
    }

    QTemporaryDir folder;
    SystemFileDevice device;
    RecordingConsole console;
    FixedClock clock;
    PreparedIds ids;
    MemoryDefaults defaults;
    DataFileWriter writer;
    TrashBin trash;
    StoreContext context;
};

} // namespace ledra::test
