#pragma once

#include <QString>
#include <QStringList>

namespace ledra {

/// The text of a page as readers see it: without tags and without what stands in a style element.
QString visibleText(const QString& html);

/// The characters of a text for which no font on this computer has a glyph, each once, in order. The shipped
/// fonts are taken to have the Latin letters; for the rest the installed fonts are asked, as the web engine
/// does.
QStringList charactersWithoutGlyph(const QString& text);

/// A sentence that names such characters, with their code points; for users.
QString missingGlyphText(const QStringList& characters);

} // namespace ledra
