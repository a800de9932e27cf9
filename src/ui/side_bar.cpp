#include "ui/side_bar.h"

#include "app/reader_language.h"
#include "model/amount_text.h"

#include <QSignalBlocker>
#include <QVBoxLayout>

namespace ledra {

namespace {

using Kind = SmartList::Kind;

struct Title
{
    Kind kind;
    const char* text;
};

constexpr std::array titles = {
    Title{Kind::all, QT_TRANSLATE_NOOP("SideBar", "All")},
    Title{Kind::drafts, QT_TRANSLATE_NOOP("SideBar", "Drafts")},
    Title{Kind::sent, QT_TRANSLATE_NOOP("SideBar", "Sent")},
    Title{Kind::overdue, QT_TRANSLATE_NOOP("SideBar", "Overdue")},
    Title{Kind::paid, QT_TRANSLATE_NOOP("SideBar", "Paid")},
    Title{Kind::cancelled, QT_TRANSLATE_NOOP("SideBar", "Cancelled")},
    Title{Kind::quotes, QT_TRANSLATE_NOOP("SideBar", "Quotes")},
};

QString sumsText(const SmartListContent& content)
{
    QStringList sums;
    for (const SmartListContent::Sum& sum : content.sums)
        sums += amountText(sum.total, sum.currency, readerLanguage());
    return sums.join(u'\n');
}

} // namespace

SideBar::SideBar(LedraApp& app, QWidget* parent)
    : QWidget(parent), app_(app), profiles_(new QComboBox(this)), lists_(new QListWidget(this))
{
    profiles_->setAccessibleName(tr("Profile"));
    lists_->setAccessibleName(tr("Lists"));
    lists_->setFrameShape(QFrame::NoFrame);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(profiles_);
    layout->addWidget(lists_);
    connect(profiles_, &QComboBox::activated, this, [this](int row) {
        app_.profileManager().resolveActiveProfile(profiles_->itemData(row).toUuid());
    });
    connect(lists_, &QListWidget::currentRowChanged, this, &SideBar::pickList);
    connect(&app.profileManager(), &ProfileManager::profilesChanged, this, &SideBar::showProfiles);
    connect(&app.profileManager(), &ProfileManager::activeProfileChanged, this, &SideBar::showProfiles);
    connect(&app.invoiceManager(), &InvoiceManager::refreshed, this, &SideBar::showLists);
    connect(&app.invoiceManager(), &InvoiceManager::saved, this, &SideBar::showLists);
    showProfiles();
    showLists();
}

void SideBar::showProfiles()
{
    profiles_->clear();
    for (const ProfilePtr& profile : app_.profileManager().profiles()) {
        profiles_->addItem((*profile)->displayName(), (*profile)->id);
        if (profile == app_.profileManager().activeProfile())
            profiles_->setCurrentIndex(profiles_->count() - 1);
    }
}

QString SideBar::title(const SmartList& list) const
{
    const auto row = std::ranges::find(titles, list.kind, &Title::kind);
    return row == titles.end() ? QString::number(list.year) : tr(row->text);
}

/// Fills the lists anew and stays on the chosen one, or goes back to all records where it is no longer there.
void SideBar::showLists()
{
    const QSignalBlocker quiet(lists_);
    contents_ = smartLists(app_.invoiceManager().invoices(), app_.clock().now());
    lists_->clear();
    for (const SmartListContent& content : contents_) {
        auto* item = new QListWidgetItem(
            QStringLiteral("%1  (%2)").arg(title(content.list)).arg(content.count), lists_); // which owns it
        item->setToolTip(sumsText(content));
    }
    const auto chosen = std::ranges::find(contents_, chosen_, &SmartListContent::list);
    const auto row = static_cast<int>(chosen == contents_.end() ? 0 : chosen - contents_.begin());
    lists_->setCurrentRow(row);
    pickList(row);
}

void SideBar::pickList(int row)
{
    if (row < 0 || row >= static_cast<int>(contents_.size()))
        return;
    chosen_ = contents_[static_cast<std::size_t>(row)].list;
    InvoiceFilter filter = filterOf(chosen_);
    filter.search = app_.filterManager().filter().search;
    app_.filterManager().setFilter(filter);
}

} // namespace ledra
