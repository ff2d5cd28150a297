#include "base/List.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

namespace quillon {
namespace {

using Numbers = List<int>;

/// A list and what a vector says it must hold.
struct Version {
    Numbers list;
    std::vector<int> expected;
};

std::vector<int> contentsOf(const Numbers& list) {
    return {list.begin(), list.end()};
}

void requireHolds(const Version& version) {
    RC_ASSERT(version.list.size() == version.expected.size());
    RC_ASSERT(version.list.empty() == version.expected.empty());
    RC_ASSERT(contentsOf(version.list) == version.expected);
    for (size_t index = 0; index < version.expected.size(); ++index) {
        RC_ASSERT(version.list[index] == version.expected[index]);
    }
}

Numbers counted(int size) {
    std::vector<Numbers::Item> items;
    for (int number = 0; number < size; ++number) {
        items.emplace_back(number);
    }
    return Numbers(std::move(items));
}

RC_GTEST_PROP(List, behavesAsAVectorAndOlderVersionsStay, ()) {
    // Up to 5,000 elements make trees of three levels (64 entries a node).
    const int size = *rc::gen::element(0, 1, 63, 64, 65, 300, 4095, 4097, 5000);
    std::vector<Version> versions{{counted(size), {}}};
    versions.back().expected = contentsOf(versions.back().list);
    const auto steps = *rc::gen::resize(
        10, rc::gen::container<std::vector<std::tuple<int, uint16_t, int>>>(rc::gen::tuple(
                rc::gen::inRange(0, 4), rc::gen::arbitrary<uint16_t>(), rc::gen::inRange(1, 200))));
    for (const auto& [operation, place, repetitions] : steps) {
        Version next = versions.back();
        for (int repetition = 0; repetition < repetitions; ++repetition) {
            const size_t count = next.expected.size();
            // Repetitions stay in one region, so that nodes there fill up or run empty.
            const size_t index = count == 0 ? 0 : (place + static_cast<size_t>(repetition) % 3) % count;
            const auto at = next.expected.begin() + static_cast<std::ptrdiff_t>(index);
            if (operation == 0 || count == 0) {
                next.expected.insert(at, repetition);
                next.list = next.list.insert(index, repetition);
            } else if (operation == 1) {
                next.expected.push_back(repetition);
                next.list = next.list.append(repetition);
            } else if (operation == 2) {
                next.expected.erase(at);
                next.list = next.list.erase(index);
            } else {
                *at = -repetition;
                next.list = next.list.set(index, -repetition);
            }
        }
        versions.push_back(std::move(next));
    }
    for (const Version& version : versions) {
        requireHolds(version);
        // However it came about, it equals a list of the same contents made at once.
        const Numbers fresh(std::vector<Numbers::Item>(version.expected.begin(), version.expected.end()));
        RC_ASSERT(version.list == fresh);
        RC_ASSERT(fresh == version.list);
        RC_ASSERT((version.list == versions.back().list) == (version.expected == versions.back().expected));
    }
}

TEST(List, equalListsOfOtherShape) {
    Numbers oneByOne;
    for (int number = 0; number < 1000; ++number) {
        oneByOne = oneByOne.insert(oneByOne.size(), number);
    }
    Numbers fromBehind;
    for (int number = 999; number >= 0; --number) {
        fromBehind = fromBehind.insert(0, number);
    }
    EXPECT_EQ(oneByOne, counted(1000));
    EXPECT_EQ(fromBehind, counted(1000));
    EXPECT_EQ(oneByOne, fromBehind);
    EXPECT_NE(oneByOne.set(999, 0), fromBehind);
    EXPECT_NE(oneByOne.set(0, 1), fromBehind);
    EXPECT_NE(oneByOne.erase(500), fromBehind.erase(501));
    EXPECT_NE(Numbers(), counted(1));
    EXPECT_EQ(Numbers(), counted(1).erase(0));
    EXPECT_EQ(Numbers({1, 2, 3}), Numbers({1, 2}).append(3));
}

TEST(List, versionsShareWhatTheyHaveInCommon) {
    const Numbers list = counted(5000);
    const Numbers changed = list.set(2500, -1);
    const Numbers longer = list.insert(2500, -1);
    const Numbers shorter = list.erase(2500);
    for (size_t index = 0; index < list.size(); ++index) {
        const Numbers::Item& item = list.item(index);
        EXPECT_EQ(changed.item(index).isIdentical(item), index != 2500);
        EXPECT_TRUE(longer.item(index + (index >= 2500 ? 1 : 0)).isIdentical(item));
        if (index != 2500) {
            EXPECT_TRUE(shorter.item(index - (index > 2500 ? 1 : 0)).isIdentical(item));
        }
    }
}

/// Counts how often two of it are compared.
struct Watched {
    int number = 0;
    static inline int comparisons = 0;
    friend bool operator==(const Watched& left, const Watched& right) {
        ++comparisons;
        return left.number == right.number;
    }
};

TEST(List, comparingVersionsLooksAtTheirDifferenceAlone) {
    std::vector<List<Watched>::Item> items;
    for (int number = 0; number < 5000; ++number) {
        items.emplace_back(Watched{number});
    }
    const List<Watched> list(std::move(items));
    Watched::comparisons = 0;
    EXPECT_TRUE(list == List<Watched>(list));
    EXPECT_EQ(Watched::comparisons, 0);
    EXPECT_TRUE(list == list.set(4000, Watched{4000}));
    EXPECT_FALSE(list == list.set(4000, Watched{-1}));
    EXPECT_EQ(Watched::comparisons, 2);
    EXPECT_FALSE(list == list.erase(1));
    EXPECT_EQ(Watched::comparisons, 2);
}

TEST(SharedOptional, editingLeavesOtherHoldersTheirValue) {
    SharedOptional<std::string> first = std::string("a");
    SharedOptional<std::string> second = first;
    EXPECT_TRUE(first.isIdentical(second));
    second.edit() += "b";
    EXPECT_EQ(*first, "a");
    EXPECT_EQ(*second, "ab");
    const std::string* before = &*second;
    second.edit() += "c";
    EXPECT_EQ(&*second, before) << "a sole holder's value is changed in place";
    second = first;
    EXPECT_EQ(first, second);
    second = std::nullopt;
    EXPECT_NE(first, second);
    EXPECT_EQ(second.value_or("none"), "none");
    second.edit() = "a";
    EXPECT_EQ(first, second);
    EXPECT_FALSE(first.isIdentical(second));
}

RC_GTEST_PROP(List, tellsWhatTwoVersionsShare, (uint16_t size, uint16_t erased, uint16_t place)) {
    const Numbers list = counted(1 + size % 9000);
    const size_t at = place % list.size();
    Numbers other = list;
    for (size_t count = std::min<size_t>(erased % 200, list.size() - at); count > 0; --count) {
        other = other.erase(at);
    }
    for (int count = 0; count < size % 100; ++count) {
        other = other.insert(at, -1);
    }
    const bool isSame = erased % 200 == 0 && size % 100 == 0;
    const size_t prefix = list.sharedPrefix(other);
    RC_ASSERT(prefix == (isSame ? list.size() : at));
    const size_t suffix = list.sharedSuffix(other, prefix);
    RC_ASSERT(suffix == (isSame ? 0
                                : std::min(list.size(), list.size() - at) -
                                      std::min<size_t>(erased % 200, list.size() - at)));
}

} // namespace
} // namespace quillon
