#include "base/Base64.h"

#include <gtest/gtest.h>

namespace quillon {
namespace {

TEST(Base64, decodesWholeTextsAndNothingElse) {
    struct Case {
        std::string_view text;
        std::optional<std::string> bytes;
    };
    const Case cases[] = {
        {"", ""},
        {"Zg==", "f"},
        {"Zm8=", "fo"},
        {"Zm9v", "foo"},
        {"Zm9vYmFy", "foobar"},
        {"AP/+", std::string("\0\xFF\xFE", 3)},
        {"Zh==", "f"}, // left-over bits
        {"Zg", std::nullopt},
        {"Zg=", std::nullopt},
        {"Z===", std::nullopt},
        {"====", std::nullopt},
        {"Zg==Zg==", std::nullopt},
        {"Z=g=", std::nullopt},
        {"Zm9v\n", std::nullopt},
        {"Zm 9v===", std::nullopt},
        {"Zm-_", std::nullopt},
        {"Zm9\xC3", std::nullopt},
    };
    for (const Case& test : cases) {
        SCOPED_TRACE(test.text);
        EXPECT_EQ(base64Decoded(test.text), test.bytes);
    }
}

} // namespace
} // namespace quillon
