#include "ui/chips/chip_history.h"

#include "ui/chips/chip_text_edit.h"
#include "ui/look/undo_guard.h"

namespace ledra {

ChipHistory::ChipHistory(ChipTextEdit& edit) : QObject(&edit), edit_(edit)
{
    edit.installEventFilter(this);
    connect(&edit, &ChipTextEdit::typed, this, [this] { take(true); });
    connect(&edit, &ChipTextEdit::replaced, this, [this] { take(false); });
}

void ChipHistory::show(const QString& source)
{
    if (source != edit_.source())
        start(source);
}

void ChipHistory::start(const QString& source)
{
    edit_.setSource(source, false);
    states_.reset(source);
}

void ChipHistory::take(bool isTyping)
{
    states_.take(edit_.source(), isTyping);
    Q_EMIT edited(isTyping);
}

void ChipHistory::step(const std::optional<QString>& state)
{
    if (!state)
        return;
    edit_.setSource(*state, true);
    Q_EMIT edited(false);
}

bool ChipHistory::eventFilter(QObject*, QEvent* event)
{
    if (event->type() != QEvent::KeyPress || edit_.isReadOnly())
        return false;
    const auto& key = *static_cast<const QKeyEvent*>(event);
    if (!isUndoOrRedo(key))
        return false;
    step(key.matches(QKeySequence::Undo) ? states_.back() : states_.forward());
    return true;
}

} // namespace ledra
