#pragma once

#include "cli/EnvironmentOptions.h"
#include "cli/Failure.h"

#include <optional>
#include <string>

/// What each command of quillon-cli does; `package` is as described in Input.h.
namespace quillon::cli {

/// Writes the page of an article to `output`, or to standard output when that is empty. `now` is in seconds
/// since 1970, the clock's when absent.
Result<void> render(const std::string& package, const EnvironmentOptions& options, std::optional<double> now,
                    const std::string& output);

/// Writes the article as a save would.
Result<void> format(const std::string& package, const std::string& output);

/// Opens the package as the editor does and prints what it holds.
Result<void> check(const std::string& package);

/// Prints the tree of components.
Result<void> outline(const std::string& package);

enum class Replace { never, existingPackage };

/// Saves the whole package, in place when `to` is empty.
Result<void> save(const std::string& package, const std::string& to, Replace replace);

} // namespace quillon::cli
