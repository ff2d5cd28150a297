#include "base/JsonWriter.h"

#include "base/JsonText.h"

#include <gtest/gtest.h>

#include <limits>

namespace quillon {
namespace {

TEST(JsonWriter, writesOneMemberOrElementALine) {
    JsonWriter writer;
    writer.beginObject();
    writer.key("empty list");
    writer.beginList();
    writer.endList();
    writer.key("empty object");
    writer.beginObject();
    writer.endObject();
    writer.key("list");
    writer.beginList();
    writer.element();
    writer.whole(-3);
    writer.element();
    writer.beginObject();
    writer.key("a");
    writer.boolean(true);
    writer.key("b");
    writer.null();
    writer.endObject();
    writer.element();
    writer.boolean(false);
    writer.endList();
    writer.key("number");
    writer.number(0.1);
    writer.endObject();
    EXPECT_FALSE(writer.hasFailed());
    EXPECT_EQ(writer.take(), R"({
  "empty list" : [],
  "empty object" : {},
  "list" : [
    -3,
    {
      "a" : true,
      "b" : null
    },
    false
  ],
  "number" : 0.1
})");
}

TEST(JsonWriter, textsAreEscapedNoMoreThanNeeded) {
    std::string all;
    for (int byte = 0; byte < 0x80; ++byte) {
        all += static_cast<char>(byte);
    }
    all += "é中😀\xE2\x80\xA8";
    JsonWriter writer;
    writer.text(all);
    const std::string written = writer.take();
    EXPECT_EQ(written,
              "\"\\u0000\\u0001\\u0002\\u0003\\u0004\\u0005\\u0006\\u0007\\b\\t\\n\\u000b\\f\\r\\u000e\\u000f"
              "\\u0010\\u0011\\u0012\\u0013\\u0014\\u0015\\u0016\\u0017\\u0018\\u0019\\u001a\\u001b\\u001c"
              "\\u001d\\u001e\\u001f !\\\"#$%&'()*+,-./0123456789:;<=>?@ABCDEFGHIJKLMNOPQRSTUVWXYZ[\\\\]^_`"
              "abcdefghijklmnopqrstuvwxyz{|}~\x7Fé中😀\xE2\x80\xA8\"");
    const auto read = JsonText::parse(written);
    ASSERT_TRUE(read);
    EXPECT_EQ(read->root().text(), all);
}

TEST(JsonWriter, numbersAreShortest) {
    struct Case {
        double number;
        std::string_view text;
    };
    const Case cases[] = {
        {3, "3"},
        {-0.0, "-0"},
        {1.5, "1.5"},
        {0.1 + 0.2, "0.30000000000000004"},
        {1e20, "100000000000000000000"},
        {1e21, "1e+21"},
        {1e-7, "1e-07"},
        {12345678901234567890.0, "12345678901234567168"},
        {std::numeric_limits<double>::max(), "1.7976931348623157e+308"},
        {std::numeric_limits<double>::denorm_min(), "5e-324"},
    };
    for (const Case& expected : cases) {
        JsonWriter writer;
        writer.number(expected.number);
        EXPECT_FALSE(writer.hasFailed());
        const std::string written = writer.take();
        EXPECT_EQ(written, expected.text);
        EXPECT_EQ(JsonText::parse(written)->root().number(), expected.number);
    }
    for (const double number :
         {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity(),
          -std::numeric_limits<double>::infinity()}) {
        JsonWriter writer;
        writer.number(number);
        EXPECT_TRUE(writer.hasFailed());
    }
}

} // namespace
} // namespace quillon
