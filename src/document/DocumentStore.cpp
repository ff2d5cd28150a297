#include "document/DocumentStore.h"

#include "document/ArticleChange.h"
#include "model/ComponentTree.h"

#include <utility>

namespace quillon {

namespace {

using SettledState = decltype(file::Saving::before);

/// `state`, which must not be Saving, as what a failed save returns to.
SettledState settled(const FileState& state) {
    return std::visit(
        [](const auto& each) -> SettledState {
            if constexpr (std::is_constructible_v<SettledState, decltype(each)>) {
                return each;
            } else {
                return file::NeverSaved{};
            }
        },
        state);
}

FileState unsettled(const SettledState& state) {
    return std::visit([](const auto& each) -> FileState { return each; }, state);
}

/// The stamp by which a document knows its folder; null where it has none, and while it is saved.
const Shared<PackageStamp>* knownStamp(const FileState& state) {
    return std::visit(
        [](const auto& each) -> const Shared<PackageStamp>* {
            if constexpr (requires { each.stamp; }) {
                return &each.stamp;
            } else {
                return nullptr;
            }
        },
        state);
}

/// Whether no folder holds what the document last had in common with its own, also while it is being saved.
bool isAlone(const FileState& state) {
    if (const auto* saving = std::get_if<file::Saving>(&state)) {
        return isAlone(unsettled(saving->before));
    }
    const auto* changed = std::get_if<file::ChangedOnDisk>(&state);
    return std::holds_alternative<file::Gone>(state) || (changed && changed->isRefused);
}

/// Whether the folder has assets that the document lacks.
bool lacksAssets(const FileState& state) {
    return std::visit(
        [](const auto& each) {
            if constexpr (requires { each.lacksAssets; }) {
                return each.lacksAssets;
            } else {
                return false;
            }
        },
        state);
}

/// What a step from `before` to `after` touches.
StoreChange difference(const EditedValue& before, const EditedValue& after) {
    StoreChange change;
    change.article = !(before.document.article == after.document.article);
    change.assets = !(before.document.assets == after.document.assets);
    change.selection = !(before.selection == after.selection);
    change.history = true;
    return change;
}

} // namespace

DocumentStore::DocumentStore(ArticleFileDocument document, FileState state, std::function<double()> clock,
                             std::optional<ArticleFileDocument> saved)
    : m_history({document, EditorSelection::document()}), m_fileState(std::move(state)),
      m_unedited(saved ? std::move(*saved) : std::move(document)), m_clock(std::move(clock)) {
    m_isEdited = computeIsEdited();
}

const ArticleFileDocument& DocumentStore::document() const {
    return m_history.current().document;
}

const ArticleDocument& DocumentStore::article() const {
    return document().article;
}

const EditorSelection& DocumentStore::selection() const {
    return m_history.current().selection;
}

const FileState& DocumentStore::fileState() const {
    return m_fileState;
}

std::optional<std::string> DocumentStore::path() const {
    return pathOf(m_fileState);
}

void DocumentStore::edit(const EditKind& kind, ArticleDocument article,
                         std::optional<EditorSelection> selection) {
    EditedValue next = m_history.current();
    next.document.article = std::move(article);
    next.selection = selection.value_or(next.selection);
    const StoreChange change = difference(m_history.current(), next);
    if (!change.article) {
        select(next.selection);
        return;
    }
    m_history.record(kind, std::move(next), m_clock());
    announce(change);
}

void DocumentStore::select(const EditorSelection& selection) {
    if (selection == this->selection()) {
        return;
    }
    m_history.select(selection);
    announce({.selection = true});
}

bool DocumentStore::canUndo() const {
    return m_history.undoName().has_value();
}

bool DocumentStore::canRedo() const {
    return m_history.redoName().has_value();
}

std::string DocumentStore::undoTitle() const {
    const auto name = m_history.undoName();
    return name ? "Undo " + *name : "Undo";
}

std::string DocumentStore::redoTitle() const {
    const auto name = m_history.redoName();
    return name ? "Redo " + *name : "Redo";
}

void DocumentStore::undo() {
    travel(&UndoHistory::undo);
}

void DocumentStore::redo() {
    travel(&UndoHistory::redo);
}

void DocumentStore::travel(bool (UndoHistory::*move)()) {
    const EditedValue before = m_history.current();
    if ((m_history.*move)()) {
        announce(difference(before, m_history.current()));
    }
}

bool DocumentStore::isEdited() const {
    return m_isEdited;
}

bool DocumentStore::computeIsEdited() const {
    return isAlone(m_fileState) || hasOwnChanges();
}

bool DocumentStore::hasOwnChanges() const {
    return !(document() == m_unedited);
}

ArticleFileDocument DocumentStore::beginSaving(const std::string& path) {
    // What is saved stays a value of its own in the list, so that undo comes back to it.
    m_history.endFolding();
    m_beingSaved = document();
    m_fileState = file::Saving{path, settled(m_fileState)};
    announce({.file = true});
    return document();
}

void DocumentStore::finishSaving(PackageStamp stamp) {
    const auto* saving = std::get_if<file::Saving>(&m_fileState);
    if (!saving) {
        return;
    }
    m_fileState = file::AtPath{saving->path, std::move(stamp)};
    m_unedited = std::move(*m_beingSaved);
    m_beingSaved.reset();
    announce({.file = true});
}

void DocumentStore::abandonSaving() {
    const auto* saving = std::get_if<file::Saving>(&m_fileState);
    if (!saving) {
        return;
    }
    m_fileState = unsettled(SettledState(saving->before));
    m_beingSaved.reset();
    announce({.file = true});
}

bool DocumentStore::noteDisk(const std::optional<PackageStamp>& stamp) {
    const Shared<PackageStamp>* known = knownStamp(m_fileState);
    if (!known) {
        return false;
    }
    const std::string path = *this->path();
    const bool lacks = lacksAssets(m_fileState);
    FileState next = file::Gone{path, *known, lacks};
    if (stamp && *stamp == **known && !lacks) {
        next = file::AtPath{path, *known};
    } else if (stamp) {
        next = file::ChangedOnDisk{.path = path, .stamp = *known, .lacksAssets = lacks};
    }
    if (next.index() == m_fileState.index()) {
        return false;
    }
    m_fileState = std::move(next);
    announce({.file = true});
    return true;
}

void DocumentStore::takeFromDisk(ArticleFileDocument document, PackageStamp stamp, const std::string& name) {
    if (!knownStamp(m_fileState)) {
        return;
    }
    document.article =
        applyChange(article(), changeBetween(article(), document.article)).value_or(document.article);
    m_fileState = file::AtPath{*path(), std::move(stamp)};
    m_unedited = document;

    EditedValue next{std::move(document), selection()};
    if (next.selection.component &&
        !findComponent(*next.selection.component, next.document.article.components)) {
        next.selection = EditorSelection::document();
    }
    StoreChange change = difference(m_history.current(), next);
    change.file = true;
    if (change.article || change.assets) {
        m_history.record({name, {}}, std::move(next), m_clock());
    } else {
        change.history = false;
        m_history.select(next.selection);
    }
    announce(change);
}

void DocumentStore::noteTouched(PackageStamp stamp, bool isSame) {
    auto* here = std::get_if<file::AtPath>(&m_fileState);
    if (here && isSame) {
        here->stamp = std::move(stamp);
    } else if (here) {
        // The stamp that the document knew is that of the other contents, too: from now on it knows none.
        m_fileState = file::ChangedOnDisk{.path = here->path, .stamp = PackageStamp{}};
        announce({.file = true});
    }
}

void DocumentStore::refuseDisk() {
    if (auto* changed = std::get_if<file::ChangedOnDisk>(&m_fileState)) {
        changed->isRefused = true;
        announce({.file = true});
    }
}

void DocumentStore::takeAssets(const ArticleFileDocument& from, const std::string& name) {
    EditedValue next = m_history.current();
    next.document.assets = from.assets;
    next.document.assetsFingerprint = from.assetsFingerprint;
    const StoreChange change = difference(m_history.current(), next);
    if (change.assets) {
        m_history.record({name, {}}, std::move(next), m_clock());
        announce(change);
    }
}

Subscription DocumentStore::observe(std::function<void(const StoreChange&)> observer) {
    return m_observers.add(std::move(observer));
}

void DocumentStore::announce(StoreChange change) {
    const bool wasEdited = std::exchange(m_isEdited, computeIsEdited());
    change.file = change.file || m_isEdited != wasEdited;
    m_observers.tell(change);
}

} // namespace quillon
