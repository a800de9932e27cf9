#pragma once

#include "app/kept_files.h"
#include "store/backup_manager.h"
#include "ui/settings/data_page.h"

namespace ledra {

/// How often backups are made, and those there are.
class BackupsTab : public FilesTab
{
    Q_OBJECT

public:
    explicit BackupsTab(SettingsWindow& window);

private:
    void refresh() override;
    void backUp();
    void restore(const Backup& backup);

    std::vector<Backup> backups_;
};

/// What was deleted.
class TrashTab : public FilesTab
{
    Q_OBJECT

public:
    explicit TrashTab(SettingsWindow& window);

private:
    void refresh() override;

    std::vector<TrashedRecord> records_;
};

/// Versions of records that had to give way.
class ConflictsTab : public FilesTab
{
    Q_OBJECT

public:
    explicit ConflictsTab(SettingsWindow& window);

private:
    void refresh() override;
    void show(const KeptVersion& version);

    std::vector<KeptVersion> versions_;
};

} // namespace ledra
