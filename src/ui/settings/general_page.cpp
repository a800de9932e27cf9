#include "ui/settings/general_page.h"

#include "app/document_export.h"
#include "ui/settings/settings_access.h"
#include "ui/settings/settings_forms.h"

#include <QFile>
#include <QPushButton>
#include <QVBoxLayout>

namespace ledra {

namespace {

constexpr const char* choiceTexts = "Choices"; ///< the context in which the choices are translated

/// A setting that the windows follow at once.
template <class T>
Access<T> told(SettingsWindow& window, const Access<T>& access)
{
    return {access.read, [&window, access](const T& value) {
                access.write(value);
                Q_EMIT window.appearanceChanged();
            }};
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
    QVBoxLayout* page = newFormPage(this);
    FieldForm* looks = addForm(page, tr("Appearance"));
    looks->addChoice(tr("Windows"), choicesOf<Appearance>(choiceTexts),
                     told(window, textSetting(window, "appearance")));
    looks->addChoice(tr("Language"), choicesOf<WantedLanguage>(choiceTexts),
                     told(window, textSetting(window, "language")));
    looks->addChoice(tr("Icon"), choicesOf<AppIcon>(choiceTexts),
                     told(window, textSetting(window, "appIcon")));
    looks->addToggle(tr("Show Badge Count"), told(window, truthSetting(window, "showBadge")));

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

} // namespace ledra
