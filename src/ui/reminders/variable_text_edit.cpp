#include "ui/reminders/variable_text_edit.h"

#include <QCoreApplication>
#include <QTextBlockFormat>

namespace ledra {

namespace {

std::optional<ReminderVariable> variableAt(QStringView rest)
{
    if (!rest.startsWith(u"{{"))
        return std::nullopt;
    for (const EnumText<ReminderVariable>& row : enumTexts<ReminderVariable>) {
        if (rest.startsWith(token(row.value)))
            return row.value;
    }
    return std::nullopt;
}

/// The variables of letters, "{{amount}}".
class ReminderLanguage final : public ChipLanguage
{
public:
    std::vector<ChipPiece> pieces(const QString& text) const override
    {
        std::vector<ChipPiece> pieces;
        qsizetype begin = 0; // of the letters that are not in a piece yet
        for (qsizetype place = 0; place < text.size();) {
            const auto variable = variableAt(QStringView(text).sliced(place));
            if (!variable) {
                ++place;
                continue;
            }
            pieces.push_back({text.sliced(begin, place - begin)});
            pieces.push_back({token(*variable), true});
            place += token(*variable).size();
            begin = place;
        }
        pieces.push_back({text.sliced(begin)});
        return pieces;
    }

    QString label(const QString& token) const override
    {
        const std::optional<ReminderVariable> variable = variableAt(token);
        return variable ? variableLabel(*variable) : token;
    }
};

} // namespace

QString variableLabel(ReminderVariable variable)
{
    return QCoreApplication::translate("ReminderVariable", enumText(variable).displayText.data());
}

VariableTextEdit::VariableTextEdit(QWidget* parent)
    : ChipTextEdit(std::make_unique<ReminderLanguage>(), parent)
{
    constexpr double lineDistance = 5; // so that chips of two lines do not touch
    constexpr double documentMargin = 8;
    document()->setDocumentMargin(documentMargin);
    QTextBlockFormat lines;
    lines.setLineHeight(lineDistance, QTextBlockFormat::LineDistanceHeight);
    QTextCursor(document()).setBlockFormat(lines);
}

void VariableTextEdit::insertVariable(ReminderVariable variable)
{
    insertToken(token(variable));
}

void VariableTextEdit::setValues(const std::function<QString(ReminderVariable)>& valueOf)
{
    ChipTextEdit::setValues([valueOf](const QString& token) {
        const std::optional<ReminderVariable> variable = variableAt(token);
        return variable ? valueOf(*variable) : QString();
    });
}

} // namespace ledra
