#include "ui/commands/shortcut_sheet.h"

#include "ui/commands/word_search.h"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QKeyEvent>
#include <QPushButton>
#include <QVBoxLayout>

namespace ledra {

namespace {

constexpr int wordsRole = Qt::UserRole; ///< folded: what a search looks through

QString keysOf(const QAction& action)
{
    return QKeySequence::listToString(action.shortcuts(), QKeySequence::NativeText)
        .replace(QStringLiteral("; "), QStringLiteral("   "));
}

QTreeWidgetItem* groupNamed(QTreeWidget& sheet, const QString& title)
{
    for (int i = 0; i < sheet.topLevelItemCount(); ++i) {
        if (sheet.topLevelItem(i)->text(0) == title)
            return sheet.topLevelItem(i);
    }
    auto* group = new QTreeWidgetItem(&sheet, {title}); // which the tree owns
    QFont font = group->font(0);
    font.setWeight(QFont::DemiBold);
    group->setFont(0, font);
    group->setFlags(Qt::ItemIsEnabled);
    group->setExpanded(true);
    return group;
}

} // namespace

ShortcutSheet::ShortcutSheet(const CommandSet& commands, const QMenuBar& bar, QWidget* parent)
    : QDialog(parent),
      search_(new QLineEdit(this)),
      sheet_(new QTreeWidget(this)),
      nothing_(new QLabel(tr("No command is called that."), this))
{
    setWindowTitle(tr("Keyboard Shortcuts"));
    setAttribute(Qt::WA_DeleteOnClose);
    search_->setPlaceholderText(tr("Search commands and keys"));
    search_->setAccessibleName(tr("Search commands and keys"));
    search_->setClearButtonEnabled(true);
    search_->installEventFilter(this);
    sheet_->setAccessibleName(tr("Commands and their shortcuts"));
    sheet_->setHeaderLabels({tr("Command"), tr("Shortcut")});
    sheet_->setRootIsDecorated(false);
    sheet_->setFrameShape(QFrame::NoFrame);
    sheet_->setStyleSheet(QStringLiteral("QTreeView::item { padding: 3px; }"));
    const QList<QAction*> actions = commands.all();
    for (const QAction* action : actions)
        addCommand(*action, bar);
    sheet_->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    sheet_->header()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
    sheet_->header()->setStretchLastSection(false);
    nothing_->setAlignment(Qt::AlignCenter);
    nothing_->setForegroundRole(QPalette::PlaceholderText);
    nothing_->hide();
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    buttons->button(QDialogButtonBox::Close)->setAutoDefault(false); // Return in the search closes nothing
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(search_);
    layout->addWidget(sheet_, 1);
    layout->addWidget(nothing_);
    layout->addWidget(buttons);
    connect(search_, &QLineEdit::textChanged, this, &ShortcutSheet::narrow);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::close);
    resize(560, 640);
    search_->setFocus();
}

void ShortcutSheet::addCommand(const QAction& action, const QMenuBar& bar)
{
    const QString path = menuPath(action, bar);
    const QString keys = keysOf(action);
    const QString title = action.text().remove(u'&');
    auto* row = new QTreeWidgetItem(groupNamed(*sheet_, path), {title, keys});
    const QString plainKeys = QKeySequence::listToString(action.shortcuts(), QKeySequence::PortableText);
    row->setData(0, wordsRole, (title + u' ' + path + u' ' + keys + u' ' + plainKeys).toCaseFolded());
    row->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
}

void ShortcutSheet::narrow(const QString& text)
{
    bool isAnyShown = false;
    for (int i = 0; i < sheet_->topLevelItemCount(); ++i) {
        QTreeWidgetItem* group = sheet_->topLevelItem(i);
        bool isGroupShown = false;
        for (int j = 0; j < group->childCount(); ++j) {
            const bool isShown = holdsWords(group->child(j)->data(0, wordsRole).toString(), text);
            group->child(j)->setHidden(!isShown);
            isGroupShown = isGroupShown || isShown;
        }
        group->setHidden(!isGroupShown);
        isAnyShown = isAnyShown || isGroupShown;
    }
    nothing_->setHidden(isAnyShown);
}

/// The sheet is read from the search field.
bool ShortcutSheet::eventFilter(QObject*, QEvent* event)
{
    if (event->type() != QEvent::KeyPress)
        return false;
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key != Qt::Key_Down && key != Qt::Key_PageDown)
        return false;
    sheet_->setFocus(Qt::TabFocusReason);
    return true;
}

} // namespace ledra
