#include "document/outline/RoleTint.h"

namespace quillon {

std::string_view roleTint(const ComponentRole& role) {
    using Role = ComponentRole;
    switch (role.kind()) {
    case Role::title:
        return "#AF52DE";
    case Role::heading:
    case Role::heading1:
    case Role::heading2:
    case Role::heading3:
    case Role::heading4:
    case Role::heading5:
    case Role::heading6:
    case Role::articleTitle:
        return "#5856D6";
    case Role::intro:
        return "#007AFF";
    case Role::body:
    case Role::button:
    case Role::linkButton:
        return "#0A84FF";
    case Role::caption:
        return "#5AC8FA";
    case Role::author:
    case Role::byline:
    case Role::photographer:
    case Role::illustrator:
    case Role::divider:
    case Role::other:
        return "#8E8E93";
    case Role::quote:
    case Role::pullquote:
        return "#FF2D55";
    case Role::photo:
    case Role::image:
    case Role::figure:
    case Role::portrait:
        return "#34C759";
    case Role::logo:
    case Role::articleThumbnail:
        return "#30D158";
    case Role::gallery:
    case Role::arkit:
        return "#00C7BE";
    case Role::mosaic:
        return "#64D2FF";
    case Role::dataTable:
        return "#AC8E68";
    case Role::container:
    case Role::audio:
    case Role::music:
    case Role::podcast:
        return "#FF9F0A";
    case Role::aside:
    case Role::chapter:
    case Role::instagram:
    case Role::facebookPost:
    case Role::tiktok:
    case Role::tweet:
        return "#BF5AF2";
    case Role::header:
        return "#FF375F";
    case Role::section:
        return "#FF9500";
    case Role::video:
    case Role::embedWebVideo:
        return "#FF453A";
    case Role::map:
    case Role::place:
        return "#32D74B";
    case Role::articleLink:
        return "#5E5CE6";
    case Role::htmlTable:
        return "#D0A85C";
    case Role::spacer:
        return "#A2845E";
    case Role::bannerAdvertisement:
    case Role::mediumRectangleAdvertisement:
    case Role::replicaAdvertisement:
        return "#FFCC00";
    }
    return "#8E8E93";
}

} // namespace quillon
