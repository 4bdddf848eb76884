#pragma once

namespace QSP {

/// Height of the title row of the small cards on the Network page, in pixels.
int networkTitleRowHeight();

} // namespace QSP
