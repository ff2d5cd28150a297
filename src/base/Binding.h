#pragma once

#include "base/Shared.h"

#include <concepts>
#include <functional>
#include <optional>
#include <type_traits>
#include <utility>

namespace quillon {

namespace detail {

template <typename Held>
struct Unwrapped {
    using Type = Held;
};
template <typename Value>
struct Unwrapped<SharedOptional<Value>> {
    using Type = Value;
};
template <typename Value>
struct Unwrapped<Shared<Value>> {
    using Type = Value;
};
template <typename Value>
struct Unwrapped<std::optional<Value>> {
    using Type = Value;
};

} // namespace detail

/// A value that stands somewhere else, with the way to read it and to write it. `Held` is what stands there:
/// a value, or one behind Optional<> or Shared<>. Copies lead to the same place; each reads anew.
template <typename Held>
class Binding {
public:
    /// The record that `field` looks into.
    using Record = typename detail::Unwrapped<Held>::Type;

    /// Leads nowhere: reads as an empty value, and what is written is lost.
    Binding() : Binding([] { return Held(); }, [](Held) {}) {}
    Binding(std::function<Held()> get, std::function<void(Held)> set)
        : m_get(std::move(get)), m_set(std::move(set)) {}

    Held get() const { return m_get(); }
    void set(Held value) const { m_set(std::move(value)); }

    /// Leads to one field of the record. A record that is absent reads as an empty one, and writing the field
    /// brings it into being; all else in the record stays as it is at that moment.
    template <typename Member, std::same_as<Record> Owner>
    Binding<Member> field(Member Owner::*member) const {
        return {[get = m_get, member] {
                    const Held whole = get();
                    if constexpr (std::is_same_v<Held, Record>) {
                        return whole.*member;
                    } else if constexpr (std::is_same_v<Held, Shared<Record>>) {
                        return (*whole).*member;
                    } else {
                        return whole ? (*whole).*member : Record().*member;
                    }
                },
                [get = m_get, set = m_set, member](Member value) {
                    Held whole = get();
                    recordToEdit(whole).*member = std::move(value);
                    set(std::move(whole));
                }};
    }

    /// Leads to the same place through two functions: what is read goes through `read`, what is written comes
    /// from `write`.
    template <typename Read, typename Write>
    auto converted(Read read, Write write) const {
        using Other = std::decay_t<std::invoke_result_t<Read, Held>>;
        return Binding<Other>(
            [get = m_get, read = std::move(read)] { return read(get()); },
            [set = m_set, write = std::move(write)](Other value) { set(write(std::move(value))); });
    }

private:
    static Record& recordToEdit(Held& whole) {
        if constexpr (std::is_same_v<Held, Record>) {
            return whole;
        } else if constexpr (std::is_same_v<Held, std::optional<Record>>) {
            return whole ? *whole : whole.emplace();
        } else {
            return whole.edit();
        }
    }

    std::function<Held()> m_get;
    std::function<void(Held)> m_set;
};

} // namespace quillon
