#pragma once

#include <QToolButton>

#include <memory>
#include <optional>

class QMimeData;

namespace ledra {

class ChipTextEdit;

/// Inserts a token into a text: where the cursor is when it is clicked, elsewhere when it is dragged there.
class TokenButton : public QToolButton
{
    Q_OBJECT

public:
    TokenButton(const QString& token, const QString& text, ChipTextEdit& edit, QWidget* parent);

    /// What a drag carries; only texts that know the token take it.
    std::unique_ptr<QMimeData> dragData() const;

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;

private:
    void startDrag(const QPoint& place);

    QString token_;
    std::optional<QPoint> pressedAt_; ///< nothing when the menu was opened
};

} // namespace ledra
