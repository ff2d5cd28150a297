#include "document/RecoveryJournal.h"

#include "base/Numbers.h"
#include "document/ArticleChange.h"

#include <array>
#include <charconv>

namespace quillon {

namespace {

constexpr std::string_view markKind = "mark";
constexpr std::string_view pathKind = "path";
constexpr std::string_view titleKind = "title";
constexpr std::string_view articleKind = "article";
constexpr std::string_view changeKind = "change";

/// FNV-1a.
std::uint64_t checkOf(std::string_view kind, std::string_view payload) {
    std::uint64_t hash = 0xcbf29ce484222325U;
    for (const std::string_view part : {kind, payload}) {
        for (const char byte : part) {
            hash = (hash ^ static_cast<unsigned char>(byte)) * 0x100000001b3U;
        }
    }
    return hash;
}

void appendRecord(std::string& journal, std::string_view kind, std::string_view payload) {
    journal += kind;
    journal += ' ';
    journal += std::to_string(payload.size());
    journal += ' ';
    journal += std::to_string(checkOf(kind, payload));
    journal += '\n';
    journal += payload;
    journal += '\n';
}

template <typename Number>
std::optional<Number> parseWhole(std::string_view text) {
    Number number = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
    if (result.ec != std::errc() || result.ptr != text.data() + text.size()) {
        return std::nullopt;
    }
    return number;
}

/// What stands in the line before a record.
struct RecordLine {
    std::string_view kind;
    std::uint64_t length = 0;
    std::uint64_t check = 0;
};

/// Walks a journal record by record.
class JournalReader {
public:
    explicit JournalReader(std::string_view journal) : m_rest(journal) {}

    /// The line of the next record; nothing where there is no good one.
    std::optional<RecordLine> peek() const {
        constexpr std::size_t longestLine = 64;
        const std::size_t end = m_rest.substr(0, longestLine).find('\n');
        const std::string_view line = m_rest.substr(0, end);
        const std::size_t first = line.find(' ');
        const std::size_t last = line.rfind(' ');
        if (end == std::string_view::npos || first == std::string_view::npos || first == last) {
            return std::nullopt;
        }
        const auto length = parseWhole<std::uint64_t>(line.substr(first + 1, last - first - 1));
        const auto check = parseWhole<std::uint64_t>(line.substr(last + 1));
        if (!length || !check) {
            return std::nullopt;
        }
        return RecordLine{line.substr(0, first), *length, *check};
    }

    /// The next record if it is of that kind and whole.
    std::optional<std::string_view> next(std::string_view kind) {
        const std::optional<RecordLine> line = peek();
        if (!line || line->kind != kind) {
            return std::nullopt;
        }
        const std::string_view behind = afterLine();
        if (line->length >= behind.size() || behind[line->length] != '\n') {
            return std::nullopt;
        }
        const std::string_view payload = behind.substr(0, line->length);
        if (checkOf(kind, payload) != line->check) {
            return std::nullopt;
        }
        m_rest = behind.substr(line->length + 1);
        return payload;
    }

    /// Behind the line of the next record, which must be a good one.
    std::string_view afterLine() const { return m_rest.substr(m_rest.find('\n') + 1); }

private:
    std::string_view m_rest;
};

std::optional<JournalHead> readHead(JournalReader& reader) {
    JournalHead head;
    const auto mark = reader.next(markKind);
    const auto number = mark ? parseWhole<std::uint64_t>(*mark) : std::nullopt;
    if (!number) {
        return std::nullopt;
    }
    head.packageMark = *number;
    head.packagePath = reader.next(pathKind);
    const auto title = reader.next(titleKind);
    if (!title) {
        return std::nullopt;
    }
    head.title = *title;
    return head;
}

} // namespace

std::string journalBeginning(const JournalHead& head, std::string_view articleJson) {
    constexpr std::size_t longestTitle = 4096; // bytes; what is beyond serves no list
    std::string journal;
    journal.reserve(articleJson.size() + 2 * longestTitle);
    appendRecord(journal, markKind, std::to_string(head.packageMark));
    if (head.packagePath) {
        appendRecord(journal, pathKind, *head.packagePath);
    }
    appendRecord(journal, titleKind, std::string_view(head.title).substr(0, longestTitle));
    appendRecord(journal, articleKind, articleJson);
    return journal;
}

std::string changeRecord(std::string_view change) {
    std::string record;
    appendRecord(record, changeKind, change);
    return record;
}

std::optional<JournalHead> readJournalHead(std::string_view beginning, std::uint64_t size) {
    JournalReader reader(beginning.substr(0, longestJournalHead));
    std::optional<JournalHead> head = readHead(reader);
    const std::optional<RecordLine> article = head ? reader.peek() : std::nullopt;
    if (!article || article->kind != articleKind) {
        return std::nullopt;
    }
    const std::size_t start = beginning.substr(0, longestJournalHead).size() - reader.afterLine().size();
    return start < size && article->length < size - start ? head : std::nullopt;
}

std::optional<ArticleDocument> readJournalArticle(std::string_view journal) {
    JournalReader reader(journal);
    const auto json = readHead(reader) ? reader.next(articleKind) : std::nullopt;
    if (!json) {
        return std::nullopt;
    }
    auto read = sharedArticleDecoder.decode(JsonText::roomyCopy(*json));
    if (!read) {
        return std::nullopt;
    }
    ArticleDocument article = std::move(*read);
    while (const auto line = reader.next(changeKind)) {
        const auto change = readChange(JsonText::roomyCopy(*line));
        auto changed = change ? applyChange(article, *change) : std::nullopt;
        if (!changed) {
            break;
        }
        article = std::move(*changed);
    }
    return article;
}

} // namespace quillon
