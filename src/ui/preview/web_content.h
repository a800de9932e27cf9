#pragma once

namespace ledra {

/// Views of web pages hold the focus with a widget of their own, which says no more of itself than that it is
/// there. From the first view on it counts as the document that it shows.
void giveWebContentsARole();

} // namespace ledra
