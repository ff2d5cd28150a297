#pragma once

#include "model/ArticleDocument.h"

#include <tuple>

/// The fields of every record as a tuple of references, in the order of its table: what generators and walks
/// over whole articles are made of. Ids and preserved keys, which are no fields of the JSON, are left out.
namespace quillon::support {

inline auto fieldsOf(Layout& r) {
    return std::tie(r.columns, r.width, r.margin, r.gutter);
}
inline auto fieldsOf(Margin& r) {
    return std::tie(r.top, r.bottom);
}
inline auto fieldsOf(ContentInset& r) {
    return std::tie(r.top, r.right, r.bottom, r.left);
}
inline auto fieldsOf(ComponentLayout& r) {
    return std::tie(r.columnStart, r.columnSpan, r.margin, r.contentInset, r.ignoreDocumentMargin,
                    r.ignoreViewportPadding, r.ignoreDocumentGutter, r.minimumHeight, r.maximumContentWidth,
                    r.horizontalContentAlignment, r.conditional);
}
inline auto fieldsOf(ConditionalComponentLayout& r) {
    return std::tie(r.layout, r.conditions);
}
inline auto fieldsOf(Condition& r) {
    return std::tie(r.preferredColorScheme, r.platform, r.subscriptionStatus, r.horizontalSizeClass,
                    r.verticalSizeClass, r.minViewportWidth, r.maxViewportWidth, r.minSpecVersion,
                    r.maxSpecVersion);
}
inline auto fieldsOf(Anchor& r) {
    return std::tie(r.targetComponentIdentifier, r.originAnchorPosition, r.targetAnchorPosition, r.rangeStart,
                    r.rangeLength);
}
inline auto fieldsOf(ContentDisplay& r) {
    return std::tie(r.type, r.gutter, r.rowSpacing, r.alignment, r.distribution, r.maximumWidth,
                    r.minimumWidth);
}
inline auto fieldsOf(ComponentAnimation& r) {
    return std::tie(r.type, r.userControllable, r.initialAlpha, r.initialScale, r.preferredStartingPosition);
}
inline auto fieldsOf(Behavior& r) {
    return std::tie(r.type, r.factor);
}
inline auto fieldsOf(ANFScene& r) {
    return std::tie(r.type, r.fadeColor);
}
inline auto fieldsOf(ComponentLink& r) {
    return std::tie(r.type, r.URL, r.rangeStart, r.rangeLength);
}
inline auto fieldsOf(ColorStop& r) {
    return std::tie(r.color, r.location);
}
inline auto fieldsOf(Fill& r) {
    return std::tie(r.type, r.URL, r.fillMode, r.horizontalAlignment, r.verticalAlignment, r.attachment,
                    r.repeatMode, r.width, r.height, r.stillURL, r.loop, r.angle, r.colorStops);
}
inline auto fieldsOf(ANFStrokeStyle& r) {
    return std::tie(r.width, r.color, r.style);
}
inline auto fieldsOf(Border& r) {
    return std::tie(r.all, r.top, r.bottom, r.left, r.right);
}
inline auto fieldsOf(CornerMask& r) {
    return std::tie(r.type, r.radius, r.topLeft, r.topRight, r.bottomLeft, r.bottomRight);
}
inline auto fieldsOf(ComponentShadowOffset& r) {
    return std::tie(r.x, r.y);
}
inline auto fieldsOf(ComponentShadow& r) {
    return std::tie(r.color, r.opacity, r.radius, r.offset);
}
inline auto fieldsOf(ComponentStyle& r) {
    return std::tie(r.backgroundColor, r.fill, r.opacity, r.border, r.mask, r.shadow, r.tableStyle,
                    r.conditional);
}
inline auto fieldsOf(ConditionalComponentStyle& r) {
    return std::tie(r.style, r.conditions);
}
inline auto fieldsOf(TextDecorationStyle& r) {
    return std::tie(r.color);
}
inline auto fieldsOf(DropCapStyle& r) {
    return std::tie(r.numberOfLines, r.numberOfCharacters, r.numberOfRaisedLines, r.fontName, r.textColor,
                    r.backgroundColor, r.padding);
}
inline auto fieldsOf(ListItemStyle& r) {
    return std::tie(r.type, r.character);
}
inline auto fieldsOf(TextStrokeStyle& r) {
    return std::tie(r.color, r.width);
}
inline auto fieldsOf(TextShadowOffset& r) {
    return std::tie(r.x, r.y);
}
inline auto fieldsOf(TextShadow& r) {
    return std::tie(r.color, r.opacity, r.radius, r.offset);
}
/// What both kinds of text style have.
template <typename Style>
auto textFieldsOf(Style& r) {
    return std::tie(r.fontName, r.fontFamily, r.fontWeight, r.fontStyle, r.fontWidth, r.fontSize, r.textColor,
                    r.backgroundColor, r.strikethrough, r.underline, r.tracking, r.textShadow, r.stroke,
                    r.verticalAlignment, r.orderedListItems, r.unorderedListItems);
}
inline auto fieldsOf(TextStyle& r) {
    return std::tuple_cat(textFieldsOf(r), std::tie(r.conditional));
}
inline auto fieldsOf(ConditionalTextStyle& r) {
    return std::tie(r.style, r.conditions);
}
inline auto fieldsOf(ComponentTextStyle& r) {
    return std::tuple_cat(textFieldsOf(r), std::tie(r.textAlignment, r.lineHeight, r.dropCapStyle,
                                                    r.firstLineIndent, r.hangingPunctuation, r.hyphenation,
                                                    r.paragraphSpacing, r.linkStyle, r.conditional));
}
inline auto fieldsOf(ConditionalComponentTextStyle& r) {
    return std::tie(r.style, r.conditions);
}
inline auto fieldsOf(InlineTextStyle& r) {
    return std::tie(r.rangeStart, r.rangeLength, r.textStyle);
}
inline auto fieldsOf(GalleryItem& r) {
    return std::tie(r.URL, r.caption, r.captionTextStyle);
}
inline auto fieldsOf(Padding& r) {
    return std::tie(r.top, r.right, r.bottom, r.left);
}
inline auto fieldsOf(TableRowSelector& r) {
    return std::tie(r.odd, r.even, r.rowIndex, r.descriptor);
}
inline auto fieldsOf(TableColumnSelector& r) {
    return std::tie(r.odd, r.even, r.columnIndex, r.descriptor);
}
inline auto fieldsOf(TableCellSelector& r) {
    return std::tie(r.oddRows, r.evenRows, r.oddColumns, r.evenColumns, r.rowIndex, r.columnIndex,
                    r.descriptor);
}
inline auto fieldsOf(ConditionalTableRowStyle& r) {
    return std::tie(r.selectors, r.backgroundColor, r.divider, r.height);
}
inline auto fieldsOf(ConditionalTableColumnStyle& r) {
    return std::tie(r.selectors, r.backgroundColor, r.divider, r.width, r.minimumWidth);
}
inline auto fieldsOf(ConditionalTableCellStyle& r) {
    return std::tie(r.selectors, r.backgroundColor, r.border, r.height, r.horizontalAlignment,
                    r.verticalAlignment, r.minimumWidth, r.width, r.padding, r.textStyle);
}
inline auto fieldsOf(TableRowStyle& r) {
    return std::tie(r.backgroundColor, r.divider, r.height, r.conditional);
}
inline auto fieldsOf(TableColumnStyle& r) {
    return std::tie(r.backgroundColor, r.divider, r.width, r.minimumWidth, r.conditional);
}
inline auto fieldsOf(TableCellStyle& r) {
    return std::tie(r.backgroundColor, r.border, r.height, r.horizontalAlignment, r.verticalAlignment,
                    r.minimumWidth, r.width, r.padding, r.textStyle, r.conditional);
}
inline auto fieldsOf(TableStyle& r) {
    return std::tie(r.rows, r.columns, r.cells, r.headerRows, r.headerColumns, r.headerCells);
}
inline auto fieldsOf(DataTableSorting& r) {
    return std::tie(r.descriptor, r.direction);
}
inline auto fieldsOf(FormattedText& r) {
    return std::tie(r.type, r.text, r.format, r.textStyle, r.inlineTextStyles, r.additions);
}
inline auto fieldsOf(DataDescriptor& r) {
    return std::tie(r.identifier, r.key, r.label, r.dataType, r.format);
}
inline auto fieldsOf(RecordStore& r) {
    return std::tie(r.descriptors, r.records);
}
inline auto fieldsOf(ConditionalComponent& r) {
    return std::tie(r.conditions, r.hidden, r.anchor, r.animation, r.behavior, r.scene, r.contentDisplay,
                    r.layout, r.style, r.textStyle, r.accessibilityCaption);
}
inline auto fieldsOf(Component& r) {
    return std::tie(r.role, r.text, r.html, r.format, r.URL, r.caption, r.components, r.items, r.style,
                    r.textStyle, r.inlineTextStyles, r.layout, r.anchor, r.data, r.showDescriptorLabels,
                    r.dataOrientation, r.sortBy, r.identifier, r.hidden, r.accessibilityCaption, r.stillURL,
                    r.aspectRatio, r.articleIdentifier, r.fillMode, r.verticalAlignment, r.orientation,
                    r.theme, r.behavior, r.scene, r.animation, r.contentDisplay, r.additions, r.conditional,
                    r.latitude, r.longitude);
}
inline auto fieldsOf(CoverArtItem& r) {
    return std::tie(r.URL, r.accessibilityCaption);
}
inline auto fieldsOf(MetadataLink& r) {
    return std::tie(r.URL, r.relationship);
}
inline auto fieldsOf(Metadata& r) {
    return std::tie(r.authors, r.canonicalURL, r.thumbnailURL, r.keywords, r.excerpt, r.datePublished,
                    r.dateCreated, r.dateModified, r.transparentToolbar, r.videoURL, r.coverArt,
                    r.campaignData, r.generatorName, r.generatorVersion, r.links);
}
inline auto fieldsOf(DocumentStyle& r) {
    return std::tie(r.backgroundColor, r.conditional);
}
inline auto fieldsOf(ConditionalDocumentStyle& r) {
    return std::tie(r.style, r.conditions);
}
inline auto fieldsOf(AdvertisingMargin& r) {
    return std::tie(r.top, r.bottom);
}
inline auto fieldsOf(AdvertisingLayout& r) {
    return std::tie(r.margin);
}
inline auto fieldsOf(AdvertisingSettings& r) {
    return std::tie(r.frequency, r.layout);
}
inline auto fieldsOf(ColorScheme& r) {
    return std::tie(r.automaticDarkModeEnabled);
}
inline auto fieldsOf(ArticleDocument& r) {
    return std::tie(r.version, r.identifier, r.language, r.title, r.subtitle, r.layout, r.documentStyle,
                    r.colorScheme, r.textFormat, r.metadata, r.advertisingSettings, r.componentStyles,
                    r.componentTextStyles, r.textStyles, r.componentLayouts, r.components);
}

/// Has a `fieldsOf`.
template <typename Record>
concept HasFields = requires(Record& record) {
    fieldsOf(record);
};

} // namespace quillon::support
