#include "ui/look/known_sentences.h"

#include <QRegularExpression>

namespace ledra {

std::optional<QStringList> valuesIn(const QString& line, const char* sentence)
{
    static const QRegularExpression place(QStringLiteral("\\\\%[12]"));
    QString pattern = QRegularExpression::escape(QString::fromUtf8(sentence));
    pattern.replace(place, QStringLiteral("(.*?)"));
    const QRegularExpression whole(QRegularExpression::anchoredPattern(pattern),
                                   QRegularExpression::DotMatchesEverythingOption);
    const QRegularExpressionMatch match = whole.match(line);
    return match.hasMatch() ? std::optional(match.capturedTexts().mid(1)) : std::nullopt;
}

QString filled(const QString& sentence, const QStringList& values)
{
    if (values.isEmpty())
        return sentence;
    return values.size() == 1 ? sentence.arg(values[0]) : sentence.arg(values[0], values[1]);
}

} // namespace ledra
