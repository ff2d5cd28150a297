#include "MarkdownBaseline.h"

#include <md4c-html.h>

namespace quillon::bench {

void appendBaselineHtml(std::string& out, const std::string& markdown) {
    const auto append = [](const MD_CHAR* text, MD_SIZE size, void* to) {
        static_cast<std::string*>(to)->append(text, size);
    };
    md_html(markdown.data(), static_cast<MD_SIZE>(markdown.size()), append, &out, 0, 0);
}

} // namespace quillon::bench
