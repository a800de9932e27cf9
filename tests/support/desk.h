#pragma once

#include "render/qt_web_engine.h"
#include "render/web_font_manager.h"
#include "support/program_run.h"
#include "support/recording_console.h"
#include "ui/editor/editor_panel.h"
#include "ui/list/list_panel.h"
#include "ui/list/side_bar.h"
#include "ui/look/appearance.h"
#include "ui/main_window.h"
#include "ui/preview/preview_panel.h"

#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QSignalSpy>
#include <QtTest>

namespace ledra::test {

/// A warning of Qt fails the test, but for what the platform without a display cannot do.
inline void failOnWindowWarnings()
{
    QTest::failOnWarning(QRegularExpression(
        QStringLiteral("^(?!This plugin does not support |WebEngineContext used |No suitable graphics ).*")));
}

/// The window over the home that the environment names, used as by somebody who sits before it.
struct Desk
{
    explicit Desk(FileDevice* device = nullptr, const PluginSetting& plugins = {})
        : app{{.console = console, .device = device, .plugins = plugins}}
    {
        window.show();
        window.activateWindow();
        QApplication::setActiveWindow(&window);
    }

    InvoiceListView& list() { return window.listPanel().list(); }
    InvoiceTableModel& model() { return window.listPanel().model(); }
    QListWidget* lists() { return window.sideBar().findChild<QListWidget*>(); }
    EditorPanel& editor() { return window.editor(); }

    /// What a shortcut does, from wherever the focus is.
    void press(const char* shortcut)
    {
        for (QAction* action : window.findChildren<QAction*>()) {
            const QList<QKeySequence> keys = action->shortcuts();
            if (keys.contains(QKeySequence(QString::fromLatin1(shortcut))) && action->isEnabled()) {
                action->trigger();
                return;
            }
        }
    }

    /// The texts of a record's row, with bars between them.
    QString row(int place)
    {
        QStringList texts;
        for (int row = 0; row < model().rowCount(); ++row) {
            if (model().isHeading(row) || place-- > 0)
                continue;
            for (int column = 0; column < InvoiceTableModel::columns; ++column)
                texts += model().index(row, column).data().toString();
            break;
        }
        return texts.join(u'|');
    }

    InvoicePtr selected() { return window.selected().empty() ? nullptr : window.selected().front(); }
    const Invoice& invoice() { return **selected(); }

    /// A field of the editor by its name for readers.
    template <class Field = QLineEdit>
    Field* field(const char* name)
    {
        for (Field* each : editor().findChildren<Field*>()) {
            if (each->accessibleName() == QLatin1String(name) && each->isVisibleTo(&editor()))
                return each;
        }
        return nullptr;
    }

    /// Types over what a field of the editor holds.
    bool type(const char* name, const QString& text)
    {
        auto* line = field<QLineEdit>(name);
        if (!line || !line->isEnabled())
            return false;
        line->setFocus();
        line->selectAll();
        QTest::keyClicks(line, text);
        return true;
    }

    RecordingConsole console;
    LedraApp app;
    QtWebEngine engine;
    WebFontManager fonts;
    MainWindow window{app, engine, fonts};
};

} // namespace ledra::test
