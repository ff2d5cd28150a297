#include "base/Regex.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <utility>
#include <vector>

#define PCRE2_CODE_UNIT_WIDTH 8
#include <pcre2.h>

namespace quillon {

namespace {

constexpr std::size_t initialStack = std::size_t{32} * 1024;
constexpr std::size_t largestStack = std::size_t{8} * 1024 * 1024;
constexpr std::uint32_t matchLimit = 1'000'000'000;
constexpr std::uint32_t heapLimit = 256 * 1024; // in KiB

struct Release {
    void operator()(pcre2_code* code) const { pcre2_code_free(code); }
    void operator()(pcre2_compile_context* context) const { pcre2_compile_context_free(context); }
    void operator()(pcre2_match_context* context) const { pcre2_match_context_free(context); }
    void operator()(pcre2_match_data* data) const { pcre2_match_data_free(data); }
    void operator()(pcre2_jit_stack* stack) const { pcre2_jit_stack_free(stack); }
};

template <typename Resource>
using Owned = std::unique_ptr<Resource, Release>;

/// What one thread needs for matching, whatever the pattern.
struct Workspace {
    Owned<pcre2_match_data> data{pcre2_match_data_create(RegexMatch::groupLimit, nullptr)};
    Owned<pcre2_match_context> context{pcre2_match_context_create(nullptr)};
    Owned<pcre2_jit_stack> stack{pcre2_jit_stack_create(initialStack, largestStack, nullptr)};

    Workspace() {
        if (!isUsable())
            return;
        pcre2_set_match_limit(context.get(), matchLimit);
        pcre2_set_heap_limit(context.get(), heapLimit);
        if (stack)
            pcre2_jit_stack_assign(context.get(), nullptr, stack.get());
    }

    bool isUsable() const { return data && context; }
};

[[noreturn]] void stopOnBadPattern(std::string_view pattern, int error, std::size_t offset) {
    std::array<char, 256> message{};
    pcre2_get_error_message(error, reinterpret_cast<PCRE2_UCHAR*>(message.data()), message.size());
    std::fprintf(stderr, "quillon: the pattern %.*s does not compile: %s at %zu\n",
                 static_cast<int>(pattern.size()), pattern.data(), message.data(), offset);
    std::abort();
}

PCRE2_SPTR bytes(std::string_view text) {
    return reinterpret_cast<PCRE2_SPTR>(text.data());
}

bool continuesScalar(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

/// One piece of a replacement template: text, or the number of a group.
struct TemplatePiece {
    std::string text;
    std::optional<std::size_t> group;
};

std::vector<TemplatePiece> parsedTemplate(std::string_view replacement) {
    std::vector<TemplatePiece> pieces(1);
    for (std::size_t i = 0; i < replacement.size(); ++i) {
        const bool isFollowed = i + 1 < replacement.size();
        const char following = isFollowed ? replacement[i + 1] : '\0';
        if (replacement[i] == '$' && following >= '0' && following <= '9') {
            pieces.push_back({{}, static_cast<std::size_t>(following - '0')});
            pieces.emplace_back();
            ++i;
            continue;
        }
        if (replacement[i] == '\\' && isFollowed)
            ++i;
        pieces.back().text += replacement[i];
    }
    return pieces;
}

} // namespace

struct Regex::Program {
    Owned<pcre2_code> code;
};

Regex::Regex(std::string_view pattern) {
    int error = 0;
    std::size_t offset = 0;
    const Owned<pcre2_compile_context> context{pcre2_compile_context_create(nullptr)};
    if (context)
        pcre2_set_newline(context.get(), PCRE2_NEWLINE_ANY);
    Owned<pcre2_code> code{
        pcre2_compile(bytes(pattern), pattern.size(), PCRE2_UTF | PCRE2_UCP, &error, &offset, context.get())};
    if (!code)
        stopOnBadPattern(pattern, error, offset);
    // Where there is no just-in-time compiler, the interpreter matches the same, only slower.
    pcre2_jit_compile(code.get(), PCRE2_JIT_COMPLETE);
    program_ = std::make_shared<const Program>(Program{std::move(code)});
}

std::optional<RegexMatch> Regex::find(std::string_view text, std::size_t from) const {
    thread_local const Workspace workspace;
    if (from > text.size() || !workspace.isUsable())
        return std::nullopt;
    if (text.data() == nullptr)
        text = "";
    const int found = pcre2_match(program_->code.get(), bytes(text), text.size(), from, PCRE2_NO_UTF_CHECK,
                                  workspace.data.get(), workspace.context.get());
    if (found < 0) // no match, or one that takes too much
        return std::nullopt;
    RegexMatch match{text, {}};
    const PCRE2_SIZE* const offsets = pcre2_get_ovector_pointer(workspace.data.get());
    // 0 says that there are more groups than places for them.
    const std::size_t count = found == 0 ? RegexMatch::groupLimit : static_cast<std::size_t>(found);
    for (std::size_t i = 0; i < count; ++i)
        match.groups[i] = {offsets[2 * i], offsets[2 * i + 1]};
    return match;
}

std::optional<RegexMatch> Regex::findNext(const RegexMatch& previous) const {
    std::size_t from = previous.end();
    if (previous.begin() == previous.end()) {
        ++from;
        while (from < previous.text.size() && continuesScalar(previous.text[from]))
            ++from;
    }
    return find(previous.text, from);
}

bool Regex::contains(std::string_view text) const {
    return find(text).has_value();
}

std::string Regex::replaceAll(std::string_view text, const Replacer& replace) const {
    std::string out;
    std::size_t copied = 0;
    for (auto match = find(text); match; match = findNext(*match)) {
        out += text.substr(copied, match->begin() - copied);
        replace(*match, out);
        copied = match->end();
    }
    out += text.substr(copied);
    return out;
}

std::string Regex::replaceAllWithTemplate(std::string_view text, std::string_view replacement) const {
    const std::vector<TemplatePiece> pieces = parsedTemplate(replacement);
    return replaceAll(text, [&](const RegexMatch& match, std::string& out) {
        for (const TemplatePiece& piece : pieces) {
            if (piece.group)
                out += match.group(*piece.group);
            else
                out += piece.text;
        }
    });
}

std::string Regex::replaceAllLiterally(std::string_view text, std::string_view replacement) const {
    return replaceAll(text, [&](const RegexMatch&, std::string& out) { out += replacement; });
}

} // namespace quillon
