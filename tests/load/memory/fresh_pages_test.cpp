#include "load/memory/fresh_pages.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <thread>
#include <vector>

#include "load/memory/prepared_room.h"

namespace rl {
namespace {

constexpr std::byte kUnwritten{0xEE};
constexpr std::byte kWritten{0x11};
constexpr size_t kPage = 4096;

std::vector<std::byte> Room(size_t size) {
    return std::vector<std::byte>(size, kUnwritten);
}

/// Fills the room byte by byte as far as it is ready each time; how often that was asked.
size_t FillAsItComes(FreshPages& pages, std::vector<std::byte>& room) {
    size_t asked = 0;
    for (size_t filled = 0; filled < room.size(); ++asked) {
        const size_t ready = pages.Ready(filled);
        EXPECT_GT(ready, filled);
        EXPECT_LE(ready, room.size());
        const auto from = room.begin() + static_cast<ptrdiff_t>(filled);
        std::fill(from, room.begin() + static_cast<ptrdiff_t>(ready), kWritten);
        filled = ready;
    }
    return asked;
}

bool IsAll(const std::vector<std::byte>& room, std::byte value) {
    return std::ranges::all_of(room, [value](std::byte byte) { return byte == value; });
}

TEST(FreshPages, OfASmallRoomAreReadyAtOnceAndLeftAlone) {
    std::vector<std::byte> room = Room(FreshPages::kSmallest - 1);
    FreshPages pages;
    pages.Start(room.data(), room.size(), 2);
    EXPECT_EQ(pages.Ready(0), room.size());
    pages.Stop();
    EXPECT_TRUE(IsAll(room, kUnwritten));
}

TEST(FreshPages, OfALargeRoomAreReadyAtOnceWithoutASecondProcessor) {
    std::vector<std::byte> room = Room(FreshPages::kSmallest);
    FreshPages pages;
    pages.Start(room.data(), room.size(), 1);
    EXPECT_EQ(pages.Ready(0), room.size());
    pages.Stop();
    EXPECT_TRUE(IsAll(room, kUnwritten));
}

TEST(FreshPages, AreNeverWrittenToOnceTheyAreReady) {
    for (const size_t size :
         {FreshPages::kSmallest, FreshPages::kSmallest + 1, 3 * FreshPages::kSmallest - 1}) {
        std::vector<std::byte> room = Room(size);
        FreshPages pages;
        pages.Start(room.data(), room.size(), 2);
        EXPECT_GE(FillAsItComes(pages, room), 1U);
        pages.Stop();
        EXPECT_TRUE(IsAll(room, kWritten)) << size;
    }
}

TEST(FreshPages, WereAllWrittenToBeforeTheyAreReady) {
    std::vector<std::byte> room = Room(FreshPages::kSmallest + 5000);
    FreshPages pages;
    pages.Start(room.data(), room.size(), 2);
    for (size_t ready = 0; ready < room.size();) {
        const size_t from = std::max(ready, FreshPages::kStretch);  // the first is wanted at once
        ready = pages.Ready(ready);
        for (size_t page = from; page < ready; page += kPage) {
            ASSERT_NE(room[page], kUnwritten) << page;
        }
    }
}

TEST(FreshPages, AreReadyWhereTheLastByteIsAskedForFirst) {
    std::vector<std::byte> room = Room(FreshPages::kSmallest);
    FreshPages pages;
    pages.Start(room.data(), room.size(), 2);
    EXPECT_EQ(pages.Ready(room.size() - 1), room.size());
}

TEST(FreshPages, AreLeftAloneOnceStopped) {
    constexpr size_t kSize = 16 * FreshPages::kSmallest;
    for (int round = 0; round < 8; ++round) {
        auto room = std::make_unique_for_overwrite<std::byte[]>(kSize);
        FreshPages pages;
        pages.Start(room.get(), kSize, 2);
        std::this_thread::sleep_for(std::chrono::milliseconds(1));  // it is under way
        pages.Stop();
        EXPECT_EQ(pages.Ready(0), kSize);
        room.reset();  // a helper that went on would write to freed memory
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
}

TEST(FreshPages, OfAnotherRoomEndThoseOfTheFirst) {
    std::vector<std::byte> first = Room(4 * FreshPages::kSmallest);
    std::vector<std::byte> second = Room(FreshPages::kSmallest);
    FreshPages pages;
    pages.Start(first.data(), first.size(), 2);
    pages.Start(second.data(), second.size(), 2);
    std::ranges::fill(first, kWritten);
    FillAsItComes(pages, second);
    EXPECT_TRUE(IsAll(first, kWritten));
    EXPECT_TRUE(IsAll(second, kWritten));
}

TEST(PreparedRoom, HoldsWhatIsAppendedWhileItGrows) {
    std::vector<uint64_t> numbers;
    PreparedRoom<uint64_t> room(numbers);
    constexpr uint64_t kCount = 5'000'000;  // 38 MB, grown to in steps
    for (uint64_t number = 0; number < kCount; ++number) {
        if (!room.HasRoom()) {
            room.MakeRoom();
        }
        numbers.push_back(number);
    }
    uint64_t expected = 0;
    EXPECT_TRUE(std::ranges::all_of(numbers, [&](uint64_t n) { return n == expected++; }));
}

TEST(PreparedRoom, OfACountedVectorIsAllocatedOnceAndNotLarger) {
    std::vector<uint32_t> numbers(3, 7);
    PreparedRoom<uint32_t> room(numbers);
    constexpr size_t kCount = 4'000'001;
    room.Reserve(kCount);
    const uint32_t* const data = numbers.data();
    while (numbers.size() < kCount) {
        if (!room.HasRoom()) {
            ASSERT_TRUE(room.Extend());
        }
        numbers.push_back(7);
    }
    EXPECT_FALSE(room.Extend());
    EXPECT_EQ(numbers.data(), data);
    EXPECT_EQ(numbers.capacity(), kCount);
    EXPECT_EQ(std::ranges::count(numbers, 7U), static_cast<ptrdiff_t>(kCount));
}

TEST(PreparedRoom, OfAVectorWithCapacityUsesThatFirst) {
    std::vector<uint32_t> numbers;
    numbers.reserve(10);
    PreparedRoom<uint32_t> room(numbers);
    const uint32_t* const data = numbers.data();
    for (uint32_t number = 0; number < 10; ++number) {
        ASSERT_TRUE(room.HasRoom());
        numbers.push_back(number);
    }
    EXPECT_FALSE(room.HasRoom());
    EXPECT_EQ(numbers.data(), data);
    room.MakeRoom();
    EXPECT_TRUE(room.HasRoom());
}

}  // namespace
}  // namespace rl
