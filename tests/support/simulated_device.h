#pragma once

#include "platform/file_device.h"

#include <QMap>

#include <utility>
#include <vector>

namespace ledra::test {

/// Files in memory; knows what a power loss would make of them.
class Disk
{
public:
    /// A durable file.
    void put(const QString& path, const QByteArray& content)
    {
        names_[path] = syncedNames_[path] = static_cast<int>(files_.size());
        files_.push_back({content, content});
    }
    std::optional<QByteArray> content(const QString& path) const
    {
        return names_.contains(path) ? std::optional(files_[names_[path]].content) : std::nullopt;
    }

    struct Loss
    {
        int percentKept; ///< of each content that was not synced; -1: it is as it was when it was synced last
        bool keepsEntries; ///< the names in the journal are the latest, although that folder was not synced
        bool keepsNames;   ///< those in other folders
    };
    Disk after(const Loss& loss) const
    {
        Disk disk;
        for (const QString& path : names_.keys() + syncedNames_.keys()) {
            const bool isEntry = path.contains(QStringLiteral("/Journal/"));
            const auto& names = (isEntry ? loss.keepsEntries : loss.keepsNames) ? names_ : syncedNames_;
            if (names.contains(path))
                disk.put(path, files_[names[path]].after(loss.percentKept));
        }
        return disk;
    }

private:
    friend class SimulatedDevice;
    struct File
    {
        QByteArray content;
        QByteArray synced;
        QByteArray after(int percent) const
        {
            return percent < 0 || content == synced ? synced : content.left(content.size() * percent / 100);
        }
    };
    QMap<QString, int> names_;
    QMap<QString, int> syncedNames_;
    QList<File> files_;
};

/// Works on such a disk, keeps every state that it goes through, and fails when it is told to.
class SimulatedDevice final : public FileDevice
{
public:
    using Done = std::expected<void, FileError>;

    explicit SimulatedDevice(const Disk& given) : disk(given), history{given} {}

    Disk disk;
    std::vector<Disk> history; ///< begins with the disk as it was given
    int operations = 0;
    std::pair<int, int> failing; ///< the first operation that fails, the first that works again

    std::expected<std::optional<QByteArray>, FileError> read(const QString& path, qint64) override
    {
        return disk.content(path);
    }
    Done write(const QString& path, const QByteArray& content) override // half of it when it fails
    {
        if (!disk.names_.contains(path)) {
            disk.names_[path] = static_cast<int>(disk.files_.size());
            disk.files_.push_back({});
        }
        for (const qsizetype size : {qsizetype{0}, content.size() / 2}) {
            disk.files_[disk.names_[path]].content = content.left(size);
            history.push_back(disk);
        }
        return step(path, [&] { disk.files_[disk.names_[path]].content = content; });
    }
    Done sync(const QString& path) override
    {
        Disk::File& file = disk.files_[disk.names_[path]];
        return step(path, [&] { file.synced = file.content; });
    }
    Done syncFolder(const QString& folder) override
    {
        return step(folder, [&] {
            disk.syncedNames_.removeIf([&](auto name) { return name.key().section(u'/', 0, -2) == folder; });
            for (const QString& name : files(folder))
                disk.syncedNames_[folder + u'/' + name] = disk.names_[folder + u'/' + name];
        });
    }
    Done rename(const QString& from, const QString& to) override
    {
        return step(from, [&] { disk.names_[to] = disk.names_.take(from); });
    }
    Done remove(const QString& path) override
    {
        if (!disk.names_.contains(path))
            return std::unexpected(FileError{path, QStringLiteral("No such file or directory")});
        return step(path, [&] { disk.names_.remove(path); });
    }
    Done makeFolder(const QString& folder) override
    {
        return step(folder, [] {});
    }
    QStringList files(const QString& folder) override
    {
        QStringList found = disk.names_.keys();
        found.removeIf([&](const QString& path) { return path.section(u'/', 0, -2) != folder; });
        return found.replaceInStrings(folder + u'/', QString());
    }

private:
    template <class Change>
    Done step(const QString& path, Change change)
    {
        const int operation = operations++;
        if (operation >= failing.first && operation < failing.second)
            return std::unexpected(FileError{path, QStringLiteral("No space left on device")});
        change();
        history.push_back(disk);
        return {};
    }
};

} // namespace ledra::test
