#include "ui/styling/styling_panel.h"

#include "ui/look/icons.h"
#include "ui/look/undo_guard.h"
#include "ui/styling/logo_well.h"
#include "ui/styling/style_file_section.h"
#include "ui/styling/styling_sections.h"

#include <QApplication>
#include <QPushButton>

namespace ledra {

StylingPanel::StylingPanel(const WindowParts& parts, QWidget* parent)
    : QWidget(parent), parts_(parts), editing_(parts), scroll_(new QScrollArea(this))
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(makeHeader());
    layout->addWidget(scroll_, 1);
    scroll_->setWidgetResizable(true);
    scroll_->setFrameShape(QFrame::NoFrame);
    scroll_->setFocusPolicy(Qt::NoFocus); // its fields take the focus
    scroll_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    constexpr int width = 440; // that of the editor, whose place it takes
    setMinimumWidth(width);
    new UndoGuard(*this);
}

/// The sections write what is pending, for which they need what they edit.
StylingPanel::~StylingPanel()
{
    delete scroll_;
}

QWidget* StylingPanel::makeHeader()
{
    auto* header = new QWidget(this);
    auto* row = new QHBoxLayout(header);
    row->setContentsMargins(16, 8, 8, 4);
    auto* title = new QLabel(tr("Invoice Styling"), header);
    QFont font = title->font();
    constexpr double larger = 1.2;
    font.setPointSizeF(font.pointSizeF() * larger);
    font.setWeight(QFont::DemiBold);
    title->setFont(font);
    row->addWidget(title, 1);
    auto* reset = new QPushButton(tr("Reset to Defaults"), header);
    reset->setToolTip(tr("Everything but the logo and the style sheet"));
    connect(reset, &QPushButton::clicked, this, [this] { editing_.jobs().reset(); });
    row->addWidget(reset);
    auto* close = new QToolButton(header);
    close->setIcon(lineIcon("close"));
    close->setToolTip(tr("Close Styling"));
    close->setAccessibleName(tr("Close Styling"));
    connect(close, &QToolButton::clicked, this, &StylingPanel::closeWanted);
    row->addWidget(close);
    return header;
}

/// Samples of fonts need the catalogue of all of them, which takes a while to read.
void StylingPanel::showEvent(QShowEvent* event)
{
    if (!form_) {
        editing_.fonts().loadInstalled();
        addSections();
    }
    QWidget::showEvent(event);
}

void StylingPanel::addSections()
{
    form_ = new QWidget;
    auto* sections = new QVBoxLayout(form_);
    sections->setContentsMargins(16, 12, 16, 20);
    sections->setSpacing(20);
    for (QWidget* section : std::initializer_list<QWidget*>{
             new LogoSection(editing_, form_), new ColorsSection(editing_, form_),
             new FontsSection(editing_, form_), new PageSection(editing_, form_),
             new TableSection(editing_, form_), new StyleSheetSection(editing_, form_),
             new StyleFileSection(parts_, form_)})
        sections->addWidget(section);
    sections->addStretch();
    scroll_->setWidget(form_);
}

void StylingPanel::start()
{
    if (form_)
        form_->findChild<LogoWell*>()->setFocus(Qt::OtherFocusReason);
}

} // namespace ledra
