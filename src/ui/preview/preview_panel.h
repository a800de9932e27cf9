#pragma once

#include "ui/preview/document_preview.h"

#include <QLabel>
#include <QStackedWidget>
#include <QToolButton>

namespace ledra {

class EmptyState;

/// The preview with its zoom and its pages, or a word where there is nothing to show.
class PreviewPanel : public QWidget
{
    Q_OBJECT

public:
    PreviewPanel(QtWebEngine& engine, Console& console, QWidget* parent = nullptr);

    DocumentPreview& preview() { return *preview_; }

    void show(std::shared_ptr<const PaginatedDocument> document, bool isOther);

    /// Says why there is no document.
    void showHint(const QString& title, const QString& text = {});

    void zoomIn() { step(1); }
    void zoomOut() { step(-1); }
    void fitWidth();
    void actualSize(); ///< as large as on paper

    /// "fit", or a factor; for the user defaults.
    QString zoomText() const;
    void setZoomText(const QString& text);

private:
    QToolButton* addButton(const char* icon, const QString& name, void (PreviewPanel::*run)());
    void step(int direction);
    void setFactor(double factor, bool fits);
    void showState();
    void turnPage(int by);

    DocumentPreview* preview_;
    EmptyState* hint_;
    QStackedWidget* stack_;
    QWidget* bar_;
    QLabel* page_;
    QLabel* factor_;
    bool fits_ = true; ///< the factor follows the width
};

} // namespace ledra
