#pragma once

#include "ui/window_parts.h"

#include <QStringList>

#include <functional>

class QFileDialog;

namespace ledra {

/// What the panel shows in which a user says where a file is to go.
struct SavePanel
{
    QString title;
    QString name;        ///< proposed; with its extension
    QString filter;      ///< "PDF (*.pdf)"
    QString button = {}; ///< "Export" when empty
};

struct OpenPanel
{
    QString title;
    QString filter;
    QString button = {}; ///< "Import" when empty
};

// Each of these opens a panel over the window, which goes on meanwhile; nothing is called if the user
// cancels. Panels begin in the folder that was used last.

/// A file that exists already is taken only if the user says so.
void askForTarget(const WindowParts& parts, const SavePanel& panel,
                  const std::function<void(const QString&)>& chosen);
void askForFolder(const WindowParts& parts, const QString& title,
                  const std::function<void(const QString&)>& chosen);
void askForFile(const WindowParts& parts, const OpenPanel& panel,
                const std::function<void(const QString&)>& chosen);
void askForFiles(const WindowParts& parts, const OpenPanel& panel,
                 const std::function<void(const QStringList&)>& chosen);

/// Makes a panel for saving with the folder that was used last, which it keeps when it is accepted.
void setUpSavePanel(QFileDialog& dialog, const WindowParts& parts, const SavePanel& panel);

} // namespace ledra
