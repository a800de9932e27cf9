#pragma once

#include <QLabel>
#include <QTimer>

namespace ledra {

/// A line that stands above the lower edge of a window for a moment and takes no room.
class Toast : public QLabel
{
    Q_OBJECT

public:
    explicit Toast(QWidget* window);

    void say(const QString& line);

protected:
    void paintEvent(QPaintEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void place();

    QTimer timer_;
};

} // namespace ledra
