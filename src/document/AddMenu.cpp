#include "document/AddMenu.h"

namespace quillon {

namespace {

using Role = ComponentRole;

constexpr Role::Case text[] = {
    Role::title,    Role::heading1,     Role::heading2,    Role::heading3, Role::heading4,  Role::heading5,
    Role::heading6, Role::heading,      Role::intro,       Role::body,     Role::caption,   Role::author,
    Role::byline,   Role::photographer, Role::illustrator, Role::quote,    Role::pullquote,
};
constexpr Role::Case images[] = {
    Role::photo, Role::image, Role::figure, Role::portrait, Role::logo, Role::gallery, Role::mosaic,
};
constexpr Role::Case structure[] = {
    Role::divider, Role::container, Role::aside,     Role::chapter,   Role::header,
    Role::section, Role::spacer,    Role::dataTable, Role::htmlTable,
};
constexpr Role::Case media[] = {
    Role::video,
    Role::audio,
    Role::music,
    Role::podcast,
    Role::embedWebVideo,
    Role::map,
    Role::place,
    Role::instagram,
    Role::facebookPost,
    Role::tiktok,
    Role::tweet,
    Role::linkButton,
    Role::articleLink,
    Role::arkit,
    Role::bannerAdvertisement,
    Role::mediumRectangleAdvertisement,
    Role::replicaAdvertisement,
};
constexpr Role::Case linkChildren[] = {Role::articleThumbnail, Role::articleTitle};

constexpr AddMenuSection sections[] = {
    {"Text", text},
    {"Images", images},
    {"Structure", structure},
    {"Media & Embeds", media},
    {"Article Link Children", linkChildren},
};

} // namespace

std::span<const AddMenuSection> addMenuSections() {
    return sections;
}

} // namespace quillon
