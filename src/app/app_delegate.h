#pragma once

#include <QList>
#include <QObject>
#include <QUrl>
#include <QUuid>

namespace ledra {

/// What something is that the system hands to the application: a link, a double-clicked or a dropped file.
struct HandedOver
{
    enum class Kind { invoiceLink, unusableLink, plugin, styling, document, profiles };

    Kind kind = Kind::profiles;
    QUuid invoiceId; ///< of an invoice link
    QUrl url;
};

/// Links "ledra://invoice/ID" and files by their extensions; whatever is left is taken for an archive of
/// profiles.
HandedOver classify(const QUrl& url);

/// Takes what the system hands over, and says to whom it belongs.
class AppDelegate : public QObject
{
    Q_OBJECT

public:
    void open(const QList<QUrl>& urls);

    /// A search result of the desktop was picked.
    void continueActivity(const QUuid& invoiceId, const QUuid& profileId);

Q_SIGNALS:
    void invoiceLinkOpened(const QUuid& id);
    void pluginHandedOver(const QUrl& url);
    void stylingHandedOver(const QUrl& url);
    void documentHandedOver(const QUrl& url); ///< a PDF or an e-invoice
    void profilesHandedOver(const QUrl& url);
    void searchResultPicked(const QUuid& invoiceId, const QUuid& profileId);
};

} // namespace ledra
