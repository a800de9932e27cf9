#include "store/styling_manager.h"

#include "platform/folder_watcher.h"
#include "store/styling_folder.h"
#include "store/styling_json.h"

#include <QDir>
#include <QFileInfo>

namespace ledra {

namespace {

const QString stylingFile = QStringLiteral("/styling.json");

} // namespace

StylingManager::StylingManager(StoreContext& context, ProfileManager& profiles, UsageSignals& usage)
    : context_(context), profiles_(profiles), usage_(usage), saver_([this] { (void)save(); })
{
    open();
    connect(&profiles, &ProfileManager::activeProfileChanged, this, &StylingManager::open);
    connect(&profiles, &ProfileManager::dataFolderChanged, this, &StylingManager::open);
}

StylingManager::~StylingManager() = default;

void StylingManager::open()
{
    const ProfilePtr& profile = profiles_.activeProfile();
    const QString folder = profile ? profiles_.profilePlace(**profile).value_or(QString()) : QString();
    if (folder == folder_ && styling_)
        return;
    saver_.flush();
    folder_ = folder;
    styling_.reset();
    watcher_.reset();
    if (context_.watchesFolders && !folder_.isEmpty()) {
        watcher_ = std::make_unique<FolderWatcher>(folder_);
        connect(watcher_.get(), &FolderWatcher::changed, this, &StylingManager::follow, Qt::QueuedConnection);
    }
    load();
}

void StylingManager::follow(const FolderChanges& changes)
{
    if (profileFolderProblem(folder_))
        return; // what is shown stays until the folder is back
    const auto isAsset = [](const QString& name) { return isLogoFile(name) || isStyleSheetFile(name); };
    const QString path = folder_ + stylingFile;
    const auto isForeign = [&] {
        const auto content = readFile(path, largestRecordFile);
        return (content ? std::optional(ContentMark::of(*content)) : std::nullopt) != mark_;
    };
    if ((changes.rescan || changes.names.contains(QStringLiteral("styling.json"))) && isForeign())
        load();
    else if (changes.rescan || std::ranges::any_of(changes.names, isAsset))
        loadAssets();
}

void StylingManager::load()
{
    if (saver_.isPending())
        return; // saving will find the other version and keep it
    mark_.reset();
    if (!profiles_.activeProfile()) {
        styling_.reset();
        published_.reset();
        touch();
        return;
    }
    Styling loaded = read();
    if (loaded.id.isNull())
        loaded.id = styling_ ? (*styling_)->id : context_.ids.newId();
    if (styling_)
        styling_->edit([&](Styling& styling) { styling = loaded; });
    else
        styling_ = std::make_shared<StylingRecord>(loaded);
    published_ = styling_;
    touch();
}

/// The styling of the profile's folder with its assets; a new one, without an id, where there is none.
Styling StylingManager::read()
{
    Styling loaded = newStyling(QUuid(), context_.region);
    if (folder_.isEmpty())
        return loaded;
    const QString path = folder_ + stylingFile;
    if (QFileInfo::exists(path)) {
        const auto content = readFile(path, largestRecordFile);
        const Decoded<Styling> decoded =
            content ? decodeStyling(*content, context_.newRecordValues()) : std::unexpected(DecodingError{});
        if (decoded) {
            loaded = *decoded;
            mark_ = ContentMark::of(*content);
        } else { // without a mark: the first save keeps what could not be read
            context_.console.failure(
                QStringLiteral("Error loading styling from %1: %2")
                    .arg(path, content ? decoded.error().text() : content.error().reason));
        }
    }
    loadStylingAssets(loaded, folder_, context_.console);
    return loaded;
}

void StylingManager::loadAssets()
{
    if (!styling_ || folder_.isEmpty())
        return;
    Styling loaded = **styling_;
    loadStylingAssets(loaded, folder_, context_.console);
    if (loaded == **styling_)
        return;
    styling_->edit([&](Styling& styling) { styling = loaded; });
    touch();
}

void StylingManager::touch()
{
    lastUpdated_ = context_.clock.now();
    Q_EMIT changed();
}

void StylingManager::fontCatalogDidLoad()
{
    load();
}

std::expected<void, StoreFailure> StylingManager::save()
{
    if (!styling_)
        return std::unexpected(StoreFailure{QStringLiteral("No active profile selected")});
    const auto fail = [this](const QString& reason) {
        const QString line = QStringLiteral("Error saving styling: ") + reason;
        context_.console.failure(line);
        return std::unexpected(StoreFailure{line, true});
    };
    if (const std::optional<QString> problem = profileFolderProblem(folder_))
        return fail(*problem);
    const auto written = context_.writer.writeAtomically(
        {.path = folder_ + stylingFile, .content = fileText(**styling_), .known = mark_});
    if (!written)
        return fail(written.error().text());
    mark_ = *written;
    return {};
}

std::expected<void, StoreFailure> StylingManager::edit(const std::function<void(Styling&)>& change)
{
    if (!styling_)
        return std::unexpected(StoreFailure{QStringLiteral("No active profile selected")});
    styling_->edit(change);
    touch();
    return save();
}

void StylingManager::editSoon(const std::function<void(Styling&)>& change)
{
    if (!styling_)
        return;
    styling_->edit(change);
    touch();
    saver_.schedule();
}

// ---- imports

std::expected<void, StylingError> StylingManager::importLogo(const QString& path)
{
    if (!isLogoFile(path))
        return std::unexpected(StylingError{QStringLiteral(
            "Invalid file type. Only SVG, PNG, JPG, JPEG, and WebP files are supported for logos.")});
    return import(path, QStringLiteral("logo.") + QFileInfo(path).suffix().toLower(), isLogoFile,
                  largestLogo);
}

std::expected<void, StylingError> StylingManager::importStyleSheet(const QString& path)
{
    if (!isStyleSheetFile(path))
        return std::unexpected(
            StylingError{QStringLiteral("Invalid file type. Only CSS files are supported.")});
    auto imported = import(path, QStringLiteral("style.css"), isStyleSheetFile, largestStyleSheet);
    if (imported)
        usage_.record(QStringLiteral("Styling.CSS"));
    return imported;
}

std::expected<void, StylingError> StylingManager::setLogo(const std::optional<QString>& content)
{
    const LogoFile file = content ? logoFile(*content) : LogoFile{};
    if (content)
        return keep(file.bytes, file.name, isLogoFile, largestLogo);
    const auto discarded = discard(isLogoFile);
    loadAssets();
    return discarded;
}

std::expected<void, StylingError> StylingManager::setStyleSheet(const std::optional<QString>& text)
{
    if (text)
        return keep(text->toUtf8(), QStringLiteral("style.css"), isStyleSheetFile, largestStyleSheet);
    const auto discarded = discard(isStyleSheetFile);
    loadAssets();
    return discarded;
}

std::expected<void, StylingError> StylingManager::import(const QString& path, const QString& target,
                                                         bool (*isOfKind)(const QString&), qint64 limit)
{
    const auto content = readFile(path, limit);
    if (!content)
        return std::unexpected(StylingError{content.error().text()});
    return keep(*content, target, isOfKind, limit);
}

/// Puts a file into the profile's folder under the name `target`; then the others of its kind go.
std::expected<void, StylingError> StylingManager::keep(const QByteArray& content, const QString& target,
                                                       bool (*isOfKind)(const QString&), qint64 limit)
{
    if (!profiles_.activeProfile())
        return std::unexpected(StylingError{QStringLiteral("No active profile selected")});
    if (const std::optional<QString> problem = profileFolderProblem(folder_))
        return std::unexpected(StylingError{*problem});
    const QString targetPath = folder_ + u'/' + target;
    if (content.size() > limit)
        return std::unexpected(StylingError{targetPath + QStringLiteral(": is too large")});
    const auto before = readFile(targetPath, limit); // what the user replaces is no conflict
    const auto written = context_.writer.writeAtomically(
        {.path = targetPath,
         .content = content,
         .known = before ? std::optional(ContentMark::of(*before)) : std::nullopt});
    if (!written)
        return std::unexpected(StylingError{written.error().text()});
    if (auto discarded = discard(isOfKind, target); !discarded)
        return discarded;
    loadAssets();
    return {};
}

/// Moves the files of a kind to the trash.
std::expected<void, StylingError> StylingManager::discard(bool (*isOfKind)(const QString&),
                                                          const QString& except)
{
    if (profileFolderProblem(folder_))
        return {}; // and nothing in it
    for (const QString& name : QDir(folder_).entryList(QDir::Files, QDir::Name)) {
        if (!isOfKind(name) || name == except)
            continue;
        if (const auto trashed = context_.trash.put(folder_ + u'/' + name); !trashed)
            return std::unexpected(StylingError{trashed.error().text()});
    }
    return {};
}

std::expected<void, StylingError> StylingManager::replace(const Styling& styling, const QString& logo,
                                                          const QString& styleSheet)
{
    if (!styling_)
        return std::unexpected(StylingError{QStringLiteral("No active profile selected")});
    for (bool (*isOfKind)(const QString&) : {isLogoFile, isStyleSheetFile}) {
        if (auto discarded = discard(isOfKind); !discarded)
            return discarded;
    }
    if (auto imported = logo.isEmpty() ? std::expected<void, StylingError>() : importLogo(logo); !imported)
        return imported;
    if (auto imported =
            styleSheet.isEmpty() ? std::expected<void, StylingError>() : importStyleSheet(styleSheet);
        !imported)
        return imported;
    loadAssets();
    const auto done = edit([&](Styling& own) {
        const Styling before = own;
        own = styling;
        own.id = before.id;
        own.logo = before.logo; // these come from the files
        own.css = before.css;
    });
    if (!done)
        return std::unexpected(StylingError{done.error().text});
    return {};
}

} // namespace ledra
