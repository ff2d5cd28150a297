#include "document/UndoHistory.h"

#include "document/ArticleChange.h"

#include <utility>

namespace quillon {

namespace {

/// Bytes of the assets that `kept` holds and `other` does not. Assets read twice count as different.
std::size_t assetsWeight(const ArticleFileDocument& kept, const ArticleFileDocument& other) {
    if (kept.assets.isIdentical(other.assets)) {
        return 0;
    }
    std::size_t weight = 0;
    for (const auto& [key, bytes] : *kept.assets) {
        const auto same = other.assets->find(key);
        if (same == other.assets->end() || same->second.view().data() != bytes.view().data()) {
            weight += bytes.size();
        }
    }
    return weight;
}

/// Bytes that the step from `before` to `after` keeps alive for the sake of `before` alone. Summed over the
/// steps it is what the whole past costs, since what a version gave up is held by no later one.
std::size_t weightOf(const ArticleFileDocument& before, const ArticleFileDocument& after) {
    return changeWeight(changeBetween(after.article, before.article)) + assetsWeight(before, after);
}

} // namespace

UndoHistory::UndoHistory(EditedValue first, std::size_t bound)
    : m_current(std::move(first)), m_bound(bound) {}

const EditedValue& UndoHistory::current() const {
    return m_current;
}

void UndoHistory::select(const EditorSelection& selection) {
    m_current.selection = selection;
}

void UndoHistory::record(const EditKind& kind, EditedValue next, double now) {
    forgetUndone();
    const bool folds = m_mayFold && !m_steps.empty() && !kind.field.empty() &&
                       m_steps.back().kind.field == kind.field && now - m_steps.back().time <= foldingTime;
    if (!folds) {
        m_steps.push_back({kind, m_current, {}, 0, 0});
    }
    Step& step = m_steps.back();
    m_memory -= step.weight;
    step.weight = weightOf(step.before.document, next.document);
    m_memory += step.weight;
    step.after = next;
    step.time = now;
    m_current = std::move(next);
    m_mayFold = true;
    if (folds && step.after.document == step.before.document) {
        dropLast(); // the edits of the field took each other back
        m_mayFold = false;
    }
    while (m_memory > m_bound && m_steps.size() > 1) {
        m_memory -= m_steps.front().weight;
        m_steps.pop_front();
    }
    m_position = m_steps.size();
}

void UndoHistory::endFolding() {
    m_mayFold = false;
}

std::optional<std::string> UndoHistory::undoName() const {
    return m_position == 0 ? std::nullopt : std::optional(m_steps[m_position - 1].kind.name);
}

std::optional<std::string> UndoHistory::redoName() const {
    return m_position == m_steps.size() ? std::nullopt : std::optional(m_steps[m_position].kind.name);
}

bool UndoHistory::undo() {
    if (m_position == 0) {
        return false;
    }
    m_mayFold = false;
    m_current = m_steps[--m_position].before;
    return true;
}

bool UndoHistory::redo() {
    if (m_position == m_steps.size()) {
        return false;
    }
    m_mayFold = false;
    m_current = m_steps[m_position++].after;
    return true;
}

std::size_t UndoHistory::memory() const {
    return m_memory;
}

std::size_t UndoHistory::steps() const {
    return m_position;
}

void UndoHistory::forgetUndone() {
    while (m_steps.size() > m_position) {
        dropLast();
    }
}

void UndoHistory::dropLast() {
    m_memory -= m_steps.back().weight;
    m_steps.pop_back();
}

} // namespace quillon
