#include "ui/jobs/document_drag.h"

#include <QEventLoop>
#include <QPointer>
#include <QTimer>
#include <QUrl>

namespace ledra {

namespace {

const QString urlList = QStringLiteral("text/uri-list");

QByteArray uriList(const QList<QUrl>& urls)
{
    QByteArray text;
    for (const QUrl& url : urls)
        text += url.toEncoded() + "\r\n";
    return text;
}

} // namespace

QStringList DocumentDrag::formats() const
{
    return {urlList};
}

QVariant DocumentDrag::retrieveData(const QString& mimeType, QMetaType type) const
{
    if (mimeType != urlList)
        return {};
    const std::shared_ptr<Files> files = files_;
    // Whoever takes the drop may ask again while events run below; there is nothing for them yet.
    if (!files->isMade && !files->isUnderWay)
        makeFiles();
    if (type.id() == QMetaType::QByteArray)
        return uriList(files->urls);
    QVariantList urls;
    for (const QUrl& url : files->urls)
        urls += url;
    return urls;
}

/// The data must be there when this returns, and the documents come from the event loop.
void DocumentDrag::makeFiles() const
{
    constexpr int limit = 10'000; // milliseconds
    const std::shared_ptr<Files> files = files_;
    files->isUnderWay = true;
    QEventLoop loop;
    const QPointer<ExportJob> job = documents_.start(records_, [files](const ExportOutcome& outcome) {
        for (const QString& file : outcome.files)
            files->urls += QUrl::fromLocalFile(file);
    });
    if (job) {
        QObject::connect(job, &QObject::destroyed, &loop, &QEventLoop::quit);
        QTimer::singleShot(limit, &loop, &QEventLoop::quit);
        loop.exec(QEventLoop::ExcludeUserInputEvents);
    }
    if (job)
        job->cancel();
    files->isMade = true;
    files->isUnderWay = false;
}

} // namespace ledra
