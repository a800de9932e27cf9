#include "app/bare_files.h"

#include "platform/file_io.h"
#include "store/profile_json.h"
#include "store/styling_folder.h"
#include "store/styling_json.h"

#include <QDir>
#include <QFileInfo>

namespace ledra {

namespace {

/// Reads a file and decodes its content; the error names the file.
template <class Decode>
auto readRecord(const QString& path, Decode decode)
    -> std::expected<typename decltype(decode(QByteArray()))::value_type, QString>
{
    const std::expected<QByteArray, FileError> content = readFile(path, largestRecordFile);
    if (!content)
        return std::unexpected(content.error().text());
    auto record = decode(*content);
    if (!record)
        return std::unexpected(path + QStringLiteral(": ") + record.error().text());
    return std::move(*record);
}

} // namespace

BareFiles::BareFiles(const Clock& clock, IdSource& ids, QString region, Console& console)
    : clock_(clock), ids_(ids), region_(std::move(region)), console_(console)
{}

std::expected<Invoice, QString> BareFiles::invoice(const QString& path)
{
    return readRecord(path, [this](const QByteArray& content) {
        return decodeInvoice(content, newRecordValues(), reader_);
    });
}

std::expected<Profile, QString> BareFiles::profile(const QString& path)
{
    return readRecord(
        path, [this](const QByteArray& content) { return decodeProfile(content, newRecordValues()); });
}

std::expected<Styling, QString> BareFiles::styling(const QString& path)
{
    auto styling = readRecord(
        path, [this](const QByteArray& content) { return decodeStyling(content, newRecordValues()); });
    if (styling)
        loadStylingAssets(*styling, QFileInfo(path).absolutePath(), console_);
    return styling;
}

Profile BareFiles::defaultProfile()
{
    return newProfile(ids_.newId(), region_);
}

Styling BareFiles::defaultStyling()
{
    return newStyling(ids_.newId(), region_);
}

std::optional<Invoice> BareFiles::findInvoice(const QString& folder, const QUuid& id)
{
    const QString key = folder + u'/' + idText(id);
    if (const auto known = found_.constFind(key); known != found_.constEnd())
        return *known;

    std::optional<Invoice> found;
    const QByteArray wanted = idText(id).toLatin1();
    const QStringList names = QDir(folder).entryList({QStringLiteral("*.json")}, QDir::Files, QDir::Name);
    for (const QString& name : names) {
        const auto content = readFile(QDir(folder).filePath(name), largestRecordFile);
        if (!content || !content->toUpper().contains(wanted))
            continue; // most files are ruled out without being decoded
        const Decoded<Invoice> invoice = decodeInvoice(*content, newRecordValues(), reader_);
        if (invoice && invoice->id == id) {
            found = *invoice;
            break;
        }
    }
    found_.insert(key, found);
    return found;
}

} // namespace ledra
