#include "model/Metadata.h"

#include "model/Fields.h"

namespace quillon {

const RecordInfo& RecordTable<CoverArtItem>::info() {
    static const RecordInfo table{{
        optional<&CoverArtItem::URL>("URL"),
        optional<&CoverArtItem::accessibilityCaption>("accessibilityCaption"),
    }};
    return table;
}

const RecordInfo& RecordTable<MetadataLink>::info() {
    static const RecordInfo table{{
        optional<&MetadataLink::URL>("URL"),
        optional<&MetadataLink::relationship>("relationship"),
    }};
    return table;
}

const RecordInfo& RecordTable<Metadata>::info() {
    static const RecordInfo table(
        {
            optional<&Metadata::authors>("authors"),
            optional<&Metadata::canonicalURL>("canonicalURL"),
            optional<&Metadata::thumbnailURL>("thumbnailURL"),
            optional<&Metadata::keywords>("keywords"),
            optional<&Metadata::excerpt>("excerpt"),
            optional<&Metadata::datePublished>("datePublished"),
            optional<&Metadata::dateCreated>("dateCreated"),
            optional<&Metadata::dateModified>("dateModified"),
            optional<&Metadata::transparentToolbar>("transparentToolbar"),
            optional<&Metadata::videoURL>("videoURL"),
            optional<&Metadata::coverArt>("coverArt"),
            optional<&Metadata::campaignData>("campaignData"),
            optional<&Metadata::generatorName>("generatorName"),
            optional<&Metadata::generatorVersion>("generatorVersion"),
            optional<&Metadata::links>("links"),
        },
        [](void* record) -> PreservedFields& { return static_cast<Metadata*>(record)->preservedFields; });
    return table;
}

const RecordInfo& RecordTable<DocumentStyle>::info() {
    static const RecordInfo table{{
        optional<&DocumentStyle::backgroundColor>("backgroundColor"),
        optional<&DocumentStyle::conditional>("conditional"),
    }};
    return table;
}

const RecordInfo& RecordTable<ConditionalDocumentStyle>::info() {
    static const RecordInfo table(embedded<&ConditionalDocumentStyle::style>(
        {optional<&ConditionalDocumentStyle::conditions>("conditions")}));
    return table;
}

const RecordInfo& RecordTable<AdvertisingMargin>::info() {
    static const RecordInfo table{{
        optional<&AdvertisingMargin::top>("top"),
        optional<&AdvertisingMargin::bottom>("bottom"),
    }};
    return table;
}

const RecordInfo& RecordTable<AdvertisingLayout>::info() {
    static const RecordInfo table{{
        optional<&AdvertisingLayout::margin>("margin"),
    }};
    return table;
}

const RecordInfo& RecordTable<AdvertisingSettings>::info() {
    static const RecordInfo table{{
        optional<&AdvertisingSettings::frequency>("frequency"),
        optional<&AdvertisingSettings::layout>("layout"),
    }};
    return table;
}

} // namespace quillon
