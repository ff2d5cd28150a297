#include "model/Component.h"

#include "base/UnicodeText.h"
#include "model/Fields.h"

#include <utility>

namespace quillon {

namespace {

std::string counted(size_t count, std::string_view noun) {
    return std::to_string(count) + " " + std::string(noun) + (count == 1 ? "" : "s");
}

/// `text` unless it is empty, else `fallback`.
std::string orElse(std::string_view text, std::string fallback) {
    return text.empty() ? std::move(fallback) : std::string(text);
}

std::string_view viewOf(const Optional<std::string>& text) {
    return text ? std::string_view(*text) : "";
}

} // namespace

std::string Component::summary() const {
    using enum ComponentRole::Case;
    switch (role.kind()) {
    case title:
    case heading:
    case heading1:
    case heading2:
    case heading3:
    case heading4:
    case heading5:
    case heading6:
    case intro:
    case body:
    case ComponentRole::caption:
    case author:
    case byline:
    case photographer:
    case illustrator:
    case quote:
    case pullquote:
    case articleTitle:
        return orElse(trimmed(viewOf(text)), role.displayName());
    case photo:
    case image:
    case figure:
    case portrait:
    case logo:
    case articleThumbnail:
        return orElse(viewOf(URL), "No image");
    case gallery:
    case mosaic:
        return counted(items ? items->size() : 0, "image");
    case dataTable:
        return std::to_string(data ? data->records.size() : 0) + "×" +
               std::to_string(data ? data->descriptors.size() : 0) + " table";
    case divider:
        return "Divider";
    case container:
    case aside:
    case chapter:
    case header:
    case section:
        return counted(components ? components->size() : 0, "component");
    case articleLink:
        return orElse(viewOf(articleIdentifier), orElse(trimmed(viewOf(URL)), role.displayName()));
    case video:
    case audio:
    case music:
    case podcast:
    case embedWebVideo:
    case map:
    case place:
    case instagram:
    case facebookPost:
    case tiktok:
    case button:
    case linkButton:
    case arkit:
    case tweet:
        return orElse(trimmed(viewOf(URL)), role.displayName());
    case htmlTable:
        return viewOf(html).empty() ? "Empty HTML table" : "HTML table";
    case spacer:
        return "Flexible spacer";
    case bannerAdvertisement:
    case mediumRectangleAdvertisement:
    case replicaAdvertisement:
        return orElse(viewOf(URL), role.displayName());
    case other:
        return std::string(role.rawValue());
    }
    return {};
}

const RecordInfo& RecordTable<ConditionalComponent>::info() {
    static const RecordInfo table{{
        optional<&ConditionalComponent::conditions>("conditions"),
        optional<&ConditionalComponent::hidden>("hidden"),
        optional<&ConditionalComponent::anchor>("anchor"),
        optional<&ConditionalComponent::animation>("animation"),
        optional<&ConditionalComponent::behavior>("behavior"),
        optional<&ConditionalComponent::scene>("scene"),
        optional<&ConditionalComponent::contentDisplay>("contentDisplay"),
        optional<&ConditionalComponent::layout>("layout"),
        optional<&ConditionalComponent::style>("style"),
        optional<&ConditionalComponent::textStyle>("textStyle"),
        optional<&ConditionalComponent::accessibilityCaption>("accessibilityCaption"),
    }};
    return table;
}

const RecordInfo& RecordTable<Component>::info() {
    static const RecordInfo table(
        {
            required<&Component::role>("role"),
            optional<&Component::text>("text"),
            optional<&Component::html>("html"),
            optional<&Component::format>("format"),
            optional<&Component::URL>("URL"),
            optional<&Component::caption>("caption"),
            optional<&Component::components>("components"),
            optional<&Component::items>("items"),
            optional<&Component::style>("style"),
            optional<&Component::textStyle>("textStyle"),
            optional<&Component::inlineTextStyles>("inlineTextStyles"),
            optional<&Component::layout>("layout"),
            optional<&Component::anchor>("anchor"),
            optional<&Component::data>("data"),
            optional<&Component::showDescriptorLabels>("showDescriptorLabels"),
            optional<&Component::dataOrientation>("dataOrientation"),
            optional<&Component::sortBy>("sortBy"),
            optional<&Component::identifier>("identifier"),
            optional<&Component::hidden>("hidden"),
            optional<&Component::accessibilityCaption>("accessibilityCaption"),
            optional<&Component::stillURL>("stillURL"),
            optional<&Component::aspectRatio>("aspectRatio"),
            optional<&Component::articleIdentifier>("articleIdentifier"),
            optional<&Component::fillMode>("fillMode"),
            optional<&Component::verticalAlignment>("verticalAlignment"),
            optional<&Component::orientation>("orientation"),
            optional<&Component::theme>("theme"),
            optional<&Component::behavior>("behavior"),
            optional<&Component::scene>("scene"),
            optional<&Component::animation>("animation"),
            optional<&Component::contentDisplay>("contentDisplay"),
            optional<&Component::additions>("additions"),
            optional<&Component::conditional>("conditional"),
            optional<&Component::latitude>("latitude"),
            optional<&Component::longitude>("longitude"),
        },
        [](void* record) -> PreservedFields& { return static_cast<Component*>(record)->preservedFields; });
    return table;
}

} // namespace quillon
