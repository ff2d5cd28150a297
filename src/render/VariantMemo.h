#pragma once

#include "base/Shared.h"
#include "model/ComponentStyle.h"
#include "model/Layout.h"
#include "model/TextStyles.h"

#include <tuple>
#include <unordered_map>

namespace quillon::HTMLRenderer {

/// What has been worked out for records, found again by their blocks.
template <typename Record>
class RecordMemo {
public:
    /// What `workOut` gives for `record`, which holds a value; worked out at the first call only.
    template <typename WorkOut>
    const SharedOptional<Record>& result(const SharedOptional<Record>& record, WorkOut workOut) {
        const auto [entry, isNew] = m_entries.try_emplace(&*record);
        if (isNew) {
            entry->second = {record, workOut()};
        }
        return entry->second.result;
    }

private:
    struct Entry {
        SharedOptional<Record> record; ///< keeps the block, so that no other gets its address
        SharedOptional<Record> result;
    };
    std::unordered_map<const Record*, Entry> m_entries;
};

/// The records of one page with their variants laid over them, for its one environment: a style with many
/// variants may be that of every component.
class VariantMemo {
public:
    template <typename Record>
    RecordMemo<Record>& matching() {
        return std::get<RecordMemo<Record>>(m_matching);
    }
    /// Of each record what its variants for dark mode set.
    template <typename Record>
    RecordMemo<Record>& dark() {
        return std::get<RecordMemo<Record>>(m_dark);
    }

private:
    std::tuple<RecordMemo<ComponentLayout>, RecordMemo<ComponentStyle>, RecordMemo<TextStyle>,
               RecordMemo<ComponentTextStyle>>
        m_matching;
    std::tuple<RecordMemo<ComponentStyle>, RecordMemo<ComponentTextStyle>> m_dark;
};

} // namespace quillon::HTMLRenderer
