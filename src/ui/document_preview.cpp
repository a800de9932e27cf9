#include "ui/document_preview.h"

#include <QWebEnginePage>
#include <QWebEngineView>

namespace ledra {

/// A view with what it shows.
struct DocumentPreview::Pane
{
    explicit Pane(QtWebEngine& engine) : page(engine.newPage()), view(new QWebEngineView)
    {
        view->setPage(page.get());
        view->setContextMenuPolicy(Qt::NoContextMenu);
    }

    std::unique_ptr<QWebEnginePage> page;
    QWebEngineView* view; ///< owned by the stack
    std::vector<QUrl> addresses;
};

DocumentPreview::DocumentPreview(QtWebEngine& engine, Console& console, QWidget* parent)
    : QStackedWidget(parent), engine_(engine), paginator_(engine, console)
{
    for (std::unique_ptr<Pane>& pane : panes_) {
        pane = std::make_unique<Pane>(engine);
        addWidget(pane->view);
        connect(pane->page.get(), &QWebEnginePage::loadFinished, this, [this, view = pane->view] {
            if (view == panes_[1 - front_]->view)
                swap();
        });
    }
}

DocumentPreview::~DocumentPreview()
{
    for (const std::unique_ptr<Pane>& pane : panes_)
        delete pane->view; // before the page that it shows
}

void DocumentPreview::show(std::shared_ptr<const PaginatedDocument> document)
{
    const quint64 request = ++request_;
    const QSize paper = paperSize(document->pageFormat());
    paginator_.paginate(std::move(document), [this, request, paper](const PaginationResult& result) {
        if (request == request_)
            present(result.pages, paper);
    });
}

void DocumentPreview::clear()
{
    ++request_;
    present({}, {});
}

void DocumentPreview::setZoom(double factor)
{
    zoom_ = factor;
    for (const std::unique_ptr<Pane>& pane : panes_)
        pane->page->setZoomFactor(factor);
}

void DocumentPreview::present(const std::vector<QString>& pages, QSize paper)
{
    Pane& back = *panes_[1 - front_];
    for (const QUrl& address : std::exchange(back.addresses, {}))
        engine_.pages().withdraw(address);
    QString html =
        QStringLiteral("<!DOCTYPE html><meta charset=\"utf-8\"><style>body { margin: 0; background: "
                       "#8e8e93; } iframe { display: block; width: %1px; height: %2px; margin: 16px "
                       "auto; border: 0; background: #fff; }</style>")
            .arg(paper.width())
            .arg(paper.height());
    for (const QString& page : pages) {
        back.addresses.push_back(engine_.pages().publish(page));
        html += QStringLiteral("<iframe src=\"%1\"></iframe>").arg(back.addresses.back().toString());
    }
    back.addresses.push_back(engine_.pages().publish(html));
    back.page->load(back.addresses.back());
}

void DocumentPreview::swap()
{
    const QPointF position = panes_[front_]->page->scrollPosition();
    front_ = 1 - front_;
    Pane& front = *panes_[front_];
    front.page->setZoomFactor(zoom_);
    front.page->runJavaScript(QStringLiteral("window.scrollTo(0, %1)").arg(position.y()), 1);
    setCurrentWidget(front.view);
    Q_EMIT shown();
}

} // namespace ledra
