#pragma once

#include "cli/Failure.h"
#include "render/PreviewEnvironment.h"

#include <string>
#include <vector>

namespace quillon::cli {

/// What the user says of the environment that a page is rendered for.
struct EnvironmentOptions {
    std::string device = "auto";
    std::string orientation = "portrait";
    std::string appearance = "auto";
    std::string pane = "1024x768";
    std::string mapsToken;
    std::string mapsOrigin;  ///< the product's own when empty
    std::string environment; ///< a JSON object of fields laid over the rest; none when empty
};

/// The names that the options take, in the order in which help shows them.
std::vector<std::string> deviceNames();
std::vector<std::string> orientationNames();
std::vector<std::string> appearanceNames();

/// The environment of `options`, or what is wrong with one of them.
Result<PreviewEnvironment> environmentOf(const EnvironmentOptions& options);

} // namespace quillon::cli
