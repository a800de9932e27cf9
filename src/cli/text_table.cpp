#include "cli/text_table.h"

namespace ledra {

QString textTable(const std::vector<QStringList>& rows, const std::vector<Align>& columns)
{
    std::vector<qsizetype> widths(columns.size(), 0);
    for (const QStringList& row : rows) {
        for (std::size_t i = 0; i < columns.size(); ++i)
            widths[i] = std::max(widths[i], row.value(static_cast<qsizetype>(i)).simplified().size());
    }
    QString text;
    for (const QStringList& row : rows) {
        QString line;
        for (std::size_t i = 0; i < columns.size(); ++i) {
            const QString cell = row.value(static_cast<qsizetype>(i)).simplified();
            line +=
                columns[i] == Align::right ? cell.rightJustified(widths[i]) : cell.leftJustified(widths[i]);
            line += QStringLiteral("  ");
        }
        while (line.endsWith(u' '))
            line.chop(1);
        text += line + u'\n';
    }
    return text;
}

} // namespace ledra
