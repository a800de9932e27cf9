#include "ui/text/text_well.h"

#include "app/extraction_jobs.h"

#include <QMimeData>

namespace ledra {

TextWell::TextWell(QWidget* parent) : QPlainTextEdit(parent)
{
    setTabChangesFocus(true);
    setAcceptDrops(true);
}

bool TextWell::canInsertFromMimeData(const QMimeData* source) const
{
    const QList<QUrl> files = source->urls();
    return files.isEmpty() ? source->hasText() : files.size() == 1 && files.front().isLocalFile();
}

void TextWell::insertFromMimeData(const QMimeData* source)
{
    if (source->urls().isEmpty()) {
        insertPlainText(source->text());
        return;
    }
    if (const std::expected<QString, QString> text = textOfFile(source->urls().front().toLocalFile()))
        insertPlainText(*text);
    else
        Q_EMIT refused(text.error());
}

} // namespace ledra
