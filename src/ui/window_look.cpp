#include "ui/window_look.h"

#include "platform/console.h"
#include "ui/preview/preview_panel.h"

namespace ledra {

namespace {

const QString geometryKey = QStringLiteral("MainWindow.geometry");
const QString splitterKey = QStringLiteral("MainWindow.splitter");
const QString columnsKey = QStringLiteral("MainWindow.columns");
const QString selectionKey = QStringLiteral("MainWindow.selectedInvoiceId");
const QString editorKey = QStringLiteral("MainWindow.openEdit");
const QString zoomKey = QStringLiteral("MainWindow.zoom");

} // namespace

WindowLook::State WindowLook::restore(const UserDefaults& defaults) const
{
    constexpr QSize firstSize(1360, 840);
    if (!window.restoreGeometry(defaults.value(geometryKey).toByteArray()))
        window.resize(firstSize);
    splitter.restoreState(defaults.value(splitterKey).toByteArray());
    columns.restoreState(defaults.value(columnsKey).toByteArray());
    preview.setZoomText(defaults.value(zoomKey).toString());
    return {defaults.value(editorKey).toBool(), defaults.value(selectionKey).toUuid()};
}

void WindowLook::keep(UserDefaults& defaults, Console& console, const State& state) const
{
    const std::pair<QString, QVariant> values[] = {
        {geometryKey, window.saveGeometry()}, {splitterKey, splitter.saveState()},
        {columnsKey, columns.saveState()},    {editorKey, state.isEditorOpen},
        {zoomKey, preview.zoomText()},        {selectionKey, state.selectedId}};
    for (const auto& [key, value] : values) {
        if (const auto kept = defaults.setValue(key, value); !kept)
            console.failure(kept.error());
    }
}

} // namespace ledra
