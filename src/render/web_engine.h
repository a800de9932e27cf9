#pragma once

#include "model/enumerations.h"

#include <QByteArray>
#include <QMarginsF>
#include <QSize>
#include <QString>

#include <expected>
#include <functional>

namespace ledra {

/// A paper's size in points.
inline QSize paperSize(PageFormat format)
{
    return format == PageFormat::usLetter ? QSize(612, 792) : QSize(595, 842);
}

/// What a page is printed on. Documents that are broken into pages before bring their margins with them;
/// others are given some, on every sheet.
struct Paper
{
    /// Most papers are just a format.
    Paper(PageFormat paperFormat, const QMarginsF& paperMargins = {})
        : format(paperFormat), margins(paperMargins)
    {}

    PageFormat format;
    QMarginsF margins; ///< points
};

enum class WebEngineError { loadFailed, scriptFailed, printFailed, rendererDied, timedOut };
QString errorText(WebEngineError error);

/// What documents need of a web engine. Both operations answer later, exactly once, on the main thread, and
/// within a time limit, whatever the page does.
class WebEngine
{
public:
    using Answered = std::function<void(std::expected<QString, WebEngineError>)>;
    using Printed = std::function<void(std::expected<QByteArray, WebEngineError>)>;

    virtual ~WebEngine() = default;

    /// Lays a page out as wide as the paper, on a canvas 4000 points high, and evaluates a script in it once
    /// its fonts are there. One such job runs at a time, the others wait.
    virtual void measure(const QString& html, PageFormat format, const QString& script,
                         Answered answered) = 0;

    /// Prints a page to a PDF of the paper's size. Several jobs run side by side.
    virtual void print(const QString& html, const Paper& paper, Printed printed) = 0;
};

} // namespace ledra
