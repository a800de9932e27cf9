#include "ui/jobs/profile_export.h"

#include "app/reader_language.h"
#include "ui/jobs/failure_texts.h"
#include "ui/jobs/file_panels.h"
#include "ui/jobs/file_reveal.h"

#include <QCoreApplication>
#include <QFileInfo>

namespace ledra {

namespace {

struct ProfileExport
{
    Q_DECLARE_TR_FUNCTIONS(ProfileExport)
};

void write(const WindowParts& parts, const std::vector<ProfilePtr>& profiles, const QString& target)
{
    if (const auto written = parts.app.profileExporter().write(profiles, target, Overwrite::replace);
        !written) {
        alert(parts.window, ProfileExport::tr("Export Failed"), written.error());
        return;
    }
    parts.messages.inform(ProfileExport::tr("Exported: %1").arg(QFileInfo(target).fileName()),
                          {{ProfileExport::tr("Show"), [target] { FileReveal().show({target}); }}});
}

void askAndWrite(const WindowParts& parts, const QString& title, const QString& name,
                 const std::vector<ProfilePtr>& profiles)
{
    askForTarget(parts, {title, name, ProfileExport::tr("Ledra Data (*%1)").arg(dataFileExtension)},
                 [&parts, profiles](const QString& target) { write(parts, profiles, target); });
}

} // namespace

void exportAllProfiles(const WindowParts& parts)
{
    const QDate today = parts.app.clock().now().localDate();
    askAndWrite(parts, ProfileExport::tr("Export All Profiles"),
                ProfileExporter::fileNameForAll(today, readerLanguage()),
                parts.app.profileManager().profiles());
}

void exportActiveProfile(const WindowParts& parts)
{
    const QDate today = parts.app.clock().now().localDate();
    const ProfilePtr profile = parts.app.profileManager().activeProfile();
    askAndWrite(parts, ProfileExport::tr("Export Profile"), ProfileExporter::fileName(**profile, today),
                {profile});
}

} // namespace ledra
