#include "support/ArticleGenerator.h"

#include "support/RecordFields.h"

#include <array>
#include <bit>
#include <cmath>
#include <random>

namespace quillon::support {

namespace {

constexpr std::string_view texts[] = {
    "",
    "a",
    "A calm sea",
    "first line\nsecond line\r\n\r\nthird",
    "<b>bold</b> & <i>\"quoted\"</i> <script>alert('x')</script>",
    "**strong** _and_ [a link](https://example.com/?a=1&b=2)",
    "\t\"\\/\b\f\x01\x1F\x7F",
    "é中 👩‍👩‍👧‍👦 e\xCC\x81 \xE2\x80\xA8",
    "#FF8800",
    "#abc",
    "rgba(1, 2, 3, 0.5)",
    "red",
    "12",
    "1.5em",
    "-3px",
    "50vw",
    "30cw",
    "auto",
    "bundle://boat.jpg",
    "https://example.com/a b?c=d#e",
    "javascript:alert(1)",
    "left",
    "center",
    "right",
    "top",
    "bottom",
    "dark",
    "light",
    "any",
    "regular",
    "compact",
    "horizontal",
    "collection",
    "parallax",
    "move_in",
    "fade_in",
    "cover",
    "fit",
    "solid",
    "dashed",
    "linear_gradient",
    "image",
    "video",
    "corners",
    "italic",
    "bold",
    "formatted_text",
    "html",
    "markdown",
    "ascending",
    "2024-02-29T12:00:00Z",
};
/// Names of styles, keys of columns and identifiers of components: few, so that references meet their
/// targets.
constexpr std::string_view names[] = {"one", "two", "three words here", "vier-ü", "", "default"};
constexpr std::string_view unknownKeys[] = {"id", "zeta", "Title", "URLs", "a/b", "ключ", "", "x-note"};
constexpr std::string_view unknownRoles[] = {"widget", "Title", "", "live_activity", "🦊 den", "other"};
constexpr double numbers[] = {0,    -0.0, 1,    2,    12,   -7,    0.5,   0.1,    1.0 / 3, 100,
                              1024, 1e-7, 1e15, 1e20, 1e21, -1e22, 1e300, 5e-324, 0x1p53,  0x1p63};
constexpr int64_t wholes[] = {0, 1, 2, 3, 4, 5, 7, 12, 16, 40, 100, 1024, -1, -20, INT64_MAX, INT64_MIN};

class Filler {
public:
    Filler(uint64_t seed, const GeneratorLimits& limits) : m_random(seed), m_limits(limits) {}

    ArticleDocument article() {
        ArticleDocument article;
        fill(article);
        return article;
    }

private:
    size_t below(size_t bound) { return m_random() % bound; }
    bool oneIn(size_t odds) { return below(odds) == 0; }
    template <typename Choices>
    auto pick(const Choices& choices) {
        return choices[below(std::size(choices))];
    }

    void fill(std::string& value) { value = pick(texts); }
    void fill(bool& value) { value = oneIn(2); }
    void fill(int64_t& value) { value = oneIn(20) ? static_cast<int64_t>(m_random()) : pick(wholes); }
    void fill(double& value) {
        value = oneIn(10) ? std::bit_cast<double>(m_random()) : pick(numbers);
        value = std::isfinite(value) ? value : 3.25;
    }
    void fill(TextFormat& value) { value = static_cast<TextFormat>(below(3)); }
    void fill(ComponentRole& value) {
        value = oneIn(8) ? ComponentRole::fromRawValue(pick(unknownRoles)) : pick(ComponentRole::allNamed());
        if (m_nesting < m_limits.nesting && oneIn(5)) {
            value = ComponentRole::section;
        }
    }
    void fill(JSONValue& value) {
        switch (below(m_depth < m_limits.recordDepth ? 6 : 4)) {
        case 0:
            return fillForm<bool>(value.form);
        case 1:
        case 2:
            return fillForm<double>(value.form);
        case 3:
            return fillForm<std::string>(value.form);
        case 4:
            return fillForm<JSONValue::Array>(value.form);
        default:
            return fillForm<JSONValue::Object>(value.form);
        }
    }
    /// Null comes back within untyped JSON alone, not as the whole of a field.
    void fill(std::vector<JSONValue>& values) {
        values.resize(below(4));
        for (JSONValue& value : values) {
            if (!oneIn(6)) {
                fillDeeper(value);
            }
        }
    }
    void fill(std::map<std::string, JSONValue>& values) {
        for (size_t count = below(4); count > 0; --count) {
            fillDeeper(values[std::string(pick(unknownKeys))]);
        }
    }
    void fill(RecordValue& value) {
        switch (below(6)) {
        case 0:
            value.form = nullptr;
            return;
        case 1:
            return fillForm<bool>(value.form);
        case 2:
            return fillForm<double>(value.form);
        case 3: {
            FormattedText formatted;
            fill(formatted);
            formatted.type = std::string("formatted_text");
            value.form = Shared<FormattedText>(std::move(formatted));
            return;
        }
        default:
            return fillForm<std::string>(value.form);
        }
    }
    template <typename Style>
    void fill(StyleRef<Style>& value) {
        fillStyle<Style>(value.form);
    }
    void fill(StyleReference& value) { fillStyle<ComponentStyle>(value.form); }
    template <typename Style, typename Variant>
    void fillStyle(Variant& form) {
        if (oneIn(2)) {
            form = std::string(pick(names));
        } else {
            fillForm<Shared<Style>>(form);
        }
    }
    template <typename Form, typename... Forms>
    void fillForm(std::variant<Forms...>& value) {
        Form form{};
        fill(form);
        value = std::move(form);
    }
    template <typename First, typename Second>
    void fill(std::variant<First, Second>& value) {
        oneIn(2) ? fillForm<First>(value) : fillForm<Second>(value);
    }
    /// What holds nothing but its forms.
    template <typename Value>
    requires(requires(Value value) { value.form; }) void fill(Value& value) { fill(value.form); }

    template <typename Value>
    void fill(Shared<Value>& value) {
        Value inner{};
        fill(inner);
        value = std::move(inner);
    }
    template <typename Value>
    void fill(std::optional<Value>& value) {
        if (oneIn(m_odds)) {
            fill(value.emplace());
        }
    }
    template <typename Value>
    void fill(SharedOptional<Value>& value) {
        if (m_depth < m_limits.recordDepth && oneIn(m_odds)) {
            Value inner{};
            fillDeeper(inner);
            value = std::move(inner);
        }
    }
    template <typename Value>
    void fill(std::vector<Value>& values) {
        values.resize(below(4));
        for (Value& value : values) {
            fill(value);
        }
    }
    template <typename Value>
    void fill(List<Value>& values) {
        std::vector<Shared<Value>> items(below(5));
        for (Shared<Value>& item : items) {
            fill(item);
        }
        values = List<Value>(std::move(items));
    }
    void fill(List<Component>& values) {
        if (m_nesting >= m_limits.nesting) {
            return;
        }
        ++m_nesting;
        const size_t depth = std::exchange(m_depth, 0);
        std::vector<Shared<Component>> items;
        for (size_t count = below(m_limits.components + 1); count > 0; --count) {
            Component component;
            fill(component);
            items.emplace_back(std::move(component));
        }
        values = List<Component>(std::move(items));
        m_depth = depth;
        --m_nesting;
    }
    template <typename Value>
    void fill(std::map<std::string, Value>& values) {
        for (size_t count = below(4); count > 0; --count) {
            fill(values[std::string(pick(names))]);
        }
    }
    template <HasFields Record>
    void fill(Record& record) {
        const size_t odds = std::exchange(m_odds, std::is_same_v<Record, ArticleDocument> ? 2
                                                  : std::is_same_v<Record, Component>     ? 6
                                                                                          : 3);
        std::apply([this](auto&... fields) { (fill(fields), ...); }, fieldsOf(record));
        m_odds = odds;
        if constexpr (requires { record.preservedFields; }) {
            if (oneIn(3)) {
                fill(record.preservedFields.edit());
            }
        }
    }
    template <typename Value>
    void fillDeeper(Value& value) {
        ++m_depth;
        fill(value);
        --m_depth;
    }

    std::mt19937_64 m_random;
    GeneratorLimits m_limits;
    size_t m_nesting = 0;
    size_t m_depth = 0;
    size_t m_odds = 3; ///< an optional field is there once in so many times
};

/// Sets the ids in whatever it is given to zero.
struct IdEraser {
    template <typename Value>
    void erase(Value& value) {
        if constexpr (requires { value.id; }) {
            value.id = Uuid();
        }
        if constexpr (HasFields<Value>) {
            std::apply([this](auto&... fields) { (erase(fields), ...); }, fieldsOf(value));
        } else if constexpr (requires { value.form; } && !std::is_same_v<Value, JSONValue>) {
            std::visit([this](auto& form) { erase(form); }, value.form);
        }
    }
    template <typename Value>
    void erase(Shared<Value>& value) {
        erase(value.edit());
    }
    template <typename Value>
    void erase(SharedOptional<Value>& value) {
        if (value) {
            erase(value.edit());
        }
    }
    template <typename Value>
    void erase(std::vector<Value>& values) {
        for (Value& value : values) {
            erase(value);
        }
    }
    template <typename Value>
    void erase(std::map<std::string, Value>& values) {
        for (auto& [key, value] : values) {
            erase(value);
        }
    }
    template <typename Value>
    void erase(List<Value>& values) {
        std::vector<Shared<Value>> items;
        for (const Value& value : values) {
            Value copy = value;
            erase(copy);
            items.emplace_back(std::move(copy));
        }
        values = List<Value>(std::move(items));
    }
};

} // namespace

ArticleDocument randomArticle(uint64_t seed, const GeneratorLimits& limits) {
    return Filler(seed, limits).article();
}

ArticleDocument withoutIds(ArticleDocument article) {
    IdEraser().erase(article);
    return article;
}

} // namespace quillon::support
