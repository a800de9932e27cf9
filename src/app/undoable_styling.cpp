#include "app/undoable_styling.h"

#include "app/styling_checks.h"
#include "app/styling_step.h"
#include "model/region.h"
#include "store/styling_folder.h"

namespace ledra {

namespace {

UndoableStyling::Done plain(const std::expected<void, StylingError>& done)
{
    return done ? UndoableStyling::Done() : std::unexpected(done.error().text);
}

} // namespace

void UndoableStyling::edit(const std::function<void(Styling&)>& change, EditKind kind)
{
    if (!manager_.styling())
        return;
    const Styling before = **manager_.styling();
    Styling after = before;
    change(after);
    if (after == before)
        return;
    manager_.editSoon([&](Styling& styling) { styling = after; });
    stack_.push(stylingStep(manager_, before, kind).release()); // the stack owns it
}

void UndoableStyling::reset()
{
    edit(
        [](Styling& styling) {
            Styling fresh = newStyling(styling.id, systemRegion());
            fresh.logo = styling.logo;
            fresh.css = styling.css;
            styling = fresh;
        },
        EditKind::single);
}

UndoableStyling::Done UndoableStyling::remembered(const std::expected<void, StylingError>& done,
                                                  const Styling& before, EditKind kind)
{
    if (manager_.styling() && before != **manager_.styling())
        stack_.push(stylingStep(manager_, before, kind).release());
    return plain(done);
}

UndoableStyling::Done UndoableStyling::importLogo(const QString& path)
{
    if (!manager_.styling())
        return plain(manager_.importLogo(path)); // which says so
    if (const std::optional<QString> problem = logoProblem(path))
        return std::unexpected(*problem);
    const Styling before = **manager_.styling();
    return remembered(manager_.importLogo(path), before, EditKind::single);
}

UndoableStyling::Done UndoableStyling::importStyleSheet(const QString& path)
{
    if (!manager_.styling() || !isStyleSheetFile(path))
        return plain(manager_.importStyleSheet(path)); // which says so
    if (const std::optional<QString> problem = styleSheetProblem(path))
        return std::unexpected(*problem);
    const Styling before = **manager_.styling();
    return remembered(manager_.importStyleSheet(path), before, EditKind::single);
}

UndoableStyling::Done UndoableStyling::removeLogo()
{
    if (!manager_.styling())
        return {};
    const Styling before = **manager_.styling();
    return remembered(manager_.setLogo(std::nullopt), before, EditKind::single);
}

UndoableStyling::Done UndoableStyling::setStyleSheet(const QString& text, EditKind kind)
{
    if (!manager_.styling() || (*manager_.styling())->css.value_or(QString()) == text)
        return {};
    const Styling before = **manager_.styling();
    return remembered(manager_.setStyleSheet(text.isEmpty() ? std::nullopt : std::optional(text)), before,
                      kind);
}

} // namespace ledra
