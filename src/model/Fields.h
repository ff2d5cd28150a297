#pragma once

#include "model/Codec.h"

/// How a record family writes down its tables: `required<&Layout::columns>("columns")` and its like make one
/// row each, `embedded<&ConditionalTextStyle::style>(rows)` brings in the rows of a record that stands flat
/// in another one.
namespace quillon {

template <typename Pointer>
struct MemberOf;
template <typename Owner, typename Value>
struct MemberOf<Value Owner::*> {
    using Record = Owner;
    using Type = Value;
};

template <typename Value>
std::string_view expectedText(const Value&) {
    if constexpr (std::is_same_v<Value, std::string>) {
        return describe(JsonKind::text);
    } else if constexpr (std::is_same_v<Value, int64_t>) {
        return "a whole number";
    } else if constexpr (
        requires(Value value) { value.begin(); } && !requires { typename Value::mapped_type; }) {
        return describe(JsonKind::list);
    } else {
        return IsRecord<Value> ? describe(JsonKind::object) : describe(JsonKind::text);
    }
}

template <auto member, FieldKind kind>
FieldRow field(std::string_view key) {
    using Record = typename MemberOf<decltype(member)>::Record;
    using Type = typename MemberOf<decltype(member)>::Type;
    FieldRow row{.key = key, .kind = kind};
    row.read = [](JsonElement element, void* record, ReadFailure& failure) {
        return readValue(element, static_cast<Record*>(record)->*member, failure);
    };
    row.write = [](JsonWriter& writer, const void* record) {
        writeValue(writer, static_cast<const Record*>(record)->*member);
    };
    row.assign = [](void* record, const void* from) {
        static_cast<Record*>(record)->*member = static_cast<const Record*>(from)->*member;
    };
    if constexpr (kind == FieldKind::required) {
        row.expected = expectedText(Type{});
        row.isPresent = [](const void*) {
            return true;
        };
    } else {
        row.isPresent = [](const void* record) {
            return (static_cast<const Record*>(record)->*member).has_value();
        };
    }
    return row;
}

template <auto member>
FieldRow required(std::string_view key) {
    return field<member, FieldKind::required>(key);
}
template <auto member>
FieldRow optional(std::string_view key) {
    return field<member, FieldKind::optional>(key);
}
template <auto member>
FieldRow tolerant(std::string_view key) {
    return field<member, FieldKind::tolerant>(key);
}

/// The rows of the record at `member`, whose keys stand in the outer object itself, followed by `rest`.
template <auto member>
std::vector<FieldRow> embedded(std::vector<FieldRow> rest) {
    using Record = typename MemberOf<decltype(member)>::Record;
    using Type = typename MemberOf<decltype(member)>::Type;
    const Record sample{};
    const auto* start = reinterpret_cast<const std::byte*>(&sample);
    const auto offset = static_cast<size_t>(reinterpret_cast<const std::byte*>(&(sample.*member)) - start);
    std::vector<FieldRow> rows;
    for (FieldRow row : RecordTable<Type>::info().rows()) {
        row.offset += offset;
        rows.push_back(row);
    }
    rows.insert(rows.end(), rest.begin(), rest.end());
    return rows;
}

} // namespace quillon
