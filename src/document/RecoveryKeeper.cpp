#include "document/RecoveryKeeper.h"

#include <mutex>
#include <utility>

namespace quillon {

namespace {

/// What the disk is to hold: an article with its place, or no copy at all.
struct Wish {
    std::optional<ArticleDocument> article;
    std::optional<std::string> path;
    std::optional<Shared<PackageStamp>> stamp;

    bool operator==(const Wish&) const = default;
};

/// The folder whose value the document goes back to: while a save runs, the one from before.
void describePlace(Wish& wish, const FileState& state) {
    const auto describe = [&wish](const auto& each) {
        if constexpr (requires { each.stamp; }) {
            wish.path = each.path;
            wish.stamp = each.stamp;
        }
    };
    if (const auto* saving = std::get_if<file::Saving>(&state)) {
        std::visit(describe, saving->before);
    } else {
        std::visit(describe, state);
    }
}

Wish wishOf(const DocumentStore& store) {
    Wish wish;
    if (store.isEdited()) {
        wish.article = store.article();
        describePlace(wish, store.fileState());
    }
    return wish;
}

/// The copy as the main thread and the one that writes share it.
class SharedCopy {
public:
    explicit SharedCopy(std::unique_ptr<RecoveryCopy> copy) : m_copy(std::move(copy)) {}

    bool isOnDisk() {
        const std::lock_guard guard(m_mutex);
        return m_copy->isOnDisk();
    }

    /// Does what the `number`th wish asks for, unless a later one was done before.
    Expected<void, DiskFailure> fulfil(const Wish& wish, std::size_t number) {
        const std::lock_guard guard(m_mutex);
        if (number < m_latest) {
            return {};
        }
        m_latest = number;
        if (!wish.article) {
            m_copy->remove();
            return {};
        }
        RecoveryInfo info;
        info.packagePath = wish.path;
        info.packageMark = wish.stamp ? (*wish.stamp)->mark() : 0;
        return m_copy->write(*wish.article, info);
    }

private:
    std::mutex m_mutex;
    std::unique_ptr<RecoveryCopy> m_copy;
    std::size_t m_latest = 0;
};

constexpr double retryTime = 30; // seconds

} // namespace

struct RecoveryKeeper::Parts {
    RecoveryKeeper& keeper;
    DocumentStore& store;
    std::shared_ptr<SharedCopy> copy;
    Scheduler& scheduler;

    std::optional<Wish> done = std::nullopt; ///< what the disk holds; nothing where that is not known
    std::size_t asked = 0;                   ///< wishes given away so far
    bool isWriting = false;
    bool isDue = false; ///< another write is to follow the one that runs
    bool isTimerRunning = false;
    bool isRetryRunning = false;
    bool isFailing = false;
    bool isClosed = false;
    Subscription subscription = {};
    WhileAlive whileAlive = {};

    void noteChange();
    void start();
    void finish(const Wish& wish, std::size_t number, const Expected<void, DiskFailure>& result);
    void retryLater();
    Expected<void, DiskFailure> writeNow(const Wish& wish);
};

void RecoveryKeeper::Parts::noteChange() {
    if (isClosed || (!isWriting && done == wishOf(store))) {
        return;
    }
    if (!store.isEdited()) {
        start();
        return;
    }
    if (isTimerRunning) {
        return;
    }
    isTimerRunning = true;
    scheduler.after(delay, whileAlive([this] {
                        isTimerRunning = false;
                        start();
                    }));
}

/// Begins a write of the present value, or marks it due where one is running.
void RecoveryKeeper::Parts::start() {
    if (isClosed) {
        return;
    }
    if (isWriting) {
        isDue = true;
        return;
    }
    const Wish wish = wishOf(store);
    if (done == wish) {
        return;
    }
    isWriting = true;
    ++asked;
    const auto result = std::make_shared<Expected<void, DiskFailure>>();
    std::function<void()> answer =
        whileAlive([this, wish, number = asked, result] { finish(wish, number, *result); });
    scheduler.inBackground(Lane::recovery, [copy = copy, wish, number = asked, result, answer] {
        *result = copy->fulfil(wish, number);
        return answer;
    });
}

void RecoveryKeeper::Parts::finish(const Wish& wish, std::size_t number,
                                   const Expected<void, DiskFailure>& result) {
    isWriting = false;
    if (isClosed) {
        return;
    }
    if (number < asked) { // `flush` overtook it and knows better
        if (std::exchange(isDue, false)) {
            start();
        }
        return;
    }
    const bool wasFailing = std::exchange(isFailing, !result);
    done = result ? std::optional(wish) : std::nullopt;
    if (!result) {
        retryLater();
    }
    if (std::exchange(isDue, false)) {
        start();
    }
    // Last, since whoever is told may do away with the keeper.
    if (isFailing != wasFailing && keeper.onFailure) {
        const auto tell = keeper.onFailure;
        tell(result ? std::nullopt : std::optional(result.error()));
    }
}

void RecoveryKeeper::Parts::retryLater() {
    if (isRetryRunning) {
        return;
    }
    isRetryRunning = true;
    scheduler.after(retryTime, whileAlive([this] {
                        isRetryRunning = false;
                        if (isFailing) {
                            start();
                        }
                    }));
}

Expected<void, DiskFailure> RecoveryKeeper::Parts::writeNow(const Wish& wish) {
    Expected<void, DiskFailure> result = copy->fulfil(wish, ++asked);
    done = result ? std::optional(wish) : std::nullopt;
    return result;
}

RecoveryKeeper::RecoveryKeeper(DocumentStore& store, std::unique_ptr<RecoveryCopy> copy, Scheduler& scheduler)
    : m_parts(new Parts{*this, store, std::make_shared<SharedCopy>(std::move(copy)), scheduler}) {
    Parts& parts = *m_parts;
    if (!parts.copy->isOnDisk()) {
        parts.done = Wish();
    }
    parts.subscription = store.observe([&parts](const StoreChange& change) {
        if (change.article || change.file) {
            parts.noteChange();
        }
    });
    parts.noteChange();
}

RecoveryKeeper::~RecoveryKeeper() = default;

Expected<void, DiskFailure> RecoveryKeeper::flush() {
    const Wish wish = wishOf(m_parts->store);
    if (m_parts->isClosed || (!m_parts->isWriting && m_parts->done == wish)) {
        return {};
    }
    return m_parts->writeNow(wish);
}

void RecoveryKeeper::close() {
    if (!m_parts->isClosed) {
        m_parts->isClosed = true;
        m_parts->scheduler.inBackground(Lane::recovery, [copy = m_parts->copy, number = ++m_parts->asked] {
            (void)copy->fulfil(Wish(), number);
            return std::function<void()>();
        });
    }
}

} // namespace quillon
