#include "base/JsonText.h"

#include "base/JsonFault.h"

#include <simdjson.h>

#include <bit>
#include <charconv>
#include <cmath>

namespace quillon {

namespace dom = simdjson::dom;

struct JsonText::Document {
    dom::document document;
};

namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

dom::element elementIn(const auto& storage) {
    return std::bit_cast<dom::element>(storage);
}

bool isNumberCharacter(char c) {
    return (c >= '0' && c <= '9') || c == '-' || c == '+' || c == '.' || c == 'e' || c == 'E';
}

/// The parser takes whole numbers of 64 bits only and gives a minus zero without its sign. Both are written
/// here as floats (an exponent or a fraction of zero), which it reads exactly. Nothing when no number of
/// `text` is such.
std::optional<std::string> withFloatsForOddIntegers(std::string_view text) {
    std::string rewritten;
    size_t copied = 0;
    for (size_t at = 0; at < text.size();) {
        const char c = text[at];
        if (c == '"') {
            for (++at; at < text.size() && text[at] != '"'; ++at) {
                at += text[at] == '\\' ? 1 : 0;
            }
            ++at;
        } else if (c == '-' || (c >= '0' && c <= '9')) {
            const size_t start = at;
            while (at < text.size() && isNumberCharacter(text[at])) {
                ++at;
            }
            const std::string_view number = text.substr(start, at - start);
            int64_t whole = 0;
            const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), whole);
            const bool isTooLarge =
                error == std::errc::result_out_of_range && end == number.data() + number.size();
            if (number == "-0" || isTooLarge) {
                rewritten.append(text, copied, at - copied);
                rewritten += number == "-0" ? ".0" : "e0";
                copied = at;
            }
        } else {
            ++at;
        }
    }
    if (copied == 0) {
        return std::nullopt;
    }
    rewritten.append(text, copied);
    return rewritten;
}

/// Whether a minus zero may stand in `text`: a quick look that may be wrong in favour.
bool mayHoldMinusZero(std::string_view text) {
    for (size_t at = text.find("-0"); at != std::string_view::npos; at = text.find("-0", at + 2)) {
        const char after = at + 2 < text.size() ? text[at + 2] : '\n';
        if (after == ',' || after == '}' || after == ']' || after == ' ' || after == '\n' || after == '\r' ||
            after == '\t') {
            return true;
        }
    }
    return false;
}

simdjson::error_code parseInto(dom::document& document, std::string& text) {
    const size_t start = std::string_view(text).starts_with(byteOrderMark) ? byteOrderMark.size() : 0;
    const size_t size = text.size() - start;
    if (text.capacity() < text.size() + simdjson::SIMDJSON_PADDING) {
        text = JsonText::roomyCopy(text);
    }
    dom::parser parser;
    // The parser counts a level when it enters it, the limit included.
    if (const auto error = parser.allocate(size, JsonText::maximumDepth + 1)) {
        return error;
    }
    // The parser's own scratch memory and the text end here: the document holds all it needs.
    return parser.parse_into_document(document, text.data() + start, size, false).error();
}

} // namespace

std::string_view describe(JsonKind kind) {
    switch (kind) {
    case JsonKind::null:
        return "null";
    case JsonKind::boolean:
        return "true or false";
    case JsonKind::number:
        return "a number";
    case JsonKind::text:
        return "text";
    case JsonKind::list:
        return "a list";
    case JsonKind::object:
        return "an object";
    }
    return "";
}

JsonKind JsonElement::kind() const {
    switch (elementIn(m_storage).type()) {
    case dom::element_type::ARRAY:
        return JsonKind::list;
    case dom::element_type::OBJECT:
        return JsonKind::object;
    case dom::element_type::STRING:
        return JsonKind::text;
    case dom::element_type::BOOL:
        return JsonKind::boolean;
    case dom::element_type::NULL_VALUE:
        return JsonKind::null;
    default:
        return JsonKind::number;
    }
}

std::optional<bool> JsonElement::boolean() const {
    bool value = false;
    return elementIn(m_storage).get(value) ? std::nullopt : std::optional(value);
}

std::optional<double> JsonElement::number() const {
    double value = 0;
    return elementIn(m_storage).get(value) ? std::nullopt : std::optional(value);
}

std::optional<int64_t> JsonElement::whole() const {
    int64_t value = 0;
    if (!elementIn(m_storage).get(value)) {
        return value;
    }
    const std::optional<double> number = elementIn(m_storage).is<uint64_t>() ? std::nullopt : this->number();
    // 2^63 is the first float beyond the range.
    if (number && std::trunc(*number) == *number && *number >= -0x1p63 && *number < 0x1p63) {
        return static_cast<int64_t>(*number);
    }
    return std::nullopt;
}

std::optional<std::string_view> JsonElement::text() const {
    std::string_view value;
    return elementIn(m_storage).get(value) ? std::nullopt : std::optional(value);
}

JsonMembers::JsonMembers(JsonElement object) {
    dom::object members;
    if (!elementIn(object.m_storage).get(members)) {
        m_position = std::bit_cast<JsonElement::Storage>(members.begin());
        m_end = std::bit_cast<JsonElement::Storage>(members.end());
    } else {
        m_started = true; // position and end are equal: there is nothing to walk
    }
}

bool JsonMembers::next() {
    if (m_position.bytes == m_end.bytes) {
        return false;
    }
    auto position = std::bit_cast<dom::object::iterator>(m_position);
    if (m_started) {
        ++position;
        m_position = std::bit_cast<JsonElement::Storage>(position);
    }
    m_started = true;
    if (position == std::bit_cast<dom::object::iterator>(m_end)) {
        m_position = m_end;
        return false;
    }
    m_key = position.key();
    m_value.m_storage = std::bit_cast<JsonElement::Storage>(position.value());
    return true;
}

JsonElements::JsonElements(JsonElement list) {
    dom::array values;
    if (!elementIn(list.m_storage).get(values)) {
        m_position = std::bit_cast<JsonElement::Storage>(values.begin());
        m_end = std::bit_cast<JsonElement::Storage>(values.end());
        m_count = values.size();
    } else {
        m_started = true; // position and end are equal: there is nothing to walk
    }
}

bool JsonElements::next() {
    if (m_position.bytes == m_end.bytes) {
        return false;
    }
    auto position = std::bit_cast<dom::array::iterator>(m_position);
    if (m_started) {
        ++position;
        m_position = std::bit_cast<JsonElement::Storage>(position);
    }
    m_started = true;
    if (position == std::bit_cast<dom::array::iterator>(m_end)) {
        m_position = m_end;
        return false;
    }
    m_value.m_storage = std::bit_cast<JsonElement::Storage>(*position);
    return true;
}

JsonText::JsonText(std::unique_ptr<Document> document) : m_document(std::move(document)) {}
JsonText::JsonText(JsonText&&) noexcept = default;
JsonText& JsonText::operator=(JsonText&&) noexcept = default;
JsonText::~JsonText() = default;

Expected<JsonText, JsonFailure> JsonText::parse(std::string text) {
    auto document = std::make_unique<Document>();
    const bool needsCare = mayHoldMinusZero(text);
    auto error = needsCare ? simdjson::NUMBER_ERROR : parseInto(document->document, text);
    if (error == simdjson::NUMBER_ERROR) {
        auto rewritten = withFloatsForOddIntegers(text);
        if (rewritten || needsCare) {
            error = parseInto(document->document, rewritten ? *rewritten : text);
        }
    }
    if (error) {
        return unexpected(
            findJsonFault(text).value_or(JsonFailure{1, 1, "JSON", simdjson::error_message(error)}));
    }
    return JsonText(std::move(document));
}

std::string JsonText::roomyCopy(std::string_view text) {
    std::string copy;
    copy.reserve(text.size() + simdjson::SIMDJSON_PADDING); // of an empty string, so exactly so much
    copy += text;
    return copy;
}

JsonElement JsonText::root() const {
    JsonElement element;
    element.m_storage = std::bit_cast<JsonElement::Storage>(m_document->document.root());
    return element;
}

} // namespace quillon
