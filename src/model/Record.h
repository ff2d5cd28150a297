#pragma once

#include "base/JsonText.h"
#include "base/JsonWriter.h"
#include "model/JSONValue.h"
#include "model/ReadFailure.h"

#include <array>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace quillon {

/// What a field asks of its key. A required key must be there; an optional one may be absent or null; a
/// tolerant one may also hold anything of a wrong type, which reads as absent.
enum class FieldKind : uint8_t { required, optional, tolerant };

/// One row of a record's table. The functions take the record as the table's own type, without its name.
struct FieldRow {
    std::string_view key;
    FieldKind kind = FieldKind::optional;
    std::string_view expected; ///< "a whole number": what a message says of a missing required key
    bool (*read)(JsonElement, void* record, ReadFailure&) = nullptr;
    bool (*isPresent)(const void* record) = nullptr;
    void (*write)(JsonWriter&, const void* record) = nullptr;
    void (*assign)(void* record, const void* from) = nullptr;
    size_t offset = 0; ///< from the record to the embedded record that the row belongs to
};

/// The table of a record: its rows in the order of its fields, and where it keeps the keys outside them, if
/// it does.
class RecordInfo {
public:
    using Preserved = PreservedFields& (*)(void* record);

    explicit RecordInfo(std::vector<FieldRow> rows, Preserved preserved = nullptr);

    std::span<const FieldRow> rows() const { return m_rows; }
    /// The row of `key`, compared exactly; -1 for an unknown key.
    int rowOf(std::string_view key) const;
    bool isKnownKey(std::string_view key) const { return rowOf(key) >= 0; }

    /// Reads every field in the order of the rows up to the first failure, then the unknown keys where the
    /// record preserves them.
    bool read(JsonElement object, void* record, ReadFailure& failure) const;
    /// Writes the present fields and the preserved ones as one object, its keys in the order of their code
    /// points.
    void write(JsonWriter& writer, const void* record) const;
    /// Lays the present fields of `from` over those of `record`.
    void merge(void* record, const void* from) const;

private:
    static constexpr size_t slotCount = 256;
    static constexpr size_t mostRows = 64;
    static size_t slotOf(std::string_view key);

    std::vector<FieldRow> m_rows;
    std::vector<uint8_t> m_sorted;           ///< the rows in the order of their keys
    std::array<int8_t, slotCount> m_slots{}; ///< hash of a key to a row, -1 where there is none
    uint64_t m_required = 0;                 ///< a bit for each required row
    Preserved m_preserved = nullptr;
};

/// Where a record's table is found: the header of each record declares `template <> struct
/// RecordTable<Record>` with a `static const RecordInfo& info()`, and that marks the type as a record.
template <typename Record>
struct RecordTable;

template <typename Type>
concept IsRecord = requires {
    RecordTable<Type>::info();
};

/// Lays the present fields of `overlay` over those of `record`, field by field.
template <IsRecord Record>
void mergeFields(Record& record, const Record& overlay) {
    RecordTable<Record>::info().merge(&record, &overlay);
}

} // namespace quillon
