#include "cli/command_table.h"

#include "cli/autoexport_command.h"
#include "cli/backup_command.h"
#include "cli/conflicts_command.h"
#include "cli/csv_command.h"
#include "cli/data_command.h"
#include "cli/edit_commands.h"
#include "cli/export_command.h"
#include "cli/extract_command.h"
#include "cli/import_command.h"
#include "cli/list_command.h"
#include "cli/make_commands.h"
#include "cli/plugin_command.h"
#include "cli/profile_command.h"
#include "cli/reminder_command.h"
#include "cli/settings_command.h"
#include "cli/show_command.h"
#include "cli/styling_command.h"
#include "cli/trash_command.h"
#include "cli/validate_command.h"
#include "cli/view_command.h"

namespace ledra {

namespace {

constexpr int helpColumn = 28;

QString row(const QString& left, const char* right)
{
    // Where the left column is too wide two spaces stay; completions and manual are made from this text.
    const QString gap = QStringLiteral("  ");
    return gap + (left + gap).leftJustified(helpColumn) + QString::fromUtf8(right) + u'\n';
}

QString optionText(const OptionSpec& option)
{
    QString text = QStringLiteral("--") + QString::fromLatin1(option.name);
    if (*option.shortName != '\0')
        text = u'-' + QString::fromLatin1(option.shortName) + QStringLiteral(", ") + text;
    if (*option.value != '\0')
        text += u' ' + QString::fromLatin1(option.value);
    return text;
}

} // namespace

std::vector<std::unique_ptr<Command>> allCommands()
{
    std::vector<std::unique_ptr<Command>> commands;
    commands.push_back(std::make_unique<ProfileCommand>());
    commands.push_back(std::make_unique<DataCommand>());
    commands.push_back(std::make_unique<SettingsCommand>());
    commands.push_back(std::make_unique<NewCommand>());
    commands.push_back(std::make_unique<ListCommand>());
    commands.push_back(std::make_unique<ShowCommand>());
    commands.push_back(std::make_unique<SetCommand>());
    commands.push_back(std::make_unique<StatusCommand>());
    commands.push_back(makeDuplicateCommand());
    commands.push_back(makeCancelCommand());
    commands.push_back(makeConvertCommand());
    commands.push_back(std::make_unique<DeleteCommand>());
    commands.push_back(std::make_unique<TrashCommand>());
    commands.push_back(std::make_unique<ConflictsCommand>());
    commands.push_back(std::make_unique<ReminderCommand>());
    commands.push_back(std::make_unique<StylingCommand>());
    commands.push_back(std::make_unique<ExportCommand>());
    commands.push_back(std::make_unique<AutoExportCommand>());
    commands.push_back(std::make_unique<CsvCommand>());
    commands.push_back(std::make_unique<ValidateCommand>());
    commands.push_back(std::make_unique<ViewCommand>());
    commands.push_back(std::make_unique<ImportCommand>());
    commands.push_back(std::make_unique<ExtractCommand>());
    commands.push_back(std::make_unique<BackupCommand>());
    commands.push_back(std::make_unique<PluginCommand>());
    return commands;
}

std::unique_ptr<Command> findCommand(const QString& name)
{
    for (std::unique_ptr<Command>& command : allCommands()) {
        if (name == QLatin1StringView(command->spec().name))
            return std::move(command);
    }
    return nullptr;
}

QString programHelp()
{
    QString text =
        QStringLiteral("Ledra makes invoices.\n\nUsage: ledra COMMAND [OPTIONS] [ARGUMENTS]\n\nCommands:\n");
    for (const std::unique_ptr<Command>& command : allCommands())
        text += row(QString::fromLatin1(command->spec().name), command->spec().summary);
    text += QStringLiteral("\nOptions:\n") + row(QStringLiteral("-h, --help"), "Show this text.") +
            row(QStringLiteral("--version"), "Show the version.");
    return text + QStringLiteral("\n\"ledra COMMAND --help\" says what a command takes.\n");
}

QString commandHelp(const CommandSpec& spec)
{
    QString text = QString::fromUtf8(spec.summary) + QStringLiteral("\n\nUsage: ledra ") +
                   QString::fromLatin1(spec.name) + QStringLiteral(" [OPTIONS] ") +
                   QString::fromUtf8(spec.arguments) + QStringLiteral("\n\nOptions:\n");
    for (const auto options : {spec.options, commonOptions()}) {
        for (const OptionSpec& option : options)
            text += row(optionText(option), option.help);
    }
    return text;
}

} // namespace ledra
