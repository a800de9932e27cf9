#include "ui/chips/chip_line_edit.h"

#include <QLineEdit>
#include <QScrollBar>
#include <QWheelEvent>

namespace ledra {

ChipLineEdit::ChipLineEdit(std::unique_ptr<const ChipLanguage> language, QWidget* parent)
    : ChipTextEdit(std::move(language), parent), history_(new ChipHistory(*this))
{
    constexpr double documentMargin = 4;
    document()->setDocumentMargin(documentMargin);
    setLineWrapMode(QTextEdit::NoWrap);
    setWordWrapMode(QTextOption::NoWrap);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    connect(history_, &ChipHistory::edited, this, &ChipLineEdit::edited);
}

QSize ChipLineEdit::sizeHint() const
{
    const double line = QFontMetricsF(document()->defaultFont()).lineSpacing();
    const int height = qCeil(line + 2 * document()->documentMargin()) + 2 * frameWidth();
    constexpr int width = 240;
    return {width, std::max(height, QLineEdit().sizeHint().height())};
}

QSize ChipLineEdit::minimumSizeHint() const
{
    constexpr int width = 120;
    return {width, sizeHint().height()};
}

void ChipLineEdit::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        event->ignore(); // the dialog may have a use for it
        Q_EMIT editingFinished();
    } else if (!moveByKey(*event)) {
        ChipTextEdit::keyPressEvent(event);
    }
}

bool ChipLineEdit::moveByKey(const QKeyEvent& event)
{
    const bool isArrow = event.key() == Qt::Key_Left || event.key() == Qt::Key_Right;
    if (!isArrow || event.modifiers() != Qt::AltModifier || isReadOnly())
        return false;
    move(event.key() == Qt::Key_Left ? -1 : 1);
    return true;
}

/// Exchanges what is selected, or else the chip beside the cursor, with the unit that it moves past.
void ChipLineEdit::move(int direction)
{
    ChipUnits all = units();
    const auto count = static_cast<int>(all.size());
    const auto isChipAt = [&](int place) {
        return place >= 0 && place < count && all[static_cast<std::size_t>(place)].isChip();
    };
    QTextCursor cursor = textCursor();
    int begin = cursor.selectionStart();
    int end = cursor.selectionEnd();
    if (begin == end) {
        if (!isChipAt(begin) && !isChipAt(begin - 1))
            return;
        begin = isChipAt(begin) ? begin : begin - 1;
        end = begin + 1;
    }
    if (begin + direction < 0 || end + direction > count)
        return;
    const auto at = [&](int place) { return all.begin() + place; };
    if (direction < 0)
        std::rotate(at(begin - 1), at(begin), at(end));
    else
        std::rotate(at(begin), at(end), at(end + 1));
    setSource(sourceOf(all), false);
    cursor = textCursor();
    cursor.setPosition(begin + direction);
    cursor.setPosition(end + direction, QTextCursor::KeepAnchor); // so that it can be moved on
    setTextCursor(cursor);
    history_->take(false);
}

void ChipLineEdit::focusOutEvent(QFocusEvent* event)
{
    ChipTextEdit::focusOutEvent(event);
    Q_EMIT editingFinished();
}

/// There is nothing to scroll; what is around the line scrolls.
void ChipLineEdit::wheelEvent(QWheelEvent* event)
{
    event->ignore();
}

QString ChipLineEdit::pastedText(const QMimeData& source) const
{
    return ChipTextEdit::pastedText(source).simplified();
}

} // namespace ledra
