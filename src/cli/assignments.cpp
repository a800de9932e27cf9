#include "cli/assignments.h"

namespace ledra {

std::expected<std::vector<Assignment>, QString> assignmentsFrom(const QStringList& texts,
                                                                const QStringList& fixed)
{
    std::vector<Assignment> assignments;
    for (const QString& text : texts) {
        const qsizetype sign = text.indexOf(u'=');
        if (sign <= 0)
            return std::unexpected(QStringLiteral("\"%1\" is not KEY=VALUE").arg(text));
        const QString key = text.left(sign);
        if (fixed.contains(key))
            return std::unexpected(QStringLiteral("%1: this key cannot be set").arg(key));
        assignments.push_back({key, text.mid(sign + 1)});
    }
    return assignments;
}

} // namespace ledra
