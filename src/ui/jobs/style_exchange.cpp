#include "ui/jobs/style_exchange.h"

#include "app/styling_import.h"
#include "ui/jobs/failure_texts.h"
#include "ui/jobs/file_panels.h"
#include "ui/jobs/file_reveal.h"
#include "ui/jobs/question.h"

#include <QCoreApplication>
#include <QFileInfo>

namespace ledra {

namespace {

struct StyleExchange
{
    Q_DECLARE_TR_FUNCTIONS(StyleExchange)
};

QString nameOf(const QString& file)
{
    return QFileInfo(file).fileName();
}

QString filter()
{
    return StyleExchange::tr("Ledra Style (*%1)").arg(styleFileExtension);
}

void write(const WindowParts& parts, const QUuid& profile, const QString& target)
{
    if (const auto written = parts.app.stylingExporter().write(profile, target, Overwrite::replace);
        !written) {
        alert(parts.window, StyleExchange::tr("Export Failed"), written.error());
        return;
    }
    parts.messages.inform(StyleExchange::tr("Exported: %1").arg(nameOf(target)),
                          {{StyleExchange::tr("Show"), [target] { FileReveal().show({target}); }}});
}

void importFile(const WindowParts& parts, const QString& file)
{
    if (const auto imported = importStyling(parts.app, file); !imported)
        alert(parts.window, StyleExchange::tr("Import Failed"), imported.error());
    else
        parts.messages.note(
            StyleExchange::tr("The style of “%1” is in use. “Undo” takes it back.").arg(nameOf(file)));
}

} // namespace

void exportStyle(const WindowParts& parts)
{
    const Profile& profile = **parts.app.profileManager().activeProfile();
    askForTarget(
        parts,
        {StyleExchange::tr("Export Style"), profile.displayName() + styleFileExtension.toString(), filter()},
        [&parts, id = profile.id](const QString& target) { write(parts, id, target); });
}

void importStyle(const WindowParts& parts)
{
    askForFile(parts, {StyleExchange::tr("Choose the Style file you want to import"), filter()},
               [&parts](const QString& file) { importFile(parts, file); });
}

void askForStyle(const WindowParts& parts, const QString& file)
{
    const QString profile = (*parts.app.profileManager().activeProfile())->displayName();
    ask(parts.window,
        {StyleExchange::tr("Do you want to use the style of “%1”?").arg(nameOf(file)),
         StyleExchange::tr("It replaces fonts, colors, page layout, logo and style sheet of the profile "
                           "“%1”, for documents of the past as well. An earlier logo and style sheet go to "
                           "the trash.")
             .arg(profile),
         {StyleExchange::tr("Import")}},
        [&parts, file](int) { importFile(parts, file); });
}

} // namespace ledra
