#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace ledra {

/// One step of a path: a local name and, perhaps, an attribute that the element must have.
/// "ID[schemeID=VA]" is the name "ID" with the filter ("schemeID", "VA").
struct PathComponent
{
    std::string_view name;
    std::optional<std::pair<std::string_view, std::string_view>> attributeFilter;
};

struct XMLDocument;

/// An element of an XML tree, with all texts in UTF-8 and names as they are written, prefix included.
///
/// Paths name elements by their local names, separated by "/", and may begin anywhere below the element on
/// which they are looked up: the first place in document order from which the whole path can be followed
/// counts.
class Element
{
public:
    struct Attribute
    {
        std::string key;
        std::string value;
        friend bool operator==(const Attribute&, const Attribute&) = default;
    };

    /// A text run or an element.
    using Child = std::variant<std::string, std::unique_ptr<Element>>;

    explicit Element(std::string elementName) : name(std::move(elementName)) {}

    std::string name;
    std::vector<Attribute> attributes; ///< in document order, duplicates kept
    std::vector<Child> children;

    /// The name without its prefix.
    std::string_view localName() const;

    /// The value of an attribute; nothing without one.
    std::optional<std::string_view> attribute(std::string_view key) const;

    /// All text runs among the children, joined.
    std::string text() const;

    /// The first match of a path in document order; nullptr when there is none.
    Element* find(std::string_view path);
    const Element* find(std::string_view path) const;

    /// As find(), but the path begins at this element's own children.
    const Element* child(std::string_view path) const;

    /// The text of the element at a path; empty when there is none.
    std::string textAt(std::string_view path) const;

    /// Replaces the children of the element at a path by a text, or by nothing for an empty text. A path
    /// without an element is left alone: templates need not have a place for everything.
    void setText(std::string_view path, std::string_view value);

    /// Sets an attribute of the element at a path; one that is there keeps its place.
    void setAttribute(std::string_view path, std::string_view key, std::string_view value);

    /// Puts the elements of a fragment in the place of the element at a path. An empty fragment removes it;
    /// one that is not well-formed changes nothing. The fragment may use the prefixes rsm, ram, udt and qdt.
    void replaceWithFragment(std::string_view path, std::string_view fragment);

    /// Puts elements in the place of the element at a path, which goes if there are none.
    void replaceWithElements(std::string_view path, std::vector<std::unique_ptr<Element>> elements);

    /// Whether nothing would be written: no child but empty elements and blank text. Attributes do not count.
    bool isEmpty() const;

    /// The element as text, four spaces a level, without what is empty; nothing for an empty element.
    std::string serialise(int depth) const;

    /// A copy of the whole tree.
    std::unique_ptr<Element> clone() const;

    /// Calls a function with each element below this one that has the local name, in document order.
    template <class Visit>
    void forEach(std::string_view wanted, const Visit& visit) const
    {
        for (const Child& candidate : children) {
            const auto* element = std::get_if<std::unique_ptr<Element>>(&candidate);
            if (!element)
                continue;
            if ((*element)->localName() == wanted)
                visit(**element);
            (*element)->forEach(wanted, visit);
        }
    }

    /// The same with the children alone.
    template <class Visit>
    void forEachChild(std::string_view wanted, const Visit& visit) const
    {
        for (const Child& candidate : children) {
            const auto* element = std::get_if<std::unique_ptr<Element>>(&candidate);
            if (element && (*element)->localName() == wanted)
                visit(**element);
        }
    }

private:
    friend struct XMLDocument;

    void replaceChild(std::string_view path, std::vector<Child> inserted);
    bool write(int depth, std::string& out) const; ///< whether there was something to write
    void writeStart(std::string& out) const;
    void writeEnd(const std::string* lone, int depth, std::string& out) const;
    static bool writeBelow(const Child& child, int depth, std::string& out);
};

/// An XML document in memory: elements, attributes and text. There is no document type, no namespace
/// resolution, and neither comments nor processing instructions are kept.
struct XMLDocument
{
    std::unique_ptr<Element> root; ///< never null

    /// The document of a text in UTF-8, whose declaration is skipped; nothing when it is not well-formed, has
    /// a document type, or goes beyond the limits of xml_parser.h.
    static std::optional<XMLDocument> parse(std::string_view text);

    /// The declaration line and the root element.
    std::string serialise() const;
};

} // namespace ledra
