#include "app/ledra_app.h"

#include "app/record_lookup.h"
#include "model/region.h"
#include "render/web_font_manager.h"

#include <QStandardPaths>

namespace ledra {

namespace {

/// The application's folder of the user, whatever the running program is called.
QString supportFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + QStringLiteral("/Ledra");
}

} // namespace

LedraApp::LedraApp(const LaunchOptions& options)
    : appDelegate_(std::make_unique<AppDelegate>()),
      windows_(options.windows),
      updater_(options.updater),
      settings_(defaults_),
      trash_(supportFolder() + QStringLiteral("/Trash")),
      writer_(supportFolder(), options.device ? *options.device : systemDevice_, options.console),
      context_{supportFolder(),
               systemRegion(),
               options.clock ? *options.clock : systemClock_,
               options.ids ? *options.ids : randomIds_,
               defaults_,
               writer_,
               trash_,
               options.console,
               options.watchesFolders},
      usage_(supportFolder() + QStringLiteral("/UsageSignals.txt"), defaults_)
{
    if (updater_)
        updater_->start();
    writer_.recover();
    profileManager_ = std::make_unique<ProfileManager>(context_);
    chooseProfile(options.profile);
    invoiceManager_ = std::make_unique<InvoiceManager>(
        context_, *profileManager_,
        options.loadsInvoices ? InvoiceManager::Loading::atOnce : InvoiceManager::Loading::never);
    pluginManager_ = std::make_unique<PluginManager>(context_, options.plugins);
    filterManager_ = std::make_unique<FilterManager>(*invoiceManager_, *profileManager_, context_.clock);
    stylingManager_ = std::make_unique<StylingManager>(context_, *profileManager_, usage_);
    reminderManager_ = std::make_unique<ReminderManager>(context_, *profileManager_, *invoiceManager_);
    jobs_ = std::make_unique<InvoiceJobs>(*invoiceManager_, *profileManager_);
    pluginJobs_ =
        std::make_unique<PluginJobs>(context_, *pluginManager_, *jobs_, *invoiceManager_, *profileManager_);
    reminderJobs_ = std::make_unique<ReminderJobs>(*reminderManager_, *invoiceManager_, *jobs_);
    keptFiles_ = std::make_unique<KeptFiles>(context_, *profileManager_, *invoiceManager_);
    backupManager_ = std::make_unique<BackupManager>(
        context_, [this](const QString& target) -> std::expected<void, QString> {
            const auto written = profileExporter().writeAll(target, Overwrite::refuse);
            return written ? std::expected<void, QString>() : std::unexpected(written.error().text());
        });
    connectDelegate();
}

LedraApp::~LedraApp() = default;

void LedraApp::chooseProfile(const std::optional<QString>& wanted)
{
    if (!wanted)
        return;
    if (const auto profile = lookUpProfile(*profileManager_, *wanted))
        profileManager_->useForThisRun((**profile)->id);
    else
        launchProblem_ = profile.error();
}

void LedraApp::connectDelegate()
{
    connect(appDelegate_.get(), &AppDelegate::invoiceLinkOpened, this, &LedraApp::reveal);
    connect(appDelegate_.get(), &AppDelegate::searchResultPicked, this,
            [this](const QUuid& invoiceId, const QUuid& profileId) {
                profileManager_->resolveActiveProfile(profileId);
                reveal(invoiceId);
            });
    connect(appDelegate_.get(), &AppDelegate::pluginHandedOver, this, [this](const QUrl& package) {
        pluginManager_->pendingPackages += package;
        pluginManager_->showInstallDialog = true;
        if (windows_)
            windows_->openSettings();
        Q_EMIT openPluginSettings();
    });
}

std::expected<ImportedProfiles, ArchiveFailure> LedraApp::restoreBackup(const QString& path)
{
    return ledra::restoreBackup(context_, *profileManager_, path);
}

DocumentSetting LedraApp::documentSetting()
{
    const InvoiceManager& invoices = *invoiceManager_;
    return {.profile = **profileManager_->activeProfile(),
            .styling = **stylingManager_->styling(),
            .invoices =
                [&invoices](const QUuid& id) {
                    const InvoicePtr found = invoices.find(id);
                    return found ? std::optional(**found) : std::nullopt;
                },
            .paymentDeadlineDays = settings_.number("paymentDeadlineDays")};
}

AutoExportFolder LedraApp::autoExportFolder()
{
    const ProfilePtr& profile = profileManager_->activeProfile();
    return {defaults_, context_.console, profile ? (*profile)->id : QUuid()};
}

void LedraApp::keepBackups()
{
    using namespace std::chrono_literals;
    connect(&backupTimer_, &QTimer::timeout, this, [this] { (void)backupManager_->backUpIfDue(); });
    backupTimer_.start(1h); // the day may turn, and the computer may sleep, while the program runs
    (void)backupManager_->backUpIfDue(); // failures are told on the console
}

void LedraApp::reveal(const QUuid& id)
{
    if (windows_)
        windows_->showMainWindow();
    pendingSpotlightInvoiceId = id;
    Q_EMIT revealRequested();
}

void LedraApp::setUndoStackSource(std::function<QUndoStack*()> source)
{
    invoiceManager_->setUndoStackSource(std::move(source));
}

void LedraApp::followFonts(const WebFontManager& fonts)
{
    connect(&fonts, &WebFontManager::fontCatalogDidLoad, stylingManager_.get(),
            &StylingManager::fontCatalogDidLoad);
}

std::expected<void, StoreFailure> LedraApp::setInvoiceDarkMode(bool isDark)
{
    Profile changed = **profileManager_->activeProfile();
    if (!changed.profileName)
        return {}; // there is only the setting
    changed.invoiceDarkMode = isDark;
    return profileManager_->saveProfile(changed, changed.profileName.value_or(QString()));
}

QString LedraApp::badgeLabel(int count) const
{
    return settings_.boolean("showBadge") && count >= 1 ? QString::number(count) : QString();
}

} // namespace ledra
