#pragma once

#include "exchange/csv_exporter.h"
#include "ui/window_parts.h"

#include <QCheckBox>
#include <QFileDialog>

namespace ledra {

/// Asks where a list goes and what stands in it. The choices are kept.
class CsvDialog : public QFileDialog
{
    Q_OBJECT

public:
    explicit CsvDialog(const WindowParts& parts);

    std::set<CSVExporter::Column> columns() const;
    bool guardsFormulas() const { return guard_->isChecked(); }

    /// Stays open while no column is chosen.
    void accept() override;

private:
    QWidget* makeAccessory();
    void restoreChoices();
    void keepChoices() const;

    const WindowParts& parts_;
    std::vector<std::pair<CSVExporter::Column, QCheckBox*>> boxes_;
    QCheckBox* guard_;
};

/// Asks, and writes the list of the records.
void exportCsv(const WindowParts& parts, const std::vector<InvoicePtr>& records);

} // namespace ledra
