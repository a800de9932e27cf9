#include "ui/settings/general_page.h"

#include "app/document_export.h"
#include "ui/look/section.h"
#include "ui/settings/settings_access.h"

#include <QFile>
#include <QFileDialog>
#include <QPushButton>
#include <QVBoxLayout>

namespace ledra {

namespace {

constexpr const char* choiceTexts = "Choices"; ///< the context in which the choices are translated

QVBoxLayout* newPage(QWidget* page)
{
    auto* layout = new QVBoxLayout(page);
    layout->setSpacing(24);
    return layout;
}

/// A setting that the windows follow at once.
template <class T>
Access<T> told(SettingsWindow& window, const Access<T>& access)
{
    return {access.read, [&window, access](const T& value) {
                access.write(value);
                Q_EMIT window.appearanceChanged();
            }};
}

FieldForm* addForm(QVBoxLayout* page, const QString& title)
{
    auto* section = new Section(title, false, nullptr); // the page owns it
    auto* form = new FieldForm(section);
    section->content()->addWidget(form);
    page->addWidget(section);
    return form;
}

/// What was kept, or that nothing was.
QString keptSignals(const QString& path)
{
    QFile file(path);
    constexpr qint64 most = 1 << 20;
    if (!file.open(QIODevice::ReadOnly))
        return {};
    if (file.size() > most)
        file.seek(file.size() - most);
    return QString::fromUtf8(file.readAll());
}

} // namespace

GeneralPage::GeneralPage(SettingsWindow& window) : QWidget(&window)
{
    QVBoxLayout* page = newPage(this);
    FieldForm* looks = addForm(page, tr("Appearance"));
    looks->addChoice(tr("Windows"), choicesOf<Appearance>(choiceTexts),
                     told(window, textSetting(window, "appearance")));
    looks->addChoice(tr("Language"), choicesOf<WantedLanguage>(choiceTexts),
                     told(window, textSetting(window, "language")));
    looks->addChoice(tr("Icon"), choicesOf<AppIcon>(choiceTexts),
                     told(window, textSetting(window, "appIcon")));
    looks->addToggle(tr("Show documents dark in dark windows"),
                     {[&window] { return window.app().settings().boolean("invoiceDarkMode"); },
                      [this, &window](const bool& isDark) { setDarkDocuments(window, isDark); }});
    looks->addToggle(tr("Show a count on the icon in the dock"),
                     told(window, truthSetting(window, "showBadge")));
    connect(&window.app().profileManager(), &ProfileManager::profilesChanged, looks, &FieldForm::refresh);

    FieldForm* documents = addForm(page, tr("Documents"));
    documents->addChoice(tr("Usual export"), choicesOf<ExportFormat>(choiceTexts),
                         textSetting(window, "defaultExportFormat"));
    constexpr int mostDays = 365;
    documents->addCount(tr("Reminder deadline"), numberSetting(window, "paymentDeadlineDays"), 0, mostDays)
        ->setSuffix(tr(" days"));

    FieldForm* privacy = addForm(page, tr("Privacy"));
    privacy->addToggle(tr("Keep signs of usage in a file of your own"), truthSetting(window, "collectData"));
    privacy->addHint(tr("They say which functions are used and never leave this computer."));
    addUsage(window, *privacy);
    page->addStretch();
}

void GeneralPage::addUsage(SettingsWindow& window, FieldForm& form)
{
    auto* show = new QPushButton(tr("Show What Is Kept"), &form);
    show->setCheckable(true);
    show->setAutoDefault(false); // else Enter in any field of the page opens it
    show->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    auto* kept = new QPlainTextEdit(&form);
    kept->setReadOnly(true);
    kept->setAccessibleName(tr("What is kept"));
    kept->setPlaceholderText(tr("Nothing is kept."));
    constexpr int height = 160;
    kept->setFixedHeight(height);
    kept->hide();
    form.addField(QString(), show);
    show->setAccessibleName(show->text());
    form.addWide(kept);
    connect(show, &QPushButton::toggled, this, [&window, kept](bool isOpen) {
        kept->setPlainText(keptSignals(window.app().usageSignals().file()));
        kept->setVisible(isOpen);
    });
}

/// The profile carries it to other computers; the setting follows the profile in use.
void GeneralPage::setDarkDocuments(SettingsWindow& window, bool isDark)
{
    ProfileManager& profiles = window.app().profileManager();
    if (!profiles.activeProfile())
        return;
    Profile changed = **profiles.activeProfile();
    changed.invoiceDarkMode = isDark;
    const auto saved = profiles.saveProfile(changed, changed.profileName.value_or(QString()));
    if (!saved)
        window.tell(saved.error().text);
}

ExportPage::ExportPage(SettingsWindow& window) : QWidget(&window)
{
    QVBoxLayout* page = newPage(this);
    FieldForm* form = addForm(page, tr("Automatic export"));
    form->addWide(new QLabel(tr("Invoices that are sent are written into a folder by themselves, as"), form));
    form->addToggle(tr("PDF"), truthSetting(window, "autoExportInvoicesEnabled"));
    form->addToggle(tr("XRechnung (XML)"), truthSetting(window, "autoExportInvoicesXMLEnabled"));
    form->addToggle(tr("ZUGFeRD PDF"), truthSetting(window, "autoExportInvoicesZUGFeRDEnabled"));
    auto* folder = new QLabel(form);
    folder->setWordWrap(true);
    folder->setTextFormat(Qt::PlainText);
    folder->setTextInteractionFlags(Qt::TextSelectableByMouse);
    form->addField(tr("Folder"), folder);
    auto* choose = new QPushButton(tr("Choose Folder…"), form);
    choose->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    form->addField(QString(), choose);
    choose->setAccessibleName(tr("Choose Folder…"));
    form->follow([&window, folder] {
        const ProfilePtr& profile = window.app().profileManager().activeProfile();
        const QString name = profile ? (*profile)->displayName() : QString();
        const std::optional<QString> path = window.app().autoExportFolder().path();
        folder->setText(path ? tr("%1 (profile “%2”)").arg(*path, name)
                             : tr("None is chosen for the profile “%1”, or it is gone.").arg(name));
    });
    connect(choose, &QPushButton::clicked, this, [this, &window, form] {
        auto* dialog = new QFileDialog(this, tr("Choose Folder"));
        dialog->setAttribute(Qt::WA_DeleteOnClose);
        dialog->setFileMode(QFileDialog::Directory);
        connect(dialog, &QFileDialog::fileSelected, this, [&window, form](const QString& path) {
            window.tell(window.app().autoExportFolder().choose(path));
            form->refresh();
        });
        dialog->open();
    });
    connect(&window.app().profileManager(), &ProfileManager::activeProfileChanged, form, &FieldForm::refresh);
    page->addStretch();
}

} // namespace ledra
