#pragma once

#include "base/List.h"
#include "base/Uuid.h"
#include "model/ComponentRole.h"
#include "model/ComponentStyle.h"
#include "model/DataTable.h"
#include "model/Gallery.h"
#include "model/Layout.h"
#include "model/Placement.h"
#include "model/TextFormat.h"
#include "model/TextRanges.h"

#include <string>
#include <vector>

namespace quillon {

/// What a component becomes where some `conditions` hold. Only these fields can change; any other key is
/// dropped.
struct ConditionalComponent {
    Conditions conditions;
    Optional<bool> hidden;
    Optional<Anchor> anchor;
    Optional<ComponentAnimation> animation;
    Optional<Behavior> behavior;
    Optional<ANFScene> scene;
    Optional<ContentDisplay> contentDisplay;
    Optional<StyleRef<ComponentLayout>> layout;
    Optional<StyleReference> style;
    Optional<StyleRef<ComponentTextStyle>> textStyle;
    Optional<std::string> accessibilityCaption;

    bool operator==(const ConditionalComponent&) const = default;
};

/// One node of the article's tree. `id` is what follows it from edit to edit: made fresh whenever a component
/// comes into being and never stored in a file. Which fields go with which role is not enforced.
struct Component {
    Uuid id = Uuid::random();
    ComponentRole role;
    // The children stand this far up so that a search through a tree stays within a node's first bytes.
    Optional<List<Component>> components;
    Optional<std::string> text;
    Optional<std::string> html; ///< of an HTML table
    Optional<TextFormat> format;
    Optional<std::string> URL; ///< media, embed or link; `bundle://` for an asset of the package
    Optional<std::string> caption;
    Optional<std::vector<GalleryItem>> items; ///< of a gallery or mosaic
    Optional<StyleReference> style;
    Optional<StyleRef<ComponentTextStyle>> textStyle;
    Optional<std::vector<InlineTextStyle>> inlineTextStyles;
    Optional<StyleRef<ComponentLayout>> layout;
    Optional<Anchor> anchor;
    Optional<RecordStore> data; ///< of a data table
    Optional<bool> showDescriptorLabels;
    Optional<std::string> dataOrientation;
    Optional<std::vector<DataTableSorting>> sortBy;
    Optional<std::string> identifier; ///< the target of anchors; unrelated to `id`, need not be unique
    Optional<bool> hidden;
    Optional<std::string> accessibilityCaption;
    Optional<std::string> stillURL;
    Optional<double> aspectRatio;
    Optional<std::string> articleIdentifier; ///< of an article link
    Optional<std::string> fillMode;
    Optional<std::string> verticalAlignment;
    Optional<std::string> orientation;
    Optional<std::string> theme;
    Optional<Behavior> behavior;
    Optional<ANFScene> scene;
    Optional<ComponentAnimation> animation;
    Optional<ContentDisplay> contentDisplay;
    Optional<std::vector<ComponentLink>> additions; ///< links in `text`
    Optional<std::vector<ConditionalComponent>> conditional;
    Optional<double> latitude;       ///< degrees
    Optional<double> longitude;      ///< degrees
    PreservedFields preservedFields; ///< every other key

    bool operator==(const Component&) const = default;

    /// The one line that stands for the component in lists: its text, its address, what it holds, or its
    /// name.
    std::string summary() const;
};

template <>
struct RecordTable<ConditionalComponent> {
    static const RecordInfo& info();
};

template <>
struct RecordTable<Component> {
    static const RecordInfo& info();
};

} // namespace quillon
