#include "ArticleMaker.h"

#include "model/ArticleDocument.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <random>

namespace quillon::bench {

namespace {

constexpr std::array<std::string_view, 24> words = {"harbour", "the",  "morning", "of",   "boats",   "a",
                                                    "light",   "and",  "market",  "in",   "café",    "wind",
                                                    "slowly",  "from", "island",  "with", "letters", "their",
                                                    "winter",  "over", "bridge",  "near", "night",   "quiet"};

class Maker {
public:
    std::string text(size_t atLeast, size_t atMost) {
        const size_t length = atLeast + m_random() % (atMost - atLeast);
        std::string out;
        while (out.size() < length) {
            out += (out.empty() ? "" : m_random() % 12 == 0 ? ", " : " ");
            out += words[m_random() % words.size()];
        }
        return out + ".";
    }

    Component component(std::string_view role) {
        Component component;
        component.role = ComponentRole::fromRawValue(role);
        return component;
    }

    Component body() {
        Component body = component("body");
        body.text = text(200, 600);
        body.textStyle = StyleRef<ComponentTextStyle>{std::string("default-body")};
        body.layout = StyleRef<ComponentLayout>{std::string("body-layout")};
        return body;
    }

    Component heading() {
        Component heading = component("heading2");
        heading.text = text(20, 60);
        heading.identifier = "part-" + std::to_string(m_random() % 10000);
        ComponentTextStyle style;
        style.fontFamily = std::string("Georgia");
        style.fontSize = 28;
        style.textColor = std::string("#223344");
        heading.textStyle = StyleRef<ComponentTextStyle>{Shared<ComponentTextStyle>(style)};
        return heading;
    }

    Component photo() {
        Component photo = component("photo");
        photo.URL = "bundle://photo-" + std::to_string(m_random() % 10000) + ".jpg";
        photo.caption = text(40, 120);
        photo.accessibilityCaption = text(40, 80);
        ComponentLayout layout;
        layout.columnStart = 1;
        layout.columnSpan = 5;
        Margin margin;
        margin.top = ANFLength{20.0};
        margin.bottom = ANFLength{std::string("2vh")};
        layout.margin = LayoutMargin{margin};
        photo.layout = StyleRef<ComponentLayout>{Shared<ComponentLayout>(layout)};
        return photo;
    }

    Component quote() {
        Component quote = component("pullquote");
        quote.text = text(80, 160);
        InlineTextStyle range;
        range.rangeStart = 4;
        range.rangeLength = 11;
        range.textStyle = StyleRef<TextStyle>{std::string("emphasis")};
        ComponentLink link;
        link.type = std::string("link");
        link.URL = std::string("https://example.com/harbour");
        link.rangeStart = 20;
        link.rangeLength = 6;
        quote.inlineTextStyles = std::vector{range};
        quote.additions = std::vector{link};
        ComponentStyle style;
        style.backgroundColor = std::string("#F4F1EA");
        style.opacity = 0.95;
        quote.style = StyleReference{Shared<ComponentStyle>(style)};
        return quote;
    }

    Component leaf(size_t number) {
        switch (number % 10) {
        case 0:
            return heading();
        case 3:
        case 8:
            return photo();
        case 6:
            return quote();
        default:
            return body();
        }
    }

    /// `count` components in all, containers and what stands in them included.
    List<Component> components(size_t count, ArticleShape shape) {
        std::vector<Shared<Component>> items;
        for (size_t made = 0; made < count;) {
            const size_t within = std::min<size_t>(count - made - 1, 4);
            if (shape == ArticleShape::mixed && made % 20 >= 15 && within > 0) {
                Component section = component("section");
                section.identifier = "section-" + std::to_string(made);
                section.components = components(within, ArticleShape::flat);
                items.emplace_back(std::move(section));
                made += 1 + within;
            } else {
                items.emplace_back(leaf(made));
                ++made;
            }
        }
        return List<Component>(std::move(items));
    }

private:
    std::mt19937 m_random{20240229};
};

} // namespace

std::string makeArticle(size_t components, ArticleShape shape) {
    ArticleDocument article;
    article.version = "1.7";
    article.identifier = "bench";
    article.language = "en";
    article.title = "An article for measuring";
    article.layout = {.columns = 7, .width = 1024};
    article.components = Maker().components(components, shape);
    const auto json = sharedArticleEncoder.encode(article);
    if (!json) {
        std::fputs(json.error().message.c_str(), stderr);
        std::abort();
    }
    return *json;
}

} // namespace quillon::bench
