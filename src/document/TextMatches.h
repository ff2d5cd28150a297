#pragma once

#include "document/TextLines.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillon {

/// A text to be found whatever the letters' case: two scalars are the same when Unicode's simple case folding
/// makes them so.
class TextNeedle {
public:
    explicit TextNeedle(std::string_view needle);

    bool isEmpty() const { return m_scalars.empty(); }
    /// How many bytes of `text` match at `place`; 0 for none.
    std::size_t lengthAt(std::string_view text, std::size_t place) const;
    /// Where the matches begin, in order and without overlaps.
    std::vector<std::size_t> placesIn(std::string_view text) const;

private:
    /// A scalar in all its cases, as UTF-8.
    using Variants = std::vector<std::string>;
    /// Bytes that a match must have at an offset from its begin.
    struct Probe {
        std::size_t offset = 0;
        std::vector<unsigned char> bytes;
    };

    void findProbes();

    std::vector<Variants> m_scalars;
    Probe m_first;
    Probe m_last; ///< of the part whose length is the same in all cases
};

/// All places of a text where a needle stands.
class TextMatches {
public:
    TextMatches() = default;
    /// `text` outlives the matches.
    TextMatches(std::string_view text, std::string_view needle)
        : m_text(text), m_needle(needle), m_places(m_needle.placesIn(text)) {}

    std::size_t count() const { return m_places.size(); }
    TextRange at(std::size_t index) const {
        return {m_places[index], m_places[index] + m_needle.lengthAt(m_text, m_places[index])};
    }
    /// The first match that begins at or behind `place`; `count()` for none.
    std::size_t firstFrom(std::size_t place) const;

private:
    std::string_view m_text;
    TextNeedle m_needle{{}};
    std::vector<std::size_t> m_places;
};

} // namespace quillon
