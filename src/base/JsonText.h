#pragma once

#include "base/Expected.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace quillon {

/// Where and why a text stops being JSON.
struct JsonFailure {
    size_t line = 1;      ///< counted from 1
    size_t column = 1;    ///< in characters of the line, counted from 1
    std::string expected; ///< "a value", "',' or '}'"
    std::string found;    ///< "the end of the text", "'x'"
};

enum class JsonKind { null, boolean, number, text, list, object };

/// "a list", "text": how messages name the kind of a value.
std::string_view describe(JsonKind kind);

/// One value of a parsed text. A view: it is good as long as its JsonText lives.
class JsonElement {
public:
    JsonElement() = default;

    JsonKind kind() const;
    bool isNull() const { return kind() == JsonKind::null; }
    /// The payload when the value is of that kind. A number is the nearest 64-bit float; whole is the number
    /// when it has no fraction and fits 64 bits (3, 3.0 and 3e0 alike).
    std::optional<bool> boolean() const;
    std::optional<double> number() const;
    std::optional<int64_t> whole() const;
    std::optional<std::string_view> text() const;

private:
    friend class JsonText;
    friend class JsonMembers;
    friend class JsonElements;

    struct alignas(8) Storage {
        std::array<std::byte, 16> bytes;
    };
    Storage m_storage; // unset until a walk or a text sets it: arrays of elements need no filling
};

/// Walks the members of an object in the order of the text: `for (JsonMembers walk(object); walk.next();)`.
/// Anything that is no object has none.
class JsonMembers {
public:
    explicit JsonMembers(JsonElement object);
    bool next();
    std::string_view key() const { return m_key; }
    JsonElement value() const { return m_value; }

private:
    JsonElement::Storage m_position{};
    JsonElement::Storage m_end{};
    bool m_started = false;
    std::string_view m_key;
    JsonElement m_value;
};

/// Walks the values of a list in order. Anything that is no list has none.
class JsonElements {
public:
    explicit JsonElements(JsonElement list);
    bool next();
    /// How many there are, those already walked included; a lower bound beyond 16 million.
    size_t count() const { return m_count; }
    JsonElement value() const { return m_value; }

private:
    JsonElement::Storage m_position{};
    JsonElement::Storage m_end{};
    size_t m_count = 0;
    bool m_started = false;
    JsonElement m_value;
};

/// A JSON text (RFC 8259), read whole and checked to its last byte.
class JsonText {
public:
    /// How deep lists and objects that hold something may stand in each other.
    static constexpr size_t maximumDepth = 512;
    /// A copy of `text` with the room behind it that parsing needs; a string without is copied once more.
    static std::string roomyCopy(std::string_view text);

    /// Reads UTF-8 `text`, with or without a byte order mark. Whole numbers beyond 64 bits read as the
    /// nearest 64-bit float; numbers beyond its range, bad UTF-8, lone surrogates and deeper nesting are
    /// failures.
    static Expected<JsonText, JsonFailure> parse(std::string text);

    JsonText(JsonText&&) noexcept;
    JsonText& operator=(JsonText&&) noexcept;
    ~JsonText();

    JsonElement root() const;

private:
    struct Document;
    explicit JsonText(std::unique_ptr<Document> document);

    std::unique_ptr<Document> m_document;
};

} // namespace quillon
