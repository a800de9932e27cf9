#pragma once

#include <QString>

class QVBoxLayout;
class QWidget;

namespace ledra {

class FieldForm;

/// The column of a page of forms.
QVBoxLayout* newFormPage(QWidget* page);

/// A form under a heading of its own, at the end of the column.
FieldForm* addForm(QVBoxLayout* page, const QString& title);

} // namespace ledra
