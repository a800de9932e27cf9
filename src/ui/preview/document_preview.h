#pragma once

#include "render/document_paginator.h"
#include "render/qt_web_engine.h"

#include <QStackedLayout>
#include <QTimer>
#include <QUrl>
#include <QWidget>

#include <array>
#include <memory>
#include <vector>

namespace ledra {

/// Shows the pages of a document below one another, as they are printed.
///
/// A new state of a document is laid out in a second view behind the one that is seen, and takes its place
/// when it is complete and scrolled to the same place: nothing flickers or jumps. While one state is under
/// way only the newest of those that follow is kept, so that typing never queues up.
class DocumentPreview : public QWidget
{
    Q_OBJECT

public:
    DocumentPreview(QtWebEngine& engine, Console& console, QWidget* parent = nullptr);
    ~DocumentPreview() override;

    /// @param isOther whether this is another document than the one before, which is shown from its beginning
    void show(std::shared_ptr<const PaginatedDocument> document, bool isOther);
    void clear();

    int pageCount() const { return pageCount_; }
    int currentPage() const; ///< from 1; 0 without pages
    void showPage(int page); ///< from 1

    double zoom() const { return zoom_; }
    void setZoom(double factor);   ///< 1: one point of paper is one pixel
    double factorThatFits() const; ///< at which a page is as wide as the view

Q_SIGNALS:
    void shown(); ///< the last document that was asked for is to be seen
    void scrolled();
    void interrupted(); ///< the engine's process ended, or hung; the document is being shown anew
    void resized();

protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Pane;
    struct Request
    {
        std::shared_ptr<const PaginatedDocument> document;
        bool isOther = false;
    };

    void makePane(std::size_t position);
    void startNext();
    void present(const std::vector<QString>& pages);
    QString pagesHtml(Pane& pane, const std::vector<QString>& pages);
    void loaded();
    void swap();
    void orderFocus();
    void recover();
    double scrollTop() const; ///< in pixels at factor 1
    double pageHeight() const;

    QtWebEngine& engine_;
    DocumentPaginator paginator_;
    QStackedLayout* layout_;
    std::array<std::unique_ptr<Pane>, 2> panes_;
    std::size_t front_ = 0;
    Request current_; ///< under way, or shown
    std::optional<Request> next_;
    bool isUnderWay_ = false;
    quint64 turn_ = 0; ///< tells answers to earlier requests from those to the current one
    QTimer limit_;
    int recoveries_ = 0; ///< since the last success
    int pageCount_ = 0;
    double zoom_ = 1;
};

} // namespace ledra
