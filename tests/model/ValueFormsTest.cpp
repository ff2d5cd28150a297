#include "model/ArticleDocument.h"
#include "support/ArticleText.h"

#include <gtest/gtest.h>

namespace quillon {
namespace {

using namespace support;

/// A member of a component or of the article, and what a save makes of it.
struct FormCase {
    std::string_view value;
    std::string_view after; ///< empty: the same
};

void expectComponentForms(std::string_view key, std::initializer_list<FormCase> cases) {
    for (const FormCase& expected : cases) {
        SCOPED_TRACE(expected.value);
        EXPECT_EQ(savedComponentMember(key, expected.value),
                  expected.after.empty() ? expected.value : expected.after);
    }
}

TEST(ValueForms, layoutsKeepTheirForm) {
    expectComponentForms(
        "layout",
        {
            {R"("wide")"},
            {R"({"margin":12})"},
            {R"({"margin":"12"})"},
            {R"({"margin":{"bottom":"2vh","top":12}})"},
            {R"({"margin":{}})"},
            {R"({"margin":true})",
             "components[0].layout.margin: expected a number, text or an object, found true or false"},
            {R"({"margin":{"top":[]}})",
             "components[0].layout.margin.top: expected a number or text, found a list"},
            {R"({"contentInset":true})"},
            {R"({"contentInset":{"left":false,"top":true}})"},
            {R"({"contentInset":{"left":1}})",
             "components[0].layout.contentInset.left: expected true or false, found a number"},
            {R"({"ignoreDocumentMargin":"left"})"},
            {R"({"ignoreDocumentMargin":false})"},
            {R"({"conditional":[{"columnSpan":3,"conditions":[{}]},{"conditions":[]},{}]})"},
            {R"({"conditional":[{"conditions":{}}]})",
             "components[0].layout.conditional[0].conditions: expected a list, found an object"},
            {R"({"conditional":[{"conditions":[{"minViewportWidth":0.5}]}]})",
             "components[0].layout.conditional[0].conditions[0].minViewportWidth: expected a whole "
             "number, found a number with a fraction or beyond 64 bits"},
            {"3", "components[0].layout: expected text or an object, found a number"},
        });
    expectComponentForms(
        "contentDisplay",
        {{R"({"gutter":"x"})", "components[0].contentDisplay.gutter: expected a number, found text"}});
}

TEST(ValueForms, componentStylesNeverFail) {
    expectComponentForms("style",
                         {
                             {R"("card")"},
                             {R"({"opacity":1.0})", R"({"opacity":1})"},
                             {"{}"},
                             {"null", "absent"},
                             {"7", "{}"},
                             {"true", "{}"},
                             {"[1]", "{}"},
                             {R"({"opacity":0.5,"fill":{"width":"50%"}})", "{}"},
                             {R"({"conditional":[{"opacity":"x"}]})", "{}"},
                             {R"({"fill":{"repeat":"x","repeatMode":"y"}})", R"({"fill":{"repeat":"x"}})"},
                         });
    expectComponentForms("conditional",
                         {{R"([{"style":5,"text":"lost","URL":"lost"}])", R"([{"style":{}}])"}});
    EXPECT_EQ(savedMember("componentStyles", R"({"s":{"fill":{"width":1.5}}})"),
              "componentStyles.s.fill.width: expected a whole number, found a number with a fraction or "
              "beyond 64 bits");
}

TEST(ValueForms, textStylesKeepTheirForm) {
    expectComponentForms(
        "textStyle",
        {
            {R"("small")"},
            {R"({"fontWeight":700})"},
            {R"({"fontWeight":"bold"})"},
            {R"({"fontWeight":700.5})",
             "components[0].textStyle.fontWeight: expected a whole number or text, found a number"},
            {R"({"underline":true})"},
            {R"({"underline":{"color":"red"}})"},
            {R"({"underline":{"color":5,"width":1}})", R"({"underline":{}})"},
            {R"({"underline":"red"})",
             "components[0].textStyle.underline: expected true, false or an object, found text"},
            {R"({"tracking":0.02})"},
            {R"({"conditional":[{"conditional":[{"fontSize":3}],"conditions":[]}]})"},
            {R"({"linkStyle":{"conditional":[{"conditions":[{"platform":"x"}],"fontSize":2}]}})"},
            {"5", "components[0].textStyle: expected text or an object, found a number"},
        });
    expectComponentForms(
        "inlineTextStyles",
        {
            {R"([{"rangeLength":2,"rangeStart":1,"textStyle":"mark"}])"},
            {R"([{"rangeStart":"1","rangeLength":1.5,"textStyle":{"fontSize":"x"},"x":1}])", "[{}]"},
            {R"([{"textStyle":{"fontSize":4}}])"},
            {R"(["x"])", "components[0].inlineTextStyles[0]: expected an object, found text"},
        });
}

TEST(ValueForms, rangesAndCaptionsAreTolerant) {
    expectComponentForms("additions",
                         {
                             {R"([{"type":1,"URL":[],"rangeStart":"1","rangeLength":{}}])", "[{}]"},
                             {R"([{"URL":"u","rangeLength":2,"rangeStart":1,"type":"link"}])"},
                             {R"(["u"])", "components[0].additions[0]: expected an object, found text"},
                         });
    expectComponentForms("items",
                         {
                             {R"([{"URL":"u","caption":"c"}])"},
                             {R"([{"caption":{"text":"c","textStyle":"s"}}])"},
                             {R"([{"caption":{"text":"c","textStyle":{"fontSize":3}}}])"},
                             {R"([{"caption":{"textStyle":"s"}}])"},
                             {R"([{"caption":{"text":"c","additions":[{}]}}])", R"([{"caption":"c"}])"},
                             {R"([{"caption":{"text":"c","additions":1,"textStyle":"s"}}])", "[{}]"},
                             {R"([{"caption":{"text":5,"textStyle":"s"}}])", "[{}]"},
                             {R"([{"caption":{}}])", "[{}]"},
                             {R"([{"caption":5},{"caption":null},{"URL":5},{}])", "[{},{},{},{}]"},
                             {R"(["u"])", "components[0].items[0]: expected an object, found text"},
                         });
    expectComponentForms("caption",
                         {{R"({"text":"c"})", "components[0].caption: expected text, found an object"}});
}

TEST(ValueForms, directionBecomesTheStartingPosition) {
    expectComponentForms(
        "animation",
        {
            {R"({"direction":"left"})", R"({"preferredStartingPosition":"left"})"},
            {R"({"direction":"left","preferredStartingPosition":"right"})",
             R"({"preferredStartingPosition":"right"})"},
            {R"({"direction":5,"preferredStartingPosition":"right"})",
             R"({"preferredStartingPosition":"right"})"},
            {R"({"direction":null})", "{}"},
            {R"({"direction":5})", "components[0].animation.direction: expected text, found a number"},
            {R"({"direction":5,"type":5})", "components[0].animation.type: expected text, found a number"},
        });
    expectComponentForms("conditional", {{R"([{"animation":{"direction":"left"}}])",
                                          R"([{"animation":{"preferredStartingPosition":"left"}}])"}});
}

TEST(ValueForms, tableCells) {
    const auto cell = [](std::string_view value) {
        const std::string after = savedComponentMember("data", R"({"descriptors":[],"records":[{"k":)" +
                                                                   std::string(value) + "}]}");
        constexpr std::string_view start = R"({"descriptors":[],"records":[{"k":)";
        return after.starts_with(start) ? after.substr(start.size(), after.size() - start.size() - 3) : after;
    };
    const FormCase cases[] = {
        {"null"},
        {"true"},
        {"3.50", "3.5"},
        {R"("x")"},
        {R"({"text":"t","type":"formatted_text"})"},
        {R"({"format":"html","inlineTextStyles":[{}],"additions":[1,{"a":null}],"type":"formatted_text"})",
         R"({"additions":[1,{"a":null}],"format":"html","inlineTextStyles":[{}],"type":"formatted_text"})"},
        {R"({"text":"t","type":"Formatted_text"})", "null"},
        {R"({"text":"t"})", "null"},
        {R"({"text":5,"type":"formatted_text"})", "null"},
        {"[1]", "null"},
    };
    for (const FormCase& expected : cases) {
        SCOPED_TRACE(expected.value);
        EXPECT_EQ(cell(expected.value), expected.after.empty() ? expected.value : expected.after);
    }
    expectComponentForms(
        "data", {
                    {R"({"records":[]})", "components[0].data.descriptors: expected a list, found nothing"},
                    {R"({"descriptors":[]})", "components[0].data.records: expected a list, found nothing"},
                    {R"({"descriptors":[],"records":[null]})",
                     "components[0].data.records[0]: expected an object, found null"},
                    {R"({"descriptors":[{"format":{"x":[1,null]},"key":"k","label":"L"}],"records":[{}]})"},
                    {R"({"descriptors":[{"format":null,"label":{"text":"L","type":"x"}}],"records":[]})",
                     R"({"descriptors":[{"label":{"text":"L","type":"x"}}],"records":[]})"},
                    {R"({"descriptors":[{"label":{"text":5}}],"records":[]})",
                     "components[0].data.descriptors[0].label.text: expected text, found a number"},
                });
    expectComponentForms(
        "style", {
                     {R"({"tableStyle":{"cells":{"padding":8}}})"},
                     {R"({"tableStyle":{"cells":{"padding":"1vh"}}})"},
                     {R"({"tableStyle":{"cells":{"conditional":[{"conditions":[],"padding":{"top":8}}]}}})",
                      R"({"tableStyle":{"cells":{"conditional":[{"padding":{"top":8}}]}}})"},
                     {R"({"tableStyle":{"rows":{"conditional":[{"conditions":[{}],"selectors":[{}]}]}}})",
                      R"({"tableStyle":{"rows":{"conditional":[{"selectors":[{}]}]}}})"},
                 });
}

TEST(ValueForms, cellTexts) {
    FormattedText formatted;
    const RecordValue noText{Shared<FormattedText>(formatted)};
    formatted.text = std::string("<b>x</b>");
    EXPECT_EQ(noText.displayText(), "");
    EXPECT_EQ(RecordValue{Shared<FormattedText>(formatted)}.displayText(), "<b>x</b>");
    EXPECT_EQ(RecordValue{std::string("x")}.displayText(), "x");
    EXPECT_EQ(RecordValue{true}.displayText(), "true");
    EXPECT_EQ(RecordValue{false}.displayText(), "false");
    EXPECT_EQ(RecordValue{nullptr}.displayText(), "");
    EXPECT_EQ(RecordValue{3.0}.displayText(), "3");
    EXPECT_EQ(RecordValue{-0.0}.displayText(), "0");
    EXPECT_EQ(RecordValue{3.5}.displayText(), "3.5");
    EXPECT_EQ(RecordValue{0.1 + 0.2}.displayText(), "0.30000000000000004");
}

TEST(ValueForms, lengthsAsNumbersAndCss) {
    struct Case {
        ANFLength length;
        std::optional<double> number;
        std::optional<std::string> css;
    };
    const auto text = [](std::string value) {
        return ANFLength{std::move(value)};
    };
    constexpr auto none = std::nullopt;
    const Case cases[] = {
        {{20.0}, 20, "20px"},
        {{1.5}, 1.5, "1.5px"},
        {{-0.0}, 0, "0px"},
        {text("12"), 12, "12px"},
        {text("12PX"), 12, "12PX"},
        {text("30cw"), 30, "30px"},
        {text("10dg"), 10, "10px"},
        {text("-1.5em"), -1.5, "-1.5em"},
        {text("5 Vmin"), 5, "5 Vmin"},
        {text("5vmax"), 5, "5vmax"},
        {text("5vh"), 5, "5vh"},
        {text("5vw"), 5, "5vw"},
        {text("5rem"), 5, "5rem"},
        {text("5pt"), 5, "5pt"},
        {text("50%"), 50, "50%"},
        {text("1.2.3"), none, none},
        {text("1.2.3px"), none, "1.2.3px"},
        {text("--5"), none, none},
        {text("px"), none, "px"},
        {text("auto"), none, none},
        {text(""), none, none},
        {text("-"), none, none},
        {text(".5"), 0.5, "0.5px"},
        {text(" 5"), none, none},
        {text("+5"), none, none},
        {text("1e3"), 1, "1px"},
        {text("-0"), 0, "0px"},
    };
    for (const Case& expected : cases) {
        SCOPED_TRACE(expected.css.value_or("none"));
        EXPECT_EQ(expected.length.numericValue(), expected.number);
        EXPECT_EQ(expected.length.plainLengthCSS(), expected.css);
    }
    EXPECT_NE(text("12"), (ANFLength{12.0}));
}

TEST(ValueForms, paddingAsCss) {
    Padding sides;
    sides.top = ANFLength{8.0};
    EXPECT_EQ(PaddingValue{sides}.paddingCSS(), "8px 0 0 0");
    sides.bottom = ANFLength{std::string("1vh")};
    sides.left = ANFLength{std::string("auto")};
    sides.right = ANFLength{std::string("2cw")};
    EXPECT_EQ(PaddingValue{sides}.paddingCSS(), "8px 2px 1vh 0");
    EXPECT_EQ(PaddingValue{ANFLength{1.5}}.paddingCSS(), "1.5px");
    EXPECT_EQ(PaddingValue{ANFLength{std::string("auto")}}.paddingCSS(), "0");
}

TEST(ValueForms, mergingLaysPresentFieldsOverOthers) {
    ComponentLayout base;
    base.columnStart = 1;
    base.columnSpan = 2;
    ConditionalComponentLayout variant;
    variant.layout.columnSpan = 5;
    variant.layout.minimumHeight = ANFLength{3.0};
    mergeFields(base, variant.layout);
    EXPECT_EQ(base.columnStart, 1);
    EXPECT_EQ(base.columnSpan, 5);
    EXPECT_EQ(base.minimumHeight, ANFLength{3.0});
    EXPECT_FALSE(base.conditional);
}

} // namespace
} // namespace quillon
