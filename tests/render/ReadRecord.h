#pragma once

#include "model/ArticleDocument.h"

#include <gtest/gtest.h>

#include <string>

namespace quillon {

/// The record that `json` writes down; a failed expectation when it writes down none.
template <typename Record>
Record readRecord(std::string json) {
    Record record{};
    const auto text = JsonText::parse(std::move(json));
    if (!text) {
        ADD_FAILURE() << "no JSON: expected " << text.error().expected << ", found " << text.error().found;
        return record;
    }
    ReadFailure failure;
    if (!readValue(text->root(), record, failure)) {
        ADD_FAILURE() << failure.message();
    }
    return record;
}

} // namespace quillon
