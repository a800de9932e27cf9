#include "ui/chips/chip_text_edit.h"

#include "ui/chips/chip_object.h"

#include <QAbstractTextDocumentLayout>
#include <QDropEvent>
#include <QHelpEvent>
#include <QMimeData>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QToolTip>

namespace ledra {

ChipTextEdit::ChipTextEdit(std::unique_ptr<const ChipLanguage> language, QWidget* parent)
    : QTextEdit(parent), language_(std::move(language))
{
    setAcceptRichText(false);
    setTabChangesFocus(true);
    setUndoRedoEnabled(false);
    document()->documentLayout()->registerHandler(ChipObject::objectType, new ChipObject(this));
    connect(this, &QTextEdit::textChanged, this, &ChipTextEdit::follow);
}

ChipUnits ChipTextEdit::units(int begin, int end) const
{
    ChipUnits units;
    units.reserve(static_cast<std::size_t>(end - begin));
    const QString letters = document()->toRawText();
    QTextCursor cursor(document());
    for (int place = begin; place < end; ++place) {
        const QChar letter = letters.at(place);
        const bool isLineEnd = letter == QChar::ParagraphSeparator || letter == QChar::LineSeparator;
        ChipUnit unit{isLineEnd ? QChar(u'\n') : letter};
        if (letter == QChar::ObjectReplacementCharacter) {
            cursor.setPosition(place + 1); // its format is that of the character before it
            unit.token = ChipObject::token(cursor.charFormat());
        }
        units.push_back(unit);
    }
    return units;
}

ChipUnits ChipTextEdit::units() const
{
    return units(0, document()->characterCount() - 1);
}

QString ChipTextEdit::source() const
{
    return sourceOf(units());
}

void ChipTextEdit::insert(QTextCursor cursor, const ChipUnits& units) const
{
    QString letters;
    for (const ChipUnit& unit : units) {
        if (!unit.isChip()) {
            letters += unit.letter;
            continue;
        }
        cursor.insertText(std::exchange(letters, {}), QTextCharFormat());
        cursor.insertText(QString(unit.letter), ChipObject::format(unit.token, language_->label(unit.token)));
    }
    cursor.insertText(letters, QTextCharFormat());
}

void ChipTextEdit::setSource(const QString& source, bool movesCursor)
{
    const ChipUnits before = units();
    const ChipUnits after = unitsOf(source, *language_);
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

void ChipTextEdit::paste(const ChipUnits& units)
{
    const QScopedValueRollback pasting(isPasting_, true);
    QTextCursor cursor = textCursor();
    cursor.beginEditBlock(); // one change, whatever was selected
    insert(cursor, units);
    cursor.endEditBlock();
    ensureCursorVisible();
}

/// After each change of the user's: a token that has been completed letter by letter becomes a chip.
void ChipTextEdit::follow()
{
    if (isShowing_)
        return;
    const std::size_t before = lengthBefore_;
    setSource(source(), false);
    const std::size_t after = static_cast<std::size_t>(document()->characterCount() - 1);
    lengthBefore_ = after;
    const std::size_t step = std::max(before, after) - std::min(before, after);
    if (step <= 1 && !isPasting_)
        Q_EMIT typed();
    else
        Q_EMIT replaced();
}

bool ChipTextEdit::canInsertFromMimeData(const QMimeData* source) const
{
    return source->hasText() || !draggedToken(*source).isEmpty();
}

void ChipTextEdit::insertFromMimeData(const QMimeData* source)
{
    paste(unitsOf(pastedText(*source), *language_));
}

QString ChipTextEdit::pastedText(const QMimeData& source) const
{
    const QString token = draggedToken(source);
    return token.isEmpty() ? source.text() : token;
}

/// The token that is dragged, if it is one of this text's.
QString ChipTextEdit::draggedToken(const QMimeData& source) const
{
    const QString token = QString::fromUtf8(source.data(QString::fromLatin1(draggedTokenFormat)));
    const ChipUnits units = unitsOf(token, *language_);
    return units.size() == 1 && units.front().isChip() ? token : QString();
}

void ChipTextEdit::dropEvent(QDropEvent* event)
{
    const QScopedValueRollback dropping(isPasting_, true); // the change is told when all of it is done
    QTextEdit::dropEvent(event);
    if (event->isAccepted())
        setFocus(Qt::MouseFocusReason); // so that one types on behind it
}

QMimeData* ChipTextEdit::createMimeDataFromSelection() const
{
    auto* copied = new QMimeData; // the caller owns it
    copied->setText(sourceOf(units(textCursor().selectionStart(), textCursor().selectionEnd())));
    return copied;
}

QString ChipTextEdit::tokenAt(const QPoint& place) const
{
    const QPoint scrolled(horizontalScrollBar()->value(), verticalScrollBar()->value());
    return ChipObject::token(document()->documentLayout()->formatAt(place + scrolled));
}

bool ChipTextEdit::viewportEvent(QEvent* event)
{
    if (event->type() != QEvent::ToolTip)
        return QTextEdit::viewportEvent(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    const QString token = tokenAt(help->pos());
    QToolTip::showText(help->globalPos(), token.isEmpty() || !valueOf_ ? QString() : valueOf_(token),
                       viewport()); // an empty one goes
    return true;
}

} // namespace ledra
