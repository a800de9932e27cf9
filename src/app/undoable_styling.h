#pragma once

#include "app/undoable_jobs.h"
#include "store/styling_manager.h"

namespace ledra {

/// What users do to the styling in a window, each with its way back: a step takes back the fields that it
/// changed and no others. A step of a profile that is no longer the active one does nothing.
///
/// The errors are one line each.
class UndoableStyling
{
public:
    using Done = std::expected<void, QString>;

    UndoableStyling(StylingManager& manager, QUndoStack& stack) : manager_(manager), stack_(stack) {}

    /// Seen at once, written a little later.
    void edit(const std::function<void(Styling&)>& change, EditKind kind);

    /// As a new profile has it. Logo and style sheet are the user's own and stay.
    void reset();

    // Files, after a look at whether they are what they seem to be.
    Done importLogo(const QString& path);
    Done importStyleSheet(const QString& path);

    Done removeLogo();

    /// An empty text takes the style sheet away.
    Done setStyleSheet(const QString& text, EditKind kind);

private:
    Done remembered(const std::expected<void, StylingError>& done, const Styling& before, EditKind kind);

    StylingManager& manager_;
    QUndoStack& stack_;
};

} // namespace ledra
