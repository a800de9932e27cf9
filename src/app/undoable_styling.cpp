#include "app/undoable_styling.h"

#include "app/styling_checks.h"
#include "model/region.h"
#include "store/styling_folder.h"

#include <QUndoCommand>

#include <bitset>

namespace ledra {

namespace {

constexpr std::size_t fieldCount = std::tuple_size_v<std::remove_const_t<decltype(recordFields<Styling>)>>;
using Fields = std::bitset<fieldCount>;

template <class Visit>
void forEachField(const Visit& visit)
{
    std::apply(
        [&](auto... member) {
            std::size_t position = 0;
            (visit(position++, member), ...);
        },
        recordFields<Styling>);
}

Fields changedFields(const Styling& before, const Styling& after)
{
    Fields fields;
    forEachField(
        [&](std::size_t position, auto member) { fields.set(position, !(before.*member == after.*member)); });
    return fields;
}

/// A change that has been made when the command is pushed.
class StylingCommand final : public QUndoCommand
{
public:
    StylingCommand(StylingManager& manager, Styling before, EditKind kind)
        : manager_(manager),
          before_(std::move(before)),
          after_(**manager.styling()),
          fields_(changedFields(before_, after_)),
          kind_(kind)
    {
        setText(QStringLiteral("Styling"));
    }

    void undo() override { apply(before_, after_); }
    void redo() override
    {
        if (!std::exchange(isMade_, false))
            apply(after_, before_);
    }

    int id() const override { return kind_ == EditKind::typing ? 2 : -1; } // 1 are edits of records

    bool mergeWith(const QUndoCommand* other) override
    {
        const auto* next =
            static_cast<const StylingCommand*>(other); // of the same id(), so of the same class
        if (next->before_.id != before_.id || next->fields_ != fields_)
            return false;
        after_ = next->after_;
        fields_ = changedFields(before_, after_);
        setObsolete(fields_.none());
        return true;
    }

private:
    void apply(const Styling& state, const Styling& other) const
    {
        if (!manager_.styling() || (*manager_.styling())->id != state.id)
            return;
        // Failures show: the file stays as it is, and so does what is seen of it.
        if (state.logo != other.logo)
            (void)manager_.setLogo(state.logo);
        if (state.css != other.css)
            (void)manager_.setStyleSheet(state.css);
        Styling plain = state;
        plain.logo = other.logo;
        plain.css = other.css;
        const Fields fields = changedFields(plain, other);
        if (fields.none())
            return;
        manager_.editSoon([&](Styling& styling) {
            forEachField([&](std::size_t position, auto member) {
                if (fields.test(position))
                    styling.*member = plain.*member;
            });
        });
    }

    StylingManager& manager_;
    Styling before_;
    Styling after_;
    Fields fields_;
    EditKind kind_;
    bool isMade_ = true;
};

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
    stack_.push(new StylingCommand(manager_, before, kind)); // the stack owns it
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
        stack_.push(new StylingCommand(manager_, before, kind));
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
