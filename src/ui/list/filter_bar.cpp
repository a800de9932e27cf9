#include "ui/list/filter_bar.h"

#include "ui/look/icons.h"
#include "ui/look/status_colors.h"

#include <QHBoxLayout>
#include <QSet>
#include <QSignalBlocker>
#include <QStylePainter>

namespace ledra {

namespace {

/// The days from one to another, both included.
struct Period
{
    const char* text;
    QDate (*from)(QDate today);
    QDate (*to)(QDate today);
};

QDate monthBegin(QDate day)
{
    return {day.year(), day.month(), 1};
}

QDate quarterBegin(QDate day)
{
    return {day.year(), (day.month() - 1) / 3 * 3 + 1, 1};
}

constexpr std::array periods = {
    Period{QT_TRANSLATE_NOOP("ledra::FilterBar", "This month"), monthBegin,
           [](QDate today) { return monthBegin(today).addMonths(1).addDays(-1); }},
    Period{QT_TRANSLATE_NOOP("ledra::FilterBar", "Last month"),
           [](QDate today) { return monthBegin(today).addMonths(-1); },
           [](QDate today) { return monthBegin(today).addDays(-1); }},
    Period{QT_TRANSLATE_NOOP("ledra::FilterBar", "This quarter"), quarterBegin,
           [](QDate today) { return quarterBegin(today).addMonths(3).addDays(-1); }},
    Period{QT_TRANSLATE_NOOP("ledra::FilterBar", "Last quarter"),
           [](QDate today) { return quarterBegin(today).addMonths(-3); },
           [](QDate today) { return quarterBegin(today).addDays(-1); }},
    Period{QT_TRANSLATE_NOOP("ledra::FilterBar", "This year"),
           [](QDate today) { return QDate(today.year(), 1, 1); },
           [](QDate today) { return QDate(today.year(), 12, 31); }},
    Period{QT_TRANSLATE_NOOP("ledra::FilterBar", "Last year"),
           [](QDate today) { return QDate(today.year() - 1, 1, 1); },
           [](QDate today) { return QDate(today.year() - 1, 12, 31); }},
};

/// The rows of the box of periods: any, those of the table, and days of one's own.
constexpr int ownPeriod = static_cast<int>(periods.size()) + 1;

template <class E>
std::optional<E> picked(const QComboBox& box)
{
    const QVariant value = box.currentData();
    return value.isValid() ? std::optional(static_cast<E>(value.toInt())) : std::nullopt;
}

/// Ends what has no room with an ellipsis, where others cut it off.
class NarrowBox final : public QComboBox
{
public:
    using QComboBox::QComboBox;

protected:
    void paintEvent(QPaintEvent*) override
    {
        constexpr int margins = 4;
        QStyleOptionComboBox option;
        initStyleOption(&option);
        const QRect room =
            style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, this);
        option.currentText =
            fontMetrics().elidedText(option.currentText, Qt::ElideRight, room.width() - margins);
        QStylePainter painter(this);
        painter.drawComplexControl(QStyle::CC_ComboBox, option);
        painter.drawControl(QStyle::CE_ComboBoxLabel, option);
    }
};

} // namespace

FilterBar::FilterBar(LedraApp& app, QWidget* parent)
    : QWidget(parent),
      app_(app),
      grid_(new QGridLayout),
      type_(new NarrowBox(this)),
      status_(new NarrowBox(this)),
      period_(new NarrowBox(this)),
      from_(new DayLine(this)),
      to_(new DayLine(this)),
      currency_(new NarrowBox(this)),
      reset_(new QToolButton(this))
{
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(10, 0, 6, 6); // its button stands below the one beside the search
    layout->addLayout(grid_, 1);
    layout->addWidget(reset_, 0, Qt::AlignTop);
    const std::pair<QWidget*, QString> parts[] = {
        {type_, tr("Type")}, {status_, tr("Status")},     {period_, tr("Period")},     {from_, tr("From")},
        {to_, tr("To")},     {currency_, tr("Currency")}, {reset_, tr("Clear Filter")}};
    for (const auto& [part, name] : parts) {
        part->setAccessibleName(name);
        part->setToolTip(name);
        if (auto* box = qobject_cast<QComboBox*>(part)) {
            box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
            box->setMinimumContentsLength(6);
            box->setMinimumWidth(1);
            box->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
        }
    }
    reset_->setIcon(lineIcon("close"));
    type_->addItem(tr("All types"));
    type_->addItem(tr("Invoices"), static_cast<int>(InvoiceType::invoice));
    type_->addItem(tr("Cancellations"), static_cast<int>(InvoiceType::cancellation));
    type_->addItem(tr("Quotes"), static_cast<int>(InvoiceType::quote));
    status_->addItem(tr("Any status"));
    for (const Status status : {Status::draft, Status::sent, Status::paid, Status::cancelled})
        status_->addItem(statusLook(status).displayText(), static_cast<int>(status));
    offerPeriods();
    offerCurrencies();
    for (QComboBox* box : {type_, status_, currency_})
        connect(box, &QComboBox::activated, this, &FilterBar::apply);
    connect(period_, &QComboBox::activated, this, &FilterBar::periodPicked);
    for (DayLine* day : {from_, to_}) {
        day->hide();
        connect(day, &DayLine::chosen, this, &FilterBar::apply);
    }
    connect(reset_, &QToolButton::clicked, this, &FilterBar::reset);
    connect(&app.invoiceManager(), &InvoiceManager::refreshed, this, &FilterBar::offerCurrencies);
    arrange();
}

/// Puts what is shown side by side, and in more rows where that would be too narrow.
void FilterBar::arrange()
{
    constexpr int leastWidth = 112;
    std::vector<QWidget*> shown;
    for (QWidget* part : std::initializer_list<QWidget*>{type_, status_, period_, from_, to_, currency_}) {
        grid_->removeWidget(part);
        const bool isPutAway = part->isHidden() && part->testAttribute(Qt::WA_WState_ExplicitShowHide);
        if (!isPutAway) // what was never shown yet counts as hidden, too
            shown.push_back(part);
    }
    // The width of the grid itself is only right after the layout that this leads to.
    const QMargins around = layout()->contentsMargins();
    const int room = width() - around.left() - around.right() - reset_->sizeHint().width();
    const int fitting = std::max(1, room / (leastWidth + grid_->horizontalSpacing()));
    const int columns = std::min(fitting, static_cast<int>(shown.size()));
    for (int column = 0; column < std::max(columns, arranged_); ++column)
        grid_->setColumnStretch(column, column < columns ? 1 : 0);
    int place = 0;
    for (QWidget* part : shown) {
        grid_->addWidget(part, place / columns, place % columns);
        ++place;
    }
    arranged_ = columns;
}

void FilterBar::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    arrange();
}

void FilterBar::offerPeriods()
{
    period_->addItem(tr("Any time"));
    for (const Period& period : periods)
        period_->addItem(tr(period.text));
    period_->addItem(tr("From … to …"));
}

/// Those that records have; there is nothing to choose between where all have one.
void FilterBar::offerCurrencies()
{
    const QString chosen = currency_->currentData().toString();
    QSet<QString> codes;
    for (const InvoicePtr& record : app_.invoiceManager().invoices())
        codes.insert((*record)->currency.code);
    QStringList sorted(codes.begin(), codes.end());
    sorted.sort();
    currency_->clear();
    currency_->addItem(tr("All currencies"));
    for (const QString& code : std::as_const(sorted))
        currency_->addItem(code, code);
    currency_->setCurrentIndex(std::max(0, currency_->findData(chosen)));
    currency_->setVisible(sorted.size() > 1);
    arrange();
}

void FilterBar::periodPicked()
{
    const bool isOwn = period_->currentIndex() == ownPeriod;
    if (isOwn) {
        const QDate today = app_.clock().now().localDate();
        from_->forget();
        to_->forget();
        from_->setDay(QDate(today.year(), 1, 1));
        to_->setDay(today);
    }
    from_->setVisible(isOwn);
    to_->setVisible(isOwn);
    arrange();
    apply();
}

void FilterBar::apply()
{
    Narrowing narrowing;
    narrowing.type = picked<InvoiceType>(*type_);
    narrowing.status = picked<Status>(*status_);
    const int row = period_->currentIndex();
    if (row == ownPeriod) {
        narrowing.from = from_->day();
        narrowing.to = to_->day();
    } else if (row > 0) {
        const Period& period = periods.at(static_cast<std::size_t>(row) - 1);
        const QDate today = app_.clock().now().localDate();
        narrowing.from = period.from(today);
        narrowing.to = period.to(today);
    }
    if (currency_->currentIndex() > 0)
        narrowing.currency = Currency{currency_->currentData().toString()};
    InvoiceFilter filter = app_.filterManager().filter();
    filter.narrowing = narrowing;
    app_.filterManager().setFilter(filter);
}

void FilterBar::reset()
{
    for (QComboBox* box : {type_, status_, period_, currency_})
        box->setCurrentIndex(0);
    from_->hide();
    to_->hide();
    arrange();
    apply();
}

} // namespace ledra
