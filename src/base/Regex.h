#pragma once

#include <array>
#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace quillon {

/// Where a pattern was found in a text: byte ranges of the whole match (group 0) and of its groups 1 to 9.
struct RegexMatch {
    static constexpr std::size_t groupLimit = 10;
    static constexpr std::size_t absent = std::string_view::npos;

    struct Range {
        std::size_t begin = absent;
        std::size_t end = absent;
    };

    std::string_view text; ///< the text that was searched; must outlive the match
    std::array<Range, groupLimit> groups;

    std::size_t begin() const { return groups[0].begin; }
    std::size_t end() const { return groups[0].end; }
    bool has(std::size_t number) const { return number < groupLimit && groups[number].begin != absent; }

    /// The text of a group; empty when the group does not exist or took no part in the match.
    std::string_view group(std::size_t number) const {
        return has(number) ? text.substr(groups[number].begin, groups[number].end - groups[number].begin)
                           : std::string_view();
    }
};

/// A compiled regular expression. Letters and word boundaries are Unicode's, "." matches all but line ends,
/// letter case counts. Texts must be valid UTF-8, NUL included. One object may be used by many threads at
/// once. A text on which the search would need more memory or steps than it is allowed counts as one without
/// a further match.
class Regex {
public:
    /// A pattern that does not compile is a fault of the program: it stops with a message.
    explicit Regex(std::string_view pattern);

    /// Whether the pattern is found anywhere in `text`.
    bool contains(std::string_view text) const;

    /// The first match that begins at the byte offset `from` or behind it; what stands in front of `from`
    /// counts for look-behind and word boundaries. `from` must not lie inside a scalar.
    std::optional<RegexMatch> find(std::string_view text, std::size_t from = 0) const;

    /// The first match behind `previous`; behind an empty match the search goes on one scalar later.
    std::optional<RegexMatch> findNext(const RegexMatch& previous) const;

    using Replacer = std::function<void(const RegexMatch& match, std::string& out)>;

    /// `text` with each match replaced by what `replace` appends to `out`.
    std::string replaceAll(std::string_view text, const Replacer& replace) const;

    /// `text` with each match replaced by `replacement`, in which "$0" to "$9" stand for the groups and a
    /// backslash takes the next character as it is; a "$" without a numeral stands for itself.
    std::string replaceAllWithTemplate(std::string_view text, std::string_view replacement) const;

    /// `text` with each match replaced by `replacement`, in which nothing has a meaning.
    std::string replaceAllLiterally(std::string_view text, std::string_view replacement) const;

private:
    struct Program;
    std::shared_ptr<const Program> program_;
};

} // namespace quillon
