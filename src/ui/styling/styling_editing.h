#pragma once

#include "ui/window_parts.h"

#include <QObject>

namespace ledra {

/// The styling in the inspector, and how it is changed.
class StylingEditing : public QObject
{
    Q_OBJECT

public:
    explicit StylingEditing(const WindowParts& parts);

    /// A styling as it comes when no profile is active.
    const Styling& styling() const;

    /// Seen at once, written a little later, with its way back.
    void change(const std::function<void(Styling&)>& change, EditKind kind);

    /// Says what a job could not do.
    void tell(const UndoableStyling::Done& done);
    void tell(const QString& line) { parts_.messages.warn(line); }

    UndoableStyling jobs() const { return parts_.app.undoableStyling(); }
    WebFontManager& fonts() const { return parts_.fonts; }

Q_SIGNALS:
    void changed();

private:
    const WindowParts& parts_;
    Styling none_;
};

} // namespace ledra
