#include "render/logo_markup.h"

#include "model/html_text.h"
#include "render/css_text.h"

#include <QXmlStreamReader>

#include <algorithm>
#include <array>

namespace ledra {

namespace {

/// Elements that draw, group, paint or describe; everything else is left out with all that it holds.
constexpr std::array<QStringView, 36> drawingElements = {
    u"svg",         u"g",       u"defs",           u"symbol",         u"use",
    u"switch",      u"title",   u"desc",           u"path",           u"rect",
    u"circle",      u"ellipse", u"line",           u"polyline",       u"polygon",
    u"text",        u"tspan",   u"textPath",       u"image",          u"clipPath",
    u"mask",        u"pattern", u"marker",         u"linearGradient", u"radialGradient",
    u"stop",        u"style",   u"filter",         u"feBlend",        u"feColorMatrix",
    u"feComposite", u"feFlood", u"feGaussianBlur", u"feMerge",        u"feMergeNode",
    u"feOffset",
};

bool isDrawing(QStringView name)
{
    return std::ranges::find(drawingElements, name) != drawingElements.end();
}

/// Inline in HTML, attribute names are read without regard to case.
bool isReference(QStringView name)
{
    const auto is = [name](QStringView other) { return name.compare(other, Qt::CaseInsensitive) == 0; };
    return is(u"href") || is(u"xlink:href") || is(u"src");
}

/// Inside the file, or an embedded image.
bool isHarmlessReference(QStringView value)
{
    const QStringView trimmed = value.trimmed();
    return trimmed.startsWith(u'#') || trimmed.startsWith(u"data:image/");
}

bool isKept(const QXmlStreamAttribute& attribute)
{
    const QStringView name = attribute.qualifiedName();
    if (name.startsWith(u"on", Qt::CaseInsensitive) ||
        name.compare(u"preserveAspectRatio", Qt::CaseInsensitive) == 0)
        return false;
    return !isReference(name) || isHarmlessReference(attribute.value());
}

QString attributeText(QStringView name, const QString& value)
{
    return u' ' + name.toString() + QStringLiteral("=\"") + attributeEscaped(value) + u'"';
}

/// A drawing that only says how large it is gets a view box of that size, so that it scales instead of being
/// cut.
QString viewBoxFor(const QXmlStreamAttributes& attributes)
{
    if (attributes.hasAttribute(QStringLiteral("viewBox")))
        return {};
    const auto length = [&](const QString& name) {
        QString text = attributes.value(name).toString();
        return text.remove(QStringLiteral("px")).trimmed().toDouble();
    };
    const double width = length(QStringLiteral("width"));
    const double height = length(QStringLiteral("height"));
    if (width <= 0 || height <= 0)
        return {};
    return attributeText(u"viewBox", QStringLiteral("0 0 %1 %2").arg(cssNumber(width), cssNumber(height)));
}

class SvgRewriter
{
public:
    SvgRewriter(const QString& markup, LogoAnchor anchor) : reader_(markup), anchor_(anchor)
    {
        reader_.setNamespaceProcessing(false);
    }

    std::optional<QString> rewritten()
    {
        while (!reader_.atEnd()) {
            const auto token = reader_.readNext();
            if (token == QXmlStreamReader::StartElement)
                startElement();
            else if (token == QXmlStreamReader::EndElement)
                markup_ += QStringLiteral("</") + reader_.qualifiedName().toString() + u'>';
            else if (token == QXmlStreamReader::Characters)
                markup_ += htmlEscaped(reader_.text().toString());
        }
        const bool isSvg = markup_.startsWith(QStringLiteral("<svg"));
        return reader_.hasError() || !isSvg ? std::nullopt : std::optional(markup_);
    }

private:
    void startElement()
    {
        const QString name = reader_.qualifiedName().toString();
        if (!isDrawing(name)) {
            reader_.skipCurrentElement();
            return;
        }
        const bool isRoot = markup_.trimmed().isEmpty();
        if (isRoot)
            markup_.clear();
        markup_ += u'<' + name;
        const QXmlStreamAttributes attributes = reader_.attributes();
        for (const QXmlStreamAttribute& attribute : attributes) {
            if (isKept(attribute))
                markup_ += attributeText(attribute.qualifiedName(), attribute.value().toString());
        }
        if (isRoot) {
            markup_ += viewBoxFor(attributes);
            markup_ += attributeText(u"preserveAspectRatio", anchor_ == LogoAnchor::bottomLeft
                                                                 ? QStringLiteral("xMinYMax")
                                                                 : QStringLiteral("xMaxYMax"));
        }
        markup_ += u'>';
    }

    QXmlStreamReader reader_;
    LogoAnchor anchor_;
    QString markup_;
};

} // namespace

std::optional<QString> safeSvg(const QString& markup, LogoAnchor anchor)
{
    return SvgRewriter(markup, anchor).rewritten();
}

QString logoMarkup(const std::optional<QString>& logo, LogoAnchor anchor)
{
    if (!logo || logo->trimmed().isEmpty())
        return {};
    QString content;
    if (logo->startsWith(QStringLiteral("data:image/")))
        content = QStringLiteral("<img alt=\"\" src=\"%1\">").arg(attributeEscaped(*logo));
    else
        content = safeSvg(*logo, anchor).value_or(QString());
    return content.isEmpty() ? QString() : QStringLiteral("<div class='logo'>%1</div>").arg(content);
}

} // namespace ledra
