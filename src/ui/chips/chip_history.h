#pragma once

#include "ui/chips/source_history.h"

#include <QObject>

namespace ledra {

class ChipTextEdit;

/// The way back of a text with chips that has one of its own: takes the keys for undo and redo, unless a
/// window does.
class ChipHistory : public QObject
{
    Q_OBJECT

public:
    explicit ChipHistory(ChipTextEdit& edit); ///< which owns it

    /// Shows a text that somebody else has set; if it is another one, there is no way back behind it.
    void show(const QString& source);

    /// Shows a text that has nothing to do with the one before.
    void start(const QString& source);

    /// Notes what the text is now.
    void take(bool isTyping);

Q_SIGNALS:
    void edited(bool isTyping); ///< by a letter, or by more than that

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void step(const std::optional<QString>& state);

    ChipTextEdit& edit_;
    SourceHistory states_;
};

} // namespace ledra
