#include "store/styling_folder.h"

#include "platform/file_io.h"

#include <QDir>
#include <QFileInfo>

namespace ledra {

namespace {

constexpr qint64 largestLogo = qint64{8} * 1024 * 1024;
constexpr qint64 largestStyleSheet = qint64{1} * 1024 * 1024;

std::optional<QString> firstFile(const QString& folder, const QStringList& extensions)
{
    const QStringList names = QDir(folder).entryList(QDir::Files, QDir::Name);
    for (const QString& name : names) {
        if (extensions.contains(QFileInfo(name).suffix().toLower()))
            return QDir(folder).filePath(name);
    }
    return std::nullopt;
}

QString imageType(const QString& extension)
{
    if (extension == u"png" || extension == u"webp")
        return QStringLiteral("image/") + extension;
    return QStringLiteral("image/jpeg");
}

} // namespace

QString logoContent(const QString& fileName, const QByteArray& bytes)
{
    const QString extension = QFileInfo(fileName).suffix().toLower();
    if (extension == u"svg")
        return QString::fromUtf8(bytes);
    return QStringLiteral("data:%1;base64,%2")
        .arg(imageType(extension), QString::fromLatin1(bytes.toBase64()));
}

void loadStylingAssets(Styling& styling, const QString& folder, Console& console)
{
    const QStringList logoExtensions = {QStringLiteral("svg"), QStringLiteral("png"), QStringLiteral("jpg"),
                                        QStringLiteral("jpeg"), QStringLiteral("webp")};
    styling.logo.reset();
    styling.css.reset();
    if (const auto path = firstFile(folder, logoExtensions)) {
        if (const auto bytes = readFile(*path, largestLogo))
            styling.logo = logoContent(*path, *bytes);
        else
            console.failure(QStringLiteral("Error loading logo content: ") + bytes.error().text());
    }
    if (const auto path = firstFile(folder, {QStringLiteral("css")})) {
        if (const auto bytes = readFile(*path, largestStyleSheet))
            styling.css = QString::fromUtf8(*bytes);
        else
            console.failure(QStringLiteral("Error loading CSS content: ") + bytes.error().text());
    }
}

} // namespace ledra
