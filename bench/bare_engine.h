#pragma once

#include "render/document_scheme_handler.h"

#include <QWebEnginePage>
#include <QWebEngineProfile>
#include <QWebEngineView>

#include <functional>
#include <memory>
#include <vector>

namespace ledra::bench {

/// The web engine with nothing around it: pages are loaded and printed as soon as the engine says that they
/// are there. What the product does beyond that is what the benchmarks weigh.
class BareEngine
{
public:
    BareEngine();
    ~BareEngine();

    /// Loads a page on the measuring canvas and evaluates a script in it.
    void measure(const QString& html, const QString& script, std::function<void()> done);

    /// Loads a page on the measuring canvas and prints it.
    void loadAndPrint(const QString& html, std::function<void()> done);

    /// Loads and prints all pages, so many of them side by side.
    void printAll(const std::vector<QString>& pages, std::size_t inFlight, std::function<void()> done);

private:
    struct Queue;

    std::unique_ptr<QWebEnginePage> newPage();
    void load(QWebEnginePage& page, const QString& html, std::function<void()> loaded);
    void print(QWebEnginePage& page, const QString& html, std::function<void()> done);
    void printNext(QWebEnginePage& page, const std::shared_ptr<Queue>& queue);

    DocumentSchemeHandler handler_;
    QWebEngineProfile profile_;
    QWebEngineView view_;
    std::unique_ptr<QWebEnginePage> measuring_;
    std::vector<std::unique_ptr<QWebEnginePage>> printers_;
};

} // namespace ledra::bench
