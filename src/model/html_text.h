#pragma once

#include <QString>
#include <QStringList>

namespace ledra {

/// A user's text as HTML content: "&", "<" and ">" become entities, in that order.
QString htmlEscaped(const QString& text);

/// As above, for a value between double quotes of an attribute.
QString attributeEscaped(const QString& text);

/// The lines of a user's text; every kind of line break counts as one.
QStringList textLines(const QString& text);

/// Escaped text whose line breaks are `<br>`.
QString htmlLines(const QString& text);

/// **bold** and *italic* within one line of escaped text, as `<strong>` and `<em>`.
QString inlineMarkdown(const QString& escaped);

} // namespace ledra
