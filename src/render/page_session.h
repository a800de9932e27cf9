#pragma once

#include "render/document_scheme_handler.h"
#include "render/pdf_export_navigation_delegate.h"
#include "render/web_engine.h"

#include <QObject>
#include <QTimer>
#include <QWebEnginePage>

#include <memory>

namespace ledra {

/// One page of the web engine that does one job at a time: it loads HTML, waits for its fonts and then
/// evaluates a script or prints. The page is used again for the next job, since a new one costs as much as
/// two prints.
class PageSession : public QObject
{
    Q_OBJECT

public:
    using Done = std::function<void(std::expected<QByteArray, WebEngineError>)>;

    PageSession(std::unique_ptr<QWebEnginePage> page, DocumentSchemeHandler& handler);
    ~PageSession() override;

    void evaluate(const QString& html, const QString& script, Done done);
    void print(const QString& html, const Paper& paper, Done done);

    bool isBusy() const { return static_cast<bool>(done_); }

    /// False once a job ran out of time or the render process died: what the page still does is unknown.
    bool isUsable() const { return isUsable_; }

    /// Deleting a page while it prints ends the program. A session whose page may still do so leaves it
    /// behind.
    bool isDeletable() const { return isUsable_ && !isBusy(); }

private:
    void start(const QString& html, std::function<void()> whenReady, Done done);
    void settleAndPrint(const Paper& paper);
    void finish(std::expected<QByteArray, WebEngineError> result);
    void giveUp(WebEngineError error);

    std::unique_ptr<QWebEnginePage> page_;
    DocumentSchemeHandler& handler_;
    std::unique_ptr<PDFExportNavigationDelegate> delegate_;
    QUrl address_;
    Done done_;
    quint64 job_ = 0; ///< tells answers to an earlier job from those to the current one
    QTimer limit_;
    bool isUsable_ = true;
};

} // namespace ledra
