#include "ui/commands/command_search.h"

#include "ui/commands/word_search.h"

#include <QKeyEvent>
#include <QPainter>
#include <QTimer>
#include <QVBoxLayout>

namespace ledra {

CommandSearch::CommandSearch(const CommandSet& commands, const QMenuBar& bar, QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::FramelessWindowHint),
      search_(new QLineEdit(this)),
      list_(new QListWidget(this))
{
    setWindowTitle(tr("Search Commands"));
    setAttribute(Qt::WA_DeleteOnClose);
    const QList<QAction*> actions = commands.all();
    for (QAction* action : actions) {
        const QString text = action->text().remove(u'&');
        const QString path = menuPath(*action, bar);
        entries_.push_back({action, text, (text + u' ' + path).toCaseFolded()});
        action->setProperty("path", path);
    }
    search_->setPlaceholderText(tr("What do you want to do?"));
    search_->setAccessibleName(windowTitle());
    search_->installEventFilter(this);
    list_->setAccessibleName(tr("Commands"));
    list_->setFrameShape(QFrame::NoFrame);
    list_->setFocusPolicy(Qt::NoFocus);
    list_->setIconSize(QSize(16, 16));
    list_->setStyleSheet(QStringLiteral("QListWidget::item { padding: 4px; }"));
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(search_);
    layout->addWidget(list_);
    connect(search_, &QLineEdit::textChanged, this, &CommandSearch::show);
    connect(list_, &QListWidget::itemClicked, this, &CommandSearch::runCurrent);
    resize(520, 380);
    move(parent->mapToGlobal(QPoint((parent->width() - width()) / 2, 90)));
    show({});
}

void CommandSearch::show(const QString& text)
{
    list_->clear();
    QPixmap blank(list_->iconSize()); // so that all lines begin in one column
    blank.fill(Qt::transparent);
    for (std::size_t i = 0; i < entries_.size(); ++i) {
        const Entry& entry = entries_[i];
        if (!holdsWords(entry.words, text))
            continue;
        const QString shortcut = entry.action->shortcut().toString(QKeySequence::NativeText);
        QString line =
            QStringLiteral("%1   —  %2").arg(entry.title, entry.action->property("path").toString());
        if (!shortcut.isEmpty())
            line += QStringLiteral("   (%1)").arg(shortcut);
        const QIcon icon = entry.action->icon();
        auto* item = new QListWidgetItem(icon.isNull() ? QIcon(blank) : icon, line, list_); // which owns it
        item->setData(Qt::UserRole, static_cast<qulonglong>(i));
        if (!entry.action->isEnabled())
            item->setFlags(Qt::NoItemFlags);
    }
    for (int row = 0; row < list_->count(); ++row) {
        if (list_->item(row)->flags().testFlag(Qt::ItemIsEnabled)) {
            list_->setCurrentRow(row);
            break;
        }
    }
}

void CommandSearch::runCurrent()
{
    const QListWidgetItem* item = list_->currentItem();
    if (!item || !item->flags().testFlag(Qt::ItemIsEnabled))
        return;
    QAction* action = entries_[item->data(Qt::UserRole).toULongLong()].action;
    close();
    QTimer::singleShot(0, action, &QAction::trigger); // once this window is gone and the focus is back
}

/// Without a frame of the desktop, only a line of its own tells it from the window below.
void CommandSearch::paintEvent(QPaintEvent*)
{
    constexpr float strength = 0.7F;
    QColor outline = palette().color(QPalette::PlaceholderText);
    outline.setAlphaF(strength);
    QPainter painter(this);
    painter.setPen(outline);
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

/// The list is walked through from the search field.
bool CommandSearch::eventFilter(QObject*, QEvent* event)
{
    if (event->type() != QEvent::KeyPress)
        return false;
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key == Qt::Key_Return || key == Qt::Key_Enter) {
        runCurrent();
        return true;
    }
    if (key != Qt::Key_Down && key != Qt::Key_Up)
        return false;
    const int step = key == Qt::Key_Down ? 1 : -1;
    for (int row = list_->currentRow() + step; row >= 0 && row < list_->count(); row += step) {
        if (list_->item(row)->flags().testFlag(Qt::ItemIsEnabled)) {
            list_->setCurrentRow(row);
            break;
        }
    }
    return true;
}

} // namespace ledra
