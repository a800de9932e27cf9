#include "ui/jobs/missing_fields_question.h"

#include "einvoice/missing_fields.h"
#include "ui/jobs/question.h"

#include <QCoreApplication>
#include <QRegularExpression>

#include <ranges>

namespace ledra {

namespace {

struct MissingFields
{
    Q_DECLARE_TR_FUNCTIONS(MissingFields)
};

/// An incomplete document and the labels of what it lacks.
using Incomplete = std::pair<QString, QStringList>;

/// Documents that cannot be read are not among them; the export itself says why.
std::vector<Incomplete> incompleteDocuments(const ExportOrder& order)
{
    std::vector<Incomplete> incomplete;
    for (const ExportSource& source : order.sources) {
        const auto record = source.read();
        if (const QStringList labels = record ? missingFields(record->invoice) : QStringList();
            !labels.isEmpty())
            incomplete.emplace_back(source.label, labels);
    }
    return incomplete;
}

QStringList translated(const QStringList& labels)
{
    static const QRegularExpression item(QStringLiteral("^Description for item (\\d+)$"));
    QStringList texts;
    for (const QString& label : labels) {
        const QRegularExpressionMatch match = item.match(label);
        texts += match.hasMatch() ? MissingFields::tr("Description for item %1").arg(match.captured(1))
                                  : MissingFields::tr(label.toUtf8().constData());
    }
    return texts;
}

QString textOf(const QStringList& labels)
{
    QString text =
        MissingFields::tr("The following required fields for e-invoices are empty:") + QStringLiteral("\n\n");
    for (const QString& label : translated(labels))
        text += QStringLiteral("\u2013\u2002") + label + u'\n';
    return text + u'\n' + MissingFields::tr("The exported invoice may not be valid.");
}

QString textOf(const std::vector<Incomplete>& incomplete)
{
    constexpr std::size_t most = 8;
    QString text =
        MissingFields::tr("The following required fields for e-invoices are empty:") + QStringLiteral("\n\n");
    for (const auto& [number, labels] : incomplete | std::views::take(most))
        text += QStringLiteral("%1: %2\n\n").arg(number, translated(labels).join(QStringLiteral(", ")));
    if (incomplete.size() > most)
        text += MissingFields::tr("and %n more", nullptr, static_cast<int>(incomplete.size() - most)) +
                QStringLiteral("\n\n");
    return text + MissingFields::tr("The exported invoices may not be valid.");
}

} // namespace

void askAboutMissingFields(QWidget& window, const QString& action, ExportOrder order,
                           const std::function<void(ExportOrder)>& goOn)
{
    const std::vector<Incomplete> incomplete =
        isEInvoice(order.format) ? incompleteDocuments(order) : std::vector<Incomplete>();
    if (incomplete.empty()) {
        goOn(std::move(order));
        return;
    }
    const bool isOne = order.sources.size() == 1;
    const QString text = isOne ? textOf(incomplete.front().second) : textOf(incomplete);
    order.allowMissing = true;
    order.missingIsTold = true;
    ask(window,
        {MissingFields::tr(missingFieldsTitle.toUtf8().constData()),
         text,
         {action},
         QMessageBox::Information},
        [order = std::move(order), goOn](int) { goOn(order); });
}

} // namespace ledra
