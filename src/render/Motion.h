#pragma once

#include "model/Placement.h"

#include <string>
#include <string_view>

/// Behaviours, animations, anchors and scenes as CSS: mostly classes and variables for the fixed rules of the
/// page. Writers append to `out`; an absent record writes nothing.
namespace quillon::HTMLRenderer {

enum class HasFill { no, yes };
/// A fill that stands still while the reader scrolls, for the types of parallax and motion.
void behaviorCSS(std::string& out, const Optional<Behavior>& behavior, HasFill hasFill);

/// Class names; those of anchors and scenes bring their leading blank.
std::string_view animationClass(const Optional<ComponentAnimation>& animation);
std::string_view anchorClass(const Optional<Anchor>& anchor);
std::string_view sceneClass(const Optional<ANFScene>& scene);
/// The variables that the classes read.
void animationVariables(std::string& out, const Optional<ComponentAnimation>& animation);
void sceneVariables(std::string& out, const Optional<ANFScene>& scene);
/// How an anchored component stands in its row of the grid.
std::string_view anchorAlignmentCSS(const Optional<Anchor>& anchor);

} // namespace quillon::HTMLRenderer
