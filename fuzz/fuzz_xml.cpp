// Any bytes as an XML file: what was read must be written so that it can be read again, and alike.
#include "einvoice/xml_document.h"
#include "einvoice/xml_encoding.h"
#include "einvoice/xml_text.h"
#include "fixed_surroundings.h"

#include <cstdio>
#include <cstdlib>

namespace {

using namespace ledra;

[[noreturn]] void fail(const char* what, const std::string& first, const std::string& second)
{
    std::fprintf(stderr, "%s\n--- first\n%s\n--- second\n%s\n", what, first.c_str(), second.c_str());
    std::abort();
}

/// Whether text stands beside elements somewhere, each of which is then written on a line of its own. No
/// e-invoice has that, and the white space around such text grows with every writing.
bool isMixed(const Element& element)
{
    bool hasText = false;
    bool hasElement = false;
    for (const Element::Child& child : element.children) {
        const auto* inner = std::get_if<std::unique_ptr<Element>>(&child);
        if (inner && isMixed(**inner))
            return true;
        hasElement |= inner && !(*inner)->isEmpty();
        hasText |= !inner && !isBlank(std::get<std::string>(child));
    }
    return hasText && hasElement;
}

void checkRewriting(const XMLDocument& document)
{
    const std::string written = document.serialise();
    const std::optional<XMLDocument> again = XMLDocument::parse(written);
    if (!again)
        fail("What was written cannot be read", written, {});
    const auto visible = [mixed = isMixed(*document.root)](std::string text) {
        if (mixed)
            std::erase_if(text, [](char c) { return c == ' ' || c == '\n' || c == '\t'; });
        return text;
    };
    if (const std::string rewritten = again->serialise(); visible(rewritten) != visible(written))
        fail("It is written differently the second time", written, rewritten);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::optional<std::string> text = decodeXml(inputBytes(data, size));
    const auto document = text ? XMLDocument::parse(*text) : std::nullopt;
    if (document && !document->root->isEmpty())
        checkRewriting(*document);
    return 0;
}
