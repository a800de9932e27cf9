#pragma once

#include "model/record.h"

#include <bitset>
#include <cstddef>
#include <tuple>

namespace ledra {

template <class T>
inline constexpr std::size_t fieldCount = std::tuple_size_v<std::remove_const_t<decltype(recordFields<T>)>>;

/// Some of the stored fields of a record, by their positions.
template <class T>
using FieldSet = std::bitset<fieldCount<T>>;

/// Calls a function with each stored field and its position.
template <class T, class Visit>
void forEachField(const Visit& visit)
{
    std::apply(
        [&](auto... member) {
            std::size_t position = 0;
            (visit(position++, member), ...);
        },
        recordFields<T>);
}

/// In which fields two states of a record differ.
template <class T>
FieldSet<T> changedFields(const T& before, const T& after)
{
    FieldSet<T> fields;
    forEachField<T>(
        [&](std::size_t position, auto member) { fields.set(position, !(before.*member == after.*member)); });
    return fields;
}

template <class T>
void copyFields(const T& from, T& to, const FieldSet<T>& fields)
{
    forEachField<T>([&](std::size_t position, auto member) {
        if (fields.test(position))
            to.*member = from.*member;
    });
}

} // namespace ledra
