#include "ui/text/parser_texts.h"

#include <QCoreApplication>

namespace ledra {

namespace {

constexpr const char* context = "TextParser";

} // namespace

QString parserText(const QString& line)
{
    return QCoreApplication::translate(context, line.toUtf8().constData());
}

QString parserText(const UnusedText& unused)
{
    return QCoreApplication::translate(context, unused.what).arg(unused.value) + QStringLiteral(": ") +
           QCoreApplication::translate(context, unused.why);
}

} // namespace ledra
