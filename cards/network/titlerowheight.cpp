#include "cards/network/titlerowheight.h"

#include "shell/globalinfo.h"

namespace QSP {

int networkTitleRowHeight()
{
    const GlobalInfo &info = GlobalInfo::instance();
    const int width = info.screenSize().width();
    if (info.isScreenPortrait())
        return width < 600 ? 41 : 52;
    // 49 for 960 pixels of width.
    return static_cast<int>(width * 0.051041666666666666);
}

} // namespace QSP
