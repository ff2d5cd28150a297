#include "document/TextMatches.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

#include <unicode/uchar.h>
#include <unicode/uniset.h>
#include <unicode/unistr.h>

namespace quillon {

namespace {

std::string utf8(UChar32 scalar) {
    std::string bytes;
    icu::UnicodeString(scalar).toUTF8String(bytes);
    return bytes;
}

/// A scalar and all others that fold to the same.
std::vector<std::string> variantsOf(UChar32 scalar) {
    icu::UnicodeSet all(scalar, scalar);
    all.closeOver(USET_CASE_INSENSITIVE);
    std::vector<std::string> variants{utf8(scalar)};
    for (std::int32_t range = 0; range < all.getRangeCount(); ++range) {
        for (UChar32 other = all.getRangeStart(range); other <= all.getRangeEnd(range); ++other) {
            const bool isSame =
                u_foldCase(other, U_FOLD_CASE_DEFAULT) == u_foldCase(scalar, U_FOLD_CASE_DEFAULT);
            if (isSame && other != scalar) {
                variants.push_back(utf8(other));
            }
        }
    }
    return variants;
}

/// The bytes of a probe in a form that is compared without branches: repeated up to four; with more of them
/// the probe says nothing.
struct Sieve {
    std::array<unsigned char, 4> bytes{};
    bool isOpen = false;

    explicit Sieve(const std::vector<unsigned char>& wanted) : isOpen(wanted.size() > bytes.size()) {
        for (std::size_t index = 0; index < bytes.size() && !isOpen; ++index) {
            bytes[index] = wanted[index % wanted.size()];
        }
    }
    unsigned char passes(unsigned char byte) const {
        // Without branches, so that many bytes go at once.
        const auto is = [byte](unsigned char wanted) {
            return static_cast<unsigned>(byte == wanted);
        };
        return static_cast<unsigned char>(static_cast<unsigned>(isOpen) | is(bytes[0]) | is(bytes[1]) |
                                          is(bytes[2]) | is(bytes[3]));
    }
};

constexpr std::size_t block = 64;

/// Sets `hits` where both sieves let the bytes at `first` and `last` through; the compiler makes this a few
/// instructions on many bytes at once.
void sift(const Sieve& firstSieve, const char* first, const Sieve& lastSieve, const char* last,
          std::array<unsigned char, block>& hits) {
    const Sieve one = firstSieve;
    const Sieve other = lastSieve;
    for (std::size_t index = 0; index < block; ++index) {
        hits[index] = static_cast<unsigned char>(one.passes(static_cast<unsigned char>(first[index])) &
                                                 other.passes(static_cast<unsigned char>(last[index])));
    }
}

} // namespace

TextNeedle::TextNeedle(std::string_view needle) {
    const auto text = icu::UnicodeString::fromUTF8(
        icu::StringPiece(needle.data(), static_cast<std::int32_t>(needle.size())));
    for (std::int32_t index = 0; index < text.length(); index = text.moveIndex32(index, 1)) {
        m_scalars.push_back(variantsOf(text.char32At(index)));
    }
    if (!isEmpty()) {
        findProbes();
    }
}

void TextNeedle::findProbes() {
    const auto add = [](Probe& probe, char byte) {
        const auto value = static_cast<unsigned char>(byte);
        if (std::find(probe.bytes.begin(), probe.bytes.end(), value) == probe.bytes.end()) {
            probe.bytes.push_back(value);
        }
    };
    for (const std::string& variant : m_scalars.front()) {
        add(m_first, variant.front());
    }
    m_last = m_first;
    std::size_t offset = 0;
    for (const Variants& variants : m_scalars) {
        const std::size_t size = variants.front().size();
        if (std::any_of(variants.begin(), variants.end(),
                        [size](const std::string& variant) { return variant.size() != size; })) {
            return;
        }
        offset += size;
        m_last = {offset - 1, {}};
        for (const std::string& variant : variants) {
            add(m_last, variant.back());
        }
    }
}

std::size_t TextNeedle::lengthAt(std::string_view text, std::size_t place) const {
    std::size_t end = place;
    for (const Variants& variants : m_scalars) {
        const std::string_view rest = text.substr(end);
        const auto found = std::find_if(variants.begin(), variants.end(), [rest](const std::string& variant) {
            return rest.starts_with(variant);
        });
        if (found == variants.end()) {
            return 0;
        }
        end += found->size();
    }
    return end - place;
}

std::vector<std::size_t> TextNeedle::placesIn(std::string_view text) const {
    std::vector<std::size_t> places;
    if (isEmpty()) {
        return places;
    }
    std::size_t behind = 0; // the last match
    const auto look = [&](std::size_t place) {
        const std::size_t length = place >= behind ? lengthAt(text, place) : 0;
        if (length > 0) {
            places.push_back(place);
            behind = place + length;
        }
    };
    const Sieve first(m_first.bytes);
    const Sieve last(m_last.bytes);
    std::array<unsigned char, block> hits;
    std::size_t begin = 0;
    for (; begin + m_last.offset + block <= text.size(); begin += block) {
        sift(first, text.data() + begin, last, text.data() + begin + m_last.offset, hits);
        for (std::size_t word = 0; word < block; word += sizeof(std::uint64_t)) {
            std::uint64_t any = 0;
            std::memcpy(&any, hits.data() + word, sizeof any);
            for (std::size_t index = word; any != 0 && index < word + sizeof any; ++index) {
                if (hits[index] != 0) {
                    look(begin + index);
                }
            }
        }
    }
    for (; begin < text.size(); ++begin) {
        look(begin);
    }
    return places;
}

std::size_t TextMatches::firstFrom(std::size_t place) const {
    const auto found = std::lower_bound(m_places.begin(), m_places.end(), place);
    return static_cast<std::size_t>(found - m_places.begin());
}

} // namespace quillon
