#pragma once

#include "model/invoice.h"
#include "model/styling.h"
#include "model/template_text.h"
#include "render/paginated_document.h"
#include "render/style_sheet.h"

namespace ledra {

/// What every letter has around its content: the frame of a page, filled once for a document.
struct LetterFrame
{
    Language language = Language::english;
    QString title;            ///< of the document as a file
    QString headline;         ///< "Invoice", "Quote", …
    QString runningTitle;     ///< headline and number, at the foot of documents of several pages
    QString paymentPeriod;    ///< HTML
    QString exemption;        ///< the VAT exemption's sentence
    QStringList stateClasses; ///< body classes of the whole document
};

/// One page of a letter.
struct LetterPage
{
    PagePosition position = PagePosition::single;
    bool isMeasuring = false;
    bool isUnmeasured = false; ///< may grow over several sheets
    QStringList stateClasses;
    QString content; ///< HTML
};

/// Fills the shell template of a letter whose sender and recipient an invoice names.
class DocumentShell
{
public:
    DocumentShell(const Invoice& invoice, const Styling& styling, ColorScheme scheme,
                  const WebFontManager& fonts, LetterFrame frame);

    QString page(const LetterPage& page) const;

    /// Space for the logo at the top of every page after the first, in pixels.
    double continuationOffset(const Styling& styling, double rem) const;

    /// The page that stands in for a template that could not be loaded.
    static QString errorPage(const QString& reason);

private:
    TemplateValues values_;
    LetterFrame frame_;
    QString shell_; ///< the template with the style sheet in place
    bool hasLogo_ = false;
    QString error_; ///< why the template could not be loaded
};

} // namespace ledra
