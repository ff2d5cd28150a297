#include "document/DocumentStore.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quillon::test {
namespace {

using testing::ElementsAre;

ArticleFileDocument titled(const std::string& title) {
    ArticleFileDocument document;
    document.article.title = title;
    return document;
}

PackageStamp stamp(std::int64_t modified) {
    PackageStamp made;
    made.files["article.json"].modified = modified;
    return made;
}

/// "article selection file history" as far as they were touched.
std::string text(const StoreChange& change) {
    std::string words;
    const std::pair<bool, const char*> parts[] = {{change.article, "article"},
                                                  {change.assets, "assets"},
                                                  {change.selection, "selection"},
                                                  {change.file, "file"},
                                                  {change.history, "history"}};
    for (const auto& [isSet, word] : parts) {
        if (isSet) {
            words += (words.empty() ? "" : " ") + std::string(word);
        }
    }
    return words;
}

class DocumentStoreTest : public testing::Test {
protected:
    void edit(DocumentStore& store, const std::string& title, const std::string& field = "") {
        ArticleDocument article = store.article();
        article.title = title;
        store.edit({"Set Title", field}, article);
    }

    /// What was announced since the last call.
    std::vector<std::string> announced() { return std::exchange(m_announced, {}); }

    double m_now = 0;
    DocumentStore m_store{titled("first"), file::AtPath{"/Story", stamp(1)}, [this] {
                              return m_now;
                          }};
    std::vector<std::string> m_announced;
    Subscription m_subscription =
        m_store.observe([this](const StoreChange& change) { m_announced.push_back(text(change)); });
};

TEST_F(DocumentStoreTest, everyChangeIsAnnouncedOnce) {
    const EditorSelection component = EditorSelection::ofComponent(Uuid::random());
    edit(m_store, "second");
    EXPECT_THAT(announced(), ElementsAre("article file history"));
    edit(m_store, "third");
    EXPECT_THAT(announced(), ElementsAre("article history"));
    edit(m_store, "third");
    m_store.select(m_store.selection());
    EXPECT_THAT(announced(), ElementsAre());
    m_store.select(component);
    EXPECT_THAT(announced(), ElementsAre("selection"));
    m_store.edit({"Same", ""}, m_store.article(), EditorSelection::document());
    EXPECT_THAT(announced(), ElementsAre("selection"));
    ArticleDocument article = m_store.article();
    article.title = "fourth";
    m_store.edit({"Add", ""}, article, component);
    EXPECT_THAT(announced(), ElementsAre("article selection history"));
    m_store.undo();
    EXPECT_THAT(announced(), ElementsAre("article selection history"));
    m_store.undo();
    m_store.undo();
    m_store.undo(); // nothing is left
    EXPECT_THAT(announced(), ElementsAre("article history", "article file history"));
    m_store.beginSaving("/Other");
    m_store.finishSaving(stamp(2));
    EXPECT_THAT(announced(), ElementsAre("file", "file"));
}

TEST_F(DocumentStoreTest, undoToTheSavedValueClearsTheMark) {
    edit(m_store, "second");
    edit(m_store, "third");
    m_store.beginSaving("/Story");
    EXPECT_TRUE(m_store.isEdited());
    m_store.finishSaving(stamp(2));
    EXPECT_FALSE(m_store.isEdited());
    m_store.undo();
    m_store.undo();
    EXPECT_TRUE(m_store.isEdited());
    m_store.redo();
    m_store.redo();
    EXPECT_FALSE(m_store.isEdited());
    edit(m_store, "fourth");
    EXPECT_TRUE(m_store.isEdited());
    edit(m_store, "third"); // typed by hand it is the same
    EXPECT_FALSE(m_store.isEdited());
}

TEST_F(DocumentStoreTest, editsDuringASaveLeaveItEditedAndTheSavedValueInReach) {
    edit(m_store, "second", "title");
    EXPECT_EQ(m_store.beginSaving("/Story").article.title, "second");
    edit(m_store, "secondly", "title");
    m_store.finishSaving(stamp(2));
    EXPECT_TRUE(m_store.isEdited());
    m_store.undo();
    EXPECT_EQ(m_store.article().title, "second");
    EXPECT_FALSE(m_store.isEdited());
}

TEST_F(DocumentStoreTest, aFailedSaveLeavesStateAndMark) {
    for (const bool isEdited : {false, true}) {
        if (isEdited) {
            edit(m_store, "second");
        }
        const FileState before = m_store.fileState();
        m_store.beginSaving("/Elsewhere");
        EXPECT_EQ(m_store.path(), "/Elsewhere");
        EXPECT_FALSE(m_store.noteDisk(std::nullopt));
        m_store.abandonSaving();
        EXPECT_EQ(m_store.fileState(), before);
        EXPECT_EQ(m_store.isEdited(), isEdited);
    }
}

TEST_F(DocumentStoreTest, aDocumentNeverSavedIsEditedOnceItWasEdited) {
    DocumentStore store(titled("new"), file::NeverSaved{}, [] { return 0.0; });
    EXPECT_FALSE(store.isEdited());
    EXPECT_EQ(store.path(), std::nullopt);
    edit(store, "other");
    EXPECT_TRUE(store.isEdited());
    EXPECT_FALSE(store.noteDisk(stamp(1)));
    store.undo();
    EXPECT_FALSE(store.isEdited());

    const DocumentStore recovered(
        titled("new"), file::NeverSaved{}, [] { return 0.0; }, titled(""));
    EXPECT_TRUE(recovered.isEdited());
}

TEST_F(DocumentStoreTest, looksAtTheDiskLeadFromStateToState) {
    const Shared<PackageStamp> known(stamp(1));
    const FileState atPath = file::AtPath{"/Story", known};
    const FileState changed = file::ChangedOnDisk{"/Story", known};
    const FileState gone = file::Gone{"/Story", known};
    const std::optional<PackageStamp> looks[] = {stamp(1), stamp(2), std::nullopt};
    const FileState ends[] = {atPath, changed, gone};
    for (const FileState& start : ends) {
        for (size_t look = 0; look < std::size(looks); ++look) {
            DocumentStore store(titled("first"), start, [] { return 0.0; });
            EXPECT_EQ(store.isEdited(), start == gone);
            size_t count = 0;
            const auto subscription = store.observe([&](const StoreChange& change) {
                EXPECT_EQ(text(change), "file");
                ++count;
            });
            EXPECT_EQ(store.noteDisk(looks[look]), start != ends[look]);
            EXPECT_EQ(store.fileState(), ends[look]);
            EXPECT_EQ(count, start == ends[look] ? 0U : 1U);
            EXPECT_EQ(store.isEdited(), ends[look] == gone);
        }
    }
}

TEST_F(DocumentStoreTest, aRefusedFolderMakesTheDocumentCountAsEditedUntilTheyAgree) {
    DocumentStore store(titled("first"), file::AtPath{"/Story", stamp(1)}, [] { return 0.0; });
    store.refuseDisk();
    EXPECT_FALSE(store.isEdited()) << "there was nothing to refuse";
    const auto refuse = [&] {
        store.noteDisk(stamp(2));
        store.refuseDisk();
        store.noteDisk(stamp(3));
        EXPECT_TRUE(store.isEdited());
        EXPECT_FALSE(store.hasOwnChanges());
    };
    refuse();
    store.beginSaving("/Story");
    EXPECT_TRUE(store.isEdited());
    store.abandonSaving();
    EXPECT_TRUE(store.isEdited());
    store.noteDisk(stamp(1));
    EXPECT_FALSE(store.isEdited()) << "it is as it was";
    refuse();
    store.beginSaving("/Story");
    store.finishSaving(stamp(4));
    EXPECT_FALSE(store.isEdited());
}

/// A folder that was away when its document was recovered never agrees with it, not even empty.
TEST_F(DocumentStoreTest, assetsThatComeBackAreAStepOfTheirOwn) {
    DocumentStore store(
        titled("mine"), file::Gone{"/Story", PackageStamp(), true}, [] { return 0.0; }, titled(""));
    store.noteDisk(PackageStamp());
    store.noteDisk(stamp(2));
    EXPECT_EQ(store.fileState(),
              FileState(file::ChangedOnDisk{.path = "/Story", .stamp = {}, .lacksAssets = true}));
    ArticleFileDocument theirs = titled("theirs");
    theirs.assets = Assets{{"a.png", Bytes("picture")}};
    store.takeAssets(theirs, "Take Files");
    store.takeAssets(theirs, "Take Files");
    EXPECT_EQ(store.article().title, "mine");
    EXPECT_EQ(store.document().assets, theirs.assets);
    EXPECT_EQ(store.undoTitle(), "Undo Take Files");
    store.undo();
    EXPECT_TRUE(store.document().assets->empty());
    EXPECT_FALSE(store.canUndo());
}

TEST_F(DocumentStoreTest, takingOverFromDiskIsAStepThatKeepsTheSelection) {
    ArticleFileDocument first = titled("first");
    first.article.components = {Component{}, Component{}};
    DocumentStore store(first, file::AtPath{"/Story", stamp(1)}, [] { return 0.0; });
    const EditorSelection selected = EditorSelection::ofComponent(store.article().components[1].id);
    store.select(selected);
    edit(store, "mine");
    store.noteDisk(stamp(2));

    ArticleFileDocument theirs = titled("theirs");
    theirs.article.components = {Component{}, Component{}};
    store.takeFromDisk(theirs, stamp(2), "Revert");
    EXPECT_EQ(store.article().title, "theirs");
    EXPECT_EQ(store.selection(), selected);
    EXPECT_EQ(store.fileState(), FileState(file::AtPath{"/Story", stamp(2)}));
    EXPECT_FALSE(store.isEdited());
    EXPECT_EQ(store.undoTitle(), "Undo Revert");

    theirs.article.components = {};
    theirs.assets = Assets{{"a.png", Bytes("picture")}};
    store.takeFromDisk(theirs, stamp(3), "Revert");
    EXPECT_EQ(store.selection(), EditorSelection::document());
    store.undo();
    EXPECT_TRUE(store.document().assets->empty());
    EXPECT_TRUE(store.isEdited());
    store.undo();
    EXPECT_EQ(store.article().title, "mine");
    EXPECT_EQ(store.redoTitle(), "Redo Revert");
}

} // namespace
} // namespace quillon::test
