#pragma once

#include <optional>
#include <string>
#include <string_view>

/// JSON as tests write it down and look at it, through a parser that the product does not use.
namespace quillon::support {

/// The smallest article's JSON with `members` (`"subtitle":"x"`) added; a member of the same key replaces its
/// own.
std::string articleJson(std::string_view members);

/// An article of one component: `{"role":"body"}` with `members` added.
std::string componentArticleJson(std::string_view members);

/// `json` read as an article and written again; the message when it cannot be read.
std::string saved(std::string json);

/// The same JSON on one line without blanks, keys sorted.
std::string compact(std::string_view json);

/// The value at "components[0].layout" of `json`, compact; nothing when there is none.
std::optional<std::string> valueAt(std::string_view json, std::string_view path);

/// What a save makes of `"key":value` in the article, or in its one component: the value, "absent", or the
/// message of the failed read.
std::string savedMember(std::string_view key, std::string_view value);
std::string savedComponentMember(std::string_view key, std::string_view value);

/// The paths and values of whatever `after` lacks or has otherwise than `before`, one a line: "metadata.x",
/// "components[3].y: 1 became 2". Whole numbers equal themselves with a fraction of zero.
std::string differences(std::string_view before, std::string_view after);

} // namespace quillon::support
