#include "ui/settings/settings_window.h"

#include "ui/console_text.h"
#include "ui/look/icons.h"
#include "ui/look/toast.h"
#include "ui/settings/data_page.h"
#include "ui/settings/export_page.h"
#include "ui/settings/general_page.h"
#include "ui/settings/plugins_page.h"
#include "ui/settings/profiles_page.h"
#include "ui/settings/text_parser_page.h"

#include <QCloseEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPushButton>
#include <QScrollArea>

namespace ledra {

namespace {

template <class Page>
QWidget* make(SettingsWindow& window)
{
    return new Page(window); // the stack of pages owns it
}

constexpr std::array pages = {
    SettingsPage{QT_TRANSLATE_NOOP("ledra::SettingsWindow", "General"), "settings", make<GeneralPage>},
    SettingsPage{QT_TRANSLATE_NOOP("ledra::SettingsWindow", "Profiles"), "person", make<ProfilesPage>, false},
    SettingsPage{QT_TRANSLATE_NOOP("ledra::SettingsWindow", "Data"), "folder", make<DataPage>, false},
    SettingsPage{QT_TRANSLATE_NOOP("ledra::SettingsWindow", "Export"), "export", make<ExportPage>},
    SettingsPage{QT_TRANSLATE_NOOP("ledra::SettingsWindow", "Plugins"), "plugin", make<PluginsPage>, false},
    SettingsPage{QT_TRANSLATE_NOOP("ledra::SettingsWindow", "Text Parser"), "search", make<TextParserPage>},
};

} // namespace

std::span<const SettingsPage> settingsPages()
{
    return pages;
}

SettingsWindow::SettingsWindow(const WindowParts& main, QWidget* parent)
    : QDialog(parent),
      messages_(new MessageBar(this)),
      parts_{main.app, main.engine, main.fonts, *messages_, *this},
      titles_(new QListWidget(this)),
      pages_(new QStackedWidget(this))
{
    setWindowTitle(tr("Settings"));
    setObjectName(QStringLiteral("settings-window"));
    titles_->setAccessibleName(tr("Pages"));
    constexpr int titleWidth = 160;
    titles_->setFixedWidth(titleWidth);
    titles_->setFrameShape(QFrame::NoFrame);
    titles_->setIconSize(QSize(18, 18));
    titles_->setStyleSheet(
        QStringLiteral("QListWidget { outline: 0; padding: 8px; background: palette(window); }"
                       "QListWidget::item { padding: 7px; border-radius: 6px; }"
                       "QListWidget::item:selected { background: palette(highlight); "
                       "color: palette(highlighted-text); }"));
    for (const SettingsPage& page : settingsPages()) {
        titles_->addItem(new QListWidgetItem(lineIcon(page.icon), tr(page.title)));
        pages_->addWidget(new QWidget); // until it is opened
    }
    auto* columns = new QHBoxLayout;
    columns->setSpacing(0);
    columns->addWidget(titles_);
    columns->addWidget(pages_, 1);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(messages_);
    layout->addLayout(columns, 1);
    connect(titles_, &QListWidget::currentRowChanged, this, &SettingsWindow::showPage);
    connect(messages_, &MessageBar::noted, new Toast(this), &Toast::say);
    titles_->setCurrentRow(0);
    resize(1120, 720); // in which the tabs of all pages have room, in all languages
}

/// Pages write what is left when they go, and may have to tell what failed.
SettingsWindow::~SettingsWindow()
{
    delete pages_;
}

void SettingsWindow::openPage(const QString& title)
{
    for (int row = 0; row < titles_->count(); ++row) {
        if (title == QLatin1StringView(settingsPages()[static_cast<std::size_t>(row)].title))
            titles_->setCurrentRow(row);
    }
}

void SettingsWindow::showPage(int number)
{
    const SettingsPage& page = settingsPages()[static_cast<std::size_t>(number)];
    const QString made = QString::fromLatin1(page.title);
    if (pages_->widget(number)->objectName() != made) {
        QWidget* content = page.make(*this);
        content->setContentsMargins(20, 16, 20, 16);
        QWidget* shown = content;
        if (page.scrolls) {
            auto* scroll = new QScrollArea;
            scroll->setWidget(content);
            scroll->setWidgetResizable(true);
            scroll->setFrameShape(QFrame::NoFrame);
            scroll->setFocusPolicy(Qt::NoFocus); // its fields take the focus
            shown = scroll;
        }
        for (QPushButton* button : shown->findChildren<QPushButton*>())
            button->setAutoDefault(false); // none looks as if Return in a field pressed it
        shown->setObjectName(made);
        QWidget* placeholder = pages_->widget(number);
        pages_->insertWidget(number, shown);
        pages_->removeWidget(placeholder);
        delete placeholder;
    }
    if (QWidget* field = focusWidget(); field && pages_->isAncestorOf(field))
        field->clearFocus(); // what is being typed there ends
    pages_->setCurrentIndex(number);
}

void SettingsWindow::tell(const QString& line)
{
    messages_->warn(consoleText(line));
}

void SettingsWindow::tell(const std::expected<void, QString>& done)
{
    if (!done)
        tell(done.error());
}

void SettingsWindow::tell(const JobResult<void>& done)
{
    if (!done)
        tell(done.error().text);
}

void SettingsWindow::closeEvent(QCloseEvent* event)
{
    if (QWidget* field = focusWidget())
        field->clearFocus();
    event->accept();
}

/// What was to be read has been read when somebody closes the window.
void SettingsWindow::hideEvent(QHideEvent* event)
{
    QDialog::hideEvent(event);
    if (!event->spontaneous())
        messages_->clear();
}

/// Return ends what is typed in a field and presses the button that has the focus, never another one,
/// whatever buttons the pages have. A dialog would press the first it finds.
void SettingsWindow::keyPressEvent(QKeyEvent* event)
{
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter) {
        QDialog::keyPressEvent(event);
        return;
    }
    if (auto* button = qobject_cast<QPushButton*>(focusWidget()))
        button->click();
}

} // namespace ledra
