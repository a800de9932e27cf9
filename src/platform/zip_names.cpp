#include "platform/zip_names.h"

#include <QByteArrayList>
#include <QUtf8StringView>

#include <algorithm>
#include <array>

namespace ledra {

namespace {

constexpr qsizetype longestComponent = 255; // bytes, as file systems have it
constexpr qsizetype longestPath = 4095;     // what the system takes in one call

bool isAsciiLetter(char character)
{
    return (character >= 'A' && character <= 'Z') || (character >= 'a' && character <= 'z');
}

bool isControl(QChar character)
{
    return character.category() == QChar::Other_Control;
}

QByteArrayList components(const QByteArray& name)
{
    return (name.endsWith('/') ? name.chopped(1) : name).split('/');
}

bool hasComponent(const QByteArray& name, bool (*matches)(const QByteArray&))
{
    return std::ranges::any_of(components(name), matches);
}

struct NameRule
{
    bool (*isBroken)(const QByteArray& name);
    QStringView reason;
};

constexpr std::array<NameRule, 7> nameRules{{
    {[](const QByteArray& name) { return name.size() > longestPath; }, u"the path is too long"},
    {[](const QByteArray& name) { return !QUtf8StringView(name).isValidUtf8(); }, u"the name is no text"},
    {[](const QByteArray& name) { return std::ranges::any_of(QString::fromUtf8(name), isControl); },
     u"the name has control characters"},
    {[](const QByteArray& name) { return name.startsWith('/'); }, u"the path is absolute"},
    {[](const QByteArray& name) { return name.size() > 1 && isAsciiLetter(name[0]) && name[1] == ':'; },
     u"the path begins with a drive"},
    {[](const QByteArray& name) {
         return hasComponent(
             name, [](const QByteArray& part) { return part.isEmpty() || part == "." || part == ".."; });
     },
     u"the path has an empty part, “.” or “..”"},
    {[](const QByteArray& name) {
         return hasComponent(name, [](const QByteArray& part) { return part.size() > longestComponent; });
     },
     u"the name is too long"},
}};

} // namespace

QString shownName(const QByteArray& name)
{
    constexpr qsizetype longest = 100;
    QString shown = QString::fromUtf8(name.first(std::min(name.size(), 4 * longest)));
    std::ranges::replace_if(shown, isControl, QChar(QChar::ReplacementCharacter));
    return shown.size() > longest ? shown.first(longest) + u'…' : shown;
}

QByteArray ZipNames::folderPath(std::size_t at) const
{
    QByteArrayList parts;
    for (int number = static_cast<int>(at) + 1; number != root;) {
        const Folder& folder = folders_[static_cast<std::size_t>(number) - 1];
        parts.prepend(folder.name);
        number = folder.parent;
    }
    return parts.join('/');
}

std::expected<void, QString> ZipNames::add(const QByteArray& name)
{
    for (const NameRule& rule : nameRules) {
        if (rule.isBroken(name))
            return std::unexpected(rule.reason.toString());
    }
    const bool isFolder = name.endsWith('/');
    const QByteArray path = isFolder ? name.chopped(1) : name;
    const auto folder = folderOf(path);
    if (!folder)
        return std::unexpected(folder.error());
    const auto place =
        addPlace(*folder, path.sliced(path.lastIndexOf('/') + 1), isFolder ? Kind::folder : Kind::file);
    if (!place)
        return std::unexpected(place.error());
    return {};
}

/// The folder in which a path ends, with those above it.
std::expected<int, QString> ZipNames::folderOf(const QByteArray& path)
{
    const qsizetype end = path.lastIndexOf('/');
    if (end < 0)
        return root;
    if (end == latestPath_.size() && path.startsWith(latestPath_))
        return latestFolder_;
    int folder = root;
    for (qsizetype start = 0; start <= end;) {
        const qsizetype slash = path.indexOf('/', start);
        const auto found = addPlace(folder, path.sliced(start, slash - start), Kind::impliedFolder);
        if (!found)
            return found;
        folder = *found;
        start = slash + 1;
    }
    latestPath_ = path.first(end);
    latestFolder_ = folder;
    return folder;
}

/// Adds what has a name in a folder. Returns the number of the folder that this is.
std::expected<int, QString> ZipNames::addPlace(int folder, const QByteArray& name, Kind kind)
{
    const Key key(folder, QString::fromUtf8(name).normalized(QString::NormalizationForm_C));
    const auto found = places_.find(key);
    if (found == places_.end()) {
        if (kind != Kind::file)
            folders_.push_back({folder, name});
        const int number = kind == Kind::file ? root : static_cast<int>(folders_.size());
        places_.insert(key, {name, kind, number});
        return number;
    }
    const bool isSameFolder = kind != Kind::file && found->kind != Kind::file;
    const bool isFirstOfItsOwn = kind == Kind::impliedFolder || found->kind == Kind::impliedFolder;
    if (!isSameFolder || !isFirstOfItsOwn || found->name != name)
        return std::unexpected(QStringLiteral("another entry has the same name"));
    if (kind == Kind::folder)
        found->kind = kind;
    return found->folder;
}

} // namespace ledra
