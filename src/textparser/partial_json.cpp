#include "textparser/partial_json.h"

#include <QJsonDocument>
#include <QJsonObject>

namespace ledra {

namespace {

constexpr qsizetype escapeLength = 6; // \u00e9
constexpr qsizetype deepest = 64;     // levels; an invoice has four

/// The position behind the text that begins at `start`; -1 when it does not end.
qsizetype endOfText(QStringView json, qsizetype start)
{
    for (qsizetype i = start + 1; i < json.size(); ++i) {
        if (json[i] == u'\\')
            ++i;
        else if (json[i] == u'"')
            return i + 1;
    }
    return -1;
}

/// The position behind the last letter of an unfinished text that has arrived as a whole, with escapes and
/// surrogate pairs.
qsizetype endOfLetters(QStringView json, qsizetype start)
{
    qsizetype end = start + 1;
    for (qsizetype i = end; i < json.size();) {
        const bool isEscape = json[i] == u'\\';
        const bool isCode = isEscape && json.mid(i + 1, 1) == u"u";
        i += isCode ? escapeLength : isEscape ? 2 : 1;
        const bool isHalf = (isCode && json.mid(i - 4, 2).compare(u"d8", Qt::CaseInsensitive) >= 0 &&
                             json.mid(i - 4, 2).compare(u"dc", Qt::CaseInsensitive) < 0) ||
                            json[qMin(i, json.size()) - 1].isHighSurrogate();
        if (i <= json.size() && !isHalf)
            end = i;
    }
    return end;
}

/// Follows the brackets of an object from its first one on.
class Brackets
{
public:
    /// Takes in the character at a position outside texts.
    void take(QChar letter, qsizetype position)
    {
        if (letter == u'{' || letter == u'[') {
            closing_.prepend(letter == u'{' ? u'}' : u']');
            expectsKey_ = letter == u'{';
            markWhole(position + 1);
        } else if (letter == u'}' || letter == u']') {
            closing_.remove(0, 1);
            expectsKey_ = false;
            markWhole(position + 1);
        } else if (letter == u',') {
            markWhole(position); // whatever stood before the comma is whole
            expectsKey_ = closing_.startsWith(u'}');
        } else if (letter == u':') {
            expectsKey_ = false;
        }
    }

    /// Everything up to here would be whole with the brackets closed.
    void markWhole(qsizetype position)
    {
        whole_ = position;
        closingWhole_ = closing_;
    }

    bool isClosed() const { return closing_.isEmpty(); }
    bool expectsKey() const { return expectsKey_; }
    const QString& closing() const { return closing_; }
    QString closed(QStringView json) const { return json.left(whole_).toString() + closingWhole_; }

private:
    QString closing_; ///< what closes the open brackets, innermost first
    bool expectsKey_ = false;
    qsizetype whole_ = 0;
    QString closingWhole_;
};

/// The object that begins at the start of a text, closed if need be, and whether it had to be.
struct Completed
{
    QString json;
    bool isWhole = false;
};

Completed completedAtStart(QStringView json)
{
    Brackets brackets;
    for (qsizetype i = 0; i < json.size(); ++i) {
        if (json[i] != u'"') {
            brackets.take(json[i], i);
            if (brackets.closing().size() > deepest)
                return {};
            if (brackets.isClosed())
                return {json.left(i + 1).toString(), true};
            continue;
        }
        const qsizetype end = endOfText(json, i);
        if (end < 0 && brackets.expectsKey())
            break;
        if (end < 0)
            return {json.left(endOfLetters(json, i)).toString() + u'"' + brackets.closing(), false};
        if (!brackets.expectsKey())
            brackets.markWhole(end);
        i = end - 1;
    }
    return {brackets.closed(json), false};
}

} // namespace

QString objectWithin(const QString& text)
{
    for (qsizetype start = text.indexOf(u'{'); start >= 0; start = text.indexOf(u'{', start)) {
        const Completed found = completedAtStart(QStringView(text).mid(start));
        if (!found.isWhole)
            break;
        if (QJsonDocument::fromJson(found.json.toUtf8()).isObject())
            return found.json;
        start += found.json.size();
    }
    return {};
}

QString completedObject(const QString& beginning)
{
    const qsizetype start = beginning.indexOf(u'{');
    return start < 0 ? QString() : completedAtStart(QStringView(beginning).mid(start)).json;
}

} // namespace ledra
