#pragma once

#include "base/JsonText.h"

namespace quillon {

/// Walks `text` by the grammar of RFC 8259 to the first spot that breaks it (or goes beyond what
/// JsonText::parse takes). Nothing when there is no such spot. Slow beside the parser, so it runs only after
/// a failure.
std::optional<JsonFailure> findJsonFault(std::string_view text);

} // namespace quillon
