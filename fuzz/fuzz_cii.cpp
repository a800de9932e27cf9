// Any bytes as a received e-invoice: shown, checked against the rules, and made a draft.
#include "einvoice/cii_rules.h"
#include "einvoice/viewer_html_generator.h"
#include "exchange/imported_draft.h"
#include "fixed_surroundings.h"
#include "store/invoice_json.h"

#include <cstdlib>

namespace {

using namespace ledra;

void show(const QByteArray& file, const Element& root, CountedIds& ids)
{
    const FixedClock clock;
    const auto opened = ViewerXMLParser(clock, ids).parse(QStringLiteral("invoice.xml"), file);
    if (!opened)
        std::abort(); // it is an e-invoice, as its root says
    for (const ViewerAppearance appearance : {ViewerAppearance::light, ViewerAppearance::dark}) {
        for (const Language language : {Language::english, Language::german}) {
            if (ViewerHTMLGenerator::html(*opened, {language, appearance}).isEmpty())
                std::abort();
        }
    }
    (void)statedDifferences(root, opened->viewer.invoice);
}

void makeDraft(const Element& root, CountedIds& ids)
{
    const Timestamp now = FixedClock().now();
    const Invoice draft = draftFrom(root, newInvoice(ids.newId(), now, Country()), ids);
    (void)decodeInvoice(encodeInvoiceForEmbedding(draft), {now, ids, QStringLiteral("DE")});
    (void)statedDifferences(root, draft);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray file = inputBytes(data, size);
    const auto received = openReceivedFile(file);
    if (!received)
        return 0;
    CountedIds ids;
    const Element& root = *received->document.root;
    show(file, root, ids);
    makeDraft(root, ids);
    (void)brokenRules(root);
    return 0;
}
