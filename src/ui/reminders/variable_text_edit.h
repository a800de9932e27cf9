#pragma once

#include "ui/reminders/variable_units.h"

#include <QTextEdit>

namespace ledra {

/// A text with variables, each of which is a chip: typed, deleted and chosen as a whole, copied and pasted as
/// its token. What goes back and forth is the application's undo stack, not the text's own.
class VariableTextEdit : public QTextEdit
{
    Q_OBJECT

public:
    explicit VariableTextEdit(QWidget* parent = nullptr);

    /// The text with tokens.
    QString source() const;

    /// Shows a text; the cursor moves only if what is around it changes.
    ///
    /// @param movesCursor whether it goes to what has changed
    void setSource(const QString& source, bool movesCursor);

    /// Puts a variable in place of what is selected.
    void insertVariable(ReminderVariable variable);

    /// What a variable stands for, to be told when the pointer rests on its chip.
    using ValueOf = std::function<QString(ReminderVariable)>;
    void setValues(ValueOf valueOf) { valueOf_ = std::move(valueOf); }

Q_SIGNALS:
    void typed();    ///< the user has changed the text by a letter
    void replaced(); ///< or by more than that: a variable, something pasted or cut

protected:
    bool viewportEvent(QEvent* event) override;
    bool canInsertFromMimeData(const QMimeData* source) const override;
    void insertFromMimeData(const QMimeData* source) override;
    QMimeData* createMimeDataFromSelection() const override;

private:
    TextUnits units(int begin, int end) const;
    void insert(QTextCursor cursor, const TextUnits& units) const;
    void paste(const TextUnits& units);
    void follow();
    std::optional<ReminderVariable> variableAt(const QPoint& place) const;

    ValueOf valueOf_;
    std::size_t lengthBefore_ = 0;
    bool isShowing_ = false; ///< the program changes the text, not the user
    bool isPasting_ = false;
};

} // namespace ledra
