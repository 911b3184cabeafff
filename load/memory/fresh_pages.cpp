#include "load/memory/fresh_pages.h"

#include <algorithm>
#include <exception>

namespace rl {

namespace {

constexpr size_t kPage = 4096;

}  // namespace

void FreshPages::Start(void* room, size_t size, unsigned processors) {
    Stop();
    room_ = static_cast<std::byte*>(room);
    size_ = size;
    if (size < kSmallest || processors < 2) {
        return;
    }
    try {
        const size_t stretches = (size + kStretch - 1) / kStretch;
        isReady_ = std::make_unique<std::atomic<bool>[]>(stretches);
        front_ = 0;
        next_ = 1;  // the first one is wanted at once
        isReady_[0] = true;
        stretches_ = stretches;
        helper_ = std::thread([this] {
            while (TouchNext()) {
            }
        });
    } catch (const std::exception&) {
        stretches_ = 0;  // no thread to be had: it goes without
    }
}

size_t FreshPages::Ready(size_t last) {
    const size_t wanted = last / kStretch;
    const auto isReady = [this] { return isReady_[front_].load(std::memory_order_acquire); };
    for (; front_ < stretches_ && (front_ <= wanted || isReady()); ++front_) {
        while (!isReady()) {
            if (!TouchNext()) {
                std::this_thread::yield();
            }
        }
    }
    return front_ < stretches_ ? front_ * kStretch : size_;
}

void FreshPages::Stop() noexcept {
    next_ = stretches_;
    if (helper_.joinable()) {
        helper_.join();
    }
    stretches_ = 0;
}

/// False when no stretch is left.
bool FreshPages::TouchNext() noexcept {
    const size_t stretch = next_.fetch_add(1, std::memory_order_relaxed);
    if (stretch >= stretches_) {
        return false;
    }
    const size_t end = std::min((stretch + 1) * kStretch, size_);
    for (size_t at = stretch * kStretch; at < end; at += kPage) {
        // Volatile: nobody reads this byte, and it must be written all the same.
        *static_cast<volatile std::byte*>(room_ + at) = std::byte{0};
    }
    isReady_[stretch].store(true, std::memory_order_release);
    return true;
}

}  // namespace rl
