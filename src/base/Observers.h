#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <memory>
#include <utility>

namespace quillon {

/// Keeps an observer registered as long as it lives; it may outlive what it observes.
class [[nodiscard]] Subscription {
public:
    Subscription() = default;
    explicit Subscription(std::function<void()> cancel)
        : m_cancel(std::make_unique<std::function<void()>>(std::move(cancel))) {}
    Subscription(Subscription&&) noexcept = default;
    Subscription& operator=(Subscription&& other) noexcept {
        std::swap(m_cancel, other.m_cancel);
        return *this;
    }
    ~Subscription() {
        if (m_cancel) {
            (*m_cancel)();
        }
    }

private:
    std::unique_ptr<std::function<void()>> m_cancel;
};

/// Those who want to be told of a change, in the order in which they came. One that comes or goes while the
/// others are being told is told from the next change on, or no more.
template <typename Change>
class Observers {
public:
    Subscription add(std::function<void(const Change&)> observer) {
        const std::size_t key = m_list->next++;
        m_list->entries.emplace(key, std::move(observer));
        return Subscription([list = std::weak_ptr<Entries>(m_list), key] {
            if (const auto held = list.lock()) {
                held->entries.erase(key);
            }
        });
    }

    void tell(const Change& change) const {
        const std::shared_ptr<Entries> held = m_list;
        const std::size_t end = held->next;
        for (auto entry = held->entries.begin(); entry != held->entries.end() && entry->first < end;) {
            const std::size_t key = entry->first;
            // A copy, since the observer may cancel its own subscription.
            const auto observer = entry->second;
            observer(change);
            entry = held->entries.upper_bound(key);
        }
    }

private:
    struct Entries {
        std::map<std::size_t, std::function<void(const Change&)>> entries;
        std::size_t next = 0;
    };

    std::shared_ptr<Entries> m_list = std::make_shared<Entries>();
};

} // namespace quillon
