#pragma once

#include "base/Binding.h"

#include <QString>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

namespace quillon {

/// One of several things to choose from, as a segment, a tab or an entry of a menu.
struct Choice {
    QString title;            ///< its name where only the symbol is shown
    std::string symbol = {};  ///< empty for none
    QString heading = {};     ///< in a menu, above it, where a new section starts
    bool startsGroup = false; ///< in a menu, a line stands above it
};

/// The index of a choice where none is chosen.
constexpr int noChoice = -1;

/// Leads to the index, among `values`, of the value that stands behind `binding`: `noChoice` where it is not
/// one of them. An absent optional is a value like any other: `choiceAmong<std::optional<Kind>>(binding,
/// {std::nullopt, Kind::Low, Kind::High})` has the choice "Default" first.
template <typename Value>
Binding<int> choiceAmong(const Binding<Value>& binding, std::vector<Value> values) {
    return {[binding, values] {
                const auto found = std::ranges::find(values, binding.get());
                return found == values.end() ? noChoice : static_cast<int>(found - values.begin());
            },
            [binding, values](int index) {
                if (index >= 0 && index < static_cast<int>(values.size())) {
                    binding.set(values[static_cast<std::size_t>(index)]);
                }
            }};
}

} // namespace quillon
