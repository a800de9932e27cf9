#pragma once

#include <QHash>
#include <QString>

namespace ledra {

/// Values of a template's placeholders, by their names without braces.
using TemplateValues = QHash<QString, QString>;

/// Replaces every "{{name}}" of a template by its value, in one pass: a value that looks like a placeholder
/// is text and stays. A name without a value becomes nothing.
QString filledTemplate(QStringView text, const TemplateValues& values);

} // namespace ledra
