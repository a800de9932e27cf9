#pragma once

#include "einvoice/viewer_xml_parser.h"
#include "model/enumerations.h"

namespace ledra {

enum class ViewerAppearance { light, dark };

/// How a received invoice is shown.
struct ViewerSetting
{
    Language language = Language::english; ///< the reader's
    ViewerAppearance appearance = ViewerAppearance::light;
};

/// "Invoice", or "Credit Note" for its type code, in a language.
QString viewerTitle(const ViewerInvoice& invoice, Language language);

/// Shows a received invoice as a page of HTML that needs nothing else. All texts of the file are shown as
/// text.
class ViewerHTMLGenerator
{
public:
    static QString html(const OpenedEInvoice& opened, const ViewerSetting& setting);

    /// The same with a template of the caller's; nothing stands for one that is missing.
    static QString html(const OpenedEInvoice& opened, const ViewerSetting& setting,
                        const std::optional<QString>& templateText);
};

} // namespace ledra
