#include "render/web_engine.h"

namespace ledra {

QString errorText(WebEngineError error)
{
    switch (error) {
    case WebEngineError::loadFailed:
        return QStringLiteral("the page could not be loaded");
    case WebEngineError::scriptFailed:
        return QStringLiteral("the page could not be measured");
    case WebEngineError::printFailed:
        return QStringLiteral("the page could not be printed");
    case WebEngineError::rendererDied:
        return QStringLiteral("the web engine's process ended");
    case WebEngineError::timedOut:
        return QStringLiteral("the web engine did not answer in time");
    }
    return {};
}

} // namespace ledra
