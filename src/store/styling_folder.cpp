#include "store/styling_folder.h"

#include "platform/file_io.h"

#include <QDir>
#include <QFileInfo>

namespace ledra {

namespace {

std::optional<QString> firstFile(const QString& folder, bool (*isOfKind)(const QString&))
{
    const QStringList names = QDir(folder).entryList(QDir::Files, QDir::Name);
    const auto found = std::ranges::find_if(names, isOfKind);
    return found == names.end() ? std::nullopt : std::optional(QDir(folder).filePath(*found));
}

QString imageType(const QString& extension)
{
    if (extension == u"png" || extension == u"webp")
        return QStringLiteral("image/") + extension;
    return QStringLiteral("image/jpeg");
}

} // namespace

bool isLogoFile(const QString& path)
{
    static const QStringList extensions = {QStringLiteral("svg"), QStringLiteral("png"),
                                           QStringLiteral("jpg"), QStringLiteral("jpeg"),
                                           QStringLiteral("webp")};
    return extensions.contains(QFileInfo(path).suffix().toLower());
}

bool isStyleSheetFile(const QString& path)
{
    return QFileInfo(path).suffix().toLower() == u"css";
}

QString logoContent(const QString& fileName, const QByteArray& bytes)
{
    const QString extension = QFileInfo(fileName).suffix().toLower();
    if (extension == u"svg")
        return QString::fromUtf8(bytes);
    return QStringLiteral("data:%1;base64,%2")
        .arg(imageType(extension), QString::fromLatin1(bytes.toBase64()));
}

LogoFile logoFile(const QString& content)
{
    const qsizetype comma = content.indexOf(u',');
    if (!content.startsWith(u"data:image/") || comma < 0)
        return {QStringLiteral("logo.svg"), content.toUtf8()};
    const QString type = content.section(u';', 0, 0).section(u'/', 1);
    return {QStringLiteral("logo.") + (type == u"jpeg" ? QStringLiteral("jpg") : type),
            QByteArray::fromBase64(QStringView(content).mid(comma + 1).toLatin1())};
}

void loadStylingAssets(Styling& styling, const QString& folder, Console& console)
{
    styling.logo.reset();
    styling.css.reset();
    if (const auto path = firstFile(folder, isLogoFile)) {
        if (const auto bytes = readFile(*path, largestLogo))
            styling.logo = logoContent(*path, *bytes);
        else
            console.failure(QStringLiteral("Error loading logo content: ") + bytes.error().text());
    }
    if (const auto path = firstFile(folder, isStyleSheetFile)) {
        if (const auto bytes = readFile(*path, largestStyleSheet))
            styling.css = QString::fromUtf8(*bytes);
        else
            console.failure(QStringLiteral("Error loading CSS content: ") + bytes.error().text());
    }
}

} // namespace ledra
