#pragma once

#include "render/invoice_document.h"
#include "support/sample_invoice.h"

#include <QRegularExpression>

/// What a document's HTML says, as short texts to compare.
namespace ledra::test {

inline const WebFontManager& fonts()
{
    static const WebFontManager manager;
    return manager;
}

inline DocumentSetting settingOf(const Styling& styling = {})
{
    DocumentSetting setting;
    setting.styling = styling;
    return setting;
}

inline QString measuringHtml(const Invoice& invoice, const DocumentSetting& setting = settingOf())
{
    return InvoiceDocument(invoice, setting, fonts()).measuringHtml();
}

/// The text between two markers; null when there is none.
inline QString between(const QString& html, const QString& before, const QString& after)
{
    const auto start = html.indexOf(before);
    const auto end = start < 0 ? -1 : html.indexOf(after, start + before.size());
    return end < 0 ? QString() : html.mid(start + before.size(), end - start - before.size());
}

/// In the order of the alphabet.
inline QString bodyClasses(const QString& html)
{
    QStringList classes = between(html, QStringLiteral("<body class=\""), QStringLiteral("\"")).split(u' ');
    classes.sort();
    return classes.join(u' ');
}

/// The rows of the main table's body, "class: cell | cell", tags inside cells left out but for line breaks.
inline QStringList tableRows(const QString& html)
{
    static const QRegularExpression row(QStringLiteral("<tr class=\"([^\"]*)\">(.*?)</tr>"),
                                        QRegularExpression::DotMatchesEverythingOption);
    static const QRegularExpression tag(QStringLiteral("<(?!br>|strong|/strong|em>|/em>)[^>]*>"));
    QString body = between(html, QStringLiteral("<table class=\"main-table\">"), QStringLiteral("</table>"));
    body = between(body, QStringLiteral("<tbody>"), QStringLiteral("</tbody>"));
    QStringList rows;
    for (auto match = row.globalMatch(body); match.hasNext();) {
        const QRegularExpressionMatch found = match.next();
        QString cells = found.captured(2);
        cells.replace(QStringLiteral("</td><td"), QStringLiteral("</td> | <td"));
        rows += found.captured(1) + QStringLiteral(": ") + cells.remove(tag).simplified();
    }
    return rows;
}

/// The meta table as "label=value" in order.
inline QString metaRows(const QString& html)
{
    static const QRegularExpression row(QStringLiteral("<tr>\\s*<th>(.*?)</th>\\s*<td>(.*?)</td>\\s*</tr>"));
    QStringList rows;
    const QString table = between(html, QStringLiteral("<table class=\"meta\">"), QStringLiteral("</table>"));
    for (auto match = row.globalMatch(table); match.hasNext();) {
        const QRegularExpressionMatch found = match.next();
        rows += found.captured(1) + u'=' + found.captured(2);
    }
    return rows.join(u';');
}

/// The heads of the item table, "class=label".
inline QString headCells(const QString& html)
{
    static const QRegularExpression cell(QStringLiteral("<th class=\"([^\"]*)\">(.*?)</th>"));
    QStringList cells;
    for (auto match = cell.globalMatch(html); match.hasNext();) {
        const QRegularExpressionMatch found = match.next();
        cells += found.captured(1) + u'=' + found.captured(2);
    }
    return cells.join(u';');
}

/// The lines of the totals, "label=amount", the closing one marked with "!".
inline QString totalLines(const QString& html)
{
    static const QRegularExpression line(
        QStringLiteral("<div class=\"line([^\"]*)\"><span class=\"label\">(.*?)</span><span "
                       "class=\"amount\">(.*?)</span></div>"));
    QStringList lines;
    for (auto match = line.globalMatch(html); match.hasNext();) {
        const QRegularExpressionMatch found = match.next();
        const bool closes = found.captured(1).contains(QStringLiteral("grand-total"));
        lines += found.captured(2) + u'=' + found.captured(3) + (closes ? QStringLiteral("!") : QString());
    }
    return lines.join(u';').replace(QChar::Nbsp, u'_');
}

inline Invoice oneItem(double price = 100, double vat = 19)
{
    Invoice invoice = test::sampleInvoice();
    invoice.items = {sampleItem(QStringLiteral("Work"), 2, Unit::day, price, vat)};
    return invoice;
}

} // namespace ledra::test
