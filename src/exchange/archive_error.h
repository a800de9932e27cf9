#pragma once

#include <QString>

#include <type_traits>
#include <utility>

namespace ledra {

/// Why a data file was not written.
enum class ProfileExportError { missingName, missingFolder };

/// Why a data file was not taken in.
enum class ProfileImportError { notAnArchive, notExtracted, noProfiles };

/// Why a style file was not written.
enum class StylingExportError { unknownProfile, noStyling, notCreated };

/// Why a style file was not taken in.
enum class StylingImportError { notExtracted, notAStyle, noStyling, unknownProfile };

// The messages for users; that of a missing folder goes on with its path.
QString errorText(ProfileExportError error);
QString errorText(ProfileImportError error);
QString errorText(StylingExportError error);
QString errorText(StylingImportError error);

/// Why an archive was not written or taken in, in words.
struct ArchiveFailure
{
    ArchiveFailure(QString forUsers, QString exactly = {})
        : message(std::move(forUsers)), detail(std::move(exactly))
    {}

    /// Of one of the errors above.
    template <class Error>
    explicit ArchiveFailure(Error error, QString exactly = {})
        requires std::is_enum_v<Error>
        : ArchiveFailure(errorText(error), std::move(exactly))
    {}

    QString message; ///< for users
    QString detail;  ///< what exactly, where that is known

    /// One line.
    QString text() const
    {
        return detail.isEmpty() ? message : QStringLiteral("%1 (%2)").arg(message, detail);
    }
};

} // namespace ledra
