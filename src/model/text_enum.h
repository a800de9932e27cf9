#pragma once

#include <QString>

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

namespace ledra {

/// One case of an enumeration: its value, the text that files hold and the text that lists and menus show.
template <class E>
struct EnumText
{
    E value;
    std::string_view rawValue;
    std::string_view displayText;
};

/// The cases of E in their order. Each enumeration that stands in a file specialises this with a constexpr
/// std::array of EnumText; reading, writing, menus and the command line all take their texts from it.
template <class E>
inline constexpr std::nullptr_t enumTexts = nullptr;

template <class E>
concept TextEnum = !std::is_same_v<decltype(enumTexts<E>), const std::nullptr_t>;

template <TextEnum E>
constexpr const EnumText<E>& enumText(E value)
{
    for (const EnumText<E>& row : enumTexts<E>) {
        if (row.value == value)
            return row;
    }
    return enumTexts<E>.front();
}

template <TextEnum E>
constexpr std::string_view rawValue(E value)
{
    return enumText(value).rawValue;
}

/// The text of a case for lists and menus; an English key that user interfaces translate.
template <TextEnum E>
QString displayText(E value)
{
    const std::string_view text = enumText(value).displayText;
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// The case with that raw value, compared exactly; nothing when there is none.
template <TextEnum E>
constexpr std::optional<E> enumFromRawValue(std::string_view raw)
{
    for (const EnumText<E>& row : enumTexts<E>) {
        if (row.rawValue == raw)
            return row.value;
    }
    return std::nullopt;
}

} // namespace ledra
