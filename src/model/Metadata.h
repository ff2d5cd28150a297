#pragma once

#include "base/Shared.h"
#include "base/Uuid.h"
#include "model/Condition.h"
#include "model/Record.h"

#include <string>
#include <vector>

namespace quillon {

/// Campaign keys with the values of each.
using CampaignData = std::map<std::string, std::vector<std::string>>;

/// One image of an article's cover.
struct CoverArtItem {
    Optional<std::string> URL;
    Optional<std::string> accessibilityCaption;

    bool operator==(const CoverArtItem&) const = default;
};

/// A link from the article to a page about it.
struct MetadataLink {
    Uuid id = Uuid::random(); ///< not stored in a file
    Optional<std::string> URL;
    Optional<std::string> relationship;

    bool operator==(const MetadataLink&) const = default;
};

/// What an article says about itself. Dates are plain text; keys outside the fields are preserved.
struct Metadata {
    Optional<std::vector<std::string>> authors;
    Optional<std::string> canonicalURL;
    Optional<std::string> thumbnailURL;
    Optional<std::vector<std::string>> keywords;
    Optional<std::string> excerpt;
    Optional<std::string> datePublished;
    Optional<std::string> dateCreated;
    Optional<std::string> dateModified;
    Optional<bool> transparentToolbar;
    Optional<std::string> videoURL;
    Optional<std::vector<CoverArtItem>> coverArt;
    Optional<CampaignData> campaignData;
    Optional<std::string> generatorName;
    Optional<std::string> generatorVersion;
    Optional<std::vector<MetadataLink>> links;
    PreservedFields preservedFields; ///< every other key

    bool operator==(const Metadata&) const = default;
};

struct ConditionalDocumentStyle;

/// The background of the page.
struct DocumentStyle {
    Optional<std::string> backgroundColor;
    Optional<std::vector<ConditionalDocumentStyle>> conditional;

    bool operator==(const DocumentStyle&) const = default;
};

/// A document style for where some `conditions` hold; its keys stand flat beside `conditions`.
struct ConditionalDocumentStyle {
    DocumentStyle style;
    Conditions conditions;

    bool operator==(const ConditionalDocumentStyle&) const = default;
};

/// The distance of an advertisement from its neighbours, in points.
struct AdvertisingMargin {
    Optional<int64_t> top;
    Optional<int64_t> bottom;

    bool operator==(const AdvertisingMargin&) const = default;
};

/// The layout of automatic advertisements.
struct AdvertisingLayout {
    Optional<AdvertisingMargin> margin;

    bool operator==(const AdvertisingLayout&) const = default;
};

/// How often advertisements stand in the article.
struct AdvertisingSettings {
    Optional<int64_t> frequency;
    Optional<AdvertisingLayout> layout;

    bool operator==(const AdvertisingSettings&) const = default;
};

template <>
struct RecordTable<CoverArtItem> {
    static const RecordInfo& info();
};

template <>
struct RecordTable<MetadataLink> {
    static const RecordInfo& info();
};

template <>
struct RecordTable<Metadata> {
    static const RecordInfo& info();
};

template <>
struct RecordTable<DocumentStyle> {
    static const RecordInfo& info();
};

template <>
struct RecordTable<ConditionalDocumentStyle> {
    static const RecordInfo& info();
};

template <>
struct RecordTable<AdvertisingMargin> {
    static const RecordInfo& info();
};

template <>
struct RecordTable<AdvertisingLayout> {
    static const RecordInfo& info();
};

template <>
struct RecordTable<AdvertisingSettings> {
    static const RecordInfo& info();
};

} // namespace quillon
