#include "ui/commands/file_commands.h"

#include "ui/jobs/document_actions.h"
#include "ui/jobs/profile_export.h"
#include "ui/jobs/profile_import.h"
#include "ui/jobs/style_exchange.h"
#include "ui/list/list_panel.h"
#include "ui/look/icons.h"
#include "ui/main_window.h"

namespace ledra {

namespace {

std::vector<InvoicePtr> fullList(const MainWindow& window)
{
    const auto& all = window.parts().app.invoiceManager().invoices();
    return {all.begin(), all.end()};
}

/// In the order in which the list shows them.
std::vector<InvoicePtr> filteredList(MainWindow& window)
{
    const InvoiceTableModel& model = window.listPanel().model();
    std::vector<InvoicePtr> records;
    for (int row = 0; row < model.rowCount(); ++row) {
        if (InvoicePtr record = model.invoice(model.index(row, 0)))
            records.push_back(std::move(record));
    }
    return records;
}

struct ArchiveCommand
{
    Menu menu;
    const char* text;
    const char* icon;
    void (*run)(const WindowParts& parts);
    bool beginsGroup;
};

constexpr std::array archiveCommands = {
    ArchiveCommand{Menu::importing, QT_TRANSLATE_NOOP("WindowCommands", "Import Profiles…"), "import",
                   importProfiles, true},
    ArchiveCommand{Menu::importing, QT_TRANSLATE_NOOP("WindowCommands", "Import Style…"), "import",
                   importStyle, false},
    ArchiveCommand{Menu::exporting, QT_TRANSLATE_NOOP("WindowCommands", "Export Style…"), "export",
                   exportStyle, true},
};

} // namespace

void exportSelected(MainWindow& window, ExportFormat format)
{
    window.documents().exportAs(format, window.selected());
}

void exportInDefaultFormat(MainWindow& window)
{
    const QString wanted =
        window.parts().app.settings().text(QStringLiteral("defaultExportFormat")).value_or(QString());
    exportSelected(window, enumFromRawValue<ExportFormat>(wanted.toStdString()).value_or(ExportFormat::pdf));
}

void exportFullList(MainWindow& window, ExportFormat format)
{
    window.documents().exportAs(format, fullList(window));
}

void exportFilteredList(MainWindow& window, ExportFormat format)
{
    window.documents().exportAs(format, filteredList(window));
}

void exportFullCsv(MainWindow& window)
{
    window.documents().exportList(fullList(window));
}

void exportFilteredCsv(MainWindow& window)
{
    window.documents().exportList(filteredList(window));
}

void printRecords(MainWindow& window)
{
    window.documents().print(window.selected());
}

void sendRecordByMail(MainWindow& window)
{
    window.documents().sendByMail(window.selected().front());
}

void copyRecordsAsFiles(MainWindow& window)
{
    window.documents().copyAsFiles(window.selected());
}

void revealRecords(MainWindow& window)
{
    window.documents().reveal(window.selected());
}

void importPDFs(MainWindow& window)
{
    window.documents().importer().importPDFs();
}

void importEInvoices(MainWindow& window)
{
    window.documents().importer().importEInvoices();
}

void exportProfiles(MainWindow& window)
{
    exportAllProfiles(window.parts());
}

void addArchiveCommands(MainWindow& window)
{
    for (const ArchiveCommand& command : archiveCommands) {
        QMenu* menu = window.commands().menu(command.menu);
        if (command.beginsGroup)
            menu->addSeparator();
        menu->addAction(lineIcon(command.icon), QCoreApplication::translate("WindowCommands", command.text),
                        &window, [&window, run = command.run] { run(window.parts()); });
    }
}

void addActiveProfileExport(MainWindow& window)
{
    ProfileManager& profiles = window.parts().app.profileManager();
    QAction* action = window.commands().menu(Menu::exportProfiles)->addAction(QString());
    const auto name = [action, &profiles] {
        action->setText((*profiles.activeProfile())->displayName().replace(u'&', QStringLiteral("&&")));
    };
    name();
    QObject::connect(&profiles, &ProfileManager::activeProfileChanged, action, name);
    QObject::connect(&profiles, &ProfileManager::profilesChanged, action, name);
    QObject::connect(action, &QAction::triggered, &window,
                     [&window] { exportActiveProfile(window.parts()); });
}

} // namespace ledra
