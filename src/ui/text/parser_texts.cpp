#include "ui/text/parser_texts.h"

#include "ui/look/known_sentences.h"

#include <QCoreApplication>

#include <array>

namespace ledra {

namespace {

constexpr const char* context = "TextParser";

/// What an error says, with places for what it says it of.
struct Sentence
{
    const char* text;
    bool hasReason = false; ///< the last place holds a sentence in turn
};

// A line is told by the first sentence that it fits.
constexpr std::array sentences = {
    Sentence{QT_TRANSLATE_NOOP("TextParser", "the model’s answer cannot be used: %1"), true},
    Sentence{QT_TRANSLATE_NOOP("TextParser", "the model server answered with status %1: %2"), true},
    Sentence{QT_TRANSLATE_NOOP("TextParser", "the model server reports an error: %1"), true},
    Sentence{QT_TRANSLATE_NOOP("TextParser", "no reason given")},
    Sentence{QT_TRANSLATE_NOOP("TextParser", "the model server sent something that is not valid JSON")},
    Sentence{QT_TRANSLATE_NOOP("TextParser", "the model’s answer is not valid JSON")},
    Sentence{QT_TRANSLATE_NOOP("TextParser", "the model’s answer holds no JSON")},
    Sentence{QT_TRANSLATE_NOOP("TextParser", "the model’s answer is longer than 1 MiB")},
    Sentence{QT_TRANSLATE_NOOP("TextParser", "the model’s answer was cut off because it got too long")},
    Sentence{QT_TRANSLATE_NOOP("TextParser", "the text is longer than %1 characters")},
    // Of a field of the answer:
    Sentence{QT_TRANSLATE_NOOP("TextParser", "is not a text")},
    Sentence{QT_TRANSLATE_NOOP("TextParser", "is not a number")},
    Sentence{QT_TRANSLATE_NOOP("TextParser", "is not an object")},
    Sentence{QT_TRANSLATE_NOOP("TextParser", "is not a list")},
    Sentence{QT_TRANSLATE_NOOP("TextParser", "is out of range")},
    Sentence{QT_TRANSLATE_NOOP("TextParser", "is longer than %1 characters")},
    Sentence{QT_TRANSLATE_NOOP("TextParser", "is longer than %1 items")},
    Sentence{QT_TRANSLATE_NOOP("TextParser", "Unexpected rawValue \"%1\" for ExtractedUnit")},
    // Of the server's address, alone and before these words:
    Sentence{QT_TRANSLATE_NOOP("TextParser", "is not on this computer")},
    Sentence{QT_TRANSLATE_NOOP("TextParser", "is no address such as %1")},
    Sentence{QT_TRANSLATE_NOOP("TextParser", "%1 is not on this computer")},
    Sentence{QT_TRANSLATE_NOOP("TextParser", "%1 is no address such as %2")},
};

QString translated(const char* text)
{
    return QCoreApplication::translate(context, text);
}

/// Why something failed; before it may stand of which field: "items.3.unit: is not a text".
QString reasonText(const QString& reason)
{
    const QString mark = QStringLiteral(": ");
    const qsizetype end = reason.indexOf(mark);
    if (end < 0)
        return parserText(reason);
    return reason.left(end) + mark + parserText(reason.sliced(end + mark.size()));
}

} // namespace

QString parserText(const QString& line)
{
    for (const Sentence& sentence : sentences) {
        std::optional<QStringList> values = valuesIn(line, sentence.text);
        if (!values)
            continue;
        if (sentence.hasReason)
            values->back() = reasonText(values->back());
        return filled(translated(sentence.text), *values);
    }
    return translated(line.toUtf8().constData());
}

QString parserText(const UnusedText& unused)
{
    return translated(unused.what).arg(unused.value) + QStringLiteral(": ") + translated(unused.why);
}

} // namespace ledra
