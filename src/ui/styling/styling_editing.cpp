#include "ui/styling/styling_editing.h"

namespace ledra {

StylingEditing::StylingEditing(const WindowParts& parts) : parts_(parts)
{
    connect(&parts.app.stylingManager(), &StylingManager::changed, this, &StylingEditing::changed);
}

const Styling& StylingEditing::styling() const
{
    const StylingPtr& styling = parts_.app.stylingManager().styling();
    return styling ? **styling : none_;
}

void StylingEditing::change(const std::function<void(Styling&)>& change, EditKind kind)
{
    jobs().edit(change, kind);
}

void StylingEditing::tell(const UndoableStyling::Done& done)
{
    if (!done)
        tell(done.error());
    Q_EMIT changed(); // the fields show again what holds
}

} // namespace ledra
