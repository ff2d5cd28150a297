#include "render/Motion.h"

#include "render/CssNumbers.h"
#include "render/EscapeHtml.h"

#include <algorithm>
#include <array>
#include <optional>

namespace quillon::HTMLRenderer {

namespace {

/// What stands for each of the fixed names of a record's field.
struct NamedText {
    std::string_view name;
    std::string_view text;
};

template <size_t count>
std::string_view textOf(const Optional<std::string>& name, const std::array<NamedText, count>& texts,
                        std::string_view otherwise = {}) {
    const auto found =
        std::ranges::find_if(texts, [&name](const NamedText& entry) { return name == entry.name; });
    return found == texts.end() ? otherwise : found->text;
}

constexpr std::array<NamedText, 4> animationClasses = {{
    {"fade_in", "anim-fade-in"},
    {"move_in", "anim-move-in"},
    {"scale_fade", "anim-scale-fade"},
    {"appear", "anim-appear"},
}};

constexpr std::array<NamedText, 3> moveStarts = {{
    {"right", "--anf-move-x: 32px;--anf-move-y: 0px;"},
    {"top", "--anf-move-x: 0px;--anf-move-y: -32px;"},
    {"bottom", "--anf-move-x: 0px;--anf-move-y: 32px;"},
}};
constexpr std::string_view moveFromLeft = "--anf-move-x: -32px;--anf-move-y: 0px;";

constexpr std::array<NamedText, 3> anchorAlignments = {{
    {"top", "align-self: start;"},
    {"center", "align-self: center;"},
    {"bottom", "align-self: end;"},
}};
constexpr std::array<NamedText, 3> targetAnchorClasses = {{
    {"top", " anchor-target-top"},
    {"center", " anchor-target-center"},
    {"bottom", " anchor-target-bottom"},
}};
constexpr std::array<NamedText, 3> parentAnchorClasses = {{
    {"top", " anchor-parent-top"},
    {"center", " anchor-parent-center"},
    {"bottom", " anchor-parent-bottom"},
}};

constexpr std::string_view fadingStickyHeader = "fading_sticky_header";
constexpr std::array<NamedText, 2> sceneClasses = {{
    {fadingStickyHeader, " scene-fading-sticky-header"},
    {"parallax_scale", " scene-parallax-scale"},
}};

const Optional<std::string>& positionOf(const Anchor& anchor) {
    return anchor.targetAnchorPosition ? anchor.targetAnchorPosition : anchor.originAnchorPosition;
}

void alphaVariable(std::string& out, const ComponentAnimation& animation) {
    out += "--anf-initial-alpha: ";
    formatNumber(out, std::clamp(animation.initialAlpha.value_or(0), 0.0, 1.0));
    out += ';';
}

void scaleVariable(std::string& out, const ComponentAnimation& animation) {
    constexpr double defaultScale = 0.92;
    out += "--anf-initial-scale: ";
    formatNumber(out, std::max(animation.initialScale.value_or(defaultScale), 0.0));
    out += ';';
}

} // namespace

void behaviorCSS(std::string& out, const Optional<Behavior>& behavior, HasFill hasFill) {
    if (hasFill == HasFill::no || !behavior || !behavior->type) {
        return;
    }
    const std::string& type = *behavior->type;
    if (type.find("parallax") != std::string::npos || type.find("motion") != std::string::npos) {
        out += "background-attachment: fixed;";
    }
}

std::string_view animationClass(const Optional<ComponentAnimation>& animation) {
    return animation ? textOf(animation->type, animationClasses) : std::string_view();
}

void animationVariables(std::string& out, const Optional<ComponentAnimation>& animation) {
    if (!animation) {
        return;
    }
    if (animation->type == "fade_in") {
        alphaVariable(out, *animation);
    } else if (animation->type == "scale_fade") {
        alphaVariable(out, *animation);
        scaleVariable(out, *animation);
    } else if (animation->type == "move_in") {
        out += textOf(animation->preferredStartingPosition, moveStarts, moveFromLeft);
    }
}

std::string_view anchorClass(const Optional<Anchor>& anchor) {
    if (!anchor) {
        return {};
    }
    return textOf(positionOf(*anchor),
                  anchor->targetComponentIdentifier ? targetAnchorClasses : parentAnchorClasses);
}

std::string_view anchorAlignmentCSS(const Optional<Anchor>& anchor) {
    return anchor ? textOf(positionOf(*anchor), anchorAlignments) : std::string_view();
}

std::string_view sceneClass(const Optional<ANFScene>& scene) {
    return scene ? textOf(scene->type, sceneClasses) : std::string_view();
}

void sceneVariables(std::string& out, const Optional<ANFScene>& scene) {
    if (scene && scene->type == fadingStickyHeader && scene->fadeColor) {
        out += "--anf-scene-fade-color: ";
        escapeHTML(out, *scene->fadeColor);
        out += ';';
    }
}

} // namespace quillon::HTMLRenderer
