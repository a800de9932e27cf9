#include "ui/list/side_bar.h"

#include "app/reader_language.h"
#include "model/amount_text.h"
#include "ui/look/icons.h"
#include "ui/look/profile_symbols.h"

#include <QPainter>
#include <QSignalBlocker>
#include <QStyledItemDelegate>
#include <QVBoxLayout>

namespace ledra {

namespace {

using Kind = SmartList::Kind;

struct Title
{
    Kind kind;
    const char* text;
    const char* icon;
};

constexpr std::array titles = {
    Title{Kind::all, QT_TRANSLATE_NOOP("ledra::SideBar", "All"), "all"},
    Title{Kind::drafts, QT_TRANSLATE_NOOP("ledra::SideBar", "Drafts"), "drafts"},
    Title{Kind::sent, QT_TRANSLATE_NOOP("ledra::SideBar", "Sent"), "sent"},
    Title{Kind::overdue, QT_TRANSLATE_NOOP("ledra::SideBar", "Overdue"), "overdue"},
    Title{Kind::paid, QT_TRANSLATE_NOOP("ledra::SideBar", "Paid"), "paid"},
    Title{Kind::cancelled, QT_TRANSLATE_NOOP("ledra::SideBar", "Cancelled"), "cancelled"},
    Title{Kind::quotes, QT_TRANSLATE_NOOP("ledra::SideBar", "Quotes"), "quotes"},
};

constexpr int countRole = Qt::UserRole;
constexpr int sumsRole = Qt::UserRole + 1;

QStringList sumTexts(const SmartListContent& content)
{
    QStringList sums;
    for (const SmartListContent::Sum& sum : content.sums)
        sums += amountText(sum.total, sum.currency, readerLanguage());
    return sums;
}

/// A list's drawing, name and count, with its sums in small letters below.
class EntryDelegate final : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        const bool hasSums = !index.data(sumsRole).toString().isEmpty();
        return {0, option.fontMetrics.height() + (hasSums ? smallFont(option).second.height() : 0) + 14};
    }

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        const bool isChosen = option.state.testFlag(QStyle::State_Selected);
        const bool isHovered = option.state.testFlag(QStyle::State_MouseOver);
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        const QRect ground = option.rect.adjusted(6, 1, -6, -1);
        if (isChosen || isHovered) {
            painter->setPen(Qt::NoPen);
            painter->setBrush(option.palette.brush(isChosen ? QPalette::Highlight : QPalette::Midlight));
            painter->drawRoundedRect(ground, 6, 6);
        }
        paintTexts(*painter, option, index, ground, isChosen);
        painter->restore();
    }

private:
    static std::pair<QFont, QFontMetrics> smallFont(const QStyleOptionViewItem& option)
    {
        constexpr double smaller = 0.85;
        QFont font = option.font;
        font.setPointSizeF(font.pointSizeF() * smaller);
        return {font, QFontMetrics(font)};
    }

    static void paintTexts(QPainter& painter, const QStyleOptionViewItem& option, const QModelIndex& index,
                           const QRect& ground, bool isChosen)
    {
        constexpr int icon = 18;
        const int line = option.fontMetrics.height();
        const QRect top(ground.left() + 8, ground.top() + 6, ground.width() - 18, line);
        const QIcon drawing = index.data(Qt::DecorationRole).value<QIcon>();
        drawing.paint(&painter, QRect(top.left(), top.center().y() - icon / 2, icon, icon), Qt::AlignCenter,
                      isChosen ? QIcon::Selected : QIcon::Normal);
        const QColor ink = option.palette.color(isChosen ? QPalette::HighlightedText : QPalette::WindowText);
        const QColor faint = isChosen ? ink : option.palette.color(QPalette::PlaceholderText);
        const QString count = index.data(countRole).toString();
        painter.setFont(option.font);
        painter.setPen(faint);
        painter.drawText(top, Qt::AlignRight | Qt::AlignVCenter, count);
        painter.setPen(ink);
        const QRect title = top.adjusted(icon + 8, 0, -option.fontMetrics.horizontalAdvance(count) - 8, 0);
        painter.drawText(
            title, Qt::AlignLeft | Qt::AlignVCenter,
            option.fontMetrics.elidedText(index.data().toString(), Qt::ElideRight, title.width()));
        const auto [small, metrics] = smallFont(option);
        const QRect below(title.left(), top.bottom() + 1, ground.right() - title.left() - 8,
                          metrics.height());
        painter.setFont(small);
        painter.setPen(faint);
        painter.drawText(below, Qt::AlignLeft | Qt::AlignVCenter,
                         metrics.elidedText(index.data(sumsRole).toString(), Qt::ElideRight, below.width()));
    }
};

} // namespace

SideBar::SideBar(LedraApp& app, QWidget* parent)
    : QWidget(parent), app_(app), profiles_(new QComboBox(this)), lists_(new QListWidget(this))
{
    profiles_->setAccessibleName(tr("Profile"));
    profiles_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    lists_->setAccessibleName(tr("Lists"));
    lists_->setFrameShape(QFrame::NoFrame);
    lists_->setItemDelegate(new EntryDelegate(lists_));
    lists_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    lists_->setMouseTracking(true);
    lists_->viewport()->setAutoFillBackground(false);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 10, 0, 0);
    auto* top = new QVBoxLayout;
    top->setContentsMargins(10, 0, 10, 4);
    top->addWidget(profiles_);
    layout->addLayout(top);
    layout->addWidget(lists_);
    setMinimumWidth(170);
    connect(profiles_, &QComboBox::activated, this, [this](int row) {
        app_.profileManager().resolveActiveProfile(profiles_->itemData(row).toUuid());
    });
    connect(lists_, &QListWidget::currentRowChanged, this, &SideBar::pick);
    connect(&app.profileManager(), &ProfileManager::profilesChanged, this, &SideBar::showProfiles);
    connect(&app.profileManager(), &ProfileManager::activeProfileChanged, this, &SideBar::showProfiles);
    connect(&app.invoiceManager(), &InvoiceManager::refreshed, this, &SideBar::showLists);
    constexpr int aMoment = 150; // milliseconds
    pause_.setSingleShot(true);
    pause_.setInterval(aMoment);
    connect(&app.invoiceManager(), &InvoiceManager::edited, &pause_, qOverload<>(&QTimer::start));
    connect(&pause_, &QTimer::timeout, this, &SideBar::showListsWhenPrepared);
    pause_.start();
    connect(&app.reminderManager(), &ReminderManager::refreshed, this, &SideBar::showLists);
    showProfiles();
    showLists();
}

void SideBar::showProfiles()
{
    const QSignalBlocker quiet(profiles_);
    profiles_->clear();
    for (const ProfilePtr& profile : app_.profileManager().profiles()) {
        profiles_->addItem(profileIcon((*profile)->icon), (*profile)->displayName(), (*profile)->id);
        if (profile == app_.profileManager().activeProfile())
            profiles_->setCurrentIndex(profiles_->count() - 1);
    }
}

void SideBar::addEntry(const Entry& entry)
{
    const SmartList& list = entry.content.list;
    const auto row = std::ranges::find(titles, list.kind, &Title::kind);
    const bool isYear = row == titles.end();
    const QString title = entry.isReminders ? tr("Reminders")
                          : isYear          ? QString::number(list.year)
                                            : tr(row->text);
    const QStringList sums = sumTexts(entry.content);
    const char* icon = entry.isReminders ? "reminder" : isYear ? "year" : row->icon;
    auto* item = new QListWidgetItem(lineIcon(icon), title, lists_); // which owns it
    item->setData(countRole, entry.content.count == 0 ? QString() : QString::number(entry.content.count));
    item->setData(sumsRole, sums.join(QStringLiteral(" · ")));
    item->setToolTip(sums.join(u'\n'));
    item->setData(Qt::AccessibleTextRole, QStringLiteral("%1, %2").arg(title).arg(entry.content.count));
    entries_.push_back(entry);
}

int SideBar::rowOfChosen() const
{
    const auto found = std::ranges::find_if(entries_, [this](const Entry& entry) {
        return entry.isReminders == areRemindersChosen_ &&
               (areRemindersChosen_ || entry.content.list == chosen_);
    });
    return found == entries_.end() ? 0 : static_cast<int>(found - entries_.begin());
}

/// Adds up a long list in slices, so that typing can go on between them.
void SideBar::showListsWhenPrepared()
{
    using namespace std::chrono_literals;
    const InvoiceManager& invoices = app_.invoiceManager();
    if (!contents_.prepare(invoices.list(), invoices.contentRevision(), QDeadlineTimer(6ms))) {
        QTimer::singleShot(0, this, &SideBar::showListsWhenPrepared);
        return;
    }
    countsReminders_ = true;
    showLists();
}

/// Fills the lists anew and stays on the chosen one, or goes back to all records where it is no longer there.
void SideBar::showLists()
{
    const QSignalBlocker quiet(lists_);
    // Before anything is cleared: reading them says that they are new.
    const std::size_t reminders = countsReminders_ ? app_.reminderManager().reminders().size() : 0;
    entries_.clear();
    lists_->clear();
    for (SmartListContent& content : contents_.contents(
             app_.invoiceManager().list(), app_.invoiceManager().contentRevision(), app_.clock().now())) {
        const bool isLastKind = content.list.kind == Kind::quotes;
        addEntry({std::move(content)});
        if (isLastKind)
            addEntry({{.list = {}, .count = reminders, .sums = {}}, true});
    }
    const int row = rowOfChosen();
    lists_->setCurrentRow(row);
    pick(row);
}

void SideBar::showAll()
{
    lists_->setCurrentRow(0);
}

void SideBar::showReminders()
{
    const auto found = std::ranges::find_if(entries_, &Entry::isReminders);
    lists_->setCurrentRow(static_cast<int>(found - entries_.begin()));
}

void SideBar::pick(int row)
{
    if (row < 0 || row >= static_cast<int>(entries_.size()))
        return;
    const Entry& entry = entries_[static_cast<std::size_t>(row)];
    areRemindersChosen_ = entry.isReminders;
    if (entry.isReminders) {
        Q_EMIT remindersPicked();
        return;
    }
    chosen_ = entry.content.list;
    InvoiceFilter filter = filterOf(chosen_);
    filter.search = app_.filterManager().filter().search;
    filter.narrowing = app_.filterManager().filter().narrowing;
    app_.filterManager().setFilter(filter);
    Q_EMIT recordsPicked();
}

} // namespace ledra
