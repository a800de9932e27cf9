#pragma once

#include <QFrame>
#include <QPixmap>

#include <optional>

namespace ledra {

/// Where the logo is shown, and where a file is dropped to become it.
class LogoWell : public QFrame
{
    Q_OBJECT

public:
    explicit LogoWell(QWidget* parent = nullptr);

    /// As a styling holds it.
    void setLogo(const std::optional<QString>& logo);
    bool hasPicture() const { return !picture_.isNull(); }

Q_SIGNALS:
    void dropped(const QString& path);
    void clicked();

protected:
    void paintEvent(QPaintEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void setHovered(bool isHovered);

    std::optional<QString> logo_;
    QPixmap picture_;
    bool isHovered_ = false;
};

} // namespace ledra
