#pragma once

#include "exchange/archive_error.h"
#include "platform/file_io.h"
#include "store/profile_manager.h"

#include <expected>
#include <vector>

namespace ledra {

inline constexpr QStringView dataFileExtension = u".ledradata";

/// Packs profiles into a data file: a ZIP archive of their folders as they are.
class ProfileExporter
{
public:
    /// Both must outlive it.
    ProfileExporter(const ProfileManager& profiles, DataFileWriter& writer)
        : profiles_(profiles), writer_(writer)
    {}

    [[nodiscard]] std::expected<void, ArchiveFailure> write(const std::vector<ProfilePtr>& chosen,
                                                            const QString& target, Overwrite overwrite) const;

    /// All profiles that there are.
    [[nodiscard]] std::expected<void, ArchiveFailure> writeAll(const QString& target,
                                                               Overwrite overwrite) const
    {
        return write(profiles_.profiles(), target, overwrite);
    }

    /// The name that is proposed for the data file of one profile: its name and the day.
    static QString fileName(const Profile& profile, QDate today);

    /// And for that of all profiles.
    static QString fileNameForAll(QDate today, Language language);

private:
    const ProfileManager& profiles_;
    DataFileWriter& writer_;
};

} // namespace ledra
