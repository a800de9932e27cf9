#include "ui/reminders/variable_text_edit.h"

#include "ui/reminders/variable_chip.h"

#include <QAbstractTextDocumentLayout>
#include <QHelpEvent>
#include <QMimeData>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QTextBlock>
#include <QToolTip>

namespace ledra {

VariableTextEdit::VariableTextEdit(QWidget* parent) : QTextEdit(parent)
{
    constexpr double lineDistance = 5; // so that chips of two lines do not touch
    constexpr double documentMargin = 8;
    setAcceptRichText(false);
    setTabChangesFocus(true);
    setUndoRedoEnabled(false);
    document()->setDocumentMargin(documentMargin);
    document()->documentLayout()->registerHandler(VariableChip::objectType, new VariableChip(this));
    QTextBlockFormat lines;
    lines.setLineHeight(lineDistance, QTextBlockFormat::LineDistanceHeight);
    QTextCursor(document()).setBlockFormat(lines);
    connect(this, &QTextEdit::textChanged, this, &VariableTextEdit::follow);
}

TextUnits VariableTextEdit::units(int begin, int end) const
{
    TextUnits units;
    units.reserve(static_cast<std::size_t>(end - begin));
    const QString letters = document()->toRawText();
    QTextCursor cursor(document());
    for (int place = begin; place < end; ++place) {
        const QChar letter = letters.at(place);
        const bool isLineEnd = letter == QChar::ParagraphSeparator || letter == QChar::LineSeparator;
        TextUnit unit{isLineEnd ? QChar(u'\n') : letter};
        if (letter == QChar::ObjectReplacementCharacter) {
            cursor.setPosition(place + 1); // its format is that of the character before it
            unit.variable = VariableChip::variable(cursor.charFormat());
        }
        units.push_back(unit);
    }
    return units;
}

QString VariableTextEdit::source() const
{
    return sourceOf(units(0, document()->characterCount() - 1));
}

void VariableTextEdit::insert(QTextCursor cursor, const TextUnits& units) const
{
    QString letters;
    for (const TextUnit& unit : units) {
        if (!unit.variable) {
            letters += unit.letter;
            continue;
        }
        cursor.insertText(std::exchange(letters, {}), QTextCharFormat());
        cursor.insertText(QString(QChar::ObjectReplacementCharacter), VariableChip::format(*unit.variable));
    }
    cursor.insertText(letters, QTextCharFormat());
}

void VariableTextEdit::setSource(const QString& source, bool movesCursor)
{
    const TextUnits before = units(0, document()->characterCount() - 1);
    const TextUnits after = unitsOf(source);
    const Difference difference = differenceOf(before, after);
    lengthBefore_ = after.size();
    if (before == after)
        return;
    const QScopedValueRollback showing(isShowing_, true);
    QTextCursor cursor(document());
    cursor.beginEditBlock();
    cursor.setPosition(static_cast<int>(difference.begin));
    cursor.setPosition(static_cast<int>(difference.oldEnd), QTextCursor::KeepAnchor);
    cursor.removeSelectedText();
    const auto at = [&](std::size_t place) { return after.begin() + static_cast<std::ptrdiff_t>(place); };
    insert(cursor, {at(difference.begin), at(difference.newEnd)});
    cursor.endEditBlock();
    if (!movesCursor)
        return;
    cursor.setPosition(static_cast<int>(difference.newEnd));
    setTextCursor(cursor);
}

void VariableTextEdit::paste(const TextUnits& units)
{
    const QScopedValueRollback pasting(isPasting_, true);
    QTextCursor cursor = textCursor();
    cursor.beginEditBlock(); // one change, whatever was selected
    insert(cursor, units);
    cursor.endEditBlock();
    ensureCursorVisible();
}

void VariableTextEdit::insertVariable(ReminderVariable variable)
{
    paste({{QChar(QChar::ObjectReplacementCharacter), variable}});
}

/// After each change of the user's: a token that has been completed letter by letter becomes a chip.
void VariableTextEdit::follow()
{
    if (isShowing_)
        return;
    const std::size_t before = lengthBefore_;
    const TextUnits now = units(0, document()->characterCount() - 1);
    setSource(sourceOf(now), false);
    const std::size_t after = static_cast<std::size_t>(document()->characterCount() - 1);
    lengthBefore_ = after;
    const std::size_t step = std::max(before, after) - std::min(before, after);
    if (step <= 1 && !isPasting_)
        Q_EMIT typed();
    else
        Q_EMIT replaced();
}

bool VariableTextEdit::canInsertFromMimeData(const QMimeData* source) const
{
    return source->hasText();
}

void VariableTextEdit::insertFromMimeData(const QMimeData* source)
{
    paste(unitsOf(source->text()));
}

QMimeData* VariableTextEdit::createMimeDataFromSelection() const
{
    auto* copied = new QMimeData; // the caller owns it
    copied->setText(sourceOf(units(textCursor().selectionStart(), textCursor().selectionEnd())));
    return copied;
}

std::optional<ReminderVariable> VariableTextEdit::variableAt(const QPoint& place) const
{
    const QPoint scrolled(horizontalScrollBar()->value(), verticalScrollBar()->value());
    return VariableChip::variable(document()->documentLayout()->formatAt(place + scrolled));
}

bool VariableTextEdit::viewportEvent(QEvent* event)
{
    if (event->type() != QEvent::ToolTip)
        return QTextEdit::viewportEvent(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    const std::optional<ReminderVariable> variable = variableAt(help->pos());
    const QString value = variable && valueOf_ ? valueOf_(*variable) : QString();
    QToolTip::showText(help->globalPos(), value, viewport()); // an empty one goes
    return true;
}

} // namespace ledra
