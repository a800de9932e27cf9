#include "exchange/archive_error.h"

#include <array>

namespace ledra {

namespace {

// In the order of the enumerations.
constexpr std::array profileExportTexts = {"Profile has no name", "Profile directory not found: "};
constexpr std::array profileImportTexts = {"The selected file is not a valid Ledra Data file.",
                                           "Failed to extract the Ledra Data file.",
                                           "No valid profiles found in the Ledra Data file."};
constexpr std::array stylingExportTexts = {"The profile could not be found.",
                                           "This profile has no styling to export yet.",
                                           "Failed to create the Style file."};
constexpr std::array stylingImportTexts = {
    "Failed to extract the Style file.", "The selected file is not a valid Style file.",
    "The Style file doesn’t contain any styling.", "The profile could not be found."};

template <class Texts, class Error>
QString textOf(const Texts& texts, Error error)
{
    return QString::fromUtf8(texts.at(static_cast<std::size_t>(error)));
}

} // namespace

QString errorText(ProfileExportError error)
{
    return textOf(profileExportTexts, error);
}

QString errorText(ProfileImportError error)
{
    return textOf(profileImportTexts, error);
}

QString errorText(StylingExportError error)
{
    return textOf(stylingExportTexts, error);
}

QString errorText(StylingImportError error)
{
    return textOf(stylingImportTexts, error);
}

} // namespace ledra
