#include "einvoice/xml_path.h"

namespace ledra {

namespace {

PathComponent parseComponent(std::string_view text)
{
    const std::size_t open = text.find('[');
    PathComponent component{text.substr(0, open), std::nullopt};
    if (open == std::string_view::npos)
        return component;
    const std::string_view inside = text.substr(open + 1);
    const std::string_view filter = inside.substr(0, inside.find(']'));
    const std::size_t equals = filter.find('=');
    if (equals == std::string_view::npos)
        component.attributeFilter = {filter, {}};
    else
        component.attributeFilter = {filter.substr(0, equals), filter.substr(equals + 1)};
    return component;
}

Element* elementAt(Element& parent, std::size_t index)
{
    const auto* element = std::get_if<std::unique_ptr<Element>>(&parent.children[index]);
    return element ? element->get() : nullptr;
}

/// As a comparison with localName(), but most names are told apart by their ends.
bool hasLocalName(std::string_view name, std::string_view wanted)
{
    const bool mayMatch = name.size() >= wanted.size() && !wanted.empty() && name.back() == wanted.back();
    if (!mayMatch || !name.ends_with(wanted))
        return false;
    const std::size_t prefix = name.size() - wanted.size();
    return name.find(':') == (prefix == 0 ? std::string_view::npos : prefix - 1);
}

} // namespace

std::vector<PathComponent> parsePath(std::string_view path)
{
    std::vector<PathComponent> components;
    while (!path.empty()) {
        const std::size_t slash = path.find('/');
        components.push_back(parseComponent(path.substr(0, slash)));
        path = slash == std::string_view::npos ? std::string_view() : path.substr(slash + 1);
    }
    return components;
}

bool matches(const Element& element, const PathComponent& component)
{
    if (!hasLocalName(element.name, component.name))
        return false;
    if (!component.attributeFilter)
        return true;
    const auto& [key, value] = *component.attributeFilter;
    for (const Element::Attribute& attribute : element.attributes) {
        if (attribute.key == key && attribute.value == value)
            return true;
    }
    return false;
}

ElementPlace matchDownward(Element& parent, std::span<const PathComponent> path)
{
    for (std::size_t index = 0; index < parent.children.size(); ++index) {
        Element* child = elementAt(parent, index);
        if (!child || !matches(*child, path.front()))
            continue;
        if (path.size() == 1)
            return {&parent, index};
        if (const ElementPlace found = matchDownward(*child, path.subspan(1)); found.parent)
            return found;
    }
    return {};
}

ElementPlace locate(Element& start, const std::vector<PathComponent>& path)
{
    if (path.empty())
        return {};
    if (const ElementPlace found = matchDownward(start, path); found.parent)
        return found;
    for (std::size_t index = 0; index < start.children.size(); ++index) {
        Element* child = elementAt(start, index);
        if (!child || child->children.empty())
            continue;
        if (const ElementPlace found = locate(*child, path); found.parent)
            return found;
    }
    return {};
}

} // namespace ledra
