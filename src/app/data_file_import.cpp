#include "app/data_file_import.h"

namespace ledra {

std::expected<ImportedProfiles, ArchiveFailure> importDataFile(ProfileImporter importer, Console& console,
                                                               const QString& path,
                                                               const std::optional<QUuid>& apart)
{
    auto imported = importer.importFile(path, apart);
    if (!imported)
        console.failure(QStringLiteral("Import failed: ") + imported.error().text());
    return imported;
}

} // namespace ledra
