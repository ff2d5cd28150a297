#include "preview/ArticlePreviewView.h"

#include "base/Log.h"
#include "base/endpoints.h"

#include <gmock/gmock.h>

namespace quillon {

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

/// Notes what it is told.
class RecordingWebView : public PreviewWebView {
public:
    void loadHTML(const Shared<std::string>& html, const std::string& baseURL) override {
        calls.push_back("load " + *html + " " + baseURL);
    }
    void evaluateJavaScript(const std::string& script) override {
        const std::size_t id = script.find("data-component-id=\"") + 19;
        calls.push_back("flash " + script.substr(id, 2));
    }
    std::vector<std::string> take() { return std::exchange(calls, {}); }

    std::vector<std::string> calls;
};

class CoordinatorTest : public testing::Test {
protected:
    CoordinatorTest() {
        setLogSink([this](std::string_view line) { log.emplace_back(line); });
        view.html = std::string("page");
        view.contentKey = "1";
        view.environment.mapsEmbedOrigin = "https://a.example";
    }
    ~CoordinatorTest() override { setLogSink({}); }

    std::vector<std::string> update() {
        coordinator.update(web, view);
        return web.take();
    }
    std::vector<std::string> finish() {
        coordinator.didFinish();
        return web.take();
    }

    const Uuid a = *parseUuid("aa000000-0000-4000-8000-000000000000");
    const Uuid b = *parseUuid("bb000000-0000-4000-8000-000000000000");
    RecordingWebView web;
    ArticlePreviewView::Coordinator coordinator;
    ArticlePreviewView view;
    std::vector<std::string> log;
};

} // namespace

TEST_F(CoordinatorTest, thePageLoadsOnlyWhenItsContentChanged) {
    EXPECT_THAT(update(), ElementsAre("load page https://a.example"));
    finish();
    EXPECT_THAT(log,
                ElementsAre("preview.webview.reload.start htmlBytes=4 contentChanged=true assetsChanged=true "
                            "baseURLChanged=true",
                            HasSubstr("preview.webview.reload.finish elapsedMs=")));
    log.clear();
    view.assetsFingerprint = std::string("a:1");
    EXPECT_THAT(update(), IsEmpty()) << "the page for these assets is still being made";
    view.contentKey = "2";
    EXPECT_THAT(update(), ElementsAre("load page https://a.example"));
    view.contentKey = "3";
    EXPECT_THAT(update(), IsEmpty());
    view.contentKey = "4";
    view.environment.mapsEmbedOrigin = "https://b.example/x";
    EXPECT_THAT(update(), ElementsAre("load page https://b.example/x"));
    view.contentKey = "5";
    view.html = std::string("é");
    EXPECT_THAT(update(), ElementsAre("load é https://b.example/x"));
    EXPECT_THAT(
        log, ElementsAre("preview.webview.reload.start htmlBytes=4 contentChanged=false assetsChanged=true "
                         "baseURLChanged=false",
                         "preview.webview.reload.skipped reason=unchanged-content",
                         "preview.webview.reload.start htmlBytes=4 contentChanged=false assetsChanged=false "
                         "baseURLChanged=true",
                         "preview.webview.reload.start htmlBytes=2 contentChanged=true assetsChanged=false "
                         "baseURLChanged=false"));
    coordinator.forgetAssets();
    EXPECT_THAT(update(), ElementsAre("load é https://b.example/x"));
}

TEST_F(CoordinatorTest, everyUpdateServesTheNewestAssets) {
    update();
    view.assets = Assets{{"a", Bytes("1")}};
    update();
    EXPECT_EQ(coordinator.configuration().schemeHandler->answer("bundle:///a")->data.view(), "1");
}

TEST_F(CoordinatorTest, aSelectionFlashesOnceWithoutALoad) {
    update();
    finish();
    view.focusedComponentID = a;
    EXPECT_THAT(update(), ElementsAre("flash AA"));
    EXPECT_THAT(update(), IsEmpty());
    view.focusedComponentID = b;
    view.contentKey = "2";
    EXPECT_THAT(update(), ElementsAre("flash BB")) << "the same page under a new key";
    view.focusedComponentID.reset();
    EXPECT_THAT(update(), IsEmpty());
    view.focusedComponentID = b;
    EXPECT_THAT(update(), ElementsAre("flash BB"));
}

TEST_F(CoordinatorTest, noFlashIsLostAroundALoad) {
    view.focusedComponentID = a;
    EXPECT_THAT(update(), ElementsAre("load page https://a.example"));
    EXPECT_THAT(finish(), ElementsAre("flash AA"));
    EXPECT_THAT(update(), IsEmpty());
    EXPECT_THAT(finish(), ElementsAre("flash AA")) << "the page came up once more";

    view.contentKey = "2";
    view.html = std::string("other");
    EXPECT_THAT(update(), ElementsAre("load other https://a.example"));
    view.focusedComponentID = b;
    EXPECT_THAT(update(), ElementsAre("flash BB")) << "in the old page";
    EXPECT_THAT(finish(), ElementsAre("flash AA", "flash BB"));
    EXPECT_THAT(update(), IsEmpty());
}

TEST_F(CoordinatorTest, onlyHarmlessSchemesAreFollowed) {
    for (const char* url : {"https://a", "HTTPS://a", "http://a", "about:blank", "blob:x", "bundle:///a",
                            "data:,x", "relative", "//host", "/a:b", ""}) {
        EXPECT_EQ(coordinator.navigationPolicy(url), NavigationPolicy::allow) << url;
    }
    EXPECT_EQ(coordinator.navigationPolicy(std::nullopt), NavigationPolicy::allow);
    for (const char* url :
         {"mailto:a@b", "file:///etc", "FILE:///etc", "javascript:1", "tel:1", "ftp://a", "x:y"}) {
        EXPECT_EQ(coordinator.navigationPolicy(url), NavigationPolicy::cancel) << url;
    }
}

TEST(PreviewBaseURL, isTheOriginOfMapsWhereThatIsAWebAddress) {
    const std::string product(endpoints::productOrigin);
    EXPECT_EQ(previewBaseURL(std::nullopt), product);
    const std::pair<const char*, std::string> cases[] = {
        {" https://a.example/b?c\n", "https://a.example/b?c"},
        {"http://a.example:81", "http://a.example:81"},
        {"httpx://a", "httpx://a"},
        {"HTTPS://a", product},
        {"ftp://a", product},
        {"a.example", product},
        {"https:///path", product},
        {"https:a", product},
        {"https://a b", product},
        {"", product},
    };
    for (const auto& [origin, expected] : cases) {
        EXPECT_EQ(previewBaseURL(origin), expected) << origin;
    }
}

} // namespace quillon
