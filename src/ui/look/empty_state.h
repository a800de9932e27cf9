#pragma once

#include <QLabel>
#include <QPushButton>
#include <QWidget>

namespace ledra {

/// What stands where there is nothing to show: why, and what to do about it.
class EmptyState : public QWidget
{
    Q_OBJECT

public:
    explicit EmptyState(QWidget* parent = nullptr);

    /// @param button the text of the button; empty for none
    void setContent(const char* icon, const QString& title, const QString& text, const QString& button = {});

Q_SIGNALS:
    void clicked();

private:
    QLabel* icon_;
    QLabel* title_;
    QLabel* text_;
    QPushButton* button_;
    const char* drawing_ = "all";

protected:
    void changeEvent(QEvent* event) override;
};

} // namespace ledra
