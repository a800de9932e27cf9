#include "render/measuring_script.h"

#include "render/css_text.h"
#include "store/json_schema.h"

#include <cmath>
#include <limits>

namespace ledra {

namespace {

constexpr double absent = std::numeric_limits<double>::quiet_NaN();

bool isComplete(const Geometry& geometry)
{
    const auto values = {geometry.rem, geometry.contentTop, geometry.contentBottom, geometry.flowTop,
                         geometry.headerHeight};
    const auto isMeasured = [](const Block& block) {
        return std::isfinite(block.top) && std::isfinite(block.bottom);
    };
    return std::ranges::all_of(values, [](double value) { return std::isfinite(value); }) &&
           std::ranges::all_of(geometry.blocks, isMeasured);
}

} // namespace

template <>
inline constexpr std::tuple jsonSchema<Block> = {
    JSONKey{"top", &Block::top},
    JSONKey{"bottom", &Block::bottom},
};

template <>
inline constexpr std::tuple jsonSchema<Geometry> = {
    JSONKey{"rem", &Geometry::rem},
    JSONKey{"contentTop", &Geometry::contentTop},
    JSONKey{"contentBottom", &Geometry::contentBottom},
    JSONKey{"flowTop", &Geometry::flowTop},
    JSONKey{"blocks", &Geometry::blocks},
    JSONKey{"headerHeight", &Geometry::headerHeight},
    JSONKey{"footerSectionTop", &Geometry::footerSectionTop},
};

QString measuringScript(const QStringList& blockSelectors, const std::optional<QString>& headerSelector,
                        double pageHeight)
{
    const QString selectors =
        QStringLiteral("[\"") + blockSelectors.join(QStringLiteral("\",\"")) + QStringLiteral("\"]");
    const QString header = headerSelector ? u'"' + *headerSelector + u'"' : QStringLiteral("null");
    return QStringLiteral(R"((function() {
  const selectors = %1;
  const headerSelector = %2;
  const rem = parseFloat(getComputedStyle(document.documentElement).fontSize);
  const body = getComputedStyle(document.body);
  const padTop = parseFloat(body.paddingTop);
  const padBottom = parseFloat(body.paddingBottom);
  const pageHeight = %3 * rem;
  const bodyTop = document.body.getBoundingClientRect().top;
  const blocks = [];
  for (const selector of selectors) {
    for (const element of document.querySelectorAll(selector)) {
      const box = element.getBoundingClientRect();
      blocks.push({ top: box.top - bodyTop, bottom: box.bottom - bodyTop });
    }
  }
  const header = headerSelector ? document.querySelector(headerSelector) : null;
  const footer = document.querySelector("aside.footer");
  const section = document.querySelector("aside.footer > section");
  const footerShows = footer && section && parseFloat(getComputedStyle(footer).opacity) > 0.01;
  return JSON.stringify({
    rem: rem,
    contentTop: padTop,
    contentBottom: pageHeight - padBottom,
    flowTop: blocks.length > 0 ? blocks[0].top : padTop,
    blocks: blocks,
    headerHeight: header ? header.getBoundingClientRect().height : 0,
    footerSectionTop: footerShows ? section.getBoundingClientRect().top - bodyTop : null
  });
})())")
        .arg(selectors, header, cssNumber(pageHeight));
}

std::optional<Geometry> parseGeometry(const QString& json)
{
    Geometry geometry{absent, absent, absent, absent, {}, absent, std::nullopt};
    JSONReader reader;
    if (!decodeDocument(geometry, json.toUtf8(), reader) || !isComplete(geometry))
        return std::nullopt;
    return geometry;
}

} // namespace ledra
