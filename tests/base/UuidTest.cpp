#include "base/Uuid.h"

#include <array>
#include <thread>
#include <type_traits>
#include <unordered_set>

#include <rapidcheck/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

namespace quillon {
namespace {

static_assert(sizeof(Uuid) == 16 && std::is_trivially_copyable_v<Uuid>);

TEST(UuidTests, writtenForm) {
    const Uuid uuid{0x0123456789ABCDEFULL, 0xFEDCBA9876543210ULL};
    EXPECT_EQ(uuid.text(), "01234567-89AB-CDEF-FEDC-BA9876543210");
    EXPECT_EQ(Uuid{}.text(), "00000000-0000-0000-0000-000000000000");
    EXPECT_EQ(parseUuid("01234567-89ab-CDEF-fedc-Ba9876543210"), uuid);
}

TEST(UuidTests, refusesWhatIsNotAnIdentifier) {
    for (const char* text :
         {"", "01234567-89AB-CDEF-FEDC-BA987654321", "01234567-89AB-CDEF-FEDC-BA98765432100",
          "0123456789ABCDEFFEDCBA9876543210", "{1234567-89AB-CDEF-FEDC-BA987654321}",
          "01234567089AB-CDEF-FEDC-BA9876543210", "0123456--89AB-CDEF-FEDC-BA9876543210",
          "G1234567-89AB-CDEF-FEDC-BA9876543210", "01234567-89AB-CDEF-FEDC-BA987654321é"}) {
        SCOPED_TRACE(text);
        EXPECT_EQ(parseUuid(text), std::nullopt);
    }
}

RC_GTEST_PROP(UuidTests, textRoundTripsAndKeepsOrder, (std::uint64_t a, std::uint64_t b, std::uint64_t c)) {
    const Uuid first{a, b};
    const Uuid second{c, b};
    RC_ASSERT(parseUuid(first.text()) == first);
    RC_ASSERT((first < second) == (first.text() < second.text()));
}

TEST(UuidTests, randomOnesAreVersionFourAndDiffer) {
    std::unordered_set<Uuid> seen;
    for (int i = 0; i < 20'000; ++i) {
        const Uuid uuid = Uuid::random();
        const std::string text = uuid.text();
        ASSERT_EQ(text[14], '4') << text;
        ASSERT_NE(std::string("89AB").find(text[19]), std::string::npos) << text;
        ASSERT_TRUE(seen.insert(uuid).second) << text;
    }
    std::array<Uuid, 2> fromThreads;
    std::thread first([&] { fromThreads[0] = Uuid::random(); });
    std::thread second([&] { fromThreads[1] = Uuid::random(); });
    first.join();
    second.join();
    EXPECT_NE(fromThreads[0], fromThreads[1]);
}

TEST(UuidTests, aForkedChildDrawsOthers) {
    (void)Uuid::random(); // seeded before the fork
    std::array<int, 2> ends{};
    ASSERT_EQ(pipe(ends.data()), 0);
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        const Uuid drawn = Uuid::random();
        _exit(write(ends[1], &drawn, sizeof drawn) == sizeof drawn ? 0 : 1);
    }
    Uuid fromChild;
    ASSERT_EQ(read(ends[0], &fromChild, sizeof fromChild), static_cast<ssize_t>(sizeof fromChild));
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0);
    EXPECT_NE(fromChild, Uuid::random());
    close(ends[0]);
    close(ends[1]);
}

} // namespace
} // namespace quillon
