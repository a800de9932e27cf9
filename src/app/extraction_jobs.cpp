#include "app/extraction_jobs.h"

#include "platform/file_io.h"

#include <QStringDecoder>

namespace ledra {

namespace {

constexpr qint64 mostInput = 4 * longestExtractedText; ///< bytes; a character has up to four

} // namespace

JobResult<InvoicePtr> createFromText(LedraApp& app, const ExtractedInvoice& extracted)
{
    const Profile profile = **app.profileManager().activeProfile();
    return app.undoableJobs().create(InvoiceType::invoice, [&](Invoice& invoice) {
        (void)apply(extracted, invoice, {profile, app.ids()});
    });
}

JobResult<void> fillFromText(LedraApp& app, const QUuid& id, const ExtractedInvoice& extracted)
{
    const Profile profile = **app.profileManager().activeProfile();
    return app.undoableJobs().edit(
        id, [&](Invoice& invoice) { (void)apply(extracted, invoice, {profile, app.ids()}); },
        EditKind::single);
}

std::vector<UnusedText> unusedIn(LedraApp& app, const InvoicePtr& draft, const ExtractedInvoice& extracted)
{
    const Profile profile = **app.profileManager().activeProfile();
    Invoice target =
        draft ? **draft
              : invoiceFromProfile(InvoiceType::invoice, {profile, 1, app.clock().now(), app.ids()});
    return apply(extracted, target, {profile, app.ids()});
}

std::expected<QString, QString> textOfFile(const QString& path)
{
    const std::expected<QByteArray, FileError> input = readFile(path, mostInput);
    if (!input)
        return std::unexpected(input.error().text());
    QStringDecoder utf8(QStringDecoder::Utf8);
    const QString text = utf8(*input);
    return utf8.hasError() ? QString::fromLatin1(*input) : text;
}

} // namespace ledra
