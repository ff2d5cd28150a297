#pragma once

#include "model/Record.h"

#include <span>
#include <string>
#include <string_view>

namespace quillon {

/// What a component is. A role that the program does not know is `other` and carries its text, which comes
/// back on save.
class ComponentRole {
public:
    enum Case : uint8_t {
        title,
        heading,
        heading1,
        heading2,
        heading3,
        heading4,
        heading5,
        heading6,
        intro,
        body,
        caption,
        author,
        byline,
        photographer,
        illustrator,
        quote,
        pullquote,
        photo,
        image,
        figure,
        portrait,
        logo,
        gallery,
        mosaic,
        dataTable,
        divider,
        container,
        aside,
        chapter,
        header,
        section,
        video,
        audio,
        music,
        podcast,
        embedWebVideo,
        map,
        place,
        instagram,
        facebookPost,
        tiktok,
        button,
        linkButton,
        articleLink,
        articleThumbnail,
        articleTitle,
        arkit,
        tweet,
        htmlTable,
        spacer,
        bannerAdvertisement,
        mediumRectangleAdvertisement,
        replicaAdvertisement,
        other,
    };

    ComponentRole(Case role = Case::body) : m_case(role) {}
    /// The role of a JSON text, compared exactly; any text has one.
    static ComponentRole fromRawValue(std::string_view rawValue);
    /// The named roles, in the order of the table.
    static std::span<const Case> allNamed();

    Case kind() const { return m_case; }
    /// The text in JSON, which also identifies a role in lists.
    std::string_view rawValue() const;
    /// The name that people read: "Pull Quote"; an unknown role's own text, each word capitalised.
    std::string displayName() const;
    /// The system symbols of the outline, plain and emphasised.
    std::string_view symbolName() const;
    std::string_view filledSymbolName() const;
    /// Whether the editor lets other components be moved into one of this role.
    bool isContainer() const;

    friend bool operator==(const ComponentRole& left, const ComponentRole& right) = default;
    friend bool operator==(const ComponentRole& left, Case right) { return left.m_case == right; }

private:
    Case m_case;
    Optional<std::string> m_otherText; ///< with `other` alone; absent for the empty text
};

bool readValue(JsonElement element, ComponentRole& value, ReadFailure& failure);
void writeValue(JsonWriter& writer, const ComponentRole& value);

} // namespace quillon
