#pragma once

#include "model/DataTable.h"
#include "render/PageContext.h"

#include <string>

/// What stands inside the cells of a data table.
namespace quillon::HTMLRenderer {

/// Appends the label of a column; an absent one is empty.
void appendLabel(std::string& out, const Optional<FormattedTextValue>& label, const PageContext& context);

/// Appends the value of `record` in the column of `descriptor`; nothing when it has none.
void appendCellValue(std::string& out, const DataRecord& record, const DataDescriptor& descriptor,
                     const PageContext& context);

} // namespace quillon::HTMLRenderer
