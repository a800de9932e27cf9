#pragma once

#include "app/app_delegate.h"
#include "app/auto_export_folder.h"
#include "app/backup_restore.h"
#include "app/filter_manager.h"
#include "app/invoice_jobs.h"
#include "app/kept_files.h"
#include "app/plugin_jobs.h"
#include "app/reminder_jobs.h"
#include "app/settings.h"
#include "app/undoable_jobs.h"
#include "app/undoable_reminder_jobs.h"
#include "app/undoable_styling.h"
#include "exchange/profile_exporter.h"
#include "exchange/styling_archives.h"
#include "platform/file_device.h"
#include "render/invoice_document.h"
#include "store/backup_manager.h"
#include "store/styling_manager.h"

#include <QObject>
#include <QTimer>

#include <memory>
#include <optional>

namespace ledra {

class WebFontManager;

/// The windows, as the application needs them; the user interface implements it.
class WindowController
{
public:
    virtual ~WindowController() = default;

    /// Brings the main window and the application to the front.
    virtual void showMainWindow() = 0;
    virtual void openSettings() = 0;
};

/// Looks for newer versions of the application.
class UpdaterController
{
public:
    virtual ~UpdaterController() = default;
    virtual void start() = 0;
    virtual void checkForUpdates() = 0;
};

/// What the application gets from outside. Tests put in a clock, ids and a device of their own; what is
/// missing is the computer's. A command has neither windows nor an updater.
struct LaunchOptions
{
    Console& console;
    const Clock* clock = nullptr;
    IdSource* ids = nullptr;
    FileDevice* device = nullptr;
    WindowController* windows = nullptr;
    UpdaterController* updater = nullptr;
    bool watchesFolders = true;
    bool loadsInvoices = true;           ///< false for a command that has nothing to do with them
    std::optional<QString> profile = {}; ///< the one to work with in this run, as lookUpProfile() takes it
    PluginSetting plugins = {};
};

/// The application: its long-lived objects and its state. The command line and the windows are two front ends
/// over it. They read the stores; what changes records goes through jobs().
///
/// It is built in a fixed order, each step complete before the next: the updater starts, then what was
/// interrupted last time is finished, then the profiles, after them the invoices of the active one and then
/// the plugins are loaded.
class LedraApp : public QObject
{
    Q_OBJECT

public:
    explicit LedraApp(const LaunchOptions& options);
    ~LedraApp() override;

    AppDelegate& appDelegate() { return *appDelegate_; }
    ProfileManager& profileManager() { return *profileManager_; }
    const InvoiceManager& invoiceManager() const { return *invoiceManager_; }
    FilterManager& filterManager() { return *filterManager_; }
    StylingManager& stylingManager() { return *stylingManager_; }
    ReminderManager& reminderManager() { return *reminderManager_; }
    InvoiceJobs& jobs() { return *jobs_; }
    UndoableJobs undoableJobs() { return {*invoiceManager_, *jobs_}; }
    QUndoStack& undoStack() { return invoiceManager_->undoStack(); }
    ReminderJobs& reminderJobs() { return *reminderJobs_; }
    UndoableReminderJobs undoableReminderJobs() { return {*reminderManager_, *reminderJobs_, undoStack()}; }
    KeptFiles& keptFiles() { return *keptFiles_; }
    BackupManager& backupManager() { return *backupManager_; }
    PluginManager& pluginManager() { return *pluginManager_; }
    PluginJobs& pluginJobs() { return *pluginJobs_; }
    Console& console() { return context_.console; }
    UserDefaults& defaults() { return defaults_; }
    const UsageSignals& usageSignals() const { return usage_; }
    UndoableStyling undoableStyling() { return {*stylingManager_, undoStack()}; }

    /// What records of the active profile are shown with.
    DocumentSetting documentSetting();

    // Files that hold profiles or a styling.
    ProfileExporter profileExporter() { return {*profileManager_, writer_}; }
    ProfileImporter profileImporter() { return {context_, *profileManager_}; }
    StylingExporter stylingExporter() { return StylingExporter(*profileManager_); }
    StylingImporter stylingImporter() { return {context_, *stylingManager_}; }
    std::expected<ImportedProfiles, ArchiveFailure> restoreBackup(const QString& path);

    /// That of the active profile.
    AutoExportFolder autoExportFolder();

    /// Makes backups from now on when they are due, at once and then every hour; for a program that stays.
    void keepBackups();

    Settings& settings() { return settings_; }
    UpdaterController* updaterController() { return updater_; }
    const Clock& clock() const { return context_.clock; }
    IdSource& ids() { return context_.ids; }

    /// Why the wanted profile could not be taken; nothing when all is well.
    const std::optional<QString>& launchProblem() const { return launchProblem_; }

    /// Hands in the undo stack of the window in front.
    void setUndoStackSource(std::function<QUndoStack*()> source);

    /// Makes style sheets anew when the catalogue has loaded.
    void followFonts(const WebFontManager& fonts);

    /// Whether documents are dark in dark windows. The profile in use carries it to other computers; the
    /// setting follows the profile.
    std::expected<void, StoreFailure> setInvoiceDarkMode(bool isDark);

    /// The label of the icon in the dock: the count, or nothing.
    QString badgeLabel(int count) const;

    // What the windows show.
    bool openEdit = false;
    std::optional<QUuid> selectedInvoiceId;
    std::optional<QUuid> selectedReminderId;
    std::optional<QUuid> pendingSpotlightInvoiceId; ///< to be revealed once the list is ready
    bool showDeleteConfirmation = false;
    InvoicePtr invoiceToDelete;
    bool isSearchFieldFocused = false;
    bool showSearchBar = false;

Q_SIGNALS:
    void revealRequested();    ///< pendingSpotlightInvoiceId was set
    void openPluginSettings(); ///< the settings are to show their page of plugins

private:
    void connectDelegate();
    void reveal(const QUuid& id);
    void chooseProfile(const std::optional<QString>& wanted);

    std::unique_ptr<AppDelegate> appDelegate_;
    WindowController* windows_;
    UpdaterController* updater_;
    SystemClock systemClock_;
    RandomIdSource randomIds_;
    SystemFileDevice systemDevice_;
    FileUserDefaults defaults_;
    Settings settings_;
    TrashBin trash_;
    DataFileWriter writer_;
    StoreContext context_;
    UsageSignals usage_;
    std::unique_ptr<ProfileManager> profileManager_;
    std::unique_ptr<InvoiceManager> invoiceManager_;
    std::unique_ptr<PluginManager> pluginManager_;
    std::unique_ptr<FilterManager> filterManager_;
    std::unique_ptr<StylingManager> stylingManager_;
    std::unique_ptr<ReminderManager> reminderManager_;
    std::unique_ptr<InvoiceJobs> jobs_;
    std::unique_ptr<PluginJobs> pluginJobs_;
    std::unique_ptr<ReminderJobs> reminderJobs_;
    std::unique_ptr<KeptFiles> keptFiles_;
    std::unique_ptr<BackupManager> backupManager_;
    QTimer backupTimer_;
    std::optional<QString> launchProblem_;
};

} // namespace ledra
