#include "render/ComponentStyleCss.h"
#include "render/ReadRecord.h"

namespace quillon::HTMLRenderer {
namespace {

struct StyleCase {
    const char* json;
    const char* css;
};

TEST(ComponentStyleCss, declarations) {
    constexpr StyleCase cases[] = {
        {R"({})", ""},
        {R"({"opacity":0})", "opacity: 0;"},
        {R"({"backgroundColor":"#AbC\"&"})", "background-color: #AbC&quot;&amp;;"},
        {R"({"opacity":0.5,"backgroundColor":"red","shadow":{},"mask":{},"border":{"all":{},"bottom":false,"left":false,"right":false},)"
         R"("fill":{"type":"linear_gradient","colorStops":[{}]}})",
         "background-color: red;background-image: linear-gradient(180deg, #000000);opacity: 0.5;"
         "border-top: 1px solid #000000;border-radius: 0px 0px 0px 0px; overflow: hidden;"
         "box-shadow: 0px 0px 0px #000000;"},

        {R"({"fill":{"URL":"https://a.example/b.png","attachment":"fixed"}})", ""},
        {R"({"fill":{"type":"image","URL":"https://a.example/b.png?x=1&y=2"}})",
         "background-image: url('https://a.example/b.png?x=1&amp;y=2'); background-size: cover; "
         "background-repeat: no-repeat; background-position: center center;"},
        {R"({"fill":{"type":"image","URL":"bundle://b.png","fillMode":"fit","horizontalAlignment":"left","verticalAlignment":"top"}})",
         "background-image: url('bundle://b.png'); background-size: contain; background-repeat: no-repeat; "
         "background-position: left top;"},
        {R"({"fill":{"type":"image","URL":"bundle://b","fillMode":"stretch","horizontalAlignment":"\"<","verticalAlignment":"&"}})",
         "background-image: url('bundle://b'); background-size: cover; background-repeat: no-repeat; "
         "background-position: &quot;&lt; &amp;;"},
        {R"({"fill":{"type":"image","URL":"b.png","attachment":"fixed"}})", "background-attachment: fixed;"},
        {R"({"fill":{"type":"image","URL":"HTTPS://b.png","attachment":"scroll"}})", ""},
        {R"({"fill":{"type":"video","URL":"bundle://b.mp4"}})", ""},
        {R"({"fill":{"type":"video","URL":"bundle://b.mp4","stillURL":"bundle://b.png","attachment":"fixed"}})",
         "background-image: url('bundle://b.png'); background-size: cover; background-repeat: no-repeat; "
         "background-position: center center;background-attachment: fixed;"},
        {R"({"fill":{"type":"repeatable_image","URL":"bundle://b.png","width":10}})",
         "background-image: url('bundle://b.png'); background-repeat: repeat;"},
        {R"({"fill":{"type":"repeatable_image","URL":"bundle://b.png","width":10,"height":-9223372036854775808,"repeat":"x"}})",
         "background-image: url('bundle://b.png'); background-repeat: repeat-x;"
         "background-size: 10px -9223372036854775808px;"},
        {R"({"fill":{"type":"repeatable_image","URL":"bundle://b.png","repeat":"y"}})",
         "background-image: url('bundle://b.png'); background-repeat: repeat-y;"},
        {R"({"fill":{"type":"repeatable_image","URL":"bundle://b.png","repeat":"none"}})",
         "background-image: url('bundle://b.png'); background-repeat: no-repeat;"},
        {R"({"fill":{"type":"repeatable_image","URL":"b.png","width":1,"height":2,"repeat":"x"}})", ""},
        {R"({"fill":{"type":"repeatable_image","URL":"bundle://b.png","height":10,"repeat":"X"}})",
         "background-image: url('bundle://b.png'); background-repeat: repeat;"},
        {R"({"fill":{"type":"linear_gradient","colorStops":[]}})", ""},
        {R"({"fill":{"type":"linear_gradient","attachment":"fixed"}})", "background-attachment: fixed;"},
        {R"({"fill":{"type":"linear_gradient","colorStops":[{"color":"\"><"}]}})",
         "background-image: linear-gradient(180deg, &quot;&gt;&lt;);"},
        {R"({"fill":{"type":"linear_gradient","angle":45.5,"colorStops":[{"color":"#FFF","location":50},{"color":"red","location":0.5},{"location":100}]}})",
         "background-image: linear-gradient(45.5deg, #FFF 50%, red 0.5%, #000000 100%);"},
        {R"({"fill":{"type":"hologram","attachment":"fixed"}})", "background-attachment: fixed;"},

        {R"({"border":{"top":true,"left":true}})", ""},
        {R"({"border":{"all":{"style":"\""}}})",
         "border-top: 1px &quot; #000000;border-bottom: 1px &quot; #000000;"
         "border-left: 1px &quot; #000000;border-right: 1px &quot; #000000;"},
        {R"({"border":{"all":{"width":9223372036854775807,"color":"\"","style":"dashed"},"top":false,"left":true}})",
         "border-bottom: 9223372036854775807px dashed &quot;;border-left: 9223372036854775807px dashed "
         "&quot;;"
         "border-right: 9223372036854775807px dashed &quot;;"},

        {R"({"mask":{"radius":"12px"}})", "border-radius: 12px 12px 12px 12px; overflow: hidden;"},
        {R"({"mask":{"radius":"1.5em","topRight":false,"bottomLeft":true}})",
         "border-radius: 1.5px 0 1.5px 1.5px; overflow: hidden;"},
        {R"({"mask":{"radius":"round","topLeft":false,"bottomLeft":false}})",
         "border-radius: 0 0px 0px 0; overflow: hidden;"},

        {R"({"shadow":{"color":"#abc","opacity":0.5,"radius":4,"offset":{"x":-1.25,"y":"2pt"}}})",
         "box-shadow: -1.25px 2px 4px rgba(170, 187, 204, 0.5);"},
        {R"({"shadow":{"radius":"wide","offset":{"y":3}}})", "box-shadow: 0px 3px 0px #000000;"},
        {R"({"shadow":{"opacity":0.5}})", "box-shadow: 0px 0px 0px rgba(0, 0, 0, 0.5);"},
    };
    for (const StyleCase& test : cases) {
        SCOPED_TRACE(test.json);
        const auto style = readRecord<ComponentStyle>(test.json);
        std::string css;
        componentStyleCSS(css, &style);
        EXPECT_EQ(css, test.css);
    }
    std::string css;
    componentStyleCSS(css, nullptr);
    EXPECT_EQ(css, "");
}

TEST(ComponentStyleCss, heroHasNeitherColourNorFillAndItsOpacityLast) {
    const auto style = readRecord<ComponentStyle>(
        R"({"backgroundColor":"red","opacity":0.25,"fill":{"type":"image","URL":"bundle://a.png"},)"
        R"("border":{"all":{},"top":false,"bottom":false,"left":false},"mask":{"radius":1},"shadow":{}})");
    std::string css;
    heroStyleCSS(css, style);
    EXPECT_EQ(css, "border-right: 1px solid #000000;border-radius: 1px 1px 1px 1px; overflow: hidden;"
                   "box-shadow: 0px 0px 0px #000000;opacity: 0.25;");
}

TEST(ComponentStyleCss, colorWithOpacity) {
    struct Case {
        const char* color;
        std::optional<double> opacity;
        const char* css;
    };
    constexpr Case cases[] = {
        {"#abc", 0.5, "rgba(170, 187, 204, 0.5)"},
        {"#0A1b2C", 1.0, "rgba(10, 27, 44, 1)"},
        {"#FFFFFF", 0.0, "rgba(255, 255, 255, 0)"},
        {"#abc", std::nullopt, "#abc"},
        {"navy", 0.5, "navy"},
        {"abc", 0.5, "abc"},
        {"#aabbccdd", 0.5, "#aabbccdd"},
        {"#abcd", 0.5, "#abcd"},
        {"#", 0.5, "#"},
        {"#abg", 0.5, "#abg"},
        {"#12345/", 0.5, "#12345/"},
        {"#\xC3\xA4\x61", 0.5, "#\xC3\xA4\x61"},
        {"#<\">", 0.5, "#&lt;&quot;&gt;"},
        {"", 0.5, ""},
    };
    for (const Case& test : cases) {
        SCOPED_TRACE(test.color);
        std::string css;
        colorWithOpacity(css, test.color, test.opacity);
        EXPECT_EQ(css, test.css);
    }
}

} // namespace
} // namespace quillon::HTMLRenderer
