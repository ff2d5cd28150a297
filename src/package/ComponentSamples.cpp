#include "package/ComponentSamples.h"

#include "base/endpoints.h"
#include "package/NewArticle.h"

#include <algorithm>
#include <array>
#include <span>

namespace quillon {

namespace {

using enum ComponentRole::Case;

constexpr auto plain = TextFormat::none;

/// The sample of one role: its fields are the component's, and what is empty or 0 is absent.
struct Sample {
    ComponentRole::Case role;
    std::string_view text = {};
    std::optional<TextFormat> format = {};
    std::string_view URL = {};
    std::string_view example = {}; ///< file stem of an example picture, in place of `URL`
    std::string_view caption = {};
    std::string_view html = {};
    std::string_view accessibilityCaption = {};
    std::string_view orientation = {};
    std::string_view theme = {};
    std::string_view articleIdentifier = {};
    std::string_view fillMode = {};
    std::string_view verticalAlignment = {};
    double aspectRatio = 0;
    double latitude = 0;      ///< degrees
    double longitude = 0;     ///< degrees
    double minimumHeight = 0; ///< points; makes an empty section of this height, filled with the picture
    std::span<const std::string_view> gallery = {}; ///< file stems of example pictures
    std::span<const Sample> children = {};
    RecordStore (*data)() = nullptr;
};

constexpr auto galleryPictures =
    std::to_array<std::string_view>({"light-on-the-water", "signal-in-the-city", "quiet-table"});
constexpr auto mosaicPictures = std::to_array<std::string_view>(
    {"numbers-with-a-pulse", "culture-desk", "beyond-the-horizon", "shape-of-a-story"});

constexpr auto linkedArticle = std::to_array<Sample>({
    {.role = articleThumbnail,
     .example = "shape-of-a-story",
     .fillMode = "cover",
     .verticalAlignment = "top",
     .aspectRatio = 1},
    {.role = articleTitle, .text = "Quillon article"},
});

constexpr double sectionHeight = 160;
constexpr double headerHeight = 320;

/// Roles without a row draw from themselves alone.
constexpr auto samples = std::to_array<Sample>({
    {.role = title, .text = "Title", .format = plain},
    {.role = heading, .text = "Heading", .format = plain},
    {.role = heading1, .text = "Heading 1", .format = plain},
    {.role = heading2, .text = "Heading 2", .format = plain},
    {.role = heading3, .text = "Heading 3", .format = plain},
    {.role = heading4, .text = "Heading 4", .format = plain},
    {.role = heading5, .text = "Heading 5", .format = plain},
    {.role = heading6, .text = "Heading 6", .format = plain},
    {.role = intro, .text = "Intro", .format = plain},
    {.role = body, .text = "Body", .format = TextFormat::markdown},
    {.role = caption, .text = "Caption", .format = plain},
    {.role = author, .text = houseAuthor},
    {.role = byline, .text = "By Robin Vale"},
    {.role = photographer, .text = houseAuthor},
    {.role = illustrator, .text = houseAuthor},
    {.role = quote, .text = "Quote", .format = plain},
    {.role = pullquote, .text = "Pull Quote", .format = plain},

    {.role = photo, .example = "light-on-the-water"},
    {.role = image, .URL = endpoints::heroImage},
    {.role = figure, .example = "numbers-with-a-pulse"},
    {.role = portrait, .example = "inside-the-edit"},
    {.role = logo, .URL = endpoints::productIcon},
    {.role = gallery, .gallery = galleryPictures},
    {.role = mosaic, .gallery = mosaicPictures},

    {.role = dataTable, .data = sampleRecordStore},
    {.role = container, .example = "quiet-table", .minimumHeight = sectionHeight},
    {.role = aside, .example = "culture-desk", .minimumHeight = sectionHeight},
    {.role = chapter, .example = "beyond-the-horizon", .minimumHeight = sectionHeight},
    {.role = header, .URL = endpoints::heroImage, .minimumHeight = headerHeight},
    {.role = section, .example = "signal-in-the-city", .minimumHeight = sectionHeight},

    {.role = video,
     .URL = "https://developer.apple.com/news-publisher/download/Apple-News-Example-Articles/videos/"
            "parallax-scene.mp4",
     .caption = "Apple News parallax scene sample video"},
    {.role = audio,
     .URL = "https://www.soundhelix.com/examples/mp3/SoundHelix-Song-1.mp3",
     .caption = "Sample audio track"},
    {.role = music,
     .URL = "https://music.apple.com/us/album/bohemian-rhapsody/1440806041?i=1440806768",
     .caption = "Sample song on Apple Music"},
    {.role = podcast,
     .URL = "https://podcasts.apple.com/us/podcast/the-daily/id1200361736",
     .caption = "The Daily on Apple Podcasts",
     .orientation = "landscape",
     .theme = "light"},
    {.role = embedWebVideo,
     .URL = "https://youtu.be/aqz-KE-bpKQ",
     .caption = "Sample web video",
     .aspectRatio = 16.0 / 9.0},
    {.role = map, .caption = "Apple Park, Cupertino", .latitude = 37.3349, .longitude = -122.009},
    {.role = place, .caption = "Apple Park Visitor Center", .latitude = 37.3327, .longitude = -122.0053},
    {.role = instagram, .URL = "https://www.instagram.com/p/fA9uwTtkSN/"},
    {.role = facebookPost, .URL = "https://www.facebook.com/20531316728/posts/10154009990506729/"},
    {.role = tiktok, .URL = "https://www.tiktok.com/@scout2015/video/6718335390845095173"},
    {.role = tweet, .URL = "https://x.com/jack/status/20"},
    {.role = arkit,
     .URL = "https://developer.apple.com/augmented-reality/quick-look/models/teapot/teapot.usdz"},

    {.role = button, .text = "Open Quillon", .URL = endpoints::productHome},
    {.role = linkButton, .text = "Open Quillon", .URL = endpoints::productHome},
    {.role = articleLink, .articleIdentifier = endpoints::appleNewsRoot, .children = linkedArticle},
    {.role = articleThumbnail, .example = "shape-of-a-story"},
    {.role = articleTitle, .text = "Article Title", .format = plain},
    {.role = htmlTable,
     .html = "<table><tr><th>Name</th><th>Value</th></tr><tr><td>Example</td><td>Value</td></tr></table>"},
    {.role = replicaAdvertisement,
     .URL = endpoints::heroImage,
     .accessibilityCaption = "Sample replica advertisement artwork"},
});

struct TextField {
    std::string_view Sample::*from;
    Optional<std::string> Component::*to;
};

constexpr auto textFields = std::to_array<TextField>({
    {&Sample::text, &Component::text},
    {&Sample::caption, &Component::caption},
    {&Sample::html, &Component::html},
    {&Sample::accessibilityCaption, &Component::accessibilityCaption},
    {&Sample::orientation, &Component::orientation},
    {&Sample::theme, &Component::theme},
    {&Sample::articleIdentifier, &Component::articleIdentifier},
    {&Sample::fillMode, &Component::fillMode},
    {&Sample::verticalAlignment, &Component::verticalAlignment},
});

struct NumberField {
    double Sample::*from;
    Optional<double> Component::*to;
};

constexpr auto numberFields = std::to_array<NumberField>({
    {&Sample::aspectRatio, &Component::aspectRatio},
    {&Sample::latitude, &Component::latitude},
    {&Sample::longitude, &Component::longitude},
});

std::string exampleImage(std::string_view stem) {
    return std::string(endpoints::exampleImagePrefix) + std::string(stem) + ".png";
}

/// Makes a section that is seen although it is empty.
void fillSection(Component& component, const std::string& picture, double height) {
    component.components = List<Component>();
    Fill fill;
    fill.type = "image";
    fill.URL = picture;
    fill.fillMode = "cover";
    fill.horizontalAlignment = "center";
    fill.verticalAlignment = "center";
    component.style = StyleReference{Shared<ComponentStyle>(ComponentStyle{.fill = fill})};
    component.layout = StyleRef<ComponentLayout>{
        Shared<ComponentLayout>(ComponentLayout{.minimumHeight = ANFLength{height}})};
}

Component componentOf(const Sample& sample) {
    Component component;
    component.role = sample.role;
    component.format = sample.format;
    for (const auto& [from, to] : textFields) {
        if (!(sample.*from).empty()) {
            component.*to = std::string(sample.*from);
        }
    }
    for (const auto& [from, to] : numberFields) {
        if (sample.*from != 0) {
            component.*to = sample.*from;
        }
    }
    const std::string picture =
        sample.example.empty() ? std::string(sample.URL) : exampleImage(sample.example);
    if (sample.minimumHeight != 0) {
        fillSection(component, picture, sample.minimumHeight);
    } else if (!picture.empty()) {
        component.URL = picture;
    }
    if (!sample.gallery.empty()) {
        component.items = sampleGalleryItems(sample.role);
    }
    if (sample.data) {
        component.data = sample.data();
        component.showDescriptorLabels = true;
    }
    if (!sample.children.empty()) {
        std::vector<List<Component>::Item> children;
        for (const Sample& child : sample.children) {
            children.emplace_back(componentOf(child));
        }
        component.components = List<Component>(std::move(children));
    }
    return component;
}

const Sample* sampleOf(const ComponentRole& role) {
    const auto* found = std::ranges::find(samples, role.kind(), &Sample::role);
    return found == samples.end() ? nullptr : found;
}

DataDescriptor column(const char* key, const char* label) {
    DataDescriptor descriptor;
    descriptor.key = key;
    descriptor.label = FormattedTextValue{label};
    descriptor.dataType = "string";
    return descriptor;
}

} // namespace

Component makeSampleComponent(const ComponentRole& role) {
    if (const Sample* sample = sampleOf(role)) {
        return componentOf(*sample);
    }
    Component component;
    component.role = role;
    return component;
}

std::vector<GalleryItem> sampleGalleryItems(const ComponentRole& role) {
    std::vector<GalleryItem> items;
    if (const Sample* sample = sampleOf(role)) {
        for (const std::string_view stem : sample->gallery) {
            items.emplace_back().URL = exampleImage(stem);
        }
    }
    return items;
}

RecordStore sampleRecordStore() {
    const auto row = [](const char* name, const char* role) {
        return DataRecord{{"name", RecordValue{name}}, {"role", RecordValue{role}}};
    };
    return {
        .descriptors = {column("name", "Name"), column("role", "Role")},
        .records = {row("Mara Lindqvist", "Pilot"), row("Ines Toft", "Computer Scientist")},
    };
}

} // namespace quillon
