#include "ui/console_text.h"

#include "ui/look/known_sentences.h"

#include <QCoreApplication>

#include <array>

namespace ledra {

namespace {

// A line is told by the first sentence that it fits. Why something failed is the system's own text.
constexpr std::array sentences = {
    QT_TRANSLATE_NOOP("ConsoleText", "Error saving invoice: %1"),
    QT_TRANSLATE_NOOP("ConsoleText", "Error saving reminder: %1"),
    QT_TRANSLATE_NOOP("ConsoleText", "Error saving styling: %1"),
    QT_TRANSLATE_NOOP("ConsoleText", "Error saving profile: directory not found"),
    QT_TRANSLATE_NOOP("ConsoleText", "Error saving profile: %1"),
    QT_TRANSLATE_NOOP("ConsoleText", "Error renaming profile folder: source not found"),
    QT_TRANSLATE_NOOP("ConsoleText", "Error renaming profile folder: destination already exists"),
    QT_TRANSLATE_NOOP("ConsoleText", "Error renaming profile folder: %1"),
    QT_TRANSLATE_NOOP("ConsoleText", "Error loading invoices: %1"),
    QT_TRANSLATE_NOOP("ConsoleText", "Error loading invoice from %1: %2"),
    QT_TRANSLATE_NOOP("ConsoleText", "Error loading reminder from %1: %2"),
    QT_TRANSLATE_NOOP("ConsoleText", "Error loading profiles: %1"),
    QT_TRANSLATE_NOOP("ConsoleText", "Error loading profile from %1: %2"),
    QT_TRANSLATE_NOOP("ConsoleText", "Error loading styling from %1: %2"),
    QT_TRANSLATE_NOOP("ConsoleText", "Error loading logo content: %1"),
    QT_TRANSLATE_NOOP("ConsoleText", "Error loading CSS content: %1"),
    QT_TRANSLATE_NOOP("ConsoleText", "%1: a second file of the record in %2; it is left as it is"),
    QT_TRANSLATE_NOOP("ConsoleText", "BackupManager: Backup failed: %1"),
    QT_TRANSLATE_NOOP("ConsoleText", "BackupManager: Failed to remove excess backups: %1"),
    QT_TRANSLATE_NOOP("ConsoleText", "Failed to create PDF: %1"),
    QT_TRANSLATE_NOOP("ConsoleText", "a profile needs a name"),
    QT_TRANSLATE_NOOP("ConsoleText", "\"%1\" cannot be a profile's name: it names a folder"),
    QT_TRANSLATE_NOOP("ConsoleText", "the name is too long for a folder"),
    QT_TRANSLATE_NOOP("ConsoleText", "the profile has no folder"),
    QT_TRANSLATE_NOOP("ConsoleText", "the last profile cannot be deleted"),
};

/// What a path is followed by where the words are not the system's own.
constexpr std::array reasons = {
    QT_TRANSLATE_NOOP("ConsoleText", "no such file"),
    QT_TRANSLATE_NOOP("ConsoleText", "the folder is gone"),
    QT_TRANSLATE_NOOP("ConsoleText", "the folder cannot be made"),
};

QString withReason(const QString& text)
{
    for (const char* reason : reasons) {
        const QString end = QStringLiteral(": ") + QLatin1String(reason);
        if (text.endsWith(end))
            return text.chopped(end.size()) + QStringLiteral(": ") +
                   QCoreApplication::translate("ConsoleText", reason);
    }
    return text;
}

} // namespace

QString consoleText(const QString& line)
{
    for (const char* sentence : sentences) {
        std::optional<QStringList> values = valuesIn(line, sentence);
        if (!values)
            continue;
        for (QString& value : *values)
            value = withReason(value);
        return filled(QCoreApplication::translate("ConsoleText", sentence), *values);
    }
    return withReason(line);
}

bool isAlerted(const QString& line)
{
    return line.startsWith(u"Import failed: ");
}

} // namespace ledra
