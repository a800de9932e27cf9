#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QString>

#include <initializer_list>

/// How data files look, written down once more for tests to compare with.
namespace ledra::test {

/// Now, as data files count it: in seconds since 2001.
inline qint64 secondsNow()
{
    return QDateTime(QDate(2001, 1, 1), QTime(0, 0), Qt::UTC).secsTo(QDateTime::currentDateTimeUtc());
}

/// A form with its "%1", "%2" … filled in; all of it is UTF-8.
inline QByteArray filled(const char* form, std::initializer_list<QByteArrayView> parts)
{
    QString text = QString::fromUtf8(form);
    for (const QByteArrayView part : parts)
        text = text.arg(QString::fromUtf8(part));
    return text.toUtf8();
}

/// JSON with a line for each member and two blanks for each level; objects and lists hold something.
inline QString pretty(const QByteArray& compact)
{
    QString text;
    int level = 0;
    bool isText = false;
    const auto newLine = [&](int change) { return u'\n' + QString((level += change) * 2, u' '); };
    const QString letters = QString::fromUtf8(compact);
    for (const QChar letter : letters) {
        isText ^= letter == u'"' && !text.endsWith(u'\\');
        if (!isText && (letter == u'}' || letter == u']'))
            text += newLine(-1);
        text += letter;
        if (!isText && (letter == u'{' || letter == u'['))
            text += newLine(1);
        else if (!isText && letter == u',')
            text += newLine(0);
        else if (!isText && letter == u':')
            text += u' ';
    }
    return text + u'\n';
}

} // namespace ledra::test
