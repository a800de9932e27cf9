#include "app/item_text.h"
#include "app/reader_language.h"
#include "model/document_labels.h"
#include "ui/editor/items_model.h"

namespace ledra {

namespace {

/// Lines with all their digits; the text beside it is rounded by nobody either, but spoken by the locale.
const QString linesFormat = QStringLiteral("application/x-ledra-items");

} // namespace

std::unique_ptr<QMimeData> ItemsModel::copied(const QList<int>& rows) const
{
    std::vector<Invoice::Item> lines;
    for (const int row : rows) {
        if (const Invoice::Item* line = item(row))
            lines.push_back(*line);
    }
    auto data = std::make_unique<QMimeData>();
    data->setText(tableOf(lines, editing_.locale()));
    data->setData(linesFormat, tableOf(lines, QLocale::c()).toUtf8());
    return data;
}

QString ItemsModel::pasteProblem(const ItemProblem& problem) const
{
    const QString line = QString::number(problem.line);
    switch (problem.kind) {
    case ItemProblem::description:
        return tr("line %1 has no description").arg(line);
    case ItemProblem::openQuote:
        return tr("in line %1 a quotation mark is not closed").arg(line);
    case ItemProblem::tooManyFields:
        return tr("line %1 has more than description, quantity, unit, price and VAT").arg(line);
    case ItemProblem::unit: {
        QStringList names;
        for (const EnumText<Unit>& row : enumTexts<Unit>)
            names += unitLabel(row.value, 1, readerLanguage());
        return tr("“%2” in line %1 is none of the units %3")
            .arg(line, problem.word, names.join(QStringLiteral(", ")));
    }
    default: // a number; the fields stand in the order of the columns
        return tr("“%2” in line %1 (%3) is not a number")
            .arg(line, problem.word, headerData(problem.kind, Qt::Horizontal).toString());
    }
}

bool ItemsModel::canPaste(const QMimeData& data) const
{
    return !editing_.isLocked() && (data.hasFormat(linesFormat) || data.text().contains(u'\t'));
}

void ItemsModel::paste(int row, const QMimeData& data)
{
    const bool isOwn = data.hasFormat(linesFormat);
    const QString text = isOwn ? QString::fromUtf8(data.data(linesFormat)) : data.text();
    auto lines = itemsFromTable(text, editing_.profile(), editing_.parts().app.ids(),
                                {isOwn ? QLocale::c() : editing_.locale()});
    if (!lines)
        editing_.parts().messages.warn(tr("The items cannot be pasted: %1").arg(pasteProblem(lines.error())));
    else if (!lines->empty())
        insert(row, std::move(*lines));
}

} // namespace ledra
