#include "document/ArticleChange.h"

#include "model/Codec.h"

#include <algorithm>
#include <unordered_map>
#include <utility>

namespace quillon {

namespace {

using Components = List<Component>;

ArticleDocument withoutComponents(const ArticleDocument& article) {
    ArticleDocument fields = article;
    fields.components = {};
    return fields;
}

/// What a component says of itself: neither its children nor its id.
Component ownFields(const Component& component) {
    Component fields = component;
    fields.components.reset();
    fields.id = Uuid();
    return fields;
}

template <typename Record>
std::string jsonOf(const Record& record) {
    JsonWriter writer;
    writeValue(writer, record);
    return writer.take();
}

/// Whether both are the same once they are written, when the ids of links, columns and the like are gone.
template <typename Record>
bool equalWhenWritten(const Record& left, const Record& right) {
    return left == right || jsonOf(left) == jsonOf(right);
}

bool equalButForIds(const Component& left, const Component& right) {
    if (left.components.has_value() != right.components.has_value() ||
        !equalWhenWritten(ownFields(left), ownFields(right))) {
        return false;
    }
    if (!left.components || left.components.isIdentical(right.components)) {
        return true;
    }
    return left.components->size() == right.components->size() &&
           std::equal(left.components->begin(), left.components->end(), right.components->begin(),
                      equalButForIds);
}

/// Some elements of a list, one after the other.
struct Range {
    std::size_t begin = 0;
    std::size_t end = 0;

    std::size_t size() const { return end - begin; }
};

/// Two places in the old and in the new list that hold the same component.
struct Match {
    std::size_t before;
    std::size_t after;
    bool isIdentical; ///< not only by its id
};

/// A component and its place in a list.
struct Placed {
    std::size_t index;
    const Shared<Component>* component;
};

/// The components of a part of a list by their ids.
std::unordered_map<Uuid, Placed> placesOf(const Components& list, const Range& range) {
    std::unordered_map<Uuid, Placed> places;
    places.reserve(range.size());
    Components::Iterator component(&list, range.begin);
    for (std::size_t index = range.begin; index < range.end; ++index, ++component) {
        places.try_emplace(component->id, Placed{index, &component.item()});
    }
    return places;
}

/// The most matches that keep their order, of `matches` in the order of the new list.
std::vector<Match> longestRising(const std::vector<Match>& matches) {
    constexpr std::size_t none = static_cast<std::size_t>(-1);
    std::vector<std::size_t> ends; ///< by length, the match with the lowest old place that ends such a run
    std::vector<std::size_t> previous(matches.size(), none);
    for (std::size_t index = 0; index < matches.size(); ++index) {
        const auto end = std::lower_bound(
            ends.begin(), ends.end(), matches[index].before,
            [&](std::size_t match, std::size_t before) { return matches[match].before < before; });
        if (end != ends.begin()) {
            previous[index] = *(end - 1);
        }
        if (end == ends.end()) {
            ends.push_back(index);
        } else {
            *end = index;
        }
    }
    std::vector<Match> rising;
    for (std::size_t index = ends.empty() ? none : ends.back(); index != none; index = previous[index]) {
        rising.push_back(matches[index]);
    }
    std::reverse(rising.begin(), rising.end());
    return rising;
}

/// The components that both parts have by their ids, in an order that both share.
std::vector<Match> matchIds(const Components& before, const Range& old, const Components& after,
                            const Range& current) {
    const auto places = placesOf(before, old);
    std::vector<Match> matches;
    Components::Iterator component(&after, current.begin);
    for (std::size_t index = current.begin; index < current.end; ++index, ++component) {
        const auto place = places.find(component->id);
        if (place != places.end()) {
            const auto& [oldIndex, oldComponent] = place->second;
            matches.push_back({oldIndex, index, oldComponent->isIdentical(component.item())});
        }
    }
    return longestRising(matches);
}

bool haveSameIds(const Components& before, const Range& old, const Components& after, const Range& current) {
    if (old.size() != current.size()) {
        return false;
    }
    for (std::size_t offset = 0; offset < old.size(); ++offset) {
        if (before[old.begin + offset].id != after[current.begin + offset].id) {
            return false;
        }
    }
    return true;
}

/// Collects the steps from one article to another. Of siblings the last come first, so that the places of
/// those that are still to be done are the ones they had from the start.
class Comparison {
public:
    ArticleChange between(const ArticleDocument& before, const ArticleDocument& after) {
        ArticleDocument fields = withoutComponents(after);
        if (!equalWhenWritten(withoutComponents(before), fields)) {
            m_change.emplace_back(SetArticleFields{std::move(fields)});
        }
        compareLists(before.components, after.components);
        return std::move(m_change);
    }

private:
    void compareLists(const Components& before, const Components& after) {
        const std::size_t prefix = before.sharedPrefix(after);
        const std::size_t suffix = before.sharedSuffix(after, prefix);
        const Range old{prefix, before.size() - suffix};
        const Range current{prefix, after.size() - suffix};
        if (old.size() == 0 || current.size() == 0 || haveSameIds(before, old, after, current)) {
            compareGap(before, old, after, current);
            return;
        }
        std::vector<Match> matches = matchIds(before, old, after, current);
        Range oldRest = old;
        Range currentRest = current;
        for (auto match = matches.rbegin(); match != matches.rend(); ++match) {
            compareGap(before, {match->before + 1, oldRest.end}, after, {match->after + 1, currentRest.end});
            if (!match->isIdentical) {
                compareComponents(match->before, before, match->after, after);
            }
            oldRest.end = match->before;
            currentRest.end = match->after;
        }
        compareGap(before, oldRest, after, currentRest);
    }

    /// Parts of two lists: one by one where there are as many, else what differs becomes a replacement.
    void compareGap(const Components& before, Range old, const Components& after, Range current) {
        if (old.size() == current.size()) {
            for (std::size_t offset = old.size(); offset > 0; --offset) {
                compareComponents(old.begin + offset - 1, before, current.begin + offset - 1, after);
            }
            return;
        }
        while (old.size() > 0 && current.size() > 0 &&
               equalButForIds(before[old.begin], after[current.begin])) {
            ++old.begin;
            ++current.begin;
        }
        while (old.size() > 0 && current.size() > 0 &&
               equalButForIds(before[old.end - 1], after[current.end - 1])) {
            --old.end;
            --current.end;
        }
        ReplaceChildren step{m_path, old.begin, old.size(), {}};
        step.inserted.reserve(current.size());
        for (std::size_t index = current.begin; index < current.end; ++index) {
            step.inserted.push_back(after.item(index));
        }
        m_change.emplace_back(std::move(step));
    }

    void compareComponents(std::size_t oldIndex, const Components& before, std::size_t newIndex,
                           const Components& after) {
        if (before.item(oldIndex).isIdentical(after.item(newIndex))) {
            return;
        }
        const Component& old = before[oldIndex];
        const Component& current = after[newIndex];
        m_path.push_back(oldIndex);
        Component fields = ownFields(current);
        if (!equalWhenWritten(ownFields(old), fields)) {
            m_change.emplace_back(SetComponentFields{m_path, std::move(fields)});
        }
        compareChildren(old.components, current.components);
        m_path.pop_back();
    }

    void compareChildren(const Optional<Components>& before, const Optional<Components>& after) {
        if (before.isIdentical(after)) {
            return;
        }
        if (!after) {
            m_change.emplace_back(ReplaceChildren{m_path, 0, before->size(), {}, true});
            return;
        }
        if (!before && after->empty()) {
            m_change.emplace_back(ReplaceChildren{m_path, 0, 0, {}});
            return;
        }
        compareLists(before.value_or(Components()), *after);
    }

    ArticleChange m_change;
    ComponentPath m_path; ///< to the component whose children are compared
};

/// `list` with `count` elements from `index` on replaced.
Components spliced(const Components& list, std::size_t index, std::size_t count,
                   const std::vector<Shared<Component>>& inserted) {
    constexpr std::size_t few = 32; // beyond it a new list is built faster than an old one changed
    if (count + inserted.size() > few) {
        std::vector<Shared<Component>> items;
        items.reserve(list.size() - count + inserted.size());
        for (std::size_t kept = 0; kept < index; ++kept) {
            items.push_back(list.item(kept));
        }
        items.insert(items.end(), inserted.begin(), inserted.end());
        for (std::size_t kept = index + count; kept < list.size(); ++kept) {
            items.push_back(list.item(kept));
        }
        return Components(std::move(items));
    }
    Components result = list;
    for (std::size_t left = count; left > 0; --left) {
        result = result.erase(index);
    }
    for (std::size_t offset = 0; offset < inserted.size(); ++offset) {
        result = result.insert(index + offset, inserted[offset]);
    }
    return result;
}

/// `list` with the component at the end of the path, from its `level` on, changed by `change`, which tells
/// whether it could.
template <typename Change>
bool changeAt(Components& list, const ComponentPath& path, std::size_t level, const Change& change) {
    if (path[level] >= list.size()) {
        return false;
    }
    Component component = list[path[level]];
    if (level + 1 == path.size()) {
        if (!change(component)) {
            return false;
        }
    } else if (!component.components || !changeAt(component.components.edit(), path, level + 1, change)) {
        return false;
    }
    list = list.set(path[level], std::move(component));
    return true;
}

bool apply(ArticleDocument& article, const SetArticleFields& step) {
    Components components = std::move(article.components);
    article = step.fields;
    article.components = std::move(components);
    return true;
}

bool apply(ArticleDocument& article, const SetComponentFields& step) {
    return !step.path.empty() && changeAt(article.components, step.path, 0, [&step](Component& component) {
        Component changed = step.fields;
        changed.id = component.id;
        changed.components = std::move(component.components);
        component = std::move(changed);
        return true;
    });
}

bool splice(Components& list, const ReplaceChildren& step) {
    if (step.index > list.size() || step.removed > list.size() - step.index) {
        return false;
    }
    list = spliced(list, step.index, step.removed, step.inserted);
    return true;
}

bool apply(ArticleDocument& article, const ReplaceChildren& step) {
    if (step.parent.empty()) {
        return !step.absent && splice(article.components, step);
    }
    return changeAt(article.components, step.parent, 0, [&step](Component& component) {
        if (!splice(component.components.edit(), step)) {
            return false;
        }
        if (step.absent) {
            component.components.reset();
        }
        return true;
    });
}

std::size_t countOf(const Component& component) {
    std::size_t count = 1;
    if (component.components) {
        for (const Component& child : *component.components) {
            count += countOf(child);
        }
    }
    return count;
}

// The size of a record's JSON stands for that of its texts and numbers.

std::size_t weightOf(const SetArticleFields& step) {
    return sizeof(ArticleDocument) + jsonOf(step.fields).size();
}

std::size_t weightOf(const SetComponentFields& step) {
    return sizeof(Component) + jsonOf(step.fields).size();
}

std::size_t weightOf(const ReplaceChildren& step) {
    std::size_t weight = 0;
    for (const Shared<Component>& component : step.inserted) {
        weight += countOf(*component) * sizeof(Component) + jsonOf(*component).size();
    }
    return weight;
}

constexpr std::string_view articleStep = "article";
constexpr std::string_view componentStep = "component";
constexpr std::string_view childrenStep = "children";
constexpr std::string_view noChildrenStep = "noChildren";

void writeSize(JsonWriter& writer, std::size_t value) {
    writer.element();
    writer.whole(static_cast<std::int64_t>(value));
}

void writeHead(JsonWriter& writer, std::string_view name, const ComponentPath& path) {
    writer.element();
    writer.text(name);
    writer.element();
    writer.beginList();
    for (const std::size_t index : path) {
        writeSize(writer, index);
    }
    writer.endList();
}

void writeStep(JsonWriter& writer, const SetArticleFields& step) {
    writer.element();
    writer.text(articleStep);
    writer.element();
    writeValue(writer, step.fields);
}

void writeStep(JsonWriter& writer, const SetComponentFields& step) {
    writeHead(writer, componentStep, step.path);
    writer.element();
    writeValue(writer, step.fields);
}

void writeStep(JsonWriter& writer, const ReplaceChildren& step) {
    writeHead(writer, step.absent ? noChildrenStep : childrenStep, step.parent);
    writeSize(writer, step.index);
    writeSize(writer, step.removed);
    writer.element();
    writeValue(writer, step.inserted);
}

/// Takes line ends and the indent behind them out of what a JsonWriter wrote; within texts both are escaped.
std::string onOneLine(const std::string& json) {
    std::string line;
    line.reserve(json.size());
    for (std::size_t at = 0; at < json.size();) {
        const std::size_t end = std::min(json.find('\n', at), json.size());
        line.append(json, at, end - at);
        at = std::min(json.find_first_not_of("\n ", end), json.size());
    }
    return line;
}

/// Reads the parts of steps one after the other from the flat list.
class StepReader {
public:
    explicit StepReader(JsonElement list) : m_elements(list) {}

    bool next() { return m_elements.next(); }

    /// The step whose name was reached last.
    bool read(ArticleChange& change, ReadFailure& failure) {
        const JsonElement element = m_elements.value();
        const std::string_view name = element.text().value_or("");
        if (name == articleStep) {
            return part(std::get<SetArticleFields>(change.emplace_back(SetArticleFields())).fields, failure);
        }
        if (name == componentStep) {
            auto& step = std::get<SetComponentFields>(change.emplace_back(SetComponentFields()));
            return part(step.path, failure) && part(step.fields, failure);
        }
        if (name == childrenStep || name == noChildrenStep) {
            auto& step = std::get<ReplaceChildren>(change.emplace_back(ReplaceChildren()));
            step.absent = name == noChildrenStep;
            return part(step.parent, failure) && part(step.index, failure) && part(step.removed, failure) &&
                   part(step.inserted, failure);
        }
        return expect("the name of a step", element, failure);
    }

private:
    template <typename Value>
    bool part(Value& value, ReadFailure& failure) {
        if (!m_elements.next()) {
            failure = {{}, "the next part of a step", "the end of the list"};
            return false;
        }
        return readPart(m_elements.value(), value, failure);
    }

    template <typename Value>
    bool readPart(JsonElement element, Value& value, ReadFailure& failure) {
        return readValue(element, value, failure);
    }
    bool readPart(JsonElement element, std::size_t& value, ReadFailure& failure) {
        const std::optional<std::int64_t> whole = element.whole();
        if (!whole || *whole < 0) {
            return expect("an index", element, failure);
        }
        value = static_cast<std::size_t>(*whole);
        return true;
    }
    bool readPart(JsonElement element, ComponentPath& path, ReadFailure& failure) {
        if (element.kind() != JsonKind::list) {
            return expect("a list", element, failure);
        }
        for (JsonElements indexes(element); indexes.next();) {
            if (path.size() == JsonText::maximumDepth) { // no article has components as deep as that
                return expect("a shorter path", element, failure);
            }
            if (!readPart(indexes.value(), path.emplace_back(), failure)) {
                return false;
            }
        }
        return true;
    }

    JsonElements m_elements;
};

} // namespace

ArticleChange changeBetween(const ArticleDocument& before, const ArticleDocument& after) {
    return Comparison().between(before, after);
}

std::optional<ArticleDocument> applyChange(const ArticleDocument& article, const ArticleChange& change) {
    ArticleDocument result = article;
    for (const ChangeStep& step : change) {
        if (!std::visit([&result](const auto& each) { return apply(result, each); }, step)) {
            return std::nullopt;
        }
    }
    return result;
}

std::size_t changeWeight(const ArticleChange& change) {
    constexpr std::size_t nodesOnTheWay = 2048; // of the lists between the top and what changed
    std::size_t weight = 0;
    for (const ChangeStep& step : change) {
        weight += nodesOnTheWay + std::visit([](const auto& each) { return weightOf(each); }, step);
    }
    return weight;
}

Expected<std::string, EncodeFailure> writeChange(const ArticleChange& change) {
    JsonWriter writer;
    writer.beginList();
    for (const ChangeStep& step : change) {
        std::visit([&writer](const auto& each) { writeStep(writer, each); }, step);
    }
    writer.endList();
    if (writer.hasFailed()) {
        return unexpected(
            EncodeFailure{"The article holds a number that is not finite, which JSON cannot express."});
    }
    return onOneLine(writer.take());
}

Expected<ArticleChange, ReadFailure> readChange(std::string line) {
    const auto text = JsonText::parse(std::move(line));
    if (!text) {
        return unexpected(ReadFailure{"column " + std::to_string(text.error().column), text.error().expected,
                                      text.error().found});
    }
    ReadFailure failure;
    if (text->root().kind() != JsonKind::list) {
        expect("a list", text->root(), failure);
        return unexpected(std::move(failure));
    }
    ArticleChange change;
    for (StepReader reader(text->root()); reader.next();) {
        if (!reader.read(change, failure)) {
            return unexpected(std::move(failure));
        }
    }
    return change;
}

} // namespace quillon
