#pragma once

#include "cli/Failure.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

/// The commands around an article's beginning: new ones, what they are made of, and recent ones.
namespace quillon::cli {

/// Makes the first article of a document: `kind` is "blank", "generated" or the id of a template. It is saved
/// as a package in the folder `to`, which must not exist, or printed as JSON when `to` is "-". Only a
/// generated article takes a `prompt`.
Result<void> makeNew(const std::string& kind, const std::string& to,
                     const std::optional<std::string>& prompt);

/// Prints the catalogue of templates, one a line: id, category, title and subtitle with tabs between.
Result<void> listTemplates();

/// Prints the JSON of a new component; `role` is the text of a role in JSON.
Result<void> sample(const std::string& role);

/// Prints the summaries of the first `limit` packages (all when absent), one a line: title, subtitle, date,
/// thumbnail and whether it can be read, with tabs between. What is absent is a dash.
Result<void> listRecents(const std::vector<std::string>& folders, std::optional<std::size_t> limit);

} // namespace quillon::cli
