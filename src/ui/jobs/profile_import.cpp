#include "ui/jobs/profile_import.h"

#include "app/data_file_import.h"
#include "ui/jobs/failure_texts.h"
#include "ui/jobs/file_panels.h"
#include "ui/jobs/question.h"

#include <QCoreApplication>
#include <QFileInfo>

namespace ledra {

namespace {

struct ProfileImport
{
    Q_DECLARE_TR_FUNCTIONS(ProfileImport)
};

void importFile(const WindowParts& parts, const QString& file)
{
    tellImported(parts, importDataFile(parts.app.profileImporter(), parts.app.console(), file));
}

/// To the trash, from where they can be brought back even so.
void takeBack(const WindowParts& parts, const std::vector<ProfilePtr>& profiles)
{
    for (const ProfilePtr& profile : profiles) {
        if (const auto removed = parts.app.profileManager().removeProfile((*profile)->id); !removed)
            parts.messages.warn(removed.error().text);
    }
}

void tellIssues(const WindowParts& parts, const ImportedProfiles& imported)
{
    const QString text =
        ProfileImport::tr("Successfully imported %1 profile(s).").arg(imported.profiles.size()) + u'\n' +
        ProfileImport::tr("Failed to import %1 profile(s).").arg(imported.failures.size());
    QStringList reasons;
    for (const ArchiveFailure& failure : imported.failures)
        reasons += failure.text();
    alert(parts.window, ProfileImport::tr("Import Completed with Issues"), text, reasons.join(u'\n'));
}

/// A profile that was taken in is not yet the one that the window shows.
std::vector<MessageBar::Remedy> remedies(const WindowParts& parts, const std::vector<ProfilePtr>& profiles)
{
    const QUuid active = (*parts.app.profileManager().activeProfile())->id;
    const auto isActive = [&](const ProfilePtr& profile) { return (*profile)->id == active; };
    if (std::ranges::any_of(profiles, isActive))
        return {}; // restored on a first start, in the place of what the start had made
    std::vector<MessageBar::Remedy> found;
    if (profiles.size() == 1)
        found.push_back({ProfileImport::tr("Use"), [&parts, id = (*profiles.front())->id] {
                             parts.app.profileManager().resolveActiveProfile(id);
                         }});
    found.push_back({ProfileImport::tr("Take Back"), [&parts, profiles] { takeBack(parts, profiles); }});
    return found;
}

} // namespace

void importProfiles(const WindowParts& parts)
{
    askForFile(parts,
               {ProfileImport::tr("Choose the Ledra Data file you want to import"),
                ProfileImport::tr("Ledra Data (*%1)").arg(dataFileExtension)},
               [&parts](const QString& file) { importFile(parts, file); });
}

void askForProfiles(const WindowParts& parts, const QString& file)
{
    ask(parts.window,
        {ProfileImport::tr("Do you want to import profiles from “%1”?").arg(QFileInfo(file).fileName()),
         ProfileImport::tr("They are added beside the profiles that you have."),
         {ProfileImport::tr("Import")}},
        [&parts, file](int) { importFile(parts, file); });
}

void tellImported(const WindowParts& parts, const std::expected<ImportedProfiles, ArchiveFailure>& imported)
{
    if (!imported) {
        alert(parts.window, ProfileImport::tr("Import Failed"), imported.error());
        return;
    }
    if (!imported->failures.empty()) {
        tellIssues(parts, *imported);
        return;
    }
    QStringList names;
    for (const ProfilePtr& profile : imported->profiles)
        names += (*profile)->displayName();
    parts.messages.inform(ProfileImport::tr("Imported profiles: %1").arg(names.join(QStringLiteral(", "))),
                          remedies(parts, imported->profiles));
}

} // namespace ledra
