#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

/// The articles that were worked on last, as the launch window shows them, each read from its package without
/// opening it. All addresses are paths of files, UTF-8 or not.
namespace quillon {

/// One card of the launch window.
struct RecentArticleSummary {
    std::string id;                          ///< the package's path
    std::string url;                         ///< the package's path
    std::string title;                       ///< of the article, else the folder's name without its extension
    std::string subtitle;                    ///< the excerpt, else the folder's name, else what is wrong
    std::optional<double> modifiedDate;      ///< of article.json, in seconds since 1970
    std::optional<std::string> thumbnailURL; ///< path of a picture within the package, which may be missing
    bool isReadable = false;                 ///< whether article.json was read

    bool operator==(const RecentArticleSummary&) const = default;
};

/// The summaries of the first packages in `urls`, at most `limit`, in their order. A path that ends in "/" is
/// a folder's and always counts; any other counts where something stands. Reads at most twice `limit` files.
std::vector<RecentArticleSummary> loadRecentArticles(const std::vector<std::string>& urls, std::size_t limit);

/// The summary of the package at the path `url`, marked as unreadable when it has no good article.json;
/// nothing for an empty path.
std::optional<RecentArticleSummary> makeRecentArticleSummary(const std::string& url);

} // namespace quillon
