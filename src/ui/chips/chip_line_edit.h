#pragma once

#include "ui/chips/chip_history.h"
#include "ui/chips/chip_text_edit.h"

namespace ledra {

/// One line of text with chips. Alt and an arrow key move the chip beside the cursor, or what is selected,
/// past its neighbour. Undo and redo work in the line itself, unless a window takes their keys.
class ChipLineEdit : public ChipTextEdit
{
    Q_OBJECT

public:
    ChipLineEdit(std::unique_ptr<const ChipLanguage> language, QWidget* parent);

    /// Shows a text that somebody else has set; if it is another one, there is no way back behind it.
    void setText(const QString& source) { history_->show(source); }

    /// Shows a text that has nothing to do with the one before.
    void start(const QString& source) { history_->start(source); }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    void edited(bool isTyping); ///< by a letter, or by more than that
    void editingFinished();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    QString pastedText(const QMimeData& source) const override;

private:
    bool moveByKey(const QKeyEvent& event);
    void move(int direction);

    ChipHistory* history_;
};

} // namespace ledra
