#include "render/document_shell.h"

#include "model/document_labels.h"
#include "model/html_text.h"
#include "model/postal_address.h"
#include "render/css_text.h"
#include "render/document_address.h"
#include "render/logo_markup.h"
#include "render/templates.h"

#include <array>

namespace ledra {

namespace {

constexpr QStringView sheetLink = u"<link rel=\"stylesheet\" href=\"Template.css\">";

QString contentSecurityPolicy()
{
    return QStringLiteral("default-src 'none'; style-src 'unsafe-inline'; img-src data:; font-src data: %1:")
        .arg(QString::fromLatin1(documentScheme));
}

QString positionClass(PagePosition position)
{
    constexpr std::array<QStringView, 4> names = {u"page-single", u"page-first", u"page-middle",
                                                  u"page-last"};
    return names.at(static_cast<std::size_t>(position)).toString();
}

QString htmlOfLines(QStringList lines)
{
    lines.removeAll(QString());
    for (QString& line : lines)
        line = htmlLines(line);
    return lines.join(QStringLiteral("<br>"));
}

/// A web address, or a part of one, that may break before its dots.
QString dottedHtml(const QString& text)
{
    return htmlEscaped(text).replace(u'.', QStringLiteral("<wbr>."));
}

/// An e-mail address that breaks after the "@" first: the domain keeps together while a line can hold it.
QString emailHtml(const QString& email)
{
    const qsizetype domain = email.indexOf(u'@') + 1;
    if (domain == 0)
        return dottedHtml(email);
    return dottedHtml(email.left(domain)) +
           QStringLiteral("<span class=\"domain\">%1</span>").arg(dottedHtml(email.mid(domain)));
}

QString recipientHtml(const Invoice& invoice, Language language)
{
    QStringList lines = recipientAddress(invoice).lines();
    if (invoice.addressCountry != invoice.senderAddressCountry)
        lines += invoice.addressCountry.displayName(language).toUpper(); // DIN 5008: last line, in capitals
    QString html;
    for (const QString& line : lines)
        html += QStringLiteral("<div>%1</div>").arg(htmlEscaped(line));
    return html;
}

/// One line above the recipient, small enough for the window of an envelope.
QString addressRow(const Invoice& invoice)
{
    const PostalAddress sender = senderAddress(invoice);
    QStringList parts = {sender.firstName(), sender.lineOne};
    parts += sender.placeLines();
    parts.removeAll(QString());
    return htmlEscaped(parts.join(QStringLiteral(" · ")));
}

/// Two groups: who and where, and how to reach.
QString addressBlock(const Invoice& invoice, Language language)
{
    const PostalAddress sender = senderAddress(invoice);
    QStringList where = sender.lines();
    const QString first = where.isEmpty() ? QString() : where.takeFirst();
    if (invoice.addressCountry != invoice.senderAddressCountry)
        where += invoice.senderAddressCountry.displayName(language);
    QString who = first.isEmpty() ? QString() : QStringLiteral("<b>%1</b>").arg(htmlEscaped(first));
    if (!where.isEmpty())
        who += (who.isEmpty() ? QString() : QStringLiteral("<br>")) + htmlOfLines(where);
    QStringList reach = {htmlEscaped(invoice.senderPhone), emailHtml(invoice.senderEmail),
                         dottedHtml(invoice.senderWeb), htmlLines(invoice.senderAdditional)};
    reach.removeAll(QString());
    return QStringLiteral("<div class=\"group\">%1</div><div class=\"group\">%2</div>")
        .arg(who, reach.join(QStringLiteral("<br>")));
}

/// In groups of four, as banks print it.
QString ibanText(const QString& iban)
{
    QString bare = iban;
    bare.removeIf([](QChar c) { return c.isSpace(); });
    for (qsizetype i = 4; i < bare.size(); i += 5)
        bare.insert(i, u' ');
    return bare;
}

QString wrapped(const QString& pattern, const QString& text)
{
    return text.isEmpty() ? QString() : pattern.arg(htmlEscaped(text));
}

void addSender(TemplateValues& values, const Invoice& invoice, const Styling& styling, Language language)
{
    const bool hasBank = !invoice.senderIban.isEmpty() || !invoice.senderBic.isEmpty();
    const bool hasTax = !invoice.senderTaxNumber.isEmpty();
    const QString vatLabel = htmlEscaped(documentLabel(QStringLiteral("VAT Number"), language));
    values.insert(QStringLiteral("address-row"), styling.addressLine ? addressRow(invoice) : QString());
    values.insert(QStringLiteral("recipient-address"), recipientHtml(invoice, language));
    values.insert(QStringLiteral("address-block"), addressBlock(invoice, language));
    values.insert(QStringLiteral("banking-label"),
                  hasBank ? documentLabel(QStringLiteral("Bank Details"), language) : QString());
    values.insert(QStringLiteral("iban"),
                  wrapped(QStringLiteral("<dd>%1</dd>"), ibanText(invoice.senderIban)));
    values.insert(QStringLiteral("bic"),
                  wrapped(QStringLiteral("<dd><span class=\"label\">BIC</span> %1</dd>"), invoice.senderBic));
    values.insert(QStringLiteral("tax-label"),
                  hasTax ? documentLabel(QStringLiteral("Tax Number"), language) : QString());
    values.insert(QStringLiteral("tax-number"), htmlEscaped(invoice.senderTaxNumber));
    values.insert(QStringLiteral("vat-number"),
                  wrapped(QStringLiteral("<dt>") + vatLabel + QStringLiteral("</dt><dd>%1</dd>"),
                          invoice.senderVatNumber));
    values.insert(QStringLiteral("additional-numbers"), htmlLines(invoice.senderAdditionalNumbers));
    values.insert(QStringLiteral("marginal-note"), htmlLines(invoice.marginalNote));
}

QString pageNumberText(Language language)
{
    return documentLabel(QStringLiteral("Page Number"), language,
                         {{QStringLiteral("page"), pageNumberMarker.toString()},
                          {QStringLiteral("pages"), pageCountMarker.toString()}});
}

} // namespace

DocumentShell::DocumentShell(const Invoice& invoice, const Styling& styling, ColorScheme scheme,
                             const WebFontManager& fonts, LetterFrame frame)
    : frame_(std::move(frame))
{
    const std::expected<QString, QString> shell = templateText(QStringLiteral("Shell.html"));
    if (!shell) {
        error_ = shell.error();
        return;
    }
    shell_ = *shell;
    const QString logo =
        logoMarkup(styling.logo, styling.marginalColumn ? LogoAnchor::bottomLeft : LogoAnchor::bottomRight);
    hasLogo_ = !logo.isEmpty();
    if (styling.marginalColumn)
        frame_.stateClasses += QStringLiteral("has-sidebar");
    else if (hasLogo_)
        frame_.stateClasses += QStringLiteral("has-footer-logo");

    addSender(values_, invoice, styling, frame_.language);
    // The sheet is a value like the others, so that nothing in it is taken for a placeholder of the shell.
    shell_.replace(sheetLink.toString(), QStringLiteral("<style>{{style-sheet}}</style>"));
    values_.insert(QStringLiteral("style-sheet"), makeStyleSheet(styling, scheme, fonts));
    values_.insert(QStringLiteral("custom-css"), cssSheet(styling.css.value_or(QString())));
    values_.insert(QStringLiteral("content-security-policy"), contentSecurityPolicy());
    values_.insert(QStringLiteral("language"), QString::fromLatin1(rawValue(frame_.language).data()));
    values_.insert(QStringLiteral("title"), htmlEscaped(frame_.title));
    values_.insert(QStringLiteral("logo"), logo);
    values_.insert(QStringLiteral("page-headline"),
                   styling.pageHeadline ? htmlEscaped(frame_.headline) : QString());
    values_.insert(QStringLiteral("payment-period"), frame_.paymentPeriod);
    values_.insert(QStringLiteral("vat-exemption-annotation"), htmlEscaped(frame_.exemption));
}

QString DocumentShell::page(const LetterPage& page) const
{
    if (!error_.isEmpty())
        return errorPage(error_);
    QStringList classes = {positionClass(page.position)};
    if (page.isMeasuring)
        classes += QStringLiteral("measuring");
    classes += frame_.stateClasses;
    classes += page.stateClasses;

    TemplateValues values = values_;
    const bool isNumbered = page.position != PagePosition::single;
    values.insert(QStringLiteral("body-class"), classes.join(u' '));
    values.insert(QStringLiteral("root-class"), page.isUnmeasured ? QStringLiteral("unmeasured") : QString());
    values.insert(QStringLiteral("content"), page.content);
    values.insert(QStringLiteral("running-title"), isNumbered ? htmlEscaped(frame_.runningTitle) : QString());
    values.insert(QStringLiteral("page-number"), isNumbered ? pageNumberText(frame_.language) : QString());
    return filledTemplate(shell_, values);
}

double DocumentShell::continuationOffset(const Styling& styling, double rem) const
{
    const bool hasLogoOnTop = !styling.marginalColumn && hasLogo_;
    return hasLogoOnTop ? rem * (styling.logoSize + 1) : 0;
}

QString DocumentShell::errorPage(const QString& reason)
{
    return QStringLiteral("<h1>Error Loading Template</h1><p>%1</p>").arg(htmlEscaped(reason));
}

} // namespace ledra
