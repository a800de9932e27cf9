#include "ui/preview/preview_panel.h"

#include "ui/look/empty_state.h"
#include "ui/look/icons.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

#include <cmath>

namespace ledra {

namespace {

/// Percent of the paper's size.
constexpr std::array steps = {25, 33, 50, 67, 80, 90, 100, 110, 125, 150, 175, 200, 250, 300};

/// Pixels that a point of paper has on a screen whose pixels are those of the standard resolution.
constexpr double pixelsPerPoint = 96.0 / 72.0;

int percentOf(double factor)
{
    return static_cast<int>(std::lround(factor / pixelsPerPoint * 100));
}

} // namespace

PreviewPanel::PreviewPanel(QtWebEngine& engine, Console& console, QWidget* parent)
    : QWidget(parent),
      preview_(new DocumentPreview(engine, console, this)),
      hint_(new EmptyState(this)),
      stack_(new QStackedWidget(this)),
      bar_(new QWidget(this)),
      page_(new QLabel(bar_)),
      factor_(new QLabel(bar_))
{
    preview_->setAccessibleName(tr("Document"));
    auto* tools = new QHBoxLayout(bar_);
    tools->setContentsMargins(10, 4, 10, 4);
    page_->setForegroundRole(QPalette::PlaceholderText);
    page_->setAccessibleName(tr("Page"));
    page_->setMinimumWidth(1); // the buttons remain in a narrow panel
    tools->addWidget(page_, 1);
    tools->addWidget(addButton("zoom-out", tr("Zoom Out"), &PreviewPanel::zoomOut));
    factor_->setAlignment(Qt::AlignCenter);
    factor_->setMinimumWidth(fontMetrics().horizontalAdvance(QStringLiteral("000 %")));
    tools->addWidget(factor_);
    tools->addWidget(addButton("zoom-in", tr("Zoom In"), &PreviewPanel::zoomIn));
    tools->addWidget(addButton("fit", tr("Fit Width"), &PreviewPanel::fitWidth));
    stack_->addWidget(preview_);
    stack_->addWidget(hint_);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(stack_, 1);
    layout->addWidget(bar_);
    setMinimumWidth(250);
    connect(preview_, &DocumentPreview::shown, this, &PreviewPanel::showState);
    connect(preview_, &DocumentPreview::scrolled, this, &PreviewPanel::showState);
    connect(preview_, &DocumentPreview::resized, this, [this] {
        if (fits_)
            fitWidth();
    });
}

QToolButton* PreviewPanel::addButton(const char* icon, const QString& name, void (PreviewPanel::*run)())
{
    auto* button = new QToolButton(bar_);
    button->setIcon(lineIcon(icon));
    button->setToolTip(name);
    button->setAccessibleName(name);
    connect(button, &QToolButton::clicked, this, run);
    return button;
}

void PreviewPanel::show(std::shared_ptr<const PaginatedDocument> document, bool isOther)
{
    preview_->show(std::move(document), isOther);
    stack_->setCurrentWidget(preview_);
    bar_->show();
}

void PreviewPanel::showHint(const QString& title, const QString& text)
{
    preview_->clear();
    hint_->setContent("new-quote", title, text);
    stack_->setCurrentWidget(hint_);
    bar_->hide();
}

void PreviewPanel::step(int direction)
{
    const int now = percentOf(preview_->zoom());
    const auto above = std::ranges::upper_bound(steps, now);
    const auto atLeast = std::ranges::lower_bound(steps, now);
    if (direction > 0 && above != steps.end())
        setFactor(*above * pixelsPerPoint / 100, false);
    else if (direction < 0 && atLeast != steps.begin())
        setFactor(*std::prev(atLeast) * pixelsPerPoint / 100, false);
}

void PreviewPanel::fitWidth()
{
    constexpr double least = 0.25;
    constexpr double most = 2.5; // a page wider than this is no longer looked at as a whole
    setFactor(std::clamp(preview_->factorThatFits(), least, most), true);
}

void PreviewPanel::actualSize()
{
    setFactor(pixelsPerPoint, false);
}

void PreviewPanel::setFactor(double factor, bool fits)
{
    fits_ = fits;
    preview_->setZoom(factor);
    showState();
}

void PreviewPanel::showState()
{
    factor_->setText(tr("%1 %").arg(percentOf(preview_->zoom())));
    page_->setText(preview_->pageCount() == 0
                       ? QString()
                       : tr("Page %1 of %2").arg(preview_->currentPage()).arg(preview_->pageCount()));
}

QString PreviewPanel::zoomText() const
{
    return fits_ ? QStringLiteral("fit")
                 : QString::number(preview_->zoom(), 'g', QLocale::FloatingPointShortest);
}

void PreviewPanel::setZoomText(const QString& text)
{
    bool isNumber = false;
    const double factor = text.toDouble(&isNumber);
    constexpr double least = 0.1;
    constexpr double most = 5;
    if (isNumber && factor >= least && factor <= most)
        setFactor(factor, false);
    else
        fitWidth();
}

} // namespace ledra
