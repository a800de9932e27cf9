#include "ui/editor/recipient_section.h"

#include "app/earlier_entries.h"
#include "app/reader_language.h"
#include "model/vcard.h"

#include <QAbstractItemView>
#include <QCollator>
#include <QDragEnterEvent>
#include <QFile>
#include <QMimeData>
#include <QStandardItemModel>

namespace ledra {

namespace {

const QString vCardType = QStringLiteral("text/vcard");
const QString oldVCardType = QStringLiteral("text/x-vcard");

/// A line that tells one recipient from another.
QString summary(const Recipient& recipient)
{
    QStringList parts = {recipient.businessName, recipient.name, recipient.addressCity};
    parts.removeAll(QString());
    return parts.join(QStringLiteral(" · "));
}

bool isVCardFile(const QUrl& url)
{
    return url.isLocalFile() && url.toLocalFile().endsWith(u".vcf", Qt::CaseInsensitive);
}

/// The text of a contact that is being dropped; empty for anything else.
QByteArray vCardOf(const QMimeData& data)
{
    constexpr qint64 most = 1 << 20;
    for (const QString& type : {vCardType, oldVCardType}) {
        if (data.hasFormat(type))
            return data.data(type).left(most);
    }
    const QList<QUrl> urls = data.urls();
    for (const QUrl& url : urls) {
        QFile file(url.toLocalFile());
        if (isVCardFile(url) && file.open(QIODevice::ReadOnly))
            return file.read(most);
    }
    return {};
}

} // namespace

std::vector<ChoiceField::Choice> RecipientSection::countries()
{
    std::vector<ChoiceField::Choice> choices;
    for (const CountryFacts& facts : countryTable()) {
        const QString code =
            QString::fromLatin1(facts.code.data(), static_cast<qsizetype>(facts.code.size()));
        choices.push_back({Country{code}.displayName(readerLanguage()), code});
    }
    const QCollator collator;
    std::ranges::sort(choices,
                      [&](const auto& a, const auto& b) { return collator.compare(a.text, b.text) < 0; });
    return choices;
}

RecipientSection::RecipientSection(RecordEditing& editing, QWidget* parent)
    : Section(tr("Recipient"), false, parent),
      editing_(editing),
      business_(new TextField(editing, &Invoice::businessName, this))
{
    setAcceptDrops(true);
    QFormLayout* form = newForm();
    content()->addLayout(form);
    addRow(form, tr("Business"), business_);
    auto* name = new TextField(editing, &Invoice::name, this);
    addRow(form, tr("Name"), name);
    addRow(form, tr("Address"), new TextField(editing, &Invoice::addressLineOne, this));
    auto* second = new TextField(editing, &Invoice::addressLineTwo, this);
    addRow(form, tr("Address 2"), second);
    auto* postcode = new TextField(editing, &Invoice::addressPostcode, this);
    addRow(form, tr("Postcode"), postcode);
    addRow(form, tr("City"), new TextField(editing, &Invoice::addressCity, this));
    QLabel* state = addRow(form, tr("State"), new TextField(editing, &Invoice::addressState, this));
    addRow(form, tr("Country"),
           new ChoiceField(
               editing, countries(), [](const Invoice& invoice) { return invoice.addressCountry.code; },
               [](Invoice& invoice, const QString& code) { invoice.addressCountry.code = code; }, true,
               this));
    addRow(form, tr("E-mail"), new TextField(editing, &Invoice::email, this));
    connect(&editing, &RecordEditing::changed, state, [&editing, state] {
        if (editing.record()) // "State", "Canton", "Prefecture", as the country has it
            state->setText(tr(editing.invoice().addressCountry.stateLabel().toLatin1().constData()));
    });
    completeFrom(business_);
    completeFrom(static_cast<QLineEdit*>(name));
}

void RecipientSection::completeFrom(QLineEdit* field)
{
    struct Kept
    {
        int trigger = -1;
        std::optional<EarlierEntries> entries;
        std::vector<Recipient> offered;
    };
    auto kept = std::make_shared<Kept>();
    auto* completer = new QCompleter(new QStandardItemModel(field), field);
    completer->setCompletionMode(QCompleter::UnfilteredPopupCompletion);
    completer->setWidget(field); // not set on the line: an entry fills more than that
    connect(field, &QLineEdit::textEdited, completer, [this, kept, completer](const QString& text) {
        constexpr std::size_t most = 8;
        const InvoiceManager& invoices = editing_.parts().app.invoiceManager();
        if (kept->trigger != invoices.refreshTrigger()) {
            kept->entries.emplace(invoices.invoices());
            kept->trigger = invoices.refreshTrigger();
        }
        kept->offered =
            text.trimmed().isEmpty() ? std::vector<Recipient>() : kept->entries->recipients(text, most);
        std::erase(kept->offered, recipientOf(editing_.invoice()));
        auto* model = static_cast<QStandardItemModel*>(completer->model());
        model->clear();
        for (const Recipient& recipient : kept->offered)
            model->appendRow(new QStandardItem(summary(recipient)));
        if (kept->offered.empty())
            completer->popup()->hide();
        else
            openSuggestions(*completer);
    });
    connect(completer, qOverload<const QModelIndex&>(&QCompleter::activated), this,
            [this, kept](const QModelIndex& index) {
                const auto row = static_cast<std::size_t>(index.row());
                if (row < kept->offered.size())
                    take(kept->offered[row]);
            });
}

void RecipientSection::take(const Recipient& recipient)
{
    editing_.change([&](Invoice& invoice) { setRecipient(invoice, recipient); }, EditKind::single);
}

void RecipientSection::dragEnterEvent(QDragEnterEvent* event)
{
    const QMimeData& dragged = *event->mimeData();
    const QList<QUrl> urls = dragged.urls();
    const bool isContact = dragged.hasFormat(vCardType) || dragged.hasFormat(oldVCardType) ||
                           std::any_of(urls.begin(), urls.end(), isVCardFile);
    if (isContact && !editing_.isLocked())
        event->acceptProposedAction();
}

void RecipientSection::dropEvent(QDropEvent* event)
{
    const Country country = editing_.record() ? editing_.invoice().addressCountry : Country();
    const std::optional<Recipient> recipient = recipientFromVCard(vCardOf(*event->mimeData()), country);
    event->acceptProposedAction();
    if (recipient)
        take(*recipient);
    else
        editing_.parts().messages.warn(tr("The dropped contact holds neither a name nor an address."));
}

} // namespace ledra
