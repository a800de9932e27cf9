#include "model/template_text.h"

namespace ledra {

QString filledTemplate(QStringView text, const TemplateValues& values)
{
    QString filled;
    filled.reserve(text.size() * 2);
    qsizetype position = 0;
    while (position < text.size()) {
        const qsizetype open = text.indexOf(u"{{", position);
        const qsizetype close = open < 0 ? -1 : text.indexOf(u"}}", open);
        if (close < 0)
            break;
        filled += text.sliced(position, open - position);
        filled += values.value(text.sliced(open + 2, close - open - 2).toString());
        position = close + 2;
    }
    filled += text.sliced(position);
    return filled;
}

} // namespace ledra
