#pragma once

#include "model/styling.h"
#include "platform/usage_signals.h"
#include "store/content_mark.h"
#include "store/profile_manager.h"
#include "store/rate_limited_saver.h"

#include <QObject>

#include <expected>
#include <memory>
#include <optional>

namespace ledra {

class FolderWatcher;
struct FolderChanges;

/// An error that users see, with the component that it comes from.
struct StylingError
{
    QString text;
    QString domain = QStringLiteral("StylingManager");
};

/// A styling as others see it.
using StylingPtr = std::shared_ptr<const StylingRecord>;

/// The styling of the active profile with its logo and its style sheet.
///
/// "styling.json" is written in one step. Imported files are kept as "logo.EXTENSION" and "style.css" in the
/// profile's folder.
class StylingManager : public QObject
{
    Q_OBJECT

public:
    /// Loads at once and follows the active profile and its files from then on.
    StylingManager(StoreContext& context, ProfileManager& profiles, UsageSignals& usage);
    ~StylingManager() override;

    /// Nothing when no profile is active.
    const StylingPtr& styling() const { return published_; }
    Timestamp lastUpdated() const { return lastUpdated_; }

    void load();

    /// Writes "styling.json".
    std::expected<void, StoreFailure> save();

    /// Changes the styling and writes it, at once or a little later.
    std::expected<void, StoreFailure> edit(const std::function<void(Styling&)>& change);
    void editSoon(const std::function<void(Styling&)>& change);

    /// Both copy a file into the profile's folder, in place of an earlier one of any extension, which goes to
    /// the trash.
    std::expected<void, StylingError> importLogo(const QString& path);
    std::expected<void, StylingError> importStyleSheet(const QString& path);

    // The same for a content as the styling holds it, such as one that was edited or is brought back; nothing
    // takes the file away, to the trash.
    std::expected<void, StylingError> setLogo(const std::optional<QString>& content);
    std::expected<void, StylingError> setStyleSheet(const std::optional<QString>& text);

    /// Takes over another styling under this one's id, with its logo and style sheet, each the path of a file
    /// or empty for none; what was there of these goes to the trash.
    std::expected<void, StylingError> replace(const Styling& styling, const QString& logo,
                                              const QString& styleSheet);

    /// To be called when the font catalogue has loaded: style sheets are made anew.
    void fontCatalogDidLoad();

Q_SIGNALS:
    void changed(); ///< lastUpdated() has moved

private:
    void open();
    void follow(const FolderChanges& changes);
    Styling read();
    void loadAssets();
    void touch();
    std::expected<void, StylingError> discard(bool (*isOfKind)(const QString&), const QString& except = {});
    std::expected<void, StylingError> import(const QString& path, const QString& target,
                                             bool (*isOfKind)(const QString&), qint64 limit);
    std::expected<void, StylingError> keep(const QByteArray& content, const QString& target,
                                           bool (*isOfKind)(const QString&), qint64 limit);

    StoreContext& context_;
    ProfileManager& profiles_;
    UsageSignals& usage_;
    QString folder_;
    std::shared_ptr<StylingRecord> styling_;
    StylingPtr published_;
    std::optional<ContentMark> mark_; ///< of "styling.json"; nothing without the file
    Timestamp lastUpdated_;
    std::unique_ptr<FolderWatcher> watcher_;
    RateLimitedSaver saver_;
};

} // namespace ledra
