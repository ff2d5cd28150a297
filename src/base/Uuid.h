#pragma once

#include <compare>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace quillon {

/// A universally unique identifier: 16 bytes as two words, the first written byte in the top bits of `high`.
/// The order is that of the written text. A default Uuid is all zeros.
struct Uuid {
    std::uint64_t high = 0;
    std::uint64_t low = 0;

    /// A fresh random identifier (version 4). Safe to call from any thread and on both sides of a fork.
    static Uuid random();

    /// The written form: 36 characters, upper-case hexadecimal digits with hyphens.
    std::string text() const;

    auto operator<=>(const Uuid&) const = default;
};

/// The identifier written in `text`: 8-4-4-4-12 hexadecimal digits of either case; nothing for any other
/// text.
std::optional<Uuid> parseUuid(std::string_view text);

} // namespace quillon

template <>
struct std::hash<quillon::Uuid> {
    std::size_t operator()(const quillon::Uuid& uuid) const noexcept {
        // An odd multiplier spreads identifiers that are not random, such as counted ones in tests.
        return static_cast<std::size_t>((uuid.high * 0x9E3779B97F4A7C15ULL) ^ uuid.low);
    }
};
