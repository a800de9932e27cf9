#pragma once

#include "exchange/archive_error.h"
#include "store/profile_manager.h"

#include <expected>
#include <vector>

namespace ledra {

/// What an import brought.
struct ImportedProfiles
{
    std::vector<ProfilePtr> profiles;
    std::vector<ArchiveFailure> failures; ///< one for each profile that could not be taken in

    /// How many there are of each, for users.
    QString summary() const;
};

/// Adds the profiles of a data file to the data folder, each with a new identity and under a name that is
/// free. Existing profiles are never touched.
class ProfileImporter
{
public:
    ProfileImporter(StoreContext& context, ProfileManager& profiles) : context_(context), profiles_(profiles)
    {}

    /// @param apart a profile whose name counts as free
    [[nodiscard]] std::expected<ImportedProfiles, ArchiveFailure>
    importFile(const QString& path, const std::optional<QUuid>& apart = {});

    /// Unpacks the profiles as they are into a folder that is made for them, or is empty.
    [[nodiscard]] static std::expected<QStringList, ArchiveFailure> unpack(const QString& path,
                                                                           const QString& folder);

private:
    std::expected<ProfilePtr, StoreFailure> take(const QString& folder, const std::optional<QUuid>& apart);

    StoreContext& context_;
    ProfileManager& profiles_;
};

} // namespace ledra
