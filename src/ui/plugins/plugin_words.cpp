#include "ui/plugins/plugin_words.h"

#include <QCoreApplication>

#include <algorithm>
#include <array>

namespace ledra {

namespace {

struct PluginWords
{
    Q_DECLARE_TR_FUNCTIONS(PluginWords)
};

struct OperationText
{
    PluginOperation operation;
    const char* text;
};

constexpr std::array operationTexts = {
    OperationText{PluginOperation::exportEach, QT_TRANSLATE_NOOP("PluginWords", "Export Selected…")},
    OperationText{PluginOperation::exportSelected,
                  QT_TRANSLATE_NOOP("PluginWords", "Export Selected in One File…")},
    OperationText{PluginOperation::exportAll, QT_TRANSLATE_NOOP("PluginWords", "Export All in One File…")},
    OperationText{PluginOperation::importFile, QT_TRANSLATE_NOOP("PluginWords", "Import from File…")},
    OperationText{PluginOperation::importFetched, QT_TRANSLATE_NOOP("PluginWords", "Import")},
    OperationText{PluginOperation::updateSelected, QT_TRANSLATE_NOOP("PluginWords", "Update Selected")},
    OperationText{PluginOperation::updateAll, QT_TRANSLATE_NOOP("PluginWords", "Update All")},
    OperationText{PluginOperation::updateFromFile, QT_TRANSLATE_NOOP("PluginWords", "Update All from File…")},
};

struct EntryPointText
{
    bool PluginRuntimeState::* flag;
    const char* text;
};

constexpr std::array entryPointTexts = {
    EntryPointText{&PluginRuntimeState::hasExportInvoice,
                   QT_TRANSLATE_NOOP("PluginWords", "exports single invoices")},
    EntryPointText{&PluginRuntimeState::hasExportInvoices,
                   QT_TRANSLATE_NOOP("PluginWords", "exports lists of invoices")},
    EntryPointText{&PluginRuntimeState::hasImportInvoices,
                   QT_TRANSLATE_NOOP("PluginWords", "imports invoices")},
    EntryPointText{&PluginRuntimeState::hasUpdateInvoices,
                   QT_TRANSLATE_NOOP("PluginWords", "updates invoices")},
};

QString capabilityText(const QString& capability)
{
    if (capability == onOpenCapability)
        return PluginWords::tr("Updates invoices when the window opens");
    if (capability == connectorCapability)
        return PluginWords::tr("May call your own script LedraConnector.scpt");
    return PluginWords::tr("%1 (not known to this Ledra)").arg(capability);
}

} // namespace

QString operationText(PluginOperation operation)
{
    const auto row = std::ranges::find(operationTexts, operation, &OperationText::operation);
    return row == operationTexts.end() ? QString() : PluginWords::tr(row->text);
}

QString entryPointsText(const PluginRuntimeState& runtime)
{
    QStringList texts;
    for (const EntryPointText& row : entryPointTexts) {
        if (runtime.*row.flag)
            texts += PluginWords::tr(row.text);
    }
    return texts.isEmpty() ? PluginWords::tr("nothing") : texts.join(QStringLiteral(", "));
}

QStringList capabilityTexts(const Plugin& plugin)
{
    QStringList texts;
    for (const QString& capability : plugin.manifest.capabilities.value_or(std::vector<QString>())) {
        if (!capability.startsWith(networkCapability))
            texts += capabilityText(capability);
    }
    return texts;
}

QString timerText(const Plugin& plugin)
{
    if (!plugin.manifest.timer)
        return {};
    return PluginWords::tr("Updates invoices every %n minutes while the window is open", nullptr,
                           static_cast<int>(*plugin.manifest.timer));
}

QString originText(const Plugin& plugin)
{
    const QString version = plugin.manifest.version.value_or(QString());
    const QString author = plugin.manifest.author.value_or(QString());
    if (version.isEmpty())
        return author.isEmpty() ? QString() : PluginWords::tr("By %1").arg(author);
    return author.isEmpty() ? PluginWords::tr("Version %1").arg(version)
                            : PluginWords::tr("Version %1 by %2").arg(version, author);
}

QString withoutShortcuts(QString text)
{
    return text.replace(u'&', QStringLiteral("&&"));
}

} // namespace ledra
