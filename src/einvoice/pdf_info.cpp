#include "einvoice/pdf_info.h"

#include <QString>

namespace ledra {

namespace {

// A file has this many objects at most (ISO 32000-1, annex C). What is appended counts on from their number.
constexpr std::int64_t mostObjects = 8'388'607;

bool isSpace(char c)
{
    return c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == '\f' || c == '\0';
}

/// The whole number that begins at a place, behind white space; nothing where there is none.
std::optional<std::int64_t> numberAt(QByteArrayView text, qsizetype at)
{
    while (at < text.size() && isSpace(text[at]))
        ++at;
    qsizetype end = at;
    while (end < text.size() && text[end] >= '0' && text[end] <= '9')
        ++end;
    bool isNumber = false;
    const qlonglong number = text.sliced(at, end - at).toByteArray().toLongLong(&isNumber);
    return isNumber ? std::optional<std::int64_t>(number) : std::nullopt;
}

std::optional<std::int64_t> numberBehind(QByteArrayView text, const char* word)
{
    const qsizetype at = text.indexOf(word);
    return at < 0 ? std::nullopt : numberAt(text, at + static_cast<qsizetype>(qstrlen(word)));
}

/// The end of a string that begins at a place; the place of the closing parenthesis or the text's end.
qsizetype endOfString(QByteArrayView text, qsizetype at)
{
    int depth = 0;
    for (; at < text.size(); ++at) {
        if (text[at] == '\\')
            ++at;
        else if (text[at] == '(')
            ++depth;
        else if (text[at] == ')' && --depth == 0)
            break;
    }
    return at;
}

/// The inside of the dictionary that begins next, nested ones and strings included.
std::optional<QByteArrayView> dictionaryBehind(QByteArrayView text, qsizetype at)
{
    const qsizetype open = text.indexOf("<<", at);
    if (open < 0)
        return std::nullopt;
    int depth = 0;
    for (qsizetype i = open; i + 1 < text.size(); ++i) {
        const QByteArrayView pair = text.sliced(i, 2);
        if (pair[0] == '(') {
            i = endOfString(text, i);
        } else if (pair == "<<") {
            ++depth;
            ++i;
        } else if (pair == ">>") {
            if (--depth == 0)
                return text.sliced(open + 2, i - open - 2);
            ++i;
        } else if (pair[0] == '<') { // a hexadecimal string, whose end may touch that of the dictionary
            i = std::max(i, text.indexOf('>', i));
        }
    }
    return std::nullopt;
}

/// The place that the cross-reference section at an offset gives for an object; nothing when it has none.
std::optional<qsizetype> crossReferenceOf(QByteArrayView pdf, qsizetype section, std::int64_t object)
{
    constexpr qsizetype entryLength = 20;
    constexpr QByteArrayView keyword = "xref";
    if (section < 0 || section > pdf.size() || !pdf.sliced(section).startsWith(keyword))
        return std::nullopt;
    const auto first = numberAt(pdf, section + keyword.size());
    const qsizetype entries =
        pdf.indexOf('\n', pdf.indexOf('\n', section) + 1) + 1; // behind "xref" and "0 N"
    if (entries <= 0 || first.value_or(-1) != 0 || object > pdf.size() / entryLength)
        return std::nullopt;
    const qsizetype entry = entries + static_cast<qsizetype>(object) * entryLength;
    return entry + entryLength <= pdf.size() ? numberAt(pdf, entry) : std::nullopt;
}

/// Where the object of a number begins, behind its header. Stream data may look like a header, so the
/// cross-reference section is asked first; then the last header at the beginning of a line counts.
std::optional<qsizetype> objectBehind(QByteArrayView pdf, const qsizetype section, std::int64_t number)
{
    const QByteArray header = QByteArray::number(static_cast<qlonglong>(number)) + " 0 obj";
    const qsizetype known = crossReferenceOf(pdf, section, number).value_or(-1);
    if (known >= 0 && known < pdf.size() && pdf.sliced(known).startsWith(header))
        return known + header.size();
    for (qsizetype at = pdf.lastIndexOf(header); at >= 0;
         at = at > 0 ? pdf.lastIndexOf(header, at - 1) : -1) {
        if (at == 0 || pdf[at - 1] == '\n' || pdf[at - 1] == '\r')
            return at + header.size();
    }
    return std::nullopt;
}

} // namespace

std::optional<PDFInfo> readPdfInfo(const QByteArray& pdf)
{
    const QByteArrayView all(pdf);
    const qsizetype startxref = all.lastIndexOf("startxref");
    const qsizetype trailer = all.lastIndexOf("trailer");
    if (startxref < 0 || trailer < 0)
        return std::nullopt;
    const std::optional<QByteArrayView> entries = dictionaryBehind(all, trailer);
    if (!entries)
        return std::nullopt;
    const auto offset = numberAt(all, startxref + static_cast<qsizetype>(qstrlen("startxref")));
    const auto root = numberBehind(*entries, "/Root");
    const auto size = numberBehind(*entries, "/Size");
    const auto catalog = root && offset ? objectBehind(all, *offset, *root) : std::nullopt;
    const auto body = catalog ? dictionaryBehind(all, *catalog) : std::nullopt;
    if (!offset || !size || *size > mostObjects || !body)
        return std::nullopt;
    return PDFInfo{*root, *size, *offset, body->toByteArray()};
}

} // namespace ledra
