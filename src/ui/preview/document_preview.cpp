#include "ui/preview/document_preview.h"

#include "ui/look/tab_place.h"
#include "ui/preview/web_content.h"

#include <QEvent>
#include <QWebEnginePage>
#include <QWebEngineView>

namespace ledra {

namespace {

/// Between the pages, and above the first, in pixels at factor 1.
constexpr int gap = 16;

/// The world of the application's own scripts; those of pages are off.
constexpr int scriptWorld = 1;

} // namespace

/// A view with what it shows.
struct DocumentPreview::Pane
{
    Pane(QtWebEngine& engine, QWidget* parent) : page(engine.newPage()), view(new QWebEngineView(parent))
    {
        view->setPage(page.get());
        view->setContextMenuPolicy(Qt::NoContextMenu);
        view->setFocusPolicy(Qt::NoFocus);
        view->setAcceptDrops(false); // what is dropped here is for the window
        page->setBackgroundColor(view->palette().color(QPalette::Mid));
    }

    ~Pane() { delete view; } // before the page that it shows

    QWidget* content() const { return view->focusProxy(); } ///< takes the focus; null before the first page

    std::unique_ptr<QWebEnginePage> page;
    QWebEngineView* view;
    std::vector<QUrl> addresses;
    QSize paper;
    int pageCount = 0;
};

DocumentPreview::DocumentPreview(QtWebEngine& engine, Console& console, QWidget* parent)
    : QWidget(parent), engine_(engine), paginator_(engine, console), layout_(new QStackedLayout(this))
{
    layout_->setStackingMode(QStackedLayout::StackAll); // a view that is hidden does not draw
    for (const std::size_t position : {0U, 1U})
        makePane(position);
    limit_.setSingleShot(true);
    constexpr int seconds = 10;
    limit_.setInterval(seconds * 1000);
    connect(&limit_, &QTimer::timeout, this, &DocumentPreview::recover);
}

DocumentPreview::~DocumentPreview()
{
    ++turn_; // pages that go answer their scripts
    for (const std::unique_ptr<Pane>& pane : panes_) {
        pane->page->disconnect(this);
        for (const QUrl& address : pane->addresses)
            engine_.pages().withdraw(address);
    }
}

void DocumentPreview::makePane(std::size_t position)
{
    auto pane = std::make_unique<Pane>(engine_, this);
    QWebEnginePage* page = pane->page.get();
    connect(page, &QWebEnginePage::loadFinished, this, [this, page] {
        if (page == panes_[1 - front_]->page.get())
            loaded();
    });
    connect(page, &QWebEnginePage::renderProcessTerminated, this, [this] {
        QTimer::singleShot(0, this, &DocumentPreview::recover); // not while the page is telling
    });
    connect(page, &QWebEnginePage::scrollPositionChanged, this, &DocumentPreview::scrolled);
    layout_->addWidget(pane->view);
    pane->view->installEventFilter(this);
    panes_[position] = std::move(pane);
}

void DocumentPreview::show(std::shared_ptr<const PaginatedDocument> document, bool isOther)
{
    const bool skipsOther = next_ && next_->isOther;
    next_ = Request{std::move(document), isOther || skipsOther};
    if (!isUnderWay_)
        startNext();
}

void DocumentPreview::clear()
{
    show(nullptr, true);
}

void DocumentPreview::startNext()
{
    if (!next_)
        return;
    current_ = *std::exchange(next_, std::nullopt);
    isUnderWay_ = true;
    limit_.start();
    const quint64 turn = ++turn_;
    if (!current_.document) {
        present({});
        return;
    }
    paginator_.paginate(current_.document, [this, turn](const PaginationResult& result) {
        if (turn == turn_)
            present(result.pages);
    });
}

QString DocumentPreview::pagesHtml(Pane& pane, const std::vector<QString>& pages)
{
    QString html =
        QStringLiteral("<!DOCTYPE html><meta charset=\"utf-8\"><style>body { margin: 0; overflow-x: auto; "
                       "background: %1; } iframe { display: block; width: %2px; height: %3px; margin: %4px "
                       "auto; border: 0; background: #fff; box-shadow: 0 1px 5px #0005; }</style>")
            .arg(palette().color(QPalette::Mid).name())
            .arg(pane.paper.width())
            .arg(pane.paper.height())
            .arg(gap);
    for (const QString& page : pages) {
        pane.addresses.push_back(engine_.pages().publish(page));
        html += QStringLiteral("<iframe src=\"%1\"></iframe>").arg(pane.addresses.back().toString());
    }
    return html;
}

void DocumentPreview::present(const std::vector<QString>& pages)
{
    Pane& back = *panes_[1 - front_];
    for (const QUrl& address : std::exchange(back.addresses, {}))
        engine_.pages().withdraw(address);
    back.paper = current_.document ? paperSize(current_.document->pageFormat()) : QSize();
    back.pageCount = static_cast<int>(pages.size());
    const QString html = pagesHtml(back, pages);
    back.addresses.push_back(engine_.pages().publish(html));
    back.page->load(back.addresses.back());
}

void DocumentPreview::loaded()
{
    if (!isUnderWay_)
        return;
    Pane& back = *panes_[1 - front_];
    back.page->setZoomFactor(zoom_);
    const double top = current_.isOther ? 0 : scrollTop();
    const quint64 turn = turn_;
    back.page->runJavaScript(QStringLiteral("window.scrollTo(0, %1)").arg(top), scriptWorld,
                             [this, turn](const QVariant&) {
                                 if (turn == turn_ && isUnderWay_)
                                     swap();
                             });
}

void DocumentPreview::swap()
{
    const QWidget* before = panes_[front_]->content();
    const bool hadFocus = before && before->hasFocus();
    front_ = 1 - front_;
    pageCount_ = panes_[front_]->pageCount;
    layout_->setCurrentWidget(panes_[front_]->view);
    orderFocus();
    if (hadFocus)
        panes_[front_]->content()->setFocus(Qt::OtherFocusReason); // the keys go on scrolling what is seen
    limit_.stop();
    recoveries_ = 0;
    isUnderWay_ = false;
    if (next_) {
        startNext();
        return;
    }
    Q_EMIT shown();
}

/// Tab halts at the document that is seen, where this widget stands, and not at the one behind it.
void DocumentPreview::orderFocus()
{
    for (const std::unique_ptr<Pane>& pane : panes_) {
        QWidget* content = pane ? pane->content() : nullptr;
        if (!content)
            continue;
        content->setFocusPolicy(pane == panes_[front_] ? Qt::StrongFocus : Qt::NoFocus);
        describeWebContent(*content, accessibleName());
        setTabPlace(*this, *content);
    }
}

/// A view makes what takes its focus when it first loads a page, and anew after its process has ended.
bool DocumentPreview::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::ChildPolished)
        orderFocus();
    return QWidget::eventFilter(watched, event);
}

/// Both views are made anew, since either may have lost its process, and the document is shown again. What
/// ends the engine again and again is given up.
void DocumentPreview::recover()
{
    limit_.stop();
    ++turn_;
    constexpr int attempts = 3;
    for (const std::size_t position : {0U, 1U}) {
        panes_[position]->page->disconnect(this);
        for (const QUrl& address : panes_[position]->addresses)
            engine_.pages().withdraw(address);
        panes_[position].reset();
        makePane(position);
    }
    front_ = 0;
    pageCount_ = 0;
    isUnderWay_ = false;
    Q_EMIT interrupted();
    if (++recoveries_ > attempts)
        return;
    if (!next_)
        next_ = current_;
    startNext();
}

double DocumentPreview::scrollTop() const
{
    return panes_[front_]->page->scrollPosition().y() / zoom_;
}

double DocumentPreview::pageHeight() const
{
    return panes_[front_]->paper.height() + gap;
}

int DocumentPreview::currentPage() const
{
    if (pageCount_ == 0)
        return 0;
    const double middle = scrollTop() + height() / zoom_ / 2;
    return std::clamp(static_cast<int>(middle / pageHeight()) + 1, 1, pageCount_);
}

void DocumentPreview::showPage(int page)
{
    const double top = (std::clamp(page, 1, std::max(1, pageCount_)) - 1) * pageHeight();
    panes_[front_]->page->runJavaScript(QStringLiteral("window.scrollTo(0, %1)").arg(top), scriptWorld);
}

void DocumentPreview::setZoom(double factor)
{
    zoom_ = factor;
    for (const std::unique_ptr<Pane>& pane : panes_)
        pane->page->setZoomFactor(factor);
}

double DocumentPreview::factorThatFits() const
{
    constexpr int scrollBar = 16;
    const int paper = panes_[front_]->paper.width();
    return static_cast<double>(width() - scrollBar - 2 * gap) /
           (paper > 0 ? paper : paperSize(PageFormat::a4).width());
}

void DocumentPreview::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    Q_EMIT resized();
}

void DocumentPreview::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() != QEvent::PaletteChange)
        return;
    for (const std::unique_ptr<Pane>& pane : panes_)
        pane->page->setBackgroundColor(palette().color(QPalette::Mid));
    if (current_.document || next_)
        show(next_ ? next_->document : current_.document, false);
}

} // namespace ledra
