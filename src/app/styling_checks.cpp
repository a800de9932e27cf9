#include "app/styling_checks.h"

#include "platform/file_io.h"
#include "render/logo_markup.h"
#include "store/styling_folder.h"

#include <QBuffer>
#include <QFileInfo>
#include <QImageReader>
#include <QStringDecoder>

namespace ledra {

namespace {

/// Images come from anywhere, and a small file can unpack to a huge one.
std::optional<QString> imageProblem(const QString& name, QByteArray bytes)
{
    constexpr int longestSide = 8000;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer);
    const bool isWebp = bytes.startsWith("RIFF") && bytes.mid(8, 4) == "WEBP";
    if (!reader.canRead())
        return isWebp ? std::nullopt // Qt reads these only with a plug-in; the web engine always does
                      : std::optional(name + QStringLiteral(": is no image that can be read"));
    const QSize size = reader.size();
    if (size.width() > longestSide || size.height() > longestSide)
        return QStringLiteral("%1: is too large, with %2 × %3 pixels; %4 a side will do")
            .arg(name)
            .arg(size.width())
            .arg(size.height())
            .arg(longestSide);
    return std::nullopt;
}

} // namespace

std::optional<QString> logoProblem(const QString& path)
{
    if (!isLogoFile(path))
        return std::nullopt;
    const auto bytes = readFile(path, largestLogo);
    if (!bytes)
        return bytes.error().text();
    const QString name = QFileInfo(path).fileName();
    if (!path.endsWith(u".svg", Qt::CaseInsensitive))
        return imageProblem(name, *bytes);
    return safeSvg(QString::fromUtf8(*bytes), LogoAnchor::bottomLeft)
               ? std::nullopt
               : std::optional(name + QStringLiteral(": is no drawing that can be read"));
}

std::optional<QString> styleSheetProblem(const QString& path)
{
    if (!isStyleSheetFile(path))
        return std::nullopt;
    const auto bytes = readFile(path, largestStyleSheet);
    if (!bytes)
        return bytes.error().text();
    QStringDecoder decoder(QStringDecoder::Utf8);
    const QString text = decoder(*bytes);
    return decoder.hasError() || text.contains(QChar::Null)
               ? std::optional(QFileInfo(path).fileName() + QStringLiteral(": is no text in UTF-8"))
               : std::nullopt;
}

} // namespace ledra
