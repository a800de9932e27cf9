#include "ui/styling/style_file_section.h"

#include "ui/jobs/style_exchange.h"

#include <QPushButton>

namespace ledra {

StyleFileSection::StyleFileSection(const WindowParts& parts, QWidget* parent)
    : Section(tr("Style file"), false, parent)
{
    auto* import = new QPushButton(tr("Import Style…"), this);
    import->setToolTip(tr("Takes over a whole look, with its logo and its style sheet"));
    auto* write = new QPushButton(tr("Export Style…"), this);
    write->setToolTip(tr("Writes this look into a file, for another profile or another computer"));
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(import);
    buttons->addWidget(write);
    buttons->addStretch();
    content()->addLayout(buttons);
    connect(import, &QPushButton::clicked, this, [&parts] { importStyle(parts); });
    connect(write, &QPushButton::clicked, this, [&parts] { exportStyle(parts); });
}

} // namespace ledra
