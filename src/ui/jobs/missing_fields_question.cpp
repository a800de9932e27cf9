#include "ui/jobs/missing_fields_question.h"

#include "einvoice/missing_fields.h"
#include "ui/jobs/question.h"

#include <QCoreApplication>

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

QString textOf(const std::vector<Incomplete>& incomplete)
{
    constexpr std::size_t most = 8;
    QString text =
        MissingFields::tr("The following required fields for e-invoices are empty:") + QStringLiteral("\n\n");
    for (const auto& [number, labels] : incomplete | std::views::take(most))
        text += QStringLiteral("%1: %2\n\n").arg(number, labels.join(QStringLiteral(", ")));
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
    const QString text = isOne ? missingFieldsText(incomplete.front().second) : textOf(incomplete);
    order.allowMissing = true;
    order.missingIsTold = true;
    ask(window, {missingFieldsTitle.toString(), text, {action}, QMessageBox::Information},
        [order = std::move(order), goOn](int) { goOn(order); });
}

} // namespace ledra
