#pragma once

#include "exchange/archive_error.h"
#include "platform/file_io.h"
#include "store/profile_manager.h"
#include "store/styling_manager.h"

#include <expected>

namespace ledra {

inline constexpr QStringView styleFileExtension = u".ledrastyle";

/// Packs a profile's styling into a style file: a ZIP archive of "styling.json" with the logo and the style
/// sheet that belong to it.
class StylingExporter
{
public:
    explicit StylingExporter(const ProfileManager& profiles) : profiles_(profiles) {}

    [[nodiscard]] std::expected<void, ArchiveFailure> write(const QUuid& profileId, const QString& target,
                                                            Overwrite overwrite) const;

private:
    const ProfileManager& profiles_;
};

/// Makes the styling of a style file that of the active profile. An earlier logo and style sheet go to the
/// trash.
class StylingImporter
{
public:
    StylingImporter(StoreContext& context, StylingManager& stylings) : context_(context), stylings_(stylings)
    {}

    [[nodiscard]] std::expected<void, ArchiveFailure> importFile(const QString& path);

private:
    StoreContext& context_;
    StylingManager& stylings_;
};

} // namespace ledra
