#include "document/ArticleChange.h"

#include "model/ComponentTree.h"
#include "support/ArticleGenerator.h"

#include <chrono>
#include <random>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

namespace quillon::test {
namespace {

using support::randomArticle;
using testing::HasSubstr;

std::string json(const ArticleDocument& article) {
    return sharedArticleEncoder.encode(article).value();
}

/// `before` changed by what is left of the change to `after` once it was written and read.
ArticleDocument carriedOver(const ArticleDocument& before, const ArticleDocument& after) {
    const std::string line = writeChange(changeBetween(before, after)).value();
    EXPECT_EQ(line.find('\n'), std::string::npos);
    const auto change = readChange(line);
    EXPECT_TRUE(change) << line;
    const auto result = applyChange(before, change.value_or(ArticleChange()));
    EXPECT_TRUE(result) << line;
    return result.value_or(ArticleDocument());
}

/// Small edits as an editor makes them, at random places of an article.
class RandomEditor {
public:
    explicit RandomEditor(uint64_t seed) : m_random(seed), m_source(randomArticle(seed + 1)) {}

    ArticleDocument edited(ArticleDocument article) {
        if (oneIn(8)) {
            article.title += "x";
        } else {
            edit(article.components, 0);
        }
        return article;
    }

private:
    bool oneIn(size_t odds) { return m_random() % odds == 0; }
    size_t below(size_t bound) { return m_random() % bound; }

    void edit(List<Component>& list, size_t depth) {
        if (!list.empty() && depth < 3 && oneIn(2)) {
            return editInside(list, depth);
        }
        switch (below(4)) {
        case 0:
            list = list.insert(below(list.size() + 1), anyComponent());
            return;
        case 1:
            list = list.empty() ? list : list.erase(below(list.size()));
            return;
        case 2:
            return move(list);
        default:
            list = List<Component>(std::vector<Shared<Component>>(below(3), anyComponent()));
        }
    }

    void editInside(List<Component>& list, size_t depth) {
        const size_t index = below(list.size());
        Component component = list[index];
        if (oneIn(4)) {
            component.components.reset();
        } else if (oneIn(4)) {
            component.components = List<Component>();
        } else if (component.components) {
            edit(component.components.edit(), depth + 1);
        } else {
            component.text = component.text.value_or("") + "y";
        }
        list = list.set(index, std::move(component));
    }

    void move(List<Component>& list) {
        if (list.empty()) {
            return;
        }
        const size_t from = below(list.size());
        const Shared<Component> moved = list.item(from);
        list = list.erase(from);
        list = list.insert(below(list.size() + 1), moved);
    }

    Shared<Component> anyComponent() {
        Component component = m_source.components.empty()
                                  ? Component()
                                  : m_source.components[below(m_source.components.size())];
        component.id = Uuid::random();
        return component;
    }

    std::mt19937_64 m_random;
    ArticleDocument m_source;
};

RC_GTEST_PROP(ArticleChange, leadsFromAnyArticleToAnyOther, (uint64_t one, uint64_t other)) {
    const ArticleDocument before = randomArticle(one);
    const ArticleDocument after = randomArticle(other);
    RC_ASSERT(json(carriedOver(before, after)) == json(after));
}

RC_GTEST_PROP(ArticleChange, leadsOverAnyEdits, (uint64_t seed)) {
    const ArticleDocument before = randomArticle(seed);
    RandomEditor editor(seed);
    ArticleDocument after = before;
    for (size_t edits = 1 + seed % 4; edits > 0; --edits) {
        after = editor.edited(after);
        RC_ASSERT(json(carriedOver(before, after)) == json(after));
        RC_ASSERT(json(carriedOver(after, before)) == json(before));
    }
}

RC_GTEST_PROP(ArticleChange, isEmptyWhereOnlyIdsDiffer, (uint64_t seed)) {
    const ArticleDocument article = randomArticle(seed);
    const auto again = sharedArticleDecoder.decode(json(article));
    RC_ASSERT(again.has_value());
    RC_ASSERT(changeBetween(article, support::withoutIds(article)).empty());
    RC_ASSERT(changeBetween(article, *again).empty());
}

/// Garbled lines are refused or give an article, and never end the program.
RC_GTEST_PROP(ArticleChange, takesAnyLine, (uint64_t seed, size_t place, char byte)) {
    const ArticleDocument before = randomArticle(seed);
    std::string line = writeChange(changeBetween(before, RandomEditor(seed).edited(before))).value();
    line[place % line.size()] = byte;
    if (const auto change = readChange(line)) {
        (void)applyChange(before, *change);
    }
}

Component body(const std::string& text) {
    Component component;
    component.role = ComponentRole::body;
    component.text = text;
    return component;
}

ArticleDocument longArticle(size_t count) {
    std::vector<Shared<Component>> items;
    for (size_t index = 0; index < count; ++index) {
        items.emplace_back(body("Paragraph " + std::to_string(index)));
    }
    ArticleDocument article;
    article.components = List<Component>(std::move(items));
    return article;
}

TEST(ArticleChange, saysNoMoreThanWhatDiffers) {
    const ArticleDocument before = longArticle(10000);
    const List<Component>& old = before.components;
    Component changed = old[5000];
    changed.text = std::string("new");
    struct {
        const char* name;
        List<Component> components;
        size_t longest;
    } const cases[] = {
        {"set", old.set(5000, changed), 80},
        {"insert", old.insert(5000, body("new")), 80},
        {"erase", old.erase(7000), 40},
        {"move", old.erase(9000).insert(100, old.item(9000)), 120},
        {"set and insert", old.set(20, changed).insert(9900, body("new")), 160},
        {"set and erase twice", old.set(20, changed).erase(9900).erase(5), 160},
    };
    for (const auto& each : cases) {
        ArticleDocument after = before;
        after.components = each.components;
        const std::string line = writeChange(changeBetween(before, after)).value();
        EXPECT_LE(line.size(), each.longest) << each.name << ": " << line;
        EXPECT_EQ(json(carriedOver(before, after)), json(after)) << each.name;
    }
    // Read anew without the ids it had, with one more component.
    ArticleDocument reread = sharedArticleDecoder.decode(json(before)).value();
    reread.components = reread.components.insert(5000, body("new"));
    EXPECT_LE(writeChange(changeBetween(before, reread)).value().size(), 80U);
}

TEST(ArticleChange, keepsIdsOfWhatStays) {
    const ArticleDocument before = longArticle(3);
    ArticleDocument after = sharedArticleDecoder.decode(json(before)).value();
    after.components = after.components.set(1, body("new"));
    const auto result = applyChange(before, changeBetween(before, after));
    ASSERT_TRUE(result);
    EXPECT_EQ(result->components[0], before.components[0]);
    EXPECT_EQ(result->components[1].id, before.components[1].id);
    EXPECT_EQ(result->components[1].text, "new");
}

TEST(ArticleChange, thatDoesNotFitIsRefused) {
    const ArticleDocument article = longArticle(3);
    for (const char* line : {
             R"(["component",[3],{"role":"body"}])",
             R"(["component",[],{"role":"body"}])",
             R"(["component",[0,0],{"role":"body"}])",
             R"(["children",[],2,2,[]])",
             R"(["children",[],4,0,[]])",
             R"(["children",[],9223372036854775807,9223372036854775807,[]])",
             R"(["noChildren",[],0,3,[]])",
         }) {
        const auto change = readChange(line);
        ASSERT_TRUE(change) << line;
        EXPECT_FALSE(applyChange(article, *change)) << line;
    }
    for (const char* line : {"", "{}", "[1]", R"(["children",[],-1,0,[]])", R"(["children",[]])",
                             R"(["component",["a"],{"role":"body"}])", R"(["component",[0],{}])"}) {
        EXPECT_FALSE(readChange(line)) << line;
    }
}

TEST(ArticleChange, ofANumberThatIsNotFiniteCannotBeWritten) {
    const ArticleDocument before = longArticle(1);
    ArticleDocument after = before;
    Component component = before.components[0];
    component.latitude = std::numeric_limits<double>::infinity();
    after.components = before.components.set(0, component);
    const auto line = writeChange(changeBetween(before, after));
    ASSERT_FALSE(line);
    EXPECT_THAT(line.error().message, HasSubstr("not finite"));
}

} // namespace
} // namespace quillon::test
