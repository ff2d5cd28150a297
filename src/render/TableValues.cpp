#include "render/TableValues.h"

#include "render/Conditions.h"
#include "render/CssNumbers.h"
#include "render/EscapeHtml.h"
#include "render/TextStyleCss.h"
#include "render/UsableUrl.h"

namespace quillon::HTMLRenderer {

namespace {

void appendFormattedText(std::string& out, const FormattedText& text, const PageContext& context) {
    std::string css;
    if (text.textStyle) {
        if (const auto style = resolveComponentTextStyleRef(text.textStyle, context)) {
            componentTextStyleCSS(css, &*style);
        }
    }
    if (!css.empty()) {
        out += R"(<span style=")";
        out += css;
        out += R"(">)";
    }
    if (text.text) {
        if (text.format && *text.format == "html") {
            out += *text.text;
        } else {
            escapeHTML(out, *text.text);
        }
    }
    if (!css.empty()) {
        out += "</span>";
    }
}

/// Appends a cell's value according to its kind.
struct ValueWriter {
    std::string& out;
    const DataDescriptor& descriptor;
    const PageContext& context;

    void operator()(std::nullptr_t) const {}
    void operator()(bool value) const { out += value ? "true" : "false"; }
    void operator()(double value) const { formatNumber(out, value); }
    void operator()(const Shared<FormattedText>& value) const { appendFormattedText(out, *value, context); }
    void operator()(const std::string& value) const {
        const bool isImage = descriptor.dataType && *descriptor.dataType == "image" && isUsableURL(value);
        if (!isImage) {
            return escapeHTML(out, value);
        }
        out += R"(<img src=")";
        escapeHTML(out, value);
        out += R"(" alt=")";
        escapeHTML(out, value);
        out += R"(" style="max-width: 100%; height: auto;">)";
    }
};

} // namespace

void appendLabel(std::string& out, const Optional<FormattedTextValue>& label, const PageContext& context) {
    if (!label) {
        return;
    }
    if (const auto* plain = std::get_if<std::string>(&label->form)) {
        escapeHTML(out, *plain);
    } else {
        appendFormattedText(out, std::get<FormattedText>(label->form), context);
    }
}

void appendCellValue(std::string& out, const DataRecord& record, const DataDescriptor& descriptor,
                     const PageContext& context) {
    if (!descriptor.key) {
        return;
    }
    if (const auto value = record.find(*descriptor.key); value != record.end()) {
        std::visit(ValueWriter{out, descriptor, context}, value->second.form);
    }
}

} // namespace quillon::HTMLRenderer
