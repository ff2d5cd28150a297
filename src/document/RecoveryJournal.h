#pragma once

#include "base/Expected.h"
#include "model/ArticleDocument.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// The form of the file that a recovery copy stands in: records, each with its kind, its length and a check
/// in a line before it. What a crash cut short or a disk garbled ends the journal there.
namespace quillon {

/// What a journal says of its article.
struct JournalHead {
    std::optional<std::string> packagePath; ///< any bytes
    std::uint64_t packageMark = 0;
    std::string title;
};

/// The beginning of a journal: head and article, JSON.
std::string journalBeginning(const JournalHead& head, std::string_view articleJson);

/// The record of a change, as writeChange gives it.
std::string changeRecord(std::string_view change);

/// How much of a journal its head takes at most.
inline constexpr std::size_t longestJournalHead = 65536; // bytes

/// The head of the journal of `size` bytes that begins with `beginning`, at least longestJournalHead of them
/// unless it is shorter; nothing where the head is broken or the article behind it cut short.
std::optional<JournalHead> readJournalHead(std::string_view beginning, std::uint64_t size);

/// The article after all changes that are whole; nothing where the article itself is broken.
std::optional<ArticleDocument> readJournalArticle(std::string_view journal);

} // namespace quillon
