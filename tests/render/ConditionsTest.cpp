#include "render/Conditions.h"
#include "render/ComponentStyleCss.h"
#include "render/ReadRecord.h"

namespace quillon::HTMLRenderer {
namespace {

PreviewEnvironment phone() {
    PreviewEnvironment environment;
    environment.viewportWidth = 393;
    environment.platform = "ios";
    environment.horizontalSizeClass = "compact";
    environment.verticalSizeClass = "regular";
    return environment;
}

PreviewEnvironment phone(PreviewAppearance appearance) {
    PreviewEnvironment environment = phone();
    environment.appearance = appearance;
    return environment;
}

/// An article of `tables` (members of its JSON, each followed by a comma) and a context to resolve in.
struct Fixture {
    explicit Fixture(const std::string& tables, PreviewEnvironment in = phone())
        : article(readRecord<ArticleDocument>(
              "{" + tables +
              R"("version":"1","identifier":"a","language":"en","title":"T","layout":{"columns":7,"width":1024},"components":[]})")),
          environment(std::move(in)) {}

    ArticleDocument article;
    PreviewEnvironment environment;
    DarkModeCSS darkCSS;
    VariantMemo variants;
    PageContext context{article, environment, gridMetrics(article.layout, environment.viewportWidth),
                        darkCSS, variants,    0};
};

std::string cssOf(const ComponentStyle& style) {
    std::string css;
    componentStyleCSS(css, &style);
    return css;
}

TEST(Conditions, matrix) {
    enum Match { never = 0, automatic = 1, light = 2, dark = 4, always = 7 };
    struct Case {
        const char* conditions;
        int appearances;
    };
    constexpr Case cases[] = {
        {R"([])", always},
        {R"([{}])", always},
        {R"([{"preferredColorScheme":"any"}])", always},
        {R"([{"preferredColorScheme":"light"}])", light},
        {R"([{"preferredColorScheme":"dark"}])", dark},
        {R"([{"preferredColorScheme":"Dark"}])", never},
        {R"([{"preferredColorScheme":""}])", never},
        {R"([{"platform":"any"}])", always},
        {R"([{"platform":"ios"}])", always},
        {R"([{"platform":"iOS"}])", never},
        {R"([{"platform":"macos"}])", never},
        {R"([{"horizontalSizeClass":"any"}])", always},
        {R"([{"horizontalSizeClass":"compact"}])", always},
        {R"([{"horizontalSizeClass":"regular"}])", never},
        {R"([{"verticalSizeClass":"any"}])", always},
        {R"([{"verticalSizeClass":"regular"}])", always},
        {R"([{"verticalSizeClass":"compact"}])", never},
        {R"([{"minViewportWidth":393,"maxViewportWidth":393}])", always},
        {R"([{"minViewportWidth":394}])", never},
        {R"([{"maxViewportWidth":392}])", never},
        {R"([{"minViewportWidth":-9223372036854775808,"maxViewportWidth":9223372036854775807}])", always},
        {R"([{"subscriptionStatus":"bundle","minSpecVersion":"99","maxSpecVersion":"0"}])", always},
        {R"([{"platform":"ios","preferredColorScheme":"dark"}])", dark},
        {R"([{"platform":"macos","preferredColorScheme":"dark"}])", never},
        {R"([{"platform":"ios"},{"preferredColorScheme":"light"}])", light},
        {R"([{"preferredColorScheme":"light"},{"preferredColorScheme":"dark"}])", never},
    };
    for (const Case& test : cases) {
        SCOPED_TRACE(test.conditions);
        const Conditions conditions = readRecord<std::vector<Condition>>(test.conditions);
        EXPECT_EQ(conditionsMatch(conditions, phone(PreviewAppearance::automatic)),
                  (test.appearances & automatic) != 0);
        EXPECT_EQ(conditionsMatch(conditions, phone(PreviewAppearance::light)),
                  (test.appearances & light) != 0);
        EXPECT_EQ(conditionsMatch(conditions, phone(PreviewAppearance::dark)),
                  (test.appearances & dark) != 0);
    }
    EXPECT_TRUE(conditionsMatch(std::nullopt, phone()));
}

TEST(Conditions, viewportWidthIsRounded) {
    struct Case {
        double width;
        bool isAtLeast321;
    };
    constexpr Case cases[] = {{320.4, false}, {320.5, true}, {321.4, true}};
    const Conditions atLeast = readRecord<std::vector<Condition>>(R"([{"minViewportWidth":321}])");
    const Conditions atMost = readRecord<std::vector<Condition>>(R"([{"maxViewportWidth":320}])");
    for (const Case& test : cases) {
        SCOPED_TRACE(test.width);
        PreviewEnvironment environment = phone();
        environment.viewportWidth = test.width;
        EXPECT_EQ(conditionsMatch(atLeast, environment), test.isAtLeast321);
        EXPECT_EQ(conditionsMatch(atMost, environment), !test.isAtLeast321);
    }
}

TEST(Conditions, variantsLieOverOneAnotherInTheirOrder) {
    struct Case {
        const char* style;
        const char* css;
    };
    constexpr Case cases[] = {
        {R"({"backgroundColor":"a","conditional":[{"backgroundColor":"b"},{"backgroundColor":"c"}]})",
         "background-color: c;"},
        {R"({"backgroundColor":"a","conditional":[{"backgroundColor":"b"},{"opacity":0.5}]})",
         "background-color: b;opacity: 0.5;"},
        {R"({"backgroundColor":"a","conditional":[{"backgroundColor":"b"},{"backgroundColor":"c","conditions":[{"platform":"macos"}]}]})",
         "background-color: b;"},
        {R"({"backgroundColor":"a","conditional":[]})", "background-color: a;"},
        // Whole fields are replaced: the corner flag of the base is gone.
        {R"({"mask":{"radius":9,"topLeft":false},"conditional":[{"mask":{"radius":1}}]})",
         "border-radius: 1px 1px 1px 1px; overflow: hidden;"},
        // The variants of a variant mean nothing.
        {R"({"backgroundColor":"a","conditional":[{"opacity":1,"conditional":[{"backgroundColor":"z"}]},{"backgroundColor":"b"}]})",
         "background-color: b;opacity: 1;"},
    };
    for (const Case& test : cases) {
        SCOPED_TRACE(test.style);
        Fixture named(R"("componentStyles":{"s":)" + std::string(test.style) + "},");
        const auto byName = resolveComponentStyle(readRecord<StyleReference>(R"("s")"), named.context);
        const auto inlined = resolveComponentStyle(readRecord<StyleReference>(test.style), named.context);
        ASSERT_TRUE(byName && inlined);
        EXPECT_EQ(cssOf(*byName), test.css);
        EXPECT_EQ(cssOf(*inlined), test.css);
        EXPECT_EQ(byName->conditional, readRecord<ComponentStyle>(test.style).conditional);
    }
}

TEST(Conditions, referencesLeadToTheArticlesStyles) {
    Fixture fixture(
        R"("componentLayouts":{"l":{"columnSpan":2,"margin":1,"conditional":[{"columnSpan":3}]}},)"
        R"("textStyles":{"t":{"fontSize":9,"conditional":[{"fontSize":10}]}},)"
        R"("componentTextStyles":{"c":{"fontSize":9,"conditional":[{"fontSize":10}]}},)"
        R"("componentStyles":{"plain":{"opacity":0.5,"conditional":[{"opacity":1,"conditions":[{"platform":"macos"}]}]}},)");
    const PageContext& context = fixture.context;

    const auto layout = resolveLayout(readRecord<StyleRef<ComponentLayout>>(R"("l")"), context);
    ASSERT_TRUE(layout);
    EXPECT_EQ(layout->columnSpan, 3);
    EXPECT_TRUE(layout->margin);
    EXPECT_EQ(resolveTextStyle(readRecord<StyleRef<TextStyle>>(R"("t")"), context)->fontSize, 10);
    EXPECT_EQ(resolveTextStyleNamed("t", context)->fontSize, 10);
    EXPECT_EQ(applyVariants(context.article.textStyles->at("t").handle(), context)->fontSize, 10);
    EXPECT_EQ(applyVariants(context.article.componentTextStyles->at("c").handle(), context)->fontSize, 10);
    // The caption styles of galleries and tables are taken as they stand.
    EXPECT_EQ(
        resolveComponentTextStyleRef(readRecord<StyleRef<ComponentTextStyle>>(R"("c")"), context)->fontSize,
        9);

    // What no variant changes is the article's own block.
    const auto plain = resolveComponentStyle(readRecord<StyleReference>(R"("plain")"), context);
    EXPECT_TRUE(plain.isIdentical(fixture.article.componentStyles->at("plain").handle()));

    EXPECT_FALSE(resolveLayout(std::nullopt, context));
    EXPECT_FALSE(resolveLayout(readRecord<StyleRef<ComponentLayout>>(R"("L")"), context));
    EXPECT_FALSE(resolveComponentStyle(readRecord<StyleReference>(R"("other")"), context));
    EXPECT_FALSE(resolveTextStyleNamed("c", context));
    EXPECT_FALSE(resolveTextStyleNamed("t", Fixture("").context));
}

/// Long lists are worked out once: the second answer is the block of the first.
TEST(Conditions, stylesWithManyVariantsAreSharedByTheirUsers) {
    std::string variants = R"({"textColor":"first"})";
    for (int i = 1; i <= 20; ++i) {
        const std::string number = std::to_string(i);
        variants += R"(,{"fontSize":)" + number + R"(,"columnSpan":)" + number + R"(,"opacity":)" + number +
                    (i % 2 ? R"(,"conditions":[{"preferredColorScheme":"dark"}]})" : "}");
    }
    const std::string styles = R"({"s":{"conditional":[)" + variants + "]}},";
    Fixture fixture(R"("componentStyles":)" + styles + R"("componentTextStyles":)" + styles +
                    R"("componentLayouts":)" + styles + R"("textStyles":)" + styles);
    const PageContext& context = fixture.context;
    const auto style = readRecord<StyleReference>(R"("s")");
    const auto component = readRecord<Component>(R"({"role":"body","textStyle":"s"})");
    for (int round = 0; round < 2; ++round) {
        EXPECT_EQ(resolveComponentStyle(style, context)->opacity, 20);
        EXPECT_EQ(darkComponentStyle(style, context)->opacity, 19);
        EXPECT_EQ(darkComponentTextStyle(component, context)->fontSize, 19);
        EXPECT_FALSE(darkComponentTextStyle(component, context)->textColor);
        EXPECT_EQ(resolveTextStyleNamed("s", context)->fontSize, 20);
        EXPECT_EQ(resolveLayout(readRecord<StyleRef<ComponentLayout>>(R"("s")"), context)->columnSpan, 20);
        const auto& named = fixture.article.componentTextStyles->at("s").handle();
        EXPECT_EQ(applyVariants(named, context)->textColor, "first");
        EXPECT_TRUE(applyVariants(named, context).isIdentical(applyVariants(named, context)));
        EXPECT_TRUE(darkComponentStyle(style, context).isIdentical(darkComponentStyle(style, context)));
    }
    // A style that is gone leaves no answer for one that takes its place in memory.
    for (const std::string_view color : {"a", "b", "c"}) {
        const SharedOptional<TextStyle> passing = readRecord<TextStyle>(
            R"({"conditional":[{},{},{},{},{"textColor":")" + std::string(color) + R"("}]})");
        EXPECT_EQ(applyVariants(passing, context)->textColor, color);
    }
}

TEST(Conditions, componentsTakeTheFieldsOfTheirVariants) {
    const auto component = readRecord<Component>(
        R"({"role":"body","text":"t","hidden":false,"accessibilityCaption":"a","style":"s","conditional":[)"
        R"({"hidden":true,"anchor":{"targetAnchorPosition":"top"},"animation":{"type":"fade_in"},)"
        R"("behavior":{"type":"parallax"},"scene":{"type":"x"},"contentDisplay":{"type":"collection"},)"
        R"("layout":"l","textStyle":"ts","text":"never"},)"
        R"({"hidden":false,"style":"s2","conditions":[{"preferredColorScheme":"dark"}]},)"
        R"({"accessibilityCaption":"b"}]})");
    std::optional<Component> copy;
    const Component& resolved = resolveComponent(component, phone(), copy);
    EXPECT_EQ(&resolved, &*copy);
    EXPECT_EQ(resolved.id, component.id);
    EXPECT_EQ(resolved.hidden, true);
    EXPECT_EQ(resolved.text, "t");
    EXPECT_EQ(resolved.accessibilityCaption, "b");
    EXPECT_EQ(*resolved.style->named(), "s");
    EXPECT_TRUE(resolved.anchor && resolved.animation && resolved.behavior && resolved.scene &&
                resolved.contentDisplay && resolved.layout && resolved.textStyle);

    const Component& inTheDark = resolveComponent(component, phone(PreviewAppearance::dark), copy);
    EXPECT_EQ(inTheDark.hidden, false);
    EXPECT_EQ(*inTheDark.style->named(), "s2");

    const auto unchanged = readRecord<Component>(
        R"({"role":"body","conditional":[{"hidden":true,"conditions":[{"platform":"macos"}]}]})");
    EXPECT_EQ(&resolveComponent(unchanged, phone(), copy), &unchanged);
    EXPECT_FALSE(copy);
}

TEST(Conditions, darkComponentStyles) {
    struct Case {
        const char* style;
        const char* css; ///< null for no dark style
    };
    constexpr Case cases[] = {
        {R"("missing")", nullptr},
        {R"({"opacity":1})", nullptr},
        {R"({"opacity":1,"conditional":[{"opacity":0.5},{"opacity":0.4,"conditions":[]},{"opacity":0.3,"conditions":[{"preferredColorScheme":"any"}]}]})",
         nullptr},
        {R"({"backgroundColor":"a","conditional":[{"opacity":0.5,"conditions":[{"preferredColorScheme":"dark"}]}]})",
         "opacity: 0.5;"},
        // One condition that asks for dark is enough, whatever else is asked.
        {R"({"conditional":[{"opacity":0.5,"conditions":[{"platform":"macos"},{"preferredColorScheme":"dark","minViewportWidth":9999}]}]})",
         "opacity: 0.5;"},
        {R"({"conditional":[{"opacity":0.5,"backgroundColor":"b","conditions":[{"preferredColorScheme":"dark"}]},)"
         R"({"opacity":0.7},{"opacity":0.6,"conditions":[{"preferredColorScheme":"dark"}]}]})",
         "background-color: b;opacity: 0.6;"},
        {R"({"conditional":[{"conditions":[{"preferredColorScheme":"dark"}]}]})", ""},
    };
    for (const Case& test : cases) {
        SCOPED_TRACE(test.style);
        Fixture fixture("");
        const auto dark = darkComponentStyle(readRecord<StyleReference>(test.style), fixture.context);
        ASSERT_EQ(dark.has_value(), test.css != nullptr);
        if (dark) {
            EXPECT_EQ(cssOf(*dark), test.css);
            EXPECT_FALSE(dark->conditional);
        }
    }
    EXPECT_FALSE(darkComponentStyle(std::nullopt, Fixture("").context));
}

TEST(Conditions, darkTextStylesCascade) {
    const std::string dark = R"("conditions":[{"preferredColorScheme":"dark"}])";
    Fixture fixture(
        R"("componentTextStyles":{)"
        R"("default":{"fontSize":1,"conditional":[{"textColor":"a","fontStyle":"a","fontWidth":"a",)" +
        dark + R"(}]},"default-heading1":{"conditional":[{"textColor":"b","fontStyle":"b",)" + dark +
        R"(}]},"own":{"conditional":[{"textColor":"c",)" + dark + R"(},{"fontStyle":"z"}]}},)");
    const auto darkOf = [&](const char* json) {
        return darkComponentTextStyle(readRecord<Component>(json), fixture.context);
    };
    const auto heading = darkOf(R"({"role":"heading1","textStyle":"own"})");
    ASSERT_TRUE(heading);
    EXPECT_EQ(heading->textColor, "c");
    EXPECT_EQ(heading->fontStyle, "b");
    EXPECT_EQ(heading->fontWidth, "a");
    EXPECT_FALSE(heading->fontSize);
    EXPECT_EQ(darkOf(R"({"role":"body"})")->textColor, "a");
    EXPECT_EQ(darkOf(R"({"role":"body","textStyle":"unknown"})")->textColor, "a");
    EXPECT_EQ(
        darkOf(
            R"({"role":"body","textStyle":{"conditional":[{"textColor":"i","conditions":[{"preferredColorScheme":"dark"}]}]}})")
            ->textColor,
        "i");

    EXPECT_FALSE(darkComponentTextStyle(readRecord<Component>(R"({"role":"body"})"), Fixture("").context));
    Fixture light(R"("componentTextStyles":{"default":{"conditional":[{"textColor":"a"}]}},)");
    EXPECT_FALSE(darkComponentTextStyle(readRecord<Component>(R"({"role":"body"})"), light.context));
}

} // namespace
} // namespace quillon::HTMLRenderer
