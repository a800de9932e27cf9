#include "app/app_delegate.h"

#include <QFileInfo>

namespace ledra {

namespace {

struct Suffix
{
    QStringView text; ///< lower case
    HandedOver::Kind kind;
};

constexpr std::array suffixes = {
    Suffix{u".ledraplugin", HandedOver::Kind::plugin}, Suffix{u".ledraplugin.zip", HandedOver::Kind::plugin},
    Suffix{u".ledrastyle", HandedOver::Kind::styling}, Suffix{u".pdf", HandedOver::Kind::document},
    Suffix{u".xml", HandedOver::Kind::document},
};

QString trimmedSlashes(QString path)
{
    while (path.startsWith(u'/'))
        path.remove(0, 1);
    while (path.endsWith(u'/'))
        path.chop(1);
    return path;
}

} // namespace

HandedOver classify(const QUrl& url)
{
    const QString path = trimmedSlashes(url.path());
    if (url.scheme() == u"ledra" && url.host() == u"invoice") {
        constexpr qsizetype idLength = 36; // without the braces that QUuid would take as well
        const QUuid id = path.size() == idLength ? QUuid::fromString(path) : QUuid();
        return {id.isNull() ? HandedOver::Kind::unusableLink : HandedOver::Kind::invoiceLink, id, url};
    }
    for (const Suffix& suffix : suffixes) {
        if (path.toLower().endsWith(suffix.text))
            return {suffix.kind, {}, url};
    }
    return {HandedOver::Kind::profiles, {}, url};
}

void AppDelegate::open(const QList<QUrl>& urls)
{
    for (const QUrl& url : urls) {
        const HandedOver handed = classify(url);
        switch (handed.kind) {
        case HandedOver::Kind::invoiceLink:
            Q_EMIT invoiceLinkOpened(handed.invoiceId);
            break;
        case HandedOver::Kind::plugin:
            Q_EMIT pluginHandedOver(url);
            break;
        case HandedOver::Kind::styling:
            Q_EMIT stylingHandedOver(url);
            break;
        case HandedOver::Kind::document:
            Q_EMIT documentHandedOver(url);
            break;
        case HandedOver::Kind::profiles:
            Q_EMIT profilesHandedOver(url);
            break;
        case HandedOver::Kind::unusableLink:
            break;
        }
    }
}

void AppDelegate::continueActivity(const QUuid& invoiceId, const QUuid& profileId)
{
    Q_EMIT searchResultPicked(invoiceId, profileId);
}

} // namespace ledra
