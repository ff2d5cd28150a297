#pragma once

#include "document/EditorSelection.h"
#include "package/ArticleFileDocument.h"

#include <cstddef>
#include <deque>
#include <optional>
#include <string>

namespace quillon {

/// What an edit is called and what it belongs to.
struct EditKind {
    std::string name;  ///< as it stands behind "Undo": "Add Body"
    std::string field; ///< edits of one field shortly after each other become one; empty never does
};

/// A document with what was selected in it.
struct EditedValue {
    ArticleFileDocument document;
    EditorSelection selection;
};

/// The past and the future of a document as a list of whole values, which share what they have in common. A
/// value itself: nothing is announced.
class UndoHistory {
public:
    static constexpr double foldingTime = 1.0;            ///< seconds between two edits that become one
    static constexpr std::size_t memoryBound = 200 << 20; ///< bytes, of what each value shares with no other

    explicit UndoHistory(EditedValue first, std::size_t bound = memoryBound);

    const EditedValue& current() const;
    /// Changes the selection without making a step of it.
    void select(const EditorSelection& selection);

    /// Makes `next` the current value, edited at `now` (seconds); what had been undone is forgotten. An edit
    /// of the field of the last one, at most `foldingTime` after it, goes into its step; where that leads
    /// back to the value before it, the step vanishes. Beyond the memory bound the oldest steps go, but never
    /// the last one.
    void record(const EditKind& kind, EditedValue next, double now);
    /// Keeps the next edit from being folded into the last one.
    void endFolding();

    /// The name of the edit that undo would take back and of the one that redo would bring back.
    std::optional<std::string> undoName() const;
    std::optional<std::string> redoName() const;
    /// Goes one step; false at the end of the list. The selection becomes what it was around that edit.
    bool undo();
    bool redo();

    /// Bytes that the kept steps hold for themselves, as far as it can be estimated.
    std::size_t memory() const;
    std::size_t steps() const; ///< that can be undone

private:
    struct Step {
        EditKind kind;
        EditedValue before; ///< with the selection just before the edit
        EditedValue after;  ///< with the selection that the edit made
        double time = 0;    ///< of the last edit folded into it
        std::size_t weight = 0;
    };

    void forgetUndone();
    void dropLast();

    EditedValue m_current;
    std::deque<Step> m_steps;
    std::size_t m_position = 0; ///< steps before it are done, the others undone
    std::size_t m_bound;
    std::size_t m_memory = 0;
    bool m_mayFold = false;
};

} // namespace quillon
