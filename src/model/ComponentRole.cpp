#include "model/ComponentRole.h"

#include "base/UnicodeText.h"
#include "model/Codec.h"

#include <array>
#include <unordered_map>

namespace quillon {

namespace {

struct RoleRow {
    std::string_view rawValue;
    std::string_view displayName;
    std::string_view symbolName;
    std::string_view filledSymbolName;
};

constexpr std::string_view unknownSymbol = "questionmark.square.dashed";

/// In the order of ComponentRole::Case.
constexpr std::array<RoleRow, ComponentRole::other> roleRows = {{
    {"title", "Title", "textformat.size.larger", "textformat.size.larger"},
    {"heading", "Heading", "textformat.size", "textformat.size"},
    {"heading1", "Heading 1", "1.square", "1.square.fill"},
    {"heading2", "Heading 2", "2.square", "2.square.fill"},
    {"heading3", "Heading 3", "3.square", "3.square.fill"},
    {"heading4", "Heading 4", "4.square", "4.square.fill"},
    {"heading5", "Heading 5", "5.square", "5.square.fill"},
    {"heading6", "Heading 6", "6.square", "6.square.fill"},
    {"intro", "Intro", "text.alignleft", "text.alignleft"},
    {"body", "Body", "doc.text", "doc.text.fill"},
    {"caption", "Caption", "captions.bubble", "captions.bubble.fill"},
    {"author", "Author", "person", "person.fill"},
    {"byline", "Byline", "signature", "signature"},
    {"photographer", "Photographer", "camera", "camera.fill"},
    {"illustrator", "Illustrator", "paintbrush", "paintbrush.fill"},
    {"quote", "Quote", "quote.opening", "quote.opening"},
    {"pullquote", "Pull Quote", "text.quote", "text.quote"},
    {"photo", "Photo", "photo", "photo.fill"},
    {"image", "Image", "photo.fill", "photo.fill"},
    {"figure", "Figure", "rectangle.on.rectangle", "rectangle.fill.on.rectangle.fill"},
    {"portrait", "Portrait", "person.crop.rectangle", "person.crop.rectangle.fill"},
    {"logo", "Logo", "seal", "seal.fill"},
    {"gallery", "Gallery", "photo.on.rectangle.angled", "photo.fill.on.rectangle.fill"},
    {"mosaic", "Mosaic", "square.grid.2x2", "square.grid.2x2.fill"},
    {"datatable", "Table", "tablecells", "tablecells.fill"},
    {"divider", "Divider", "minus", "minus"},
    {"container", "Container", "square.stack.3d.up", "square.stack.3d.up.fill"},
    {"aside", "Aside", "sidebar.leading", "sidebar.leading"},
    {"chapter", "Chapter", "book.closed", "book.closed.fill"},
    {"header", "Header", "rectangle.topthird.inset.filled", "rectangle.topthird.inset.filled"},
    {"section", "Section", "rectangle.split.1x2", "rectangle.split.1x2.fill"},
    {"video", "Video", "play.rectangle", "play.rectangle.fill"},
    {"audio", "Audio", "waveform", "waveform"},
    {"music", "Music", "music.note", "music.note"},
    {"podcast", "Podcast", "dot.radiowaves.left.and.right", "dot.radiowaves.left.and.right"},
    {"embedwebvideo", "Web Video", "play.tv", "play.tv.fill"},
    {"map", "Map", "map", "map.fill"},
    {"place", "Place", "mappin.and.ellipse", "mappin.and.ellipse"},
    {"instagram", "Instagram", "camera.viewfinder", "camera.viewfinder"},
    {"facebook_post", "Facebook Post", "person.2", "person.2.fill"},
    {"tiktok", "TikTok", "music.note.list", "music.note.list"},
    {"button", "Button", "button.horizontal", "button.horizontal.fill"},
    {"link_button", "Link Button", "link.circle", "link.circle.fill"},
    {"article_link", "Article Link", "link", "link"},
    {"article_thumbnail", "Article Thumbnail", "photo.on.rectangle", "photo.fill.on.rectangle.fill"},
    {"article_title", "Article Title", "textformat.alt", "textformat.alt"},
    {"arkit", "ARKit", "arkit", "arkit"},
    {"tweet", "Tweet", "bubble.left.and.text.bubble.right", "bubble.left.and.text.bubble.right.fill"},
    {"htmltable", "HTML Table", "tablecells.badge.ellipsis", "tablecells.badge.ellipsis"},
    {"spacer", "Spacer", "arrow.left.and.right", "arrow.left.and.right"},
    {"banner_advertisement", "Banner Ad", "megaphone", "megaphone.fill"},
    {"medium_rectangle_advertisement", "Medium Rectangle Ad", "rectangle.badge.plus",
     "rectangle.fill.badge.plus"},
    {"replica_advertisement", "Replica Ad", "doc.richtext", "doc.richtext.fill"},
}};

} // namespace

ComponentRole ComponentRole::fromRawValue(std::string_view rawValue) {
    static const auto roles = [] {
        std::unordered_map<std::string_view, Case> map;
        for (size_t row = 0; row < roleRows.size(); ++row) {
            map.emplace(roleRows[row].rawValue, static_cast<Case>(row));
        }
        return map;
    }();
    if (const auto found = roles.find(rawValue); found != roles.end()) {
        return found->second;
    }
    ComponentRole role(other);
    if (!rawValue.empty()) {
        role.m_otherText = std::string(rawValue);
    }
    return role;
}

std::span<const ComponentRole::Case> ComponentRole::allNamed() {
    static const auto cases = [] {
        std::array<Case, roleRows.size()> all{};
        for (size_t row = 0; row < all.size(); ++row) {
            all[row] = static_cast<Case>(row);
        }
        return all;
    }();
    return cases;
}

std::string_view ComponentRole::rawValue() const {
    if (m_case != other) {
        return roleRows[m_case].rawValue;
    }
    return m_otherText ? std::string_view(*m_otherText) : std::string_view();
}

std::string ComponentRole::displayName() const {
    return m_case == other ? capitalizedWords(rawValue()) : std::string(roleRows[m_case].displayName);
}

std::string_view ComponentRole::symbolName() const {
    return m_case == other ? unknownSymbol : roleRows[m_case].symbolName;
}

std::string_view ComponentRole::filledSymbolName() const {
    return m_case == other ? unknownSymbol : roleRows[m_case].filledSymbolName;
}

bool ComponentRole::isContainer() const {
    switch (m_case) {
    case container:
    case aside:
    case chapter:
    case header:
    case section:
    case articleLink:
        return true;
    default:
        return false;
    }
}

bool readValue(JsonElement element, ComponentRole& value, ReadFailure& failure) {
    const auto text = element.text();
    if (!text) {
        return expect("text", element, failure);
    }
    value = ComponentRole::fromRawValue(*text);
    return true;
}

void writeValue(JsonWriter& writer, const ComponentRole& value) {
    writer.text(value.rawValue());
}

} // namespace quillon
