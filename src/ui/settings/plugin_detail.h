#pragma once

#include "plugins/plugin.h"
#include "ui/look/field_form.h"

#include <QScrollArea>

namespace ledra {

class PluginManager;
class SettingsWindow;

/// What is known of one plugin, what it may do and what it has done.
class PluginDetail : public QScrollArea
{
    Q_OBJECT

public:
    explicit PluginDetail(SettingsWindow& window);

    /// Shows a plugin as it is now; an empty id shows nothing. What is shown already keeps its fields, and
    /// with them the keyboard's place.
    void setPlugin(const QString& id);

private:
    void build(const Plugin* plugin);
    void fill(FieldForm& form, const Plugin& plugin);
    QLabel* addText(FieldForm& form, const QString& label, const QString& text);
    void addRights(FieldForm& form, const Plugin& plugin);
    void addHost(FieldForm& form, const Plugin& plugin, const QString& host);
    void addSettings(FieldForm& form, const Plugin& plugin);
    void addLog(FieldForm& form);
    void showState();
    void showLog();
    PluginManager& plugins() const;

    SettingsWindow& window_;
    QString id_;
    std::optional<Plugin> shown_;
    QLabel* offers_ = nullptr;
    QLabel* lastError_ = nullptr;
    QPlainTextEdit* log_ = nullptr;
};

} // namespace ledra
