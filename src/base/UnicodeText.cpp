#include "base/UnicodeText.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <memory>

#include <unicode/brkiter.h>
#include <unicode/bytestream.h>
#include <unicode/casemap.h>
#include <unicode/stringoptions.h>
#include <unicode/uchar.h>
#include <unicode/utext.h>
#include <unicode/utf8.h>

namespace quillon {

namespace {

constexpr const char* noLanguage = ""; // ICU's name of the root locale

constexpr bool isAscii(char byte) {
    return static_cast<unsigned char>(byte) < 0x80;
}

/// The offset of the first byte at or behind `offset` that is not ASCII, or the size of the text.
std::size_t asciiEnd(std::string_view text, std::size_t offset) {
    constexpr std::uint64_t highBits = 0x8080808080808080ULL;
    for (; offset + sizeof(std::uint64_t) <= text.size(); offset += sizeof(std::uint64_t)) {
        std::uint64_t bytes;
        std::memcpy(&bytes, text.data() + offset, sizeof bytes);
        if (bytes & highBits)
            break;
    }
    while (offset < text.size() && isAscii(text[offset]))
        ++offset;
    return offset;
}

bool isAllAscii(std::string_view text) {
    return asciiEnd(text, 0) == text.size();
}

[[noreturn]] void stopWithoutUnicodeData(const char* what) {
    std::fprintf(stderr, "quillon: the Unicode library cannot %s\n", what);
    std::abort();
}

// ICU's macros narrow silently.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wconversion"

struct Scalar {
    UChar32 value;   ///< negative for bytes that are not UTF-8
    std::size_t end; ///< offset of the byte behind it
};

/// The scalar at `offset`, which must lie inside the text.
Scalar scalarAt(std::string_view text, std::size_t offset) {
    // The macros count in 32 bits; a scalar needs no more than four bytes of the text.
    const std::string_view bytes = text.substr(offset, U8_MAX_LENGTH);
    const auto size = static_cast<std::int32_t>(bytes.size());
    std::int32_t i = 0;
    UChar32 value;
    U8_NEXT(bytes.data(), i, size, value);
    return {value, offset + static_cast<std::size_t>(i)};
}

/// The scalar that ends at `end`, which must not be 0; its `end` is the offset of its first byte here.
Scalar scalarBefore(std::string_view text, std::size_t end) {
    const std::size_t begin = end - std::min<std::size_t>(end, U8_MAX_LENGTH);
    const std::string_view bytes = text.substr(begin, end - begin);
    auto i = static_cast<std::int32_t>(bytes.size());
    UChar32 value;
    U8_PREV(bytes.data(), 0, i, value);
    return {value, begin + static_cast<std::size_t>(i)};
}

#pragma GCC diagnostic pop

/// What a scalar may become one character with, besides the joiners that follow it.
enum class Joining { nothing, next, previous };

Joining joiningOf(UChar32 scalar) {
    if (scalar < 0)
        return Joining::nothing;
    switch (u_getIntPropertyValue(scalar, UCHAR_GRAPHEME_CLUSTER_BREAK)) {
    case U_GCB_OTHER:
    case U_GCB_LV:
    case U_GCB_LVT:
        return Joining::nothing;
    case U_GCB_CR:
    case U_GCB_LF:
    case U_GCB_CONTROL:
    case U_GCB_L:
    case U_GCB_PREPEND:
    case U_GCB_REGIONAL_INDICATOR:
        return Joining::next; // some of them nothing at all: the full rules decide
    default:
        return Joining::previous;
    }
}

/// The end of the character at `offset` by the full rules. The iterator is fed a window that doubles until
/// the character ends inside it, so that neither a long text nor a long character makes the walk more than
/// linear.
std::size_t nextCharacterByRules(std::string_view text, std::size_t offset) {
    struct Iterator {
        std::unique_ptr<icu::BreakIterator> breaks;
        UText window = UTEXT_INITIALIZER;

        Iterator() {
            UErrorCode status = U_ZERO_ERROR;
            breaks.reset(icu::BreakIterator::createCharacterInstance(icu::Locale::getRoot(), status));
            if (U_FAILURE(status))
                stopWithoutUnicodeData("find characters");
        }

        ~Iterator() { utext_close(&window); }
    };
    thread_local Iterator iterator;

    constexpr std::size_t firstWindow = 48;
    constexpr std::size_t largestWindow = std::numeric_limits<std::int32_t>::max() / 2;
    for (std::size_t size = firstWindow;; size *= 2) {
        const std::string_view window = text.substr(offset, std::min(size, largestWindow));
        const bool reachesEnd = offset + window.size() == text.size();
        UErrorCode status = U_ZERO_ERROR;
        utext_openUTF8(&iterator.window, window.data(), static_cast<std::int64_t>(window.size()), &status);
        iterator.breaks->setText(&iterator.window, status);
        if (U_FAILURE(status))
            return scalarAt(text, offset).end;
        const std::int32_t end = iterator.breaks->next();
        // The last scalar of a window may be cut in two, and what follows it is not seen.
        const bool isCertain = end > 0 && static_cast<std::size_t>(end) + U8_MAX_LENGTH <= window.size();
        if (isCertain || reachesEnd || size >= largestWindow)
            return offset + (end > 0 ? static_cast<std::size_t>(end) : window.size());
    }
}

constexpr bool isBlank(char32_t scalar) {
    return scalar == ' ' || scalar == '\t' || scalar == 0xA0 || scalar == 0x1680 ||
           (scalar >= 0x2000 && scalar <= 0x200A) || scalar == 0x202F || scalar == 0x205F || scalar == 0x3000;
}

constexpr bool isLineEnd(char32_t scalar) {
    return (scalar >= '\n' && scalar <= '\r') || scalar == 0x85 || scalar == 0x2028 || scalar == 0x2029;
}

template <typename Predicate>
std::string_view trimmedOf(std::string_view text, Predicate isTrimmed) {
    std::size_t begin = 0;
    while (begin < text.size()) {
        const Scalar scalar = scalarAt(text, begin);
        if (scalar.value < 0 || !isTrimmed(static_cast<char32_t>(scalar.value)))
            break;
        begin = scalar.end;
    }
    text.remove_prefix(begin);
    while (!text.empty()) {
        const Scalar scalar = scalarBefore(text, text.size());
        if (scalar.value < 0 || !isTrimmed(static_cast<char32_t>(scalar.value)))
            break;
        text = text.substr(0, scalar.end);
    }
    return text;
}

constexpr bool isAsciiUpper(char c) {
    return c >= 'A' && c <= 'Z';
}

constexpr bool isAsciiLower(char c) {
    return c >= 'a' && c <= 'z';
}

std::string lowercasedAscii(std::string_view text) {
    std::string lower(text);
    for (char& c : lower)
        if (isAsciiUpper(c))
            c = static_cast<char>(c + ('a' - 'A'));
    return lower;
}

/// The texts whose words need no rules: those of ASCII letters, blanks, "-" and "_".
bool hasPlainWords(std::string_view text) {
    return std::ranges::all_of(
        text, [](char c) { return isAsciiUpper(c) || isAsciiLower(c) || c == ' ' || c == '-' || c == '_'; });
}

} // namespace

std::size_t nextCharacter(std::string_view text, std::size_t offset) {
    if (offset >= text.size())
        return text.size();
    const bool isLast = offset + 1 == text.size();
    if (isAscii(text[offset]) && (isLast || isAscii(text[offset + 1]))) {
        const bool isLineEndPair = !isLast && text[offset] == '\r' && text[offset + 1] == '\n';
        return offset + (isLineEndPair ? 2 : 1);
    }
    const Scalar first = scalarAt(text, offset);
    if (first.end >= text.size())
        return text.size();
    // A boundary between two scalars that join nothing needs no look at their surroundings.
    if (joiningOf(first.value) == Joining::nothing &&
        joiningOf(scalarAt(text, first.end).value) != Joining::previous)
        return first.end;
    return nextCharacterByRules(text, offset);
}

std::size_t characterCount(std::string_view text) {
    std::size_t count = 0;
    std::size_t offset = 0;
    while (offset < text.size()) {
        const std::size_t end = asciiEnd(text, offset);
        // The last ASCII character may carry what follows it, unless nothing does.
        const std::size_t certainEnd = end == text.size() ? end : std::max(end, offset + 1) - 1;
        if (certainEnd > offset) {
            const std::string_view run = text.substr(offset, certainEnd - offset);
            count += run.size();
            for (std::size_t i = run.find('\r'); i != std::string_view::npos; i = run.find('\r', i + 1))
                count -= run.substr(i + 1).starts_with('\n') ? 1 : 0;
            offset = certainEnd;
            if (offset == text.size())
                break;
            // CR LF in front of a scalar that is not ASCII: the run ended between the two.
            if (run.ends_with('\r') && text[offset] == '\n') {
                ++offset;
                continue;
            }
        }
        offset = nextCharacter(text, offset);
        ++count;
    }
    return count;
}

bool isWhiteSpace(char32_t scalar) {
    return isBlank(scalar) || isLineEnd(scalar);
}

std::string_view trimmed(std::string_view text) {
    return trimmedOf(text, isWhiteSpace);
}

std::string_view trimmedBlanks(std::string_view text) {
    return trimmedOf(text, isBlank);
}

std::string_view trimmedSpacesAndTabs(std::string_view text) {
    const std::size_t begin = text.find_first_not_of(" \t");
    if (begin == std::string_view::npos)
        return text.substr(text.size());
    return text.substr(begin, text.find_last_not_of(" \t") + 1 - begin);
}

std::string lowercased(std::string_view text) {
    if (isAllAscii(text))
        return lowercasedAscii(text);
    std::string lower;
    lower.reserve(text.size());
    icu::StringByteSink<std::string> sink(&lower);
    UErrorCode status = U_ZERO_ERROR;
    icu::CaseMap::utf8ToLower(noLanguage, 0,
                              icu::StringPiece(text.data(), static_cast<std::int32_t>(text.size())), sink,
                              nullptr, status);
    return U_SUCCESS(status) ? lower : lowercasedAscii(text);
}

std::string capitalizedWords(std::string_view text) {
    if (hasPlainWords(text)) {
        std::string words = lowercasedAscii(text);
        bool isAwaitingLetter = true;
        for (char& c : words) {
            if (isAwaitingLetter && isAsciiLower(c)) {
                c = static_cast<char>(c - ('a' - 'A'));
                isAwaitingLetter = false;
            } else if (c == ' ' || c == '-') {
                isAwaitingLetter = true;
            }
        }
        return words;
    }
    std::string words;
    words.reserve(text.size());
    icu::StringByteSink<std::string> sink(&words);
    UErrorCode status = U_ZERO_ERROR;
    icu::CaseMap::utf8ToTitle(noLanguage, 0, nullptr,
                              icu::StringPiece(text.data(), static_cast<std::int32_t>(text.size())), sink,
                              nullptr, status);
    return U_SUCCESS(status) ? words : std::string(text);
}

bool isValidUtf8(std::string_view text) {
    std::size_t offset = 0;
    while ((offset = asciiEnd(text, offset)) < text.size()) {
        const Scalar scalar = scalarAt(text, offset);
        if (scalar.value < 0)
            return false;
        offset = scalar.end;
    }
    return true;
}

} // namespace quillon
