#include "render/Tables.h"

#include "base/UnicodeText.h"
#include "render/ComponentStyleCss.h"
#include "render/Conditions.h"
#include "render/DarkClass.h"
#include "render/StyleAttribute.h"
#include "render/TableRules.h"
#include "render/TableValues.h"

#include <map>

namespace quillon::HTMLRenderer {

namespace {

using Descriptors = std::vector<DataDescriptor>;

template <typename Value>
const Value* pointerTo(const SharedOptional<Value>& value) {
    return value ? &*value : nullptr;
}

/// Writes the rows that share their styles: the header row, or the rows of the records. The CSS of a cell is
/// written out once for all cells of the same look.
class RowWriter {
public:
    RowWriter(const Descriptors& descriptors, const TableRowStyle* rows, const TableColumnStyle* columns,
              const TableCellStyle* cells, const PageContext& context)
        : m_descriptors(descriptors), m_rows(rows), m_cells(cells), m_context(context) {
        const ColumnLooks looks(columns);
        m_columns.reserve(descriptors.size());
        for (size_t column = 0; column < descriptors.size(); ++column) {
            const DataDescriptor& descriptor = descriptors[column];
            m_columns.push_back({looks.at(column, descriptor), m_cells.inColumn(column, descriptor)});
        }
    }

    /// Appends a row of `tag` elements; `appendContent` is given each column's descriptor.
    void append(std::string& out, size_t row, std::string_view tag, auto&& appendContent) {
        const RowLook look = m_rows.at(row);
        out += R"(<tr style=")";
        rowCSS(out, look);
        out += R"(">)";
        for (size_t column = 0; column < m_descriptors.size(); ++column) {
            CellLook cell = m_columns[column].cells.at(row);
            cell.completeWith(look, m_columns[column].look);
            out += '<';
            out += tag;
            out += R"( style=")";
            out += cssOf(cell);
            out += R"(">)";
            appendContent(m_descriptors[column]);
            out += "</";
            out += tag;
            out += '>';
        }
        out += "</tr>\n";
    }

private:
    struct Column {
        ColumnLook look;
        ColumnCells cells;
    };

    const std::string& cssOf(const CellLook& look) {
        const auto [entry, isNew] = m_css.try_emplace(look);
        if (isNew) {
            cellCSS(entry->second, look, m_context);
        }
        return entry->second;
    }

    const Descriptors& m_descriptors;
    RowLooks m_rows;
    CellLooks m_cells;
    const PageContext& m_context;
    std::vector<Column> m_columns;
    std::map<CellLook, std::string> m_css;
};

void appendHeaderRow(std::string& out, const Descriptors& descriptors, const TableStyle& style,
                     const PageContext& context) {
    RowWriter writer(descriptors, pointerTo(style.headerRows), pointerTo(style.headerColumns),
                     pointerTo(style.headerCells), context);
    writer.append(out, 0, "th",
                  [&](const DataDescriptor& descriptor) { appendLabel(out, descriptor.label, context); });
}

void appendRecordRows(std::string& out, const RecordStore& data, const TableStyle& style,
                      const PageContext& context) {
    RowWriter writer(data.descriptors, pointerTo(style.rows), pointerTo(style.columns),
                     pointerTo(style.cells), context);
    size_t row = 0;
    for (const DataRecord& record : data.records) {
        writer.append(out, row++, "td", [&](const DataDescriptor& descriptor) {
            appendCellValue(out, record, descriptor, context);
        });
    }
}

} // namespace

void renderDataTable(PageText& page, const Component& component, const PageContext& context) {
    std::string& out = page.out();
    if (!component.data || component.data->descriptors.empty()) {
        out += "<div class=\"image-placeholder\">Empty table</div>\n";
        return;
    }
    const SharedOptional<ComponentStyle> style = resolveComponentStyle(component.style, context);
    static const TableStyle plainStyle;
    const TableStyle& tableStyle = style && style->tableStyle ? *style->tableStyle : plainStyle;

    out += R"(<table class="data-table)";
    out += componentDarkClass(component, context);
    out += R"(" style="border-collapse: collapse; width: 100%;)";
    componentStyleCSS(out, pointerTo(style));
    out += "\">\n";
    if (component.showDescriptorLabels.value_or(false)) {
        appendHeaderRow(out, component.data->descriptors, tableStyle, context);
    }
    appendRecordRows(out, *component.data, tableStyle, context);
    out += "</table>\n";
}

void renderHTMLTable(PageText& page, const Component& component, const PageContext& context) {
    std::string& out = page.out();
    const std::string_view html = component.html ? trimmed(*component.html) : std::string_view();
    if (html.empty()) {
        out += "<div class=\"image-placeholder\">Empty HTML table</div>\n";
        return;
    }
    const SharedOptional<ComponentStyle> style = resolveComponentStyle(component.style, context);
    out += R"(<div class="html-table)";
    out += componentDarkClass(component, context);
    out += '"';
    writeStyleAttribute(out, [&] { componentStyleCSS(out, pointerTo(style)); });
    out += ">\n";
    out += html;
    out += "\n</div>\n";
}

} // namespace quillon::HTMLRenderer
