#include "ui/running_program.h"

#include "ui/main_window.h"
#include "ui/settings/settings_window.h"

#include <QApplication>
#include <QFileInfo>
#include <QTimer>

namespace ledra {

namespace {

/// The actions of the .desktop file, which docks offer on the program's icon.
struct DesktopAction
{
    QStringView name;
    const char* command;
};

constexpr std::array desktopActions = {
    DesktopAction{u"new-invoice", "New Invoice"},
    DesktopAction{u"new-quote", "New Quote"},
};

} // namespace

RunningProgram::RunningProgram(ApplicationBus& bus)
    : app_({.console = console_, .windows = &front_, .updater = &updater_}),
      settingsWatcher_(QFileInfo(FileUserDefaults::path()).path()),
      language_(app_.settings()),
      appearance_(app_.settings()),
      icon_(app_.settings()),
      badge_(app_)
{
    app_.followFonts(fonts_);
    connect(&appearance_, &AppearanceController::changed, &icon_, &ApplicationIcon::apply);
    followBus(bus);
    followSettingsFile();
    openWindow();
    app_.keepBackups();
    app_.pluginManager().start();
}

RunningProgram::~RunningProgram() = default;

void RunningProgram::open(const QList<QUrl>& urls)
{
    app_.appDelegate().open(urls);
}

void RunningProgram::followBus(ApplicationBus& bus)
{
    connect(&bus, &ApplicationBus::activated, this, [this] { front_.showMainWindow(); });
    connect(&bus, &ApplicationBus::opened, this, &RunningProgram::open);
    connect(&bus, &ApplicationBus::actionWanted, this, [this](const QString& name) {
        const auto found = std::ranges::find(desktopActions, QStringView(name), &DesktopAction::name);
        if (found != desktopActions.end())
            window_->commands().action(found->command)->trigger();
    });
}

/// Settings that the command line changes.
void RunningProgram::followSettingsFile()
{
    connect(&settingsWatcher_, &FolderWatcher::changed, this, [this](const FolderChanges& changes) {
        const bool isOurs =
            changes.rescan || changes.names.contains(QFileInfo(FileUserDefaults::path()).fileName());
        if (isOurs)
            followWhenAnswered();
    });
}

/// What a dialog asks is answered first.
void RunningProgram::followWhenAnswered()
{
    using namespace std::chrono_literals;
    if (QApplication::activeModalWidget())
        QTimer::singleShot(500ms, this, &RunningProgram::followWhenAnswered);
    else
        followSettings();
}

void RunningProgram::openWindow()
{
    window_ = std::make_unique<MainWindow>(app_, engine_, fonts_);
    front_.setWindow(window_.get());
    connect(window_.get(), &MainWindow::appearanceChanged, this, &RunningProgram::followSettings);
    connect(&updater_, &PackageUpdater::answered, &window_->parts().messages, &MessageBar::note);
    window_->follow(console_);
    window_->show();
}

void RunningProgram::followSettings()
{
    appearance_.apply();
    icon_.apply();
    badge_.update();
    if (language_.isOutdated()) // not while a field of the window that goes is still at work
        QMetaObject::invokeMethod(this, &RunningProgram::speakAnew, Qt::QueuedConnection);
}

/// Texts are translated where they are made, so windows are made anew rather than told in a hundred places.
void RunningProgram::speakAnew()
{
    if (!language_.isOutdated())
        return;
    const auto* settings = window_->findChild<SettingsWindow*>();
    const bool hadSettings = settings && settings->isVisible();
    QApplication::setQuitOnLastWindowClosed(false);
    if (window_->close()) { // else it has said why it stays; the next start has the language
        front_.setWindow(nullptr);
        window_.reset();
        language_.apply();
        openWindow();
        if (hadSettings)
            window_->openSettings();
    }
    QApplication::setQuitOnLastWindowClosed(true);
}

} // namespace ledra
