#pragma once

#include "app/plugin_operations.h"

#include <QStringList>

namespace ledra {

// What plugins can do and want, as users read it. All of it is plain text: much comes from strangers.

QString operationText(PluginOperation operation);

/// What the main module offers: "Export single invoices, import invoices".
QString entryPointsText(const PluginRuntimeState& runtime);

/// A line for each capability but for the hosts, which are asked about one by one.
QStringList capabilityTexts(const Plugin& plugin);

/// How often it runs by itself; empty when it does not.
QString timerText(const Plugin& plugin);

/// "1.2 by Meridian"; what is not known is left out.
QString originText(const Plugin& plugin);

/// For a menu or a button, which take an ampersand for a shortcut.
QString withoutShortcuts(QString text);

} // namespace ledra
