#pragma once

#include <string>

namespace quillon::HTMLRenderer {

/// Appends a style attribute with its leading blank around the declarations that `writeCSS` appends to `out`;
/// nothing when it appends none.
template <typename WriteCSS>
void writeStyleAttribute(std::string& out, WriteCSS writeCSS) {
    const size_t start = out.size();
    out += " style=\"";
    const size_t empty = out.size();
    writeCSS();
    if (out.size() == empty) {
        out.resize(start);
    } else {
        out += '"';
    }
}

} // namespace quillon::HTMLRenderer
