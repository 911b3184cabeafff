// Has the system hand out the pages of a large array ahead of the one who fills it.
//
// A system gives out memory page by page, each when it is first written to, and clears it before.
// For an array of many megabytes that takes longer than filling it. A second thread therefore
// writes to the pages in front, and whoever fills the array helps it where both meet: neither ever
// waits for more than the few pages the other has in hand.
//
// Without a second processor, or for a small array, every page is ready from the start and is
// handed out when it is filled, as always.
#pragma once

#include <atomic>
#include <cstddef>
#include <memory>
#include <thread>

namespace rl {

class FreshPages {
public:
    /// How many bytes are prepared together.
    static constexpr size_t kStretch = size_t{512} * 1024;
    /// Rooms smaller than this are not worth a thread.
    static constexpr size_t kSmallest = 16 * kStretch;

    FreshPages() = default;
    ~FreshPages() { Stop(); }
    FreshPages(const FreshPages&) = delete;
    FreshPages& operator=(const FreshPages&) = delete;

    /// Begins with the `size` bytes at `room`, which hold nothing yet and which nobody else writes
    /// to before `Ready` says so; what was begun before ends. The memory outlives the next call of
    /// this or of `Stop`.
    void Start(void* room, size_t size, unsigned processors = std::thread::hardware_concurrency());

    /// How many bytes from the beginning of the room may be written: more than `last`, the position
    /// of one of them, or all. Call it from the thread that called `Start`.
    [[nodiscard]] size_t Ready(size_t last);

    /// Nothing is written to the room by others from here on. `Ready` then answers with all of it.
    void Stop() noexcept;

private:
    [[nodiscard]] bool TouchNext() noexcept;

    std::byte* room_ = nullptr;
    size_t size_ = 0;
    size_t stretches_ = 0;
    size_t front_ = 0;              // stretches that are ready, from the beginning
    std::atomic<size_t> next_ = 0;  // the first stretch that nobody has taken in hand
    std::unique_ptr<std::atomic<bool>[]> isReady_;
    std::thread helper_;
};

}  // namespace rl
