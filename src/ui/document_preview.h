#pragma once

#include "render/document_paginator.h"
#include "render/qt_web_engine.h"

#include <QStackedWidget>
#include <QUrl>

#include <array>
#include <memory>
#include <vector>

namespace ledra {

/// Shows the pages of a document below one another, as they are printed.
///
/// A new state of a document is laid out in a second view behind the one that is seen, and takes its place
/// when it is complete: nothing flickers, and what was scrolled to stays where it is.
class DocumentPreview : public QStackedWidget
{
    Q_OBJECT

public:
    DocumentPreview(QtWebEngine& engine, Console& console, QWidget* parent = nullptr);
    ~DocumentPreview() override;

    void show(std::shared_ptr<const PaginatedDocument> document);
    void clear();

    void setZoom(double factor);

Q_SIGNALS:
    void shown(); ///< the last document that was asked for is to be seen

private:
    struct Pane;

    void present(const std::vector<QString>& pages, QSize paper);
    void swap();

    QtWebEngine& engine_;
    DocumentPaginator paginator_;
    std::array<std::unique_ptr<Pane>, 2> panes_;
    std::size_t front_ = 0;
    quint64 request_ = 0; ///< tells the pages of an earlier document from those of the current one
    double zoom_ = 1;
};

} // namespace ledra
