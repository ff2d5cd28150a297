#include "base/Uuid.h"

#include "base/Numbers.h"

#include <array>
#include <atomic>
#include <bit>
#include <cstdio>
#include <cstdlib>

#include <pthread.h>
#include <sys/random.h>

namespace quillon {

namespace {

constexpr std::size_t writtenLength = 36;

constexpr bool isHyphenPlace(std::size_t index) {
    return index == 8 || index == 13 || index == 18 || index == 23;
}

/// Counts the forks that lie between this process and the first one, so that a child seeds anew.
std::atomic<unsigned> forkGeneration = 1;

void watchForks() {
    static const int watching =
        pthread_atfork(nullptr, nullptr, [] { forkGeneration.fetch_add(1, std::memory_order_relaxed); });
    if (watching != 0) {
        std::fputs("quillon: no memory to watch for forks\n", stderr);
        std::abort();
    }
}

/// A xoshiro256++ generator seeded with the system's entropy, one for each thread.
class Generator {
public:
    std::uint64_t next() {
        const std::uint64_t result = std::rotl(m_state[0] + m_state[3], 23) + m_state[0];
        const std::uint64_t shifted = m_state[1] << 17;
        m_state[2] ^= m_state[0];
        m_state[3] ^= m_state[1];
        m_state[1] ^= m_state[2];
        m_state[0] ^= m_state[3];
        m_state[2] ^= shifted;
        m_state[3] = std::rotl(m_state[3], 45);
        return result;
    }

    void seedIfStale() {
        const unsigned generation = forkGeneration.load(std::memory_order_relaxed);
        if (generation == m_seededIn) {
            [[likely]] return;
        }
        watchForks();
        if (getentropy(m_state.data(), sizeof m_state) != 0) {
            std::perror("quillon: the system gives no random bytes");
            std::abort();
        }
        m_state[0] |= 1; // the one state the generator cannot leave is all zeros
        m_seededIn = generation;
    }

private:
    std::array<std::uint64_t, 4> m_state{};
    unsigned m_seededIn = 0;
};

} // namespace

Uuid Uuid::random() {
    thread_local Generator generator;
    generator.seedIfStale();
    Uuid uuid{generator.next(), generator.next()};
    uuid.high = (uuid.high & ~0xF000ULL) | 0x4000ULL;
    uuid.low = (uuid.low & ~(3ULL << 62)) | (2ULL << 62);
    return uuid;
}

std::string Uuid::text() const {
    std::string written(writtenLength, '-');
    int nibble = 0;
    for (std::size_t i = 0; i < writtenLength; ++i) {
        if (isHyphenPlace(i)) {
            continue;
        }
        const std::uint64_t word = nibble < 16 ? high : low;
        written[i] = "0123456789ABCDEF"[(word >> (60 - 4 * (nibble % 16))) & 0xF];
        ++nibble;
    }
    return written;
}

std::optional<Uuid> parseUuid(std::string_view text) {
    if (text.size() != writtenLength) {
        return std::nullopt;
    }
    Uuid uuid;
    int nibble = 0;
    for (std::size_t i = 0; i < writtenLength; ++i) {
        if (isHyphenPlace(i)) {
            if (text[i] != '-') {
                return std::nullopt;
            }
            continue;
        }
        const int value = hexadecimalValue(text[i]);
        if (value < 0) {
            return std::nullopt;
        }
        std::uint64_t& word = nibble < 16 ? uuid.high : uuid.low;
        word = (word << 4) | static_cast<std::uint64_t>(value);
        ++nibble;
    }
    return uuid;
}

} // namespace quillon
