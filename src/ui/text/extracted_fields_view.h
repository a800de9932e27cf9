#pragma once

#include "app/text_extraction.h"

#include <QMap>
#include <QTreeWidget>

namespace ledra {

/// The fields that were found in a text, by group. While they arrive they can only be looked at; then each
/// can be corrected, or emptied, so that it is not used.
class ExtractedFieldsView : public QTreeWidget
{
    Q_OBJECT

public:
    explicit ExtractedFieldsView(QWidget* parent);

    void setFields(const ExtractedInvoice& fields, bool isComplete);
    const ExtractedInvoice& fields() const { return fields_; }

Q_SIGNALS:
    void edited();

private:
    QTreeWidgetItem* groupOf(const QString& path);
    void show(const ExtractedText& field);
    void take(QTreeWidgetItem* item);

    ExtractedInvoice fields_;
    bool isComplete_ = false;
    QMap<QString, QTreeWidgetItem*> rows_;   ///< by path; an emptied one stays
    QMap<QString, QTreeWidgetItem*> groups_; ///< by the beginning of the path
};

} // namespace ledra
