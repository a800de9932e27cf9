#include "app/styling_step.h"

#include "app/undo_commands.h"

namespace ledra {

namespace {

constexpr int typingId = 3; // 1 are edits of records, 2 of reminders

/// Failures show: the file stays as it is, and so does what is seen of it.
void apply(StylingManager& manager, const Styling& state, const FieldSet<Styling>& fields)
{
    if (!manager.styling() || (*manager.styling())->id != state.id)
        return;
    Styling wanted = **manager.styling();
    copyFields(state, wanted, fields);
    if (wanted.logo != (*manager.styling())->logo)
        (void)manager.setLogo(wanted.logo);
    if (wanted.css != (*manager.styling())->css)
        (void)manager.setStyleSheet(wanted.css);
    wanted.logo = (*manager.styling())->logo; // these come from the files
    wanted.css = (*manager.styling())->css;
    if (wanted != **manager.styling())
        manager.editSoon([&](Styling& styling) { styling = wanted; });
}

} // namespace

std::unique_ptr<QUndoCommand> stylingStep(StylingManager& manager, const Styling& before, EditKind kind)
{
    return std::make_unique<EditStep<Styling>>(
        QT_TRANSLATE_NOOP("UndoText", "Styling"), before, **manager.styling(),
        TypingRun{.id = kind == EditKind::typing ? typingId : -1},
        [&manager](const Styling&, const Styling& to, const FieldSet<Styling>& fields) {
            apply(manager, to, fields);
        });
}

} // namespace ledra
