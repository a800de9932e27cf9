#include "model/html_text.h"

#include <QRegularExpression>

namespace ledra {

QString htmlEscaped(const QString& text)
{
    QString escaped = text;
    escaped.replace(u'&', QStringLiteral("&amp;"));
    escaped.replace(u'<', QStringLiteral("&lt;"));
    escaped.replace(u'>', QStringLiteral("&gt;"));
    escaped.remove(QChar::Null); // HTML has no way to write it
    return escaped;
}

QString attributeEscaped(const QString& text)
{
    return htmlEscaped(text).replace(u'"', QStringLiteral("&quot;"));
}

QStringList textLines(const QString& text)
{
    QString unified = text;
    unified.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    unified.replace(u'\r', u'\n');
    return unified.split(u'\n');
}

QString htmlLines(const QString& text)
{
    QStringList lines = textLines(text);
    for (QString& line : lines)
        line = htmlEscaped(line);
    return lines.join(QStringLiteral("<br>"));
}

QString inlineMarkdown(const QString& escaped)
{
    static const QRegularExpression bold(QStringLiteral(R"(\*\*([^*\n]+)\*\*)"));
    static const QRegularExpression italic(QStringLiteral(R"(\*([^*\n]+)\*)"));
    QString text = escaped;
    text.replace(bold, QStringLiteral("<strong>\\1</strong>"));
    text.replace(italic, QStringLiteral("<em>\\1</em>"));
    return text;
}

} // namespace ledra
