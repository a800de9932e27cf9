#pragma once

#include "ui/window_parts.h"

#include <QDialog>
#include <QListWidget>
#include <QStackedWidget>

#include <span>

namespace ledra {

class SettingsWindow;

/// A page of the settings, made when it is first opened.
struct SettingsPage
{
    const char* title; ///< English; also the name by which it is opened
    const char* icon;
    QWidget* (*make)(SettingsWindow& window);
    bool scrolls = true; ///< false: it scrolls by itself
};

/// All of them, in their order.
std::span<const SettingsPage> settingsPages();

/// What holds for the whole application and for its profiles. It stands beside the main window; what is
/// changed is kept at once.
class SettingsWindow : public QDialog
{
    Q_OBJECT

public:
    explicit SettingsWindow(const WindowParts& main, QWidget* parent = nullptr);
    ~SettingsWindow() override;

    LedraApp& app() const { return parts_.app; }
    const WindowParts& parts() const { return parts_; }

    /// Opens the page of that English title; an unknown one changes nothing.
    void openPage(const QString& title);

    /// Says above the page what could not be done.
    void tell(const QString& line);
    void tell(const std::expected<void, QString>& done);
    void tell(const JobResult<void>& done);

Q_SIGNALS:
    void appearanceChanged(); ///< or language, icon or badge

protected:
    void closeEvent(QCloseEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void showPage(int number);

    MessageBar* messages_;
    WindowParts parts_;
    QListWidget* titles_;
    QStackedWidget* pages_;
};

} // namespace ledra
