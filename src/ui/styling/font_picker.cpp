#include "ui/styling/font_picker.h"

#include "ui/look/icons.h"

#include <QFontDatabase>
#include <QKeyEvent>
#include <QPainter>
#include <QVBoxLayout>

namespace ledra {

namespace {

/// A family as Qt knows it. The shipped ones are made known to it when they are first shown; the catalogue
/// must have read the installed ones before, or it would take these for such.
QString sampleFamily(const WebFontManager& fonts, const QString& family)
{
    static QHash<QString, QString> known;
    const std::vector<FontCut>* cuts = fonts.cutsOf(family);
    if (!cuts || cuts->empty() || !cuts->front().isBundled)
        return family;
    if (!known.contains(family)) {
        const QString file = cuts->front().bundledPath.value_or(QString()).section(u'/', -1);
        const int id = QFontDatabase::addApplicationFont(QStringLiteral(":/fonts/") + file);
        known[family] = QFontDatabase::applicationFontFamilies(id).value(0, family);
    }
    return known[family];
}

QFont sampleFont(const WebFontManager& fonts, const QString& family, QFont font)
{
    if (fonts.cutsOf(family))
        font.setFamily(sampleFamily(fonts, family));
    return font;
}

} // namespace

FontList::FontList(const WebFontManager& fonts, const QString& current, QWidget* parent)
    : QFrame(parent, Qt::Popup),
      fonts_(fonts),
      current_(current),
      search_(new QLineEdit(this)),
      list_(new QListWidget(this))
{
    setFrameShape(QFrame::StyledPanel);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(8, 8, 8, 8);
    layout->addWidget(search_);
    layout->addWidget(list_);
    search_->setPlaceholderText(tr("Select Font"));
    search_->setAccessibleName(tr("Search fonts"));
    search_->setClearButtonEnabled(true);
    search_->installEventFilter(this);
    list_->setAccessibleName(tr("Fonts"));
    list_->setFrameShape(QFrame::NoFrame);
    list_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    list_->setStyleSheet(QStringLiteral("QListWidget::item { padding: 3px 4px; }"));
    connect(search_, &QLineEdit::textChanged, this, &FontList::fill);
    connect(list_, &QListWidget::itemClicked, this, &FontList::take);
    connect(list_, &QListWidget::itemActivated, this, &FontList::take);
    fill(QString());
}

void FontList::fill(const QString& wanted)
{
    list_->clear();
    addGroup(tr("Featured"), true, wanted);
    addGroup(tr("On this Mac"), false, wanted);
    for (int row = 0; row < list_->count(); ++row) {
        const QListWidgetItem* item = list_->item(row);
        const bool isWanted = wanted.isEmpty() ? item->data(Qt::UserRole) == current_ : row == 1;
        if (isWanted)
            list_->setCurrentRow(row, QItemSelectionModel::ClearAndSelect);
    }
    if (list_->currentRow() > 1)
        list_->scrollToItem(list_->currentItem());
    else
        list_->scrollToTop(); // with the heading of the first
}

void FontList::addGroup(const QString& title, bool isBundled, const QString& wanted)
{
    std::vector<QString> names;
    for (const WebFontManager::FontFamily& family : fonts_.availableFamilies()) {
        if (family.isBundled == isBundled && family.name.contains(wanted, Qt::CaseInsensitive))
            names.push_back(family.name);
    }
    if (names.empty())
        return;
    auto* heading = new QListWidgetItem(title, list_); // which the list owns, as the others
    heading->setFlags(Qt::NoItemFlags);
    QFont small = font();
    small.setBold(true);
    heading->setFont(small);
    constexpr double larger = 1.15;
    QFont sample = font();
    sample.setPointSizeF(sample.pointSizeF() * larger);
    for (const QString& name : names) {
        auto* item = new QListWidgetItem(name, list_);
        item->setData(Qt::UserRole, name);
        item->setFont(sampleFont(fonts_, name, sample));
    }
}

void FontList::take(const QListWidgetItem* item)
{
    if (!item || !item->data(Qt::UserRole).isValid())
        return;
    const QString family = item->data(Qt::UserRole).toString();
    close();
    Q_EMIT picked(family);
}

/// Up and down go through the list while somebody types.
bool FontList::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != search_ || event->type() != QEvent::KeyPress)
        return QFrame::eventFilter(watched, event);
    const auto* key = static_cast<QKeyEvent*>(event);
    if (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter) {
        take(list_->currentItem());
        return true;
    }
    if (key->key() != Qt::Key_Down && key->key() != Qt::Key_Up)
        return false;
    const int step = key->key() == Qt::Key_Down ? 1 : -1;
    int row = list_->currentRow() + step;
    while (list_->item(row) && list_->item(row)->flags() == Qt::NoItemFlags)
        row += step;
    if (list_->item(row))
        list_->setCurrentRow(row);
    return true;
}

FontPicker::FontPicker(WebFontManager& fonts, QWidget* parent) : QPushButton(parent), fonts_(fonts)
{
    setStyleSheet(QStringLiteral("text-align: left; padding: 4px 22px 4px 8px;"));
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    connect(this, &QPushButton::clicked, this, &FontPicker::open);
}

void FontPicker::setFamily(const QString& family)
{
    family_ = family;
    setText(family.isEmpty() ? tr("Select Font") : family);
    setFont(sampleFont(fonts_, family, parentWidget()->font()));
}

/// An arrow, as boxes have that open a list.
void FontPicker::paintEvent(QPaintEvent* event)
{
    QPushButton::paintEvent(event);
    constexpr int side = 12;
    constexpr int margin = 7;
    QPainter painter(this);
    lineIcon("arrow-down").paint(&painter, width() - side - margin, (height() - side) / 2, side, side);
}

void FontPicker::open()
{
    fonts_.loadInstalled();
    list_ = new FontList(fonts_, family_, this);
    list_->setAttribute(Qt::WA_DeleteOnClose);
    connect(list_.data(), &FontList::picked, this, &FontPicker::picked);
    constexpr QSize usual(320, 380);
    list_->resize(usual.expandedTo(QSize(width(), 0)));
    list_->move(mapToGlobal(QPoint(0, height())));
    list_->show();
    list_->search().setFocus();
}

} // namespace ledra
