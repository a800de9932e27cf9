#include "app/received_attachments.h"

#include "app/export_sources.h"
#include "einvoice/received_file.h"
#include "platform/file_io.h"

#include <QFileInfo>

#include <algorithm>
#include <array>

namespace ledra {

namespace {

/// A kind of document that only shows something.
struct SafeKind
{
    QStringView suffix;
    QByteArrayView start; ///< of the file; empty for plain text
};

constexpr std::array safeKinds = {
    SafeKind{u"pdf", "%PDF-"},
    SafeKind{u"png", "\x89PNG\r\n"},
    SafeKind{u"jpg", "\xff\xd8\xff"},
    SafeKind{u"jpeg", "\xff\xd8\xff"},
    SafeKind{u"csv", ""},
    SafeKind{u"txt", ""},
    SafeKind{u"xlsx", "PK\x03\x04"},
    SafeKind{u"ods", "PK\x03\x04"},
};

const SafeKind* kindOf(const QString& name)
{
    const QString suffix = QFileInfo(attachmentFileName(name)).suffix().toLower();
    const auto kind = std::ranges::find(safeKinds, suffix, &SafeKind::suffix);
    return kind == safeKinds.end() ? nullptr : &*kind;
}

/// Text that no system takes for a script or a program.
bool isPlainText(const QByteArray& content)
{
    return !content.startsWith("#!") && !content.contains('\0');
}

bool isPlainLetter(QChar letter)
{
    switch (letter.category()) {
    case QChar::Other_Control:
    case QChar::Other_Format: // among them those that turn the direction of reading
    case QChar::Other_PrivateUse:
    case QChar::Other_NotAssigned:
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph:
        return false;
    default:
        return true;
    }
}

} // namespace

std::optional<QByteArray> receivedAttachment(const QString& path, const QString& name)
{
    const std::expected<QByteArray, FileError> content = readFile(path, largestReceivedFile);
    return content ? attachedFile(*content, name) : std::nullopt;
}

QString attachmentFileName(const QString& name)
{
    constexpr qsizetype longest = 80; // letters, so that any file system has room for them
    QString last = name.sliced(std::max(name.lastIndexOf(u'/'), name.lastIndexOf(u'\\')) + 1);
    last.removeIf([](QChar letter) { return !isPlainLetter(letter); });
    const QString safe = fileNameOf(last);
    if (safe.size() <= longest)
        return safe;
    const QString suffix = QFileInfo(safe).suffix().left(longest / 4);
    return suffix.isEmpty() ? safe.left(longest)
                            : safe.left(longest - suffix.size() - 1).trimmed() + u'.' + suffix;
}

bool isOpenableName(const QString& name)
{
    return kindOf(name) != nullptr;
}

bool mayBeOpened(const QString& name, const QByteArray& content)
{
    const SafeKind* kind = kindOf(name);
    return kind && (kind->start.isEmpty() ? isPlainText(content) : content.startsWith(kind->start));
}

} // namespace ledra
