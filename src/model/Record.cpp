#include "model/Record.h"

#include "model/Codec.h"

#include <algorithm>
#include <bit>
#include <cassert>
#include <numeric>

namespace quillon {

namespace {

void* embedded(void* record, const FieldRow& row) {
    return static_cast<std::byte*>(record) + row.offset;
}
const void* embedded(const void* record, const FieldRow& row) {
    return static_cast<const std::byte*>(record) + row.offset;
}

} // namespace

size_t RecordInfo::slotOf(std::string_view key) {
    size_t hash = key.size();
    for (const char c : key) {
        hash = hash * 31 + static_cast<unsigned char>(c);
    }
    return (hash ^ (hash >> 8)) % slotCount;
}

RecordInfo::RecordInfo(std::vector<FieldRow> rows, Preserved preserved)
    : m_rows(std::move(rows)), m_sorted(m_rows.size()), m_preserved(preserved) {
    std::iota(m_sorted.begin(), m_sorted.end(), uint8_t{0});
    std::sort(m_sorted.begin(), m_sorted.end(),
              [this](uint8_t left, uint8_t right) { return m_rows[left].key < m_rows[right].key; });
    assert(m_rows.size() <= mostRows);
    m_slots.fill(-1);
    for (size_t row = 0; row < m_rows.size(); ++row) {
        size_t slot = slotOf(m_rows[row].key);
        while (m_slots[slot] >= 0) {
            slot = (slot + 1) % slotCount;
        }
        m_slots[slot] = static_cast<int8_t>(row);
        if (m_rows[row].kind == FieldKind::required) {
            m_required |= uint64_t{1} << row;
        }
    }
}

int RecordInfo::rowOf(std::string_view key) const {
    for (size_t slot = slotOf(key); m_slots[slot] >= 0; slot = (slot + 1) % slotCount) {
        if (m_rows[static_cast<size_t>(m_slots[slot])].key == key) {
            return m_slots[slot];
        }
    }
    return -1;
}

bool RecordInfo::read(JsonElement object, void* record, ReadFailure& failure) const {
    if (object.kind() != JsonKind::object) {
        return expect("an object", object, failure);
    }
    std::array<JsonElement, mostRows> values; // set where `present` says so, and looked at nowhere else
    uint64_t present = 0;
    bool hasUnknownKeys = false;
    for (JsonMembers members(object); members.next();) {
        const int row = rowOf(members.key());
        if (row < 0) {
            hasUnknownKeys = true;
        } else {
            values[static_cast<size_t>(row)] = members.value();
            present |= uint64_t{1} << row;
        }
    }
    // Absent optional fields need no look: there are many of them.
    for (uint64_t due = present | m_required; due != 0; due &= due - 1) {
        const auto index = static_cast<size_t>(std::countr_zero(due));
        const FieldRow& row = m_rows[index];
        if ((present >> index & 1) == 0) {
            failure = {std::string(row.key), std::string(row.expected), "nothing"};
            return false;
        }
        if (values[index].isNull() && row.kind != FieldKind::required) {
            continue;
        }
        if (!row.read(values[index], embedded(record, row), failure)) {
            if (row.kind == FieldKind::tolerant) {
                failure = {};
                continue;
            }
            failure.prependKey(row.key);
            return false;
        }
    }
    if (m_preserved && hasUnknownKeys) {
        auto& preserved = m_preserved(record).edit();
        for (JsonMembers members(object); members.next();) {
            if (!isKnownKey(members.key())) {
                readValue(members.value(), preserved[std::string(members.key())], failure);
            }
        }
    }
    return true;
}

void RecordInfo::write(JsonWriter& writer, const void* record) const {
    static const std::map<std::string, JSONValue> none;
    // The accessor serves reading too; nothing is changed through it here.
    const auto& preserved = m_preserved ? *m_preserved(const_cast<void*>(record)) : none;
    auto extra = preserved.begin();
    const auto writeExtrasBefore = [&](const std::string_view* key) {
        for (; extra != preserved.end() && (!key || extra->first < *key); ++extra) {
            if (!isKnownKey(extra->first)) {
                writer.key(extra->first);
                writeValue(writer, extra->second);
            }
        }
    };
    writer.beginObject();
    for (const uint8_t index : m_sorted) {
        const FieldRow& row = m_rows[index];
        if (row.kind == FieldKind::required || row.isPresent(embedded(record, row))) {
            writeExtrasBefore(&row.key);
            writer.key(row.key);
            row.write(writer, embedded(record, row));
        }
    }
    writeExtrasBefore(nullptr);
    writer.endObject();
}

void RecordInfo::merge(void* record, const void* from) const {
    for (const FieldRow& row : m_rows) {
        if (row.isPresent(embedded(from, row))) {
            row.assign(embedded(record, row), embedded(from, row));
        }
    }
}

} // namespace quillon
