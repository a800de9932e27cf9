#include "ui/styling/face_name.h"

#include <QCoreApplication>
#include <QStringList>

#include <algorithm>
#include <array>

namespace ledra {

namespace {

// Names of two words stand before those of one.
constexpr std::array names = {
    QT_TRANSLATE_NOOP("FontFaces", "Extra Light"),    QT_TRANSLATE_NOOP("FontFaces", "Ultra Light"),
    QT_TRANSLATE_NOOP("FontFaces", "Semi Condensed"), QT_TRANSLATE_NOOP("FontFaces", "Semi Bold"),
    QT_TRANSLATE_NOOP("FontFaces", "Demi Bold"),      QT_TRANSLATE_NOOP("FontFaces", "Extra Bold"),
    QT_TRANSLATE_NOOP("FontFaces", "Ultra Bold"),     QT_TRANSLATE_NOOP("FontFaces", "Thin"),
    QT_TRANSLATE_NOOP("FontFaces", "Light"),          QT_TRANSLATE_NOOP("FontFaces", "Regular"),
    QT_TRANSLATE_NOOP("FontFaces", "Book"),           QT_TRANSLATE_NOOP("FontFaces", "Medium"),
    QT_TRANSLATE_NOOP("FontFaces", "Semibold"),       QT_TRANSLATE_NOOP("FontFaces", "Bold"),
    QT_TRANSLATE_NOOP("FontFaces", "Heavy"),          QT_TRANSLATE_NOOP("FontFaces", "Black"),
    QT_TRANSLATE_NOOP("FontFaces", "Italic"),         QT_TRANSLATE_NOOP("FontFaces", "Oblique"),
    QT_TRANSLATE_NOOP("FontFaces", "Condensed"),
};

/// How many words of a name that stand at the beginning; 0 when they are others.
qsizetype wordsAtBeginning(const QStringList& words, const char* name)
{
    const QStringList wanted = QString::fromLatin1(name).split(u' ');
    const bool fits =
        words.size() >= wanted.size() &&
        std::ranges::equal(words.first(wanted.size()), wanted, [](const QString& word, const QString& each) {
            return word.compare(each, Qt::CaseInsensitive) == 0;
        });
    return fits ? wanted.size() : 0;
}

} // namespace

QString faceName(const QString& displayName)
{
    QStringList words = displayName.split(u' ', Qt::SkipEmptyParts);
    QStringList told;
    while (!words.isEmpty()) {
        const auto* known =
            std::ranges::find_if(names, [&](const char* name) { return wordsAtBeginning(words, name) > 0; });
        const bool isKnown = known != names.end();
        told += isKnown ? QCoreApplication::translate("FontFaces", *known) : words.front();
        words.remove(0, isKnown ? wordsAtBeginning(words, *known) : 1);
    }
    return told.join(u' ');
}

} // namespace ledra
