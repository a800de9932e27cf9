#include "einvoice/xml_parser.h"

#include "einvoice/xml_text.h"

#include <expat.h>

namespace ledra {

namespace {

struct ParserRelease
{
    void operator()(XML_Parser parser) const { XML_ParserFree(parser); }
};

/// Receives the parser's events.
class SAXDelegate
{
public:
    explicit SAXDelegate(XML_Parser parser) : parser_(parser) {}

    std::unique_ptr<Element> root; ///< the first element opened

    void elementStart(const char* name, const char** attributes)
    {
        auto element = std::make_unique<Element>(name);
        for (; *attributes != nullptr; attributes += 2) {
            if (element->attributes.size() == mostXmlAttributes)
                stop();
            element->attributes.push_back({attributes[0], attributes[1]});
        }
        if (++count_ > mostXmlElements || stack_.size() == deepestXml)
            stop();
        push(std::move(element));
    }

    void characterData(const char* text, int length)
    {
        if (stack_.empty())
            return;
        std::vector<Element::Child>& children = stack_.back()->children;
        const auto run = std::string_view(text, static_cast<std::size_t>(length));
        // The parser reports a run in pieces, at line breaks and entities.
        if (!children.empty() && std::holds_alternative<std::string>(children.back()))
            std::get<std::string>(children.back()) += run;
        else
            children.emplace_back(std::string(run));
    }

    void elementEnd()
    {
        if (!stack_.empty())
            stack_.pop_back();
    }

    /// Entities are declared in a document type; without one there are none to expand.
    void stop() { XML_StopParser(parser_, XML_FALSE); }

private:
    void push(std::unique_ptr<Element> element)
    {
        Element* opened = element.get();
        if (stack_.empty())
            root = std::move(element);
        else
            stack_.back()->children.emplace_back(std::move(element));
        stack_.push_back(opened);
    }

    XML_Parser parser_;
    std::vector<Element*> stack_; ///< open elements, innermost last
    std::size_t count_ = 0;
};

SAXDelegate& delegateOf(void* userData)
{
    return *static_cast<SAXDelegate*>(userData);
}

void connect(XML_Parser parser, SAXDelegate& delegate)
{
    XML_SetUserData(parser, &delegate);
    XML_SetElementHandler(
        parser,
        [](void* data, const char* name, const char** attributes) {
            delegateOf(data).elementStart(name, attributes);
        },
        [](void* data, const char*) { delegateOf(data).elementEnd(); });
    XML_SetCharacterDataHandler(parser, [](void* data, const char* text, int length) {
        delegateOf(data).characterData(text, length);
    });
    XML_SetStartDoctypeDeclHandler(
        parser, [](void* data, const char*, const char*, const char*, int) { delegateOf(data).stop(); });
}

} // namespace

std::unique_ptr<Element> parseElements(std::string_view text)
{
    if (text.size() > largestXml)
        return nullptr;
    const std::unique_ptr<XML_ParserStruct, ParserRelease> parser(XML_ParserCreate("UTF-8"));
    if (!parser)
        return nullptr;
    SAXDelegate delegate(parser.get());
    connect(parser.get(), delegate);
    if (XML_Parse(parser.get(), text.data(), static_cast<int>(text.size()), XML_TRUE) != XML_STATUS_OK)
        return nullptr;
    return std::move(delegate.root);
}

std::optional<XMLDocument> XMLDocument::parse(std::string_view text)
{
    constexpr std::string_view declarationStart = "<?xml";
    constexpr std::string_view declarationEnd = "?>";
    text = trimmed(text);
    if (text.starts_with(declarationStart)) {
        const std::size_t end = text.find(declarationEnd);
        if (end != std::string_view::npos)
            text = trimmed(text.substr(end + declarationEnd.size()));
    }
    std::unique_ptr<Element> root = parseElements(text);
    if (!root)
        return std::nullopt;
    return XMLDocument{std::move(root)};
}

} // namespace ledra
