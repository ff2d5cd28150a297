#pragma once

#include <atomic>
#include <compare>
#include <concepts>
#include <cstdint>
#include <optional>
#include <type_traits>
#include <utility>

namespace quillon {

/// An optional value held in a shared immutable block: eight bytes, copied by counting a reference, compared
/// by identity first and by contents only after. It reads like std::optional; what it holds is changed
/// through edit(), which gives other holders their own copy first. `Value` may be incomplete where the handle
/// is declared.
template <typename Value>
class SharedOptional {
public:
    SharedOptional() noexcept = default;
    SharedOptional(std::nullopt_t) noexcept {}
    SharedOptional(const SharedOptional& other) noexcept : m_block(other.m_block) { retain(); }
    SharedOptional(SharedOptional&& other) noexcept : m_block(std::exchange(other.m_block, nullptr)) {}
    template <typename Source>
    requires(!std::same_as<std::remove_cvref_t<Source>, SharedOptional> &&
             !std::same_as<std::remove_cvref_t<Source>, std::nullopt_t> && std::convertible_to<Source, Value>)
        SharedOptional(Source&& source)
        : m_block(new Block(std::forward<Source>(source))) {}
    ~SharedOptional() { release(); }

    SharedOptional& operator=(const SharedOptional& other) noexcept {
        SharedOptional(other).swap(*this);
        return *this;
    }
    SharedOptional& operator=(SharedOptional&& other) noexcept {
        SharedOptional(std::move(other)).swap(*this);
        return *this;
    }

    bool has_value() const noexcept { return m_block != nullptr; }
    explicit operator bool() const noexcept { return m_block != nullptr; }
    const Value& operator*() const noexcept { return m_block->value; }
    const Value* operator->() const noexcept { return &m_block->value; }
    const Value& value() const noexcept { return m_block->value; }
    /// The value, or `fallback` converted to it.
    template <typename Fallback>
    Value value_or(Fallback&& fallback) const {
        return m_block ? m_block->value : static_cast<Value>(std::forward<Fallback>(fallback));
    }
    void reset() noexcept { SharedOptional().swap(*this); }

    /// The value to change in place: made empty when absent, copied first when others hold it too.
    Value& edit() {
        if (!m_block) {
            m_block = new Block();
        } else if (m_block->holders.load(std::memory_order_acquire) != 1) {
            SharedOptional(m_block->value).swap(*this);
        }
        return m_block->value;
    }

    /// Whether both hold the very same block (or none).
    bool isIdentical(const SharedOptional& other) const noexcept { return m_block == other.m_block; }

    void swap(SharedOptional& other) noexcept { std::swap(m_block, other.m_block); }

    friend bool operator==(const SharedOptional& left, const SharedOptional& right) {
        if (left.m_block == right.m_block) {
            return true;
        }
        return left.m_block && right.m_block && left.m_block->value == right.m_block->value;
    }
    friend bool operator==(const SharedOptional& left, std::nullopt_t) noexcept { return !left.m_block; }
    template <typename Other>
    requires(!std::same_as<std::remove_cvref_t<Other>, SharedOptional> &&
             !std::same_as<std::remove_cvref_t<Other>, std::nullopt_t>) friend bool
    operator==(const SharedOptional& left, const Other& right) {
        return left.m_block && left.m_block->value == right;
    }

private:
    struct Block {
        template <typename... Arguments>
        explicit Block(Arguments&&... arguments) : value(std::forward<Arguments>(arguments)...) {}

        std::atomic<uint32_t> holders{1};
        Value value;
    };

    void retain() const noexcept {
        if (m_block) {
            m_block->holders.fetch_add(1, std::memory_order_relaxed);
        }
    }
    void release() noexcept {
        if (m_block && m_block->holders.fetch_sub(1, std::memory_order_acq_rel) == 1) {
            delete m_block;
        }
    }

    Block* m_block = nullptr;
};

/// A value that is always there, held in a shared immutable block like SharedOptional's. A default-made
/// handle shares one empty value.
template <typename Value>
class Shared {
public:
    Shared() : m_handle(empty()) {}
    template <typename Source>
    requires(!std::same_as<std::remove_cvref_t<Source>, Shared> && std::convertible_to<Source, Value>)
        Shared(Source&& source)
        : m_handle(std::forward<Source>(source)) {}

    /// Takes over `handle`, which must hold a value.
    explicit Shared(SharedOptional<Value> handle) : m_handle(std::move(handle)) {}

    const Value& operator*() const noexcept { return *m_handle; }
    const Value* operator->() const noexcept { return &*m_handle; }
    /// The value to change in place; other holders keep theirs.
    Value& edit() { return m_handle.edit(); }
    /// The same block as a handle that could also be empty.
    const SharedOptional<Value>& handle() const noexcept { return m_handle; }
    bool isIdentical(const Shared& other) const noexcept { return m_handle.isIdentical(other.m_handle); }

    friend bool operator==(const Shared& left, const Shared& right) {
        return left.m_handle == right.m_handle;
    }

private:
    static const SharedOptional<Value>& empty() {
        static const SharedOptional<Value> value = [] {
            SharedOptional<Value> made;
            made.edit();
            return made;
        }();
        return value;
    }

    SharedOptional<Value> m_handle;
};

/// A field that may be absent: numbers, flags and enumerations stand in place, all else behind a shared
/// handle, so that an absent field costs eight bytes and copying a record copies no text.
template <typename Value>
using Optional = std::conditional_t<std::is_arithmetic_v<Value> || std::is_enum_v<Value>,
                                    std::optional<Value>, SharedOptional<Value>>;

} // namespace quillon
