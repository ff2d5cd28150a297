#pragma once

#include "render/TableLooks.h"

#include <array>
#include <map>
#include <string_view>
#include <vector>

/// The selectors of a table's styles, sorted by what they ask for, so that a row, column or cell meets those
/// alone that may concern it, however many there are. Rows and columns count from 0.
namespace quillon::HTMLRenderer {

/// One `Rule` for every odd place, one for every even one and one for each place that is asked for by its
/// number. A place is a row or a column.
template <typename Rule>
class PlaceRules {
public:
    /// Calls `change` with the rules of the places that a selector with these fields asks for: none when the
    /// fields contradict one another. A flag that is off asks for nothing.
    template <typename Change>
    void select(std::optional<bool> odd, std::optional<bool> even, std::optional<int64_t> index,
                Change change) {
        const bool isOddAsked = odd.value_or(false);
        const bool isEvenAsked = even.value_or(false);
        if (index) {
            const bool isOdd = *index % 2 == 0; // the first place is odd
            if (*index >= 0 && !(isOdd ? isEvenAsked : isOddAsked)) {
                change(m_byIndex[static_cast<size_t>(*index)]);
            }
            return;
        }
        if (!isEvenAsked) {
            change(m_byParity[0]);
        }
        if (!isOddAsked) {
            change(m_byParity[1]);
        }
    }

    /// Calls `use` with the rules of one place.
    template <typename Use>
    void visit(size_t place, Use use) const {
        use(m_byParity[place % 2]);
        if (m_byIndex.empty()) {
            return;
        }
        if (const auto found = m_byIndex.find(place); found != m_byIndex.end()) {
            use(found->second);
        }
    }

private:
    std::array<Rule, 2> m_byParity; ///< of the odd places, which begin with the first, and of the even ones
    std::map<size_t, Rule> m_byIndex;
};

/// The rules of columns, which may also be asked for by the identifier of their descriptor.
template <typename Rule>
struct ColumnRules {
    PlaceRules<Rule> ofAll;
    std::map<std::string_view, PlaceRules<Rule>> byIdentifier;

    /// Those for the columns that a selector for `identifier` (or for any) may ask for.
    PlaceRules<Rule>& of(const Optional<std::string>& identifier) {
        return identifier ? byIdentifier[*identifier] : ofAll;
    }
    template <typename Use>
    void visit(size_t column, const DataDescriptor& descriptor, Use use) const {
        ofAll.visit(column, use);
        if (!byIdentifier.empty() && descriptor.identifier) {
            if (const auto found = byIdentifier.find(*descriptor.identifier); found != byIdentifier.end()) {
                found->second.visit(column, use);
            }
        }
    }
};

/// The looks of rows. `style` may be null here and below, and must outlive what is made of it.
class RowLooks {
public:
    explicit RowLooks(const TableRowStyle* style);
    RowLook at(size_t row) const;

private:
    PlaceRules<RowLook> m_rules;
};

class ColumnLooks {
public:
    explicit ColumnLooks(const TableColumnStyle* style);
    ColumnLook at(size_t column, const DataDescriptor& descriptor) const;

private:
    ColumnRules<ColumnLook> m_rules;
};

/// The looks of the cells of one column, without what they have from their row and column. It points into the
/// CellLooks that it comes from.
class ColumnCells {
public:
    CellLook at(size_t row) const;

private:
    friend class CellLooks;
    std::vector<const PlaceRules<CellLook>*> m_rules;
};

class CellLooks {
public:
    explicit CellLooks(const TableCellStyle* style);
    ColumnCells inColumn(size_t column, const DataDescriptor& descriptor) const;

private:
    ColumnRules<PlaceRules<CellLook>> m_rules;
};

} // namespace quillon::HTMLRenderer
