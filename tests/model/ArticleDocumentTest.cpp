#include "model/ArticleDocument.h"

#include <gtest/gtest.h>

namespace quillon {
namespace {

TEST(ArticleDocument, smallestArticleComesBack) {
    const auto article = sharedArticleDecoder.decode(
        R"({"version":"1.7","identifier":"a","language":"en","title":"T","layout":{"columns":7,"width":1024},"components":[]})");
    ASSERT_TRUE(article) << article.error().message();
    EXPECT_EQ(sharedArticleEncoder.encode(*article).value(), R"({
  "components" : [],
  "identifier" : "a",
  "language" : "en",
  "layout" : {
    "columns" : 7,
    "width" : 1024
  },
  "title" : "T",
  "version" : "1.7"
})");
}

} // namespace
} // namespace quillon
