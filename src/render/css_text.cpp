#include "render/css_text.h"

#include <cmath>

namespace ledra {

QString cssString(const QString& text)
{
    QString quoted = QStringLiteral("\"");
    for (const QChar c : text) {
        const bool plain = c.isLetterOrNumber() || c.isSurrogate() || QStringView(u" -_.,+&()").contains(c);
        quoted += plain ? QString(c) : u'\\' + QString::number(c.unicode(), 16) + u' ';
    }
    return quoted + u'"';
}

QString cssFontWeight(const QString& text)
{
    bool isNumber = false;
    const int weight = text.toInt(&isNumber);
    const bool valid = isNumber ? weight >= 1 && weight <= 1000 : text == u"normal" || text == u"bold";
    return valid ? text : QStringLiteral("400");
}

QString cssColor(const QString& text)
{
    QString color = QStringLiteral("#");
    for (const QChar c : text) {
        if (c.unicode() < 0x80 && c.isLetterOrNumber())
            color += c;
    }
    return color;
}

QString cssSheet(const QString& text)
{
    QString sheet = text;
    return sheet.replace(QStringLiteral("</"), QStringLiteral("<\\/")); // the same text to CSS, none to HTML
}

QString cssNumber(double value)
{
    const double rounded = std::round(value * 1000.0) / 1000.0;
    return QString::number(rounded, 'g', 12);
}

} // namespace ledra
