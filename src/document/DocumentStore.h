#pragma once

#include "base/Observers.h"
#include "document/FileState.h"
#include "document/UndoHistory.h"

#include <functional>
#include <optional>
#include <string>

namespace quillon {

/// What a change of a store touched.
struct StoreChange {
    bool article = false;
    bool assets = false;
    bool selection = false;
    bool file = false;    ///< `fileState` or `isEdited`
    bool history = false; ///< what undo and redo would do, even where they are called the same as before
};

/// The one object of a document window that changes: the current document, its undo list, its selection and
/// how it stands to its folder. Everything else reads it and is told when it changed. Main thread only.
class DocumentStore {
public:
    /// `clock` gives seconds that never run backwards. `state` says where `document` came from; a document
    /// that counts as edited from the start (recovered) is given as `saved` what would not: what its file
    /// holds, or for one never saved any other value, such as an empty one.
    DocumentStore(ArticleFileDocument document, FileState state, std::function<double()> clock,
                  std::optional<ArticleFileDocument> saved = std::nullopt);

    const ArticleFileDocument& document() const;
    const ArticleDocument& article() const;
    const EditorSelection& selection() const;
    const FileState& fileState() const;
    std::optional<std::string> path() const; ///< of fileState

    /// Replaces the article; an equal one makes no step. `selection` is what the edit selects, if anything.
    void edit(const EditKind& kind, ArticleDocument article,
              std::optional<EditorSelection> selection = std::nullopt);
    void select(const EditorSelection& selection);

    bool canUndo() const;
    bool canRedo() const;
    std::string undoTitle() const; ///< "Undo Add Body", or "Undo" when there is nothing to undo
    std::string redoTitle() const;
    void undo();
    void redo();

    /// Whether the document differs from what its folder holds, as far as is known. A document that was never
    /// saved counts as edited only once it was edited; one whose folder is gone or was refused always does.
    bool isEdited() const;
    /// What the folder holds as far as is known; any value for a document never saved.
    const ArticleFileDocument& savedDocument() const { return m_unedited; }
    /// Whether the document differs from what it last had in common with its folder.
    bool hasOwnChanges() const;

    /// Takes the value to save at `path`; the state is Saving until `finishSaving`. Edits go on meanwhile, as
    /// steps of their own. Must not be called while saving.
    ArticleFileDocument beginSaving(const std::string& path);
    /// The save came through: the folder holds what beginSaving gave.
    void finishSaving(PackageStamp stamp);
    /// The save failed: state and edited mark are as before.
    void abandonSaving();

    /// What a look at the folder found; nothing for a folder that is gone. Returns whether the state changed.
    /// Does nothing while saving and for a document never saved.
    bool noteDisk(const std::optional<PackageStamp>& stamp);
    /// Takes over what the folder holds now, as a step that can be undone, called `name`. Components that
    /// stay keep their ids. Does nothing while saving and for a document never saved.
    void takeFromDisk(ArticleFileDocument document, PackageStamp stamp, const std::string& name);

    /// A look found the folder with the stamp that the document knows, and that files were touched all the
    /// same. `isSame` says whether their contents are as they were: if not, the folder counts as changed.
    /// Does nothing unless the folder counted as unchanged.
    void noteTouched(PackageStamp stamp, bool isSame);
    /// What the folder holds is not taken over: the document counts as edited until
    /// the two agree again. Does nothing unless the folder was changed.
    void refuseDisk();
    /// Puts assets beside the article as it is, as a step that can be undone, called `name`.
    void takeAssets(const ArticleFileDocument& from, const std::string& name);

    Subscription observe(std::function<void(const StoreChange&)> observer);

private:
    void announce(StoreChange change);
    /// Goes one step by `move` of the history.
    void travel(bool (UndoHistory::*move)());
    bool computeIsEdited() const;

    UndoHistory m_history;
    FileState m_fileState;
    ArticleFileDocument m_unedited; ///< the value that does not count as edited
    std::optional<ArticleFileDocument> m_beingSaved;
    std::function<double()> m_clock;
    bool m_isEdited = false;
    Observers<StoreChange> m_observers;
};

} // namespace quillon
