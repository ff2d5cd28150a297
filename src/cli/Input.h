#pragma once

#include "cli/Failure.h"
#include "package/ArticleFileDocument.h"

#include <string>

/// What PACKAGE means on the command line: a folder, the path of an `article.json` (then its folder), the
/// path of any other file (an article alone, without assets), or "-" for an article on standard input.
namespace quillon::cli {

Result<ArticleDocument> readArticle(const std::string& package);
Result<ArticleFileDocument> readDocument(const std::string& package);

/// The folder that PACKAGE names; empty when it names an article alone.
std::string packageFolder(const std::string& package);

} // namespace quillon::cli
