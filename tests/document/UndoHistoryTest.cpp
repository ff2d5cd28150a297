#include "document/UndoHistory.h"

#include <gtest/gtest.h>

namespace quillon::test {
namespace {

/// A history of titles, typed at given times.
class Typing {
public:
    explicit Typing(std::size_t bound = UndoHistory::memoryBound) : history(EditedValue{}, bound) {}

    void type(double time, const std::string& title, const std::string& field,
              EditorSelection selection = EditorSelection::document()) {
        EditedValue next = history.current();
        next.document.article.title = title;
        next.selection = selection;
        history.record({title, field}, next, time);
    }
    std::string title() const { return history.current().document.article.title; }
    /// The titles on the way back, ending with the first.
    std::string undone() {
        std::string titles;
        while (history.undo()) {
            titles += "<" + title();
        }
        return titles;
    }

    UndoHistory history;
};

TEST(UndoHistory, editsOfOneFieldWithinASecondAreOneStep) {
    struct {
        const char* name;
        std::vector<std::tuple<double, const char*, const char*>> edits; ///< an empty title ends folding
        const char* undone;
    } const cases[] = {
        {"fast", {{0, "a", "title"}, {1, "ab", "title"}, {2, "abc", "title"}}, "<"},
        {"slow", {{0, "a", "title"}, {1.1, "ab", "title"}}, "<a<"},
        {"other field", {{0, "a", "title"}, {0.1, "ab", "text"}, {0.2, "abc", "title"}}, "<ab<a<"},
        {"no field", {{0, "a", ""}, {0.1, "ab", ""}}, "<a<"},
        {"ended", {{0, "a", "title"}, {0.1, "", ""}, {0.2, "ab", "title"}}, "<a<"},
        {"there and back", {{0, "a", "x"}, {1, "ab", "title"}, {1.1, "a", "title"}}, "<"},
    };
    for (const auto& each : cases) {
        Typing typing;
        for (const auto& [time, title, field] : each.edits) {
            if (*title == 0) {
                typing.history.endFolding();
            } else {
                typing.type(time, title, field);
            }
        }
        EXPECT_EQ(typing.undone(), each.undone) << each.name;
    }
}

TEST(UndoHistory, undoAndRedoEndFolding) {
    Typing typing;
    typing.type(0, "a", "title");
    typing.type(0.1, "b", "text");
    typing.history.undo();
    typing.type(0.2, "ab", "title");
    EXPECT_EQ(typing.undone(), "<a<");
    typing.history.redo();
    typing.history.redo();
    typing.type(0.3, "abc", "title");
    EXPECT_EQ(typing.undone(), "<ab<a<");
}

TEST(UndoHistory, aNewEditForgetsWhatWasUndone) {
    Typing typing;
    typing.type(0, "a", "");
    typing.type(1, "b", "");
    typing.history.undo();
    EXPECT_EQ(typing.history.undoName(), "a");
    EXPECT_EQ(typing.history.redoName(), "b");
    typing.type(2, "c", "");
    EXPECT_EQ(typing.history.redoName(), std::nullopt);
    EXPECT_FALSE(typing.history.redo());
    EXPECT_EQ(typing.undone(), "<a<");
}

TEST(UndoHistory, selectionsAreThoseAroundTheEdit) {
    const EditorSelection one = EditorSelection::ofComponent(Uuid::random());
    const EditorSelection two = EditorSelection::ofComponent(Uuid::random());
    const EditorSelection three = EditorSelection::ofComponent(Uuid::random());
    Typing typing;
    typing.history.select(one);
    typing.type(0, "a", "", two);
    typing.history.select(three);
    typing.history.undo();
    EXPECT_EQ(typing.history.current().selection, one);
    typing.history.redo();
    EXPECT_EQ(typing.history.current().selection, two);
    typing.history.select(three);
    typing.type(9, "ab", "", one);
    typing.history.undo();
    EXPECT_EQ(typing.history.current().selection, three);
}

TEST(UndoHistory, theOldestStepsGoBeyondTheBoundButNeverTheLast) {
    constexpr std::size_t bound = 1'000'000;
    Typing typing(bound);
    for (int step = 0; step < 20; ++step) {
        typing.type(step, std::string(100'000, static_cast<char>('a' + step)), "");
        EXPECT_LE(typing.history.memory(), bound);
    }
    EXPECT_EQ(typing.history.steps(), 9U);
    typing.type(30, std::string(5'000'000, 'x'), "");
    typing.type(31, "small", ""); // keeps the large one
    EXPECT_EQ(typing.history.steps(), 1U);
    EXPECT_TRUE(typing.history.undo());
    EXPECT_EQ(typing.title().size(), 5'000'000U);
    typing.type(32, "a", "");
    typing.type(33, "b", "");
    EXPECT_EQ(typing.history.steps(), 1U);
}

TEST(UndoHistory, aRemovedTreeWeighsAndASharedOneDoesNot) {
    EditedValue value;
    std::vector<Shared<Component>> items;
    for (int index = 0; index < 1000; ++index) {
        Component component;
        component.text = std::string(1000, 'x');
        items.emplace_back(std::move(component));
    }
    value.document.article.components = List<Component>(items);
    UndoHistory history(value);
    EditedValue next = value;
    next.document.article.components = value.document.article.components.erase(500);
    history.record({"Delete", ""}, next, 0);
    EXPECT_LT(history.memory(), 10'000U);
    next.document.article.components = {};
    history.record({"Delete All", ""}, next, 1);
    EXPECT_GT(history.memory(), 1'000'000U);
    EXPECT_LT(history.memory(), 3'000'000U);
    next.document.assets = Assets{{"a.png", Bytes(std::string(50'000'000, 'x'))}};
    history.record({"Revert", ""}, next, 2);
    EXPECT_LT(history.memory(), 3'000'000U);
    next.document.assets = {};
    history.record({"Revert", ""}, next, 3);
    EXPECT_GT(history.memory(), 50'000'000U);
}

} // namespace
} // namespace quillon::test
