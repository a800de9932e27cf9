#pragma once

#include <QFrame>
#include <QLabel>
#include <QTimer>

namespace ledra {

/// Says above the content that something is at work, with a way to end it. The window goes on meanwhile.
/// What is done in a moment does not show.
class BusyBar : public QFrame
{
    Q_OBJECT

public:
    explicit BusyBar(QWidget* parent = nullptr);

    /// @param line what is going on; empty when it has ended
    void say(const QString& line);

Q_SIGNALS:
    void cancelled();

private:
    QLabel* text_;
    QTimer delay_;
};

} // namespace ledra
