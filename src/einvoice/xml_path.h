#pragma once

#include "einvoice/xml_document.h"

#include <span>

namespace ledra {

/// The components of a path; none for an empty one.
std::vector<PathComponent> parsePath(std::string_view path);

bool matches(const Element& element, const PathComponent& component);

/// Where an element stands: in the list of children of its parent.
struct ElementPlace
{
    Element* parent = nullptr; ///< null: there is no match
    std::size_t index = 0;
};

/// The place of the first match of a path that begins at an element's own children.
ElementPlace matchDownward(Element& parent, std::span<const PathComponent> path);

/// The place of the first match of a path anywhere below an element.
ElementPlace locate(Element& start, const std::vector<PathComponent>& path);

} // namespace ledra
