#pragma once

#include <functional>
#include <optional>
#include <string>

class QWidget;

namespace quillon {

/// Asks on `window` where an article is to be saved, proposing the folder `name` in `folder`. Calls `done`
/// later with the path, or with nothing when the user gave up. Existing articles can be chosen; whether they
/// may be replaced is for the caller to ask.
void askForSavePlace(QWidget& window, const std::string& folder, const std::string& name,
                     std::function<void(std::optional<std::string>)> done);

/// Asks which package to open.
void askForPackage(QWidget* window, const std::string& folder, std::function<void(const std::string&)> done);

} // namespace quillon
