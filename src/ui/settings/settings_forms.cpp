#include "ui/settings/settings_forms.h"

#include "ui/look/section.h"
#include "ui/settings/settings_access.h"

#include <QVBoxLayout>

namespace ledra {

QVBoxLayout* newFormPage(QWidget* page)
{
    auto* layout = new QVBoxLayout(page);
    layout->setSpacing(24);
    return layout;
}

FieldForm* addForm(QVBoxLayout* page, const QString& title)
{
    auto* section = new Section(title, false, nullptr); // the page owns it
    auto* form = new FieldForm(section);
    section->content()->addWidget(form);
    page->addWidget(section);
    return form;
}

} // namespace ledra
