#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace quillon {

/// Writes JSON in the form in which articles are saved: one member or element a line, two blanks of indent a
/// level, a blank on each side of the colon, slashes bare, no line feed at the end. The caller gives members
/// in the order in which they shall stand.
class JsonWriter {
public:
    /// `expectedSize` is about how many bytes will be written, if that is known.
    explicit JsonWriter(size_t expectedSize = 0) { m_out.reserve(expectedSize); }

    void beginObject() { begin('{'); }
    void endObject() { end('}'); }
    void beginList() { begin('['); }
    void endList() { end(']'); }

    /// Starts a member; its value follows.
    void key(std::string_view key);
    /// Starts an element of a list; its value follows.
    void element() { nextLine(); }

    void text(std::string_view value);
    void whole(int64_t value);
    /// The shortest form that reads back as the same float. One that is not finite writes nothing valid and
    /// sets hasFailed().
    void number(double value);
    void boolean(bool value) { m_out += value ? "true" : "false"; }
    void null() { m_out += "null"; }

    bool hasFailed() const { return m_hasFailed; }
    /// How deep objects and lists stood in each other at most.
    size_t maximumDepth() const { return m_maximumDepth; }
    std::string take() { return std::move(m_out); }

private:
    void begin(char bracket);
    void end(char bracket);
    void nextLine();

    std::string m_out;
    size_t m_level = 0;
    size_t m_maximumDepth = 0;
    bool m_isEmpty = true; ///< nothing stands yet in the innermost object or list
    bool m_hasFailed = false;
};

} // namespace quillon
