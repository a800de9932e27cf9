#include "einvoice/xml_document.h"

#include "einvoice/xml_parser.h"
#include "einvoice/xml_path.h"
#include "einvoice/xml_text.h"

#include <algorithm>
#include <utility>

namespace ledra {

namespace {

constexpr std::size_t spacesPerLevel = 4;

constexpr std::string_view fragmentStart =
    R"(<root xmlns:rsm="urn:un:unece:uncefact:data:standard:CrossIndustryInvoice:100")"
    R"( xmlns:ram="urn:un:unece:uncefact:data:standard:ReusableAggregateBusinessInformationEntity:100")"
    R"( xmlns:udt="urn:un:unece:uncefact:data:standard:UnqualifiedDataType:100")"
    R"( xmlns:qdt="urn:un:unece:uncefact:data:standard:QualifiedDataType:100">)";
constexpr std::string_view fragmentEnd = "</root>";

bool isEmptyChild(const Element::Child& child)
{
    if (const auto* text = std::get_if<std::string>(&child))
        return isBlank(*text);
    return std::get<std::unique_ptr<Element>>(child)->isEmpty();
}

Element* elementAt(const ElementPlace& place)
{
    return place.parent ? std::get<std::unique_ptr<Element>>(place.parent->children[place.index]).get()
                        : nullptr;
}

void indent(int depth, std::string& out)
{
    out.append(static_cast<std::size_t>(depth) * spacesPerLevel, ' ');
}

bool writeLine(const std::string& text, int depth, std::string& out)
{
    out += '\n';
    indent(depth, out);
    appendEscaped(out, text);
    return true;
}

} // namespace

/// Writes an element on a line of its own; whether there was something to write.
bool Element::writeBelow(const Child& child, int depth, std::string& out)
{
    const std::size_t before = out.size();
    out += '\n';
    const bool isWritten = std::get<std::unique_ptr<Element>>(child)->write(depth, out);
    if (!isWritten)
        out.resize(before);
    return isWritten;
}

std::string_view Element::localName() const
{
    const std::string_view whole = name;
    const std::size_t colon = whole.find(':');
    return colon == std::string_view::npos ? whole : whole.substr(colon + 1);
}

std::optional<std::string_view> Element::attribute(std::string_view key) const
{
    const auto found = std::ranges::find(attributes, key, &Attribute::key);
    return found == attributes.end() ? std::nullopt : std::optional<std::string_view>(found->value);
}

std::string Element::text() const
{
    std::string joined;
    for (const Child& child : children) {
        if (const auto* run = std::get_if<std::string>(&child))
            joined += *run;
    }
    return joined;
}

Element* Element::find(std::string_view path)
{
    return elementAt(locate(*this, parsePath(path)));
}
const Element* Element::find(std::string_view path) const
{
    return const_cast<Element*>(this)->find(
        path); // NOLINT(cppcoreguidelines-pro-type-const-cast): it only looks
}

const Element* Element::child(std::string_view path) const
{
    const std::vector<PathComponent> components = parsePath(path);
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-const-cast): it only looks
    return components.empty() ? nullptr : elementAt(matchDownward(const_cast<Element&>(*this), components));
}

std::string Element::textAt(std::string_view path) const
{
    const Element* found = find(path);
    return found ? found->text() : std::string();
}

void Element::setText(std::string_view path, std::string_view value)
{
    Element* found = find(path);
    if (!found)
        return;
    found->children.clear();
    if (!value.empty())
        found->children.emplace_back(std::string(value));
}

void Element::setAttribute(std::string_view path, std::string_view key, std::string_view value)
{
    Element* found = find(path);
    if (!found)
        return;
    const auto present = std::ranges::find(found->attributes, key, &Attribute::key);
    if (present != found->attributes.end())
        present->value = value;
    else
        found->attributes.push_back({std::string(key), std::string(value)});
}

void Element::replaceWithFragment(std::string_view path, std::string_view fragment)
{
    fragment = trimmed(fragment);
    if (fragment.empty()) {
        replaceChild(path, {});
        return;
    }
    std::string wrapped;
    wrapped.reserve(fragmentStart.size() + fragment.size() + fragmentEnd.size());
    wrapped.append(fragmentStart).append(fragment).append(fragmentEnd);
    if (const std::optional<XMLDocument> parsed = XMLDocument::parse(wrapped))
        replaceChild(path, std::move(parsed->root->children));
}

void Element::replaceWithElements(std::string_view path, std::vector<std::unique_ptr<Element>> elements)
{
    replaceChild(path, {std::make_move_iterator(elements.begin()), std::make_move_iterator(elements.end())});
}

void Element::replaceChild(std::string_view path, std::vector<Child> inserted)
{
    const ElementPlace place = locate(*this, parsePath(path));
    if (!place.parent)
        return;
    std::vector<Child>& siblings = place.parent->children;
    const auto position = siblings.erase(siblings.begin() + static_cast<std::ptrdiff_t>(place.index));
    siblings.insert(position, std::make_move_iterator(inserted.begin()),
                    std::make_move_iterator(inserted.end()));
}

bool Element::isEmpty() const
{
    return std::ranges::all_of(children, isEmptyChild);
}

std::string Element::serialise(int depth) const
{
    std::string out;
    write(depth, out);
    return out;
}

// What turns out empty is taken back: asking beforehand would look at each element once for every level above
// it.
bool Element::write(int depth, std::string& out) const
{
    const std::size_t before = out.size();
    indent(depth, out);
    writeStart(out);
    const std::string* lone = nullptr; // a text run that may stay the only child
    bool hasLines = false;
    for (const Child& child : children) {
        const auto* run = std::get_if<std::string>(&child);
        if (run ? isBlank(*run) : lone && isEmptyChild(child))
            continue;
        if (run && !lone && !hasLines) {
            lone = run;
            continue;
        }
        if (lone)
            hasLines = writeLine(*std::exchange(lone, nullptr), depth + 1, out);
        hasLines = (run ? writeLine(*run, depth + 1, out) : writeBelow(child, depth + 1, out)) || hasLines;
    }
    if (!lone && !hasLines) {
        out.resize(before);
        return false;
    }
    writeEnd(lone, depth, out);
    return true;
}

void Element::writeStart(std::string& out) const
{
    out.append(1, '<').append(name);
    for (const Attribute& attribute : attributes) {
        out.append(1, ' ').append(attribute.key).append("=\"");
        appendAttributeEscaped(out, attribute.value);
        out += '"';
    }
    out += '>';
}

void Element::writeEnd(const std::string* lone, int depth, std::string& out) const
{
    if (lone) {
        appendEscaped(out, *lone);
    } else {
        out += '\n';
        indent(depth, out);
    }
    out.append("</").append(name).append(1, '>');
}

std::unique_ptr<Element> Element::clone() const
{
    auto copy = std::make_unique<Element>(name);
    copy->attributes = attributes;
    copy->children.reserve(children.size());
    for (const Child& child : children) {
        if (const auto* element = std::get_if<std::unique_ptr<Element>>(&child))
            copy->children.emplace_back((*element)->clone());
        else
            copy->children.emplace_back(std::get<std::string>(child));
    }
    return copy;
}

std::string XMLDocument::serialise() const
{
    constexpr std::size_t usualSize = 32'768; // bytes
    std::string out;
    out.reserve(usualSize);
    out = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
    root->write(0, out);
    return out;
}

} // namespace ledra
