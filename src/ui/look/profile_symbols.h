#pragma once

#include <QIcon>

#include <span>

namespace ledra {

/// A symbol that a profile can have.
struct ProfileSymbol
{
    const char* text; ///< English, to be translated in the context "ProfileForms"
    const char* name; ///< as profiles name it
    const char* icon;
};

std::span<const ProfileSymbol> profileSymbols();

/// The drawing of a symbol by the name that a profile holds; that of a person for a name nobody knows.
QIcon profileIcon(const QString& name);

} // namespace ledra
