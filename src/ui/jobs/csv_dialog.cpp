#include "ui/jobs/csv_dialog.h"

#include "app/reader_language.h"
#include "platform/file_io.h"
#include "ui/jobs/file_panels.h"
#include "ui/jobs/file_reveal.h"

#include <QCoreApplication>
#include <QGridLayout>
#include <QLabel>

namespace ledra {

namespace {

using Column = CSVExporter::Column;

const QString columnsKey = QStringLiteral("CSVExport.columns");
const QString guardKey = QStringLiteral("CSVExport.guardsFormulas");

void write(const WindowParts& parts, const std::vector<InvoicePtr>& records, const CsvDialog& dialog,
           const QString& target)
{
    std::vector<const Invoice*> invoices;
    for (const InvoicePtr& record : records)
        invoices.push_back(&**record);
    const CSVExporter::Reader reader{QLocale(), readerLanguage(), dialog.guardsFormulas()};
    const Profile& profile = **parts.app.profileManager().activeProfile();
    const QByteArray text = CSVExporter::text(invoices, dialog.columns(), profile, reader);
    if (const auto written = writeExport(target, text, Overwrite::replace); !written) {
        parts.app.console().information(QStringLiteral("Error writing CSV: ") + written.error().text());
        parts.messages.warn(written.error().text());
        return;
    }
    parts.app.console().information(QStringLiteral("CSV exported to: ") + target);
    parts.messages.inform(CsvDialog::tr("Exported: %1").arg(QFileInfo(target).fileName()),
                          {{CsvDialog::tr("Show"), [target] { FileReveal().show({target}); }}});
}

} // namespace

CsvDialog::CsvDialog(const WindowParts& parts)
    : QFileDialog(&parts.window),
      parts_(parts),
      guard_(new QCheckBox(tr("Protect against formulas in spreadsheets")))
{
    setAttribute(Qt::WA_DeleteOnClose);
    setOption(DontUseNativeDialog); // a desktop's own panel has no place for the columns
    setUpSavePanel(*this, parts,
                   {tr("Export as CSV"), tr("Invoices") + QStringLiteral(".csv"), tr("CSV (*.csv)")});
    if (auto* grid = qobject_cast<QGridLayout*>(layout()))
        grid->addWidget(makeAccessory(), grid->rowCount(), 0, 1, -1);
    restoreChoices();
}

QWidget* CsvDialog::makeAccessory()
{
    constexpr int perRow = 5;
    auto* accessory = new QWidget(this);
    auto* grid = new QGridLayout(accessory);
    grid->setContentsMargins(0, 8, 0, 0);
    grid->setHorizontalSpacing(16);
    grid->addWidget(new QLabel(tr("Include:"), accessory), 0, 0);
    int place = 0;
    for (const EnumText<Column>& row : enumTexts<Column>) {
        auto* box =
            new QCheckBox(QCoreApplication::translate("CSVExporter", row.displayText.data()), accessory);
        grid->addWidget(box, place / perRow, 1 + place % perRow);
        boxes_.emplace_back(row.value, box);
        ++place;
    }
    guard_->setToolTip(tr("Puts an apostrophe before texts that a spreadsheet would run as a formula."));
    grid->addWidget(guard_, grid->rowCount(), 1, 1, perRow);
    grid->setColumnStretch(perRow + 1, 1);
    return accessory;
}

std::set<Column> CsvDialog::columns() const
{
    std::set<Column> chosen;
    for (const auto& [column, box] : boxes_) {
        if (box->isChecked())
            chosen.insert(column);
    }
    return chosen;
}

void CsvDialog::restoreChoices()
{
    const QStringList kept = parts_.app.defaults().value(columnsKey).toStringList();
    for (const auto& [column, box] : boxes_)
        box->setChecked(kept.isEmpty() || kept.contains(QString::fromLatin1(rawValue(column).data())));
    guard_->setChecked(parts_.app.defaults().boolean(guardKey, false));
}

void CsvDialog::keepChoices() const
{
    QStringList kept;
    for (const Column column : columns())
        kept += QString::fromLatin1(rawValue(column).data());
    const std::pair<QString, QVariant> values[] = {{columnsKey, kept}, {guardKey, guardsFormulas()}};
    for (const auto& [key, value] : values) {
        if (const auto set = parts_.app.defaults().setValue(key, value); !set)
            parts_.app.console().failure(set.error());
    }
}

void CsvDialog::accept()
{
    if (columns().empty()) {
        boxes_.front().second->setFocus(Qt::OtherFocusReason);
        return;
    }
    keepChoices();
    QFileDialog::accept();
}

void exportCsv(const WindowParts& parts, const std::vector<InvoicePtr>& records)
{
    auto* dialog = new CsvDialog(parts);
    QObject::connect(
        dialog, &QFileDialog::fileSelected, dialog,
        [&parts, records, dialog](const QString& target) { write(parts, records, *dialog, target); });
    dialog->open();
}

} // namespace ledra
