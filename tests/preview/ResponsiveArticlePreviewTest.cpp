#include "preview/ResponsiveArticlePreview.h"

#include "base/Log.h"
#include "base/endpoints.h"
#include "model/ComponentTree.h"
#include "package/NewArticle.h"
#include "support/ManualScheduler.h"

#include <gmock/gmock.h>

namespace quillon {

namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class ResponsiveArticlePreviewTest : public testing::Test {
protected:
    ResponsiveArticlePreviewTest() {
        setLogSink([this](std::string_view line) { log.emplace_back(line.substr(0, line.find(' '))); });
        state.document.article = articleWith("A");
    }
    ~ResponsiveArticlePreviewTest() override { setLogSink({}); }

    PreviewHost host() {
        return {scheduler,
                [this](std::string_view key) {
                    const auto found = info.find(key);
                    return found == info.end() ? std::nullopt : std::optional<std::string>(found->second);
                },
                [] {
                    return 0.0;
                }};
    }

    /// The article whose page shows `word`; the same at each call.
    const ArticleDocument& articleWith(const std::string& word) {
        const auto [place, isNew] = articles.try_emplace(word, makeNewArticle("id", "title", "subtitle"));
        if (isNew) {
            place->second.components = {makeTextComponent(ComponentRole::body, "word-" + word)};
        }
        return place->second;
    }

    void showWord(const std::string& word) {
        state.document.article = articleWith(word);
        preview->setState(state);
    }

    /// All work that waits, and its answers.
    void finishWork() {
        while (scheduler.work(Lane::pages)) {
        }
        while (scheduler.deliver()) {
        }
    }

    void makePreview() {
        preview = std::make_unique<ResponsiveArticlePreview>(state, cache, host());
        preview->onRendered = [this] {
            shown.push_back(firstLine(*preview->renderedPreview()));
        };
    }

    static std::string firstLine(const RenderedPreview& page) {
        return page.key.substr(0, page.key.find('\n'));
    }

    void showFirst() {
        makePreview();
        preview->layOut(500, 600);
        finishWork();
    }

    bool isShown(const std::string& word) const {
        return preview->renderedPreview()->html->find("word-" + word) != std::string::npos;
    }

    std::map<std::string, ArticleDocument> articles;
    test::ManualScheduler scheduler;
    ArticleDerivedContentCache cache;
    PreviewState state;
    std::map<std::string, std::string, std::less<>> info;
    std::unique_ptr<ResponsiveArticlePreview> preview;
    std::vector<std::string> log;
    std::vector<std::string> shown; ///< the first line of each key
};

} // namespace

TEST_F(ResponsiveArticlePreviewTest, theFirstPageComesWithoutAPauseAndOnlyOnceThePaneHasASize) {
    makePreview();
    showWord("B");
    EXPECT_EQ(scheduler.waitingWork(Lane::pages), 0);
    preview->layOut(500, 600);
    EXPECT_FALSE(preview->renderedPreview());
    EXPECT_EQ(scheduler.waitingWork(Lane::pages), 1);
    finishWork();
    EXPECT_TRUE(isShown("B"));
    EXPECT_THAT(log, ElementsAre("preview.render.background"));
}

TEST_F(ResponsiveArticlePreviewTest, aBurstOfChangesCostsOneRenderOfTheLastState) {
    showFirst();
    showWord("B");
    scheduler.advance(0.1);
    showWord("C");
    scheduler.advance(0.1);
    preview->layOut(700, 600);
    scheduler.advance(0.179);
    EXPECT_EQ(scheduler.waitingWork(Lane::pages), 0);
    scheduler.advance(0.002);
    EXPECT_EQ(scheduler.waitingWork(Lane::pages), 1);
    finishWork();
    EXPECT_TRUE(isShown("C"));
    EXPECT_THAT(shown, ElementsAre("preview-1", "preview-2"));
    EXPECT_THAT(cache.previewEntry()->key, HasSubstr("\n700\n"));
}

TEST_F(ResponsiveArticlePreviewTest, anOlderRenderThatComesLateTouchesNothing) {
    showFirst();
    showWord("B");
    scheduler.advance(0.2);
    showWord("C");
    ASSERT_EQ(scheduler.waitingWork(Lane::pages), 1);
    finishWork();
    EXPECT_TRUE(isShown("A"));
    EXPECT_EQ(cache.previewGeneration(), 1);
    scheduler.advance(0.2);
    finishWork();
    EXPECT_TRUE(isShown("C"));
    EXPECT_THAT(shown, ElementsAre("preview-1", "preview-2"));
}

TEST_F(ResponsiveArticlePreviewTest, goingBackWithinThePauseFindsThePageWithItsKey) {
    showFirst();
    log.clear();
    showWord("B");
    showWord("A");
    scheduler.advance(1);
    EXPECT_EQ(scheduler.waitingWork(Lane::pages), 0);
    EXPECT_THAT(log, ElementsAre("preview.cache.hit"));
    EXPECT_THAT(shown, ElementsAre("preview-1", "preview-1"));
}

TEST_F(ResponsiveArticlePreviewTest, anEqualRequestStartsNothing) {
    showFirst();
    preview->setState(state);
    preview->layOut(500, 600);
    state.device = PreviewDevice::iPad;
    preview->setState(state);
    scheduler.advance(1);
    finishWork();
    preview->layOut(900, 900);
    state.document.assets = Assets{{"a.png", Bytes("x")}};
    preview->setState(state);
    EXPECT_EQ(scheduler.waitingTimers(), 0);
    state.document.assetsFingerprint = assetsFingerprintText(*state.document.assets);
    preview->setState(state);
    EXPECT_EQ(scheduler.waitingTimers(), 1);
}

TEST_F(ResponsiveArticlePreviewTest, aNewPreviewOnTheSameCacheShowsAtOnce) {
    showFirst();
    makePreview();
    preview->layOut(500, 600);
    EXPECT_TRUE(preview->renderedPreview());
    EXPECT_EQ(scheduler.waitingWork(Lane::pages), 0);
}

TEST_F(ResponsiveArticlePreviewTest, goneWhileARenderRuns) {
    makePreview();
    preview->layOut(500, 600);
    preview.reset();
    finishWork();
    EXPECT_EQ(cache.previewGeneration(), 0);
}

TEST_F(ResponsiveArticlePreviewTest, theEnvironmentFollowsPaneAndSettings) {
    struct Case {
        std::string infoValue;
        std::string setting;
        std::optional<std::string> token;
        std::string origin;
    };
    const std::string product(endpoints::productOrigin);
    const std::vector<Case> cases = {
        {"", "", std::nullopt, product},           {"", " \n ", std::nullopt, product},
        {"", " mine\n", "mine", "mine"},           {" built in ", "mine", "built in", "built in"},
        {"$(MAPS_TOKEN)", "mine", "mine", "mine"}, {"$(MAPS_TOKEN)", "", std::nullopt, product},
    };
    for (const Case& row : cases) {
        info = {{"QuillonMapsEmbedToken", row.infoValue}, {"QuillonMapsEmbedOrigin", row.infoValue}};
        state.mapsEmbedToken = state.mapsEmbedOrigin = row.setting;
        makePreview();
        const PreviewEnvironment environment = preview->resolvedEnvironment(200, 250);
        EXPECT_EQ(environment.mapsEmbedToken, row.token) << row.infoValue << "/" << row.setting;
        EXPECT_EQ(environment.mapsEmbedOrigin, row.origin) << row.infoValue << "/" << row.setting;
        EXPECT_EQ(environment.viewportWidth, 320);
        EXPECT_EQ(environment.viewportHeight, 320);
    }
    state.appearance = PreviewAppearance::dark;
    makePreview();
    EXPECT_EQ(preview->resolvedEnvironment(800, 900).viewportWidth, 800);
    EXPECT_EQ(preview->resolvedEnvironment(800, 900).appearance, PreviewAppearance::dark);
}

} // namespace quillon
