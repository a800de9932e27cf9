#pragma once

#include <QWidget>

namespace ledra {

/// Views of web pages hold the focus with a widget of their own, which says no more of itself than that it is
/// there. It gets a name and counts as the document that it shows.
/// @param content what the focus proxy of a view is
void describeWebContent(QWidget& content, const QString& name);

} // namespace ledra
