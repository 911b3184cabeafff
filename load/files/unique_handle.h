// The owner of one system handle, whatever its kind. Free of Windows: the traits know that.
#pragma once

#include <utility>

namespace rl {

/// Owns one system handle. `Traits` names the handle type, its empty value and how it is closed.
template <typename Traits>
class UniqueHandle {
public:
    using Handle = typename Traits::Handle;

    UniqueHandle() noexcept = default;
    explicit UniqueHandle(Handle handle) noexcept : handle_(handle) {}
    UniqueHandle(const UniqueHandle&) = delete;
    UniqueHandle& operator=(const UniqueHandle&) = delete;
    UniqueHandle(UniqueHandle&& other) noexcept : handle_(other.Release()) {}
    UniqueHandle& operator=(UniqueHandle&& other) noexcept {
        Reset(other.Release());
        return *this;
    }
    ~UniqueHandle() { Reset(); }

    [[nodiscard]] Handle Get() const noexcept { return handle_; }
    [[nodiscard]] Handle Release() noexcept { return std::exchange(handle_, Traits::Empty()); }
    explicit operator bool() const noexcept { return handle_ != Traits::Empty(); }

    void Reset(Handle next = Traits::Empty()) noexcept {
        const Handle previous = std::exchange(handle_, next);
        if (previous != Traits::Empty()) {
            Traits::Close(previous);
        }
    }

private:
    Handle handle_ = Traits::Empty();
};

}  // namespace rl
