#include "preview/BundleAddresses.h"
#include "preview/BundleSchemeHandler.h"
#include "preview/PageHandover.h"

#include <gtest/gtest.h>

namespace quillon {

using namespace std::string_view_literals;

TEST(BundleAddresses, hostsAreEmptiedWhereTheEngineReadsThemAndNowhereElse) {
    const std::pair<std::string, std::string> cases[] = {
        {"<img src=\"bundle://A b.png\" alt=\"bundle://A\" title='bundle://A'>bundle://text",
         "<img src=\"bundle:///A b.png\" alt=\"bundle://A\" title='bundle://A'>bundle://text"},
        {"<IMG SRC=BUNDLE://a>", "<IMG SRC=BUNDLE:///a>"},
        {"<img src = 'bundle:///a'>", "<img src = 'bundle:///a'>"},
        {"<div style=\"background: url('bundle://a'), url(bundle://b)\">",
         "<div style=\"background: url('bundle:///a'), url(bundle:///b)\">"},
        {"<style>a { b: url(bundle://c) }</style>bundle://d",
         "<style>a { b: url(bundle:///c) }</style>bundle://d"},
        {"<script>x = '<b title=\"bundle://a\">'</SCRIPT>bundle://d",
         "<script>x = '<b title=\"bundle:///a\">'</SCRIPT>bundle://d"},
        {"<title>bundle://a</title><textarea><img src=bundle://a></textarea>",
         "<title>bundle://a</title><textarea><img src=bundle://a></textarea>"},
        {"<!-- <img src=bundle://a> --><img src=bundle://b>",
         "<!-- <img src=bundle://a> --><img src=bundle:///b>"},
        {"<p a='>' b=\"'\" c=bundle://x>1 < 2 <b/src=bundle://y>",
         "<p a='>' b=\"'\" c=bundle:///x>1 < 2 <b/src=bundle:///y>"},
        {"<a href=notbundle://a></a href=bundle://z>", "<a href=notbundle://a></a href=bundle:///z>"},
        {"<!--><img src=bundle://a><!---><img src=bundle://b><!-- x --!><img src=bundle://c>",
         "<!--><img src=bundle:///a><!---><img src=bundle:///b><!-- x --!><img src=bundle:///c>"},
        {"<img src=\"bundle://open", "<img src=\"bundle:///open"},
        {"<", "<"},
        {"<img src='https://quillon.example/assets/hero.png' alt='https://quillon.example/assets/hero.png'>",
         "<img src='bundle:///.product/hero.png' alt='https://quillon.example/assets/hero.png'>"},
        {"<b style=\"c: url(https://quillon.example/assets/icon.png)\"><img "
         "src=https://quillon.example/assets/x.png>",
         "<b style=\"c: url(bundle:///.product/icon.png)\"><img src=https://quillon.example/assets/x.png>"},
        {"<script>bundle://", "<script>bundle:///"},
    };
    for (const auto& [html, expected] : cases) {
        EXPECT_EQ(withEngineAddresses(html), expected);
    }
}

TEST(BundleSchemeHandler, findsAnAssetBehindEveryFormOfItsAddress) {
    BundleSchemeHandler handler;
    handler.assets = Assets{{"Images/a b.JPG", Bytes("picture")},
                            {"100%.png", Bytes("percent")},
                            {"note", Bytes("plain")},
                            {".gif", Bytes("hidden")},
                            {"a.b/c", Bytes("dotted")}};
    const auto answer = [&](const char* url) {
        const auto response = handler.answer(url);
        return response ? response->mimeType + " " + std::string(response->data.view()) : "missing";
    };
    for (const char* url :
         {"bundle://Images/a%20b.JPG", "bundle:///Images/a%20b.JPG", "bundle:///Images/a%20b.JPG/",
          "BUNDLE:///Images/a b.JPG?x#y", "bundle:Images/a%20b.JPG"}) {
        EXPECT_EQ(answer(url), "image/jpeg picture") << url;
    }
    const std::pair<const char*, const char*> others[] = {
        {"bundle:///images/a%20b.JPG", "missing"},
        {"bundle:///Images%2Fa%20b.JPG", "image/jpeg picture"},
        {"bundle:///100%.png", "image/png percent"},
        {"bundle:///100%25.png", "image/png percent"},
        {"bundle:///100%2525.png", "image/png percent"},
        {"bundle:///note", "application/octet-stream plain"},
        {"bundle:///.gif", "application/octet-stream hidden"},
        {"bundle:///a.b/c", "application/octet-stream dotted"},
        {"bundle:///../Images/a b.JPG", "missing"},
        {"bundle:///", "missing"},
        {"https://note", "missing"},
    };
    for (const auto& [url, expected] : others) {
        EXPECT_EQ(answer(url), expected) << url;
    }
    EXPECT_EQ(answer("bundle:///.product/icon.png").substr(0, 14), "image/png \x89PNG");
    EXPECT_EQ(answer("bundle:///.product/x.png"), "missing");
    EXPECT_EQ(handler.answer("").error(), BundleSchemeHandler::Failure::badURL);
    EXPECT_EQ(handler.answer("bundle:///x").error(), BundleSchemeHandler::Failure::fileDoesNotExist);
}

TEST(MimeType, knowsWhatArticlesRefer) {
    const std::pair<const char*, const char*> cases[] = {
        {"PNG", "image/png"},
        {"jpeg", "image/jpeg"},
        {"mp4", "video/mp4"},
        {"mov", "video/quicktime"},
        {"MP3", "audio/mpeg"},
        {"m4a", "audio/mp4"},
        {"svg", "image/svg+xml"},
        {"3g2", "video/3gpp2"},
        {"zip", "application/zip"},
        {"", "application/octet-stream"},
        {"quill", "application/octet-stream"},
    };
    for (const auto& [extension, type] : cases) {
        EXPECT_EQ(mimeType(extension), type) << extension;
    }
}

TEST(PageHandover, cutsBehindTheHeadsTagAndQuotesTheRest) {
    const PageHandover pieces =
        pageHandover("<!doctype html>\n<head lang=\"x\">\n<a href=\"bundle://B\">\\\r<header>\0"sv, 7);
    EXPECT_EQ(pieces.prolog, "<!doctype html>\n<head lang=\"x\">");
    EXPECT_EQ(pieces.script,
              "document.currentScript.remove(); Object.defineProperty(window, \"__quillonPage\", "
              "{value: 7}); "
              "document.write(\"\\n<a href=\\\"bundle:///B\\\">\\\\\\r<header>\\u0000\");");
    EXPECT_EQ(pageHandover("<header>no head", 1).prolog, "");
}

} // namespace quillon
