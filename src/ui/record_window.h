#pragma once

#include "ui/window_parts.h"

#include <QMainWindow>

namespace ledra {

class EditorPanel;
class PreviewPanel;

/// One record in a window of its own: its document and its form.
class RecordWindow : public QMainWindow
{
    Q_OBJECT

public:
    RecordWindow(LedraApp& app, QtWebEngine& engine, WebFontManager& fonts, InvoicePtr record);

    PreviewPanel& previewPanel() { return *preview_; }
    EditorPanel& editor() { return *editor_; }

private:
    void addCommands();
    void showRecord(bool isOther);
    void closeIfGone();

    MessageBar* messages_;
    WindowParts parts_;
    InvoicePtr record_;
    PreviewPanel* preview_;
    EditorPanel* editor_;
    Observation observation_;
};

} // namespace ledra
