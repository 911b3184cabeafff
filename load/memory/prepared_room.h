// The room of a vector that is about to be filled, its pages prepared ahead of who fills it.
//
// Ask `HasRoom` before each element: it is false where the vector is full, and where its pages are
// not ready yet.
#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

#include "load/memory/fresh_pages.h"

namespace rl {

template <typename Element>
class PreparedRoom {
public:
    /// While this exists nobody else makes the vector, which outlives it, larger.
    explicit PreparedRoom(std::vector<Element>& elements)
        : elements_(elements), end_(elements.capacity()) {}

    [[nodiscard]] bool HasRoom() const { return elements_.size() < end_; }

    /// Takes over what has become ready since; false when the vector is full.
    [[nodiscard]] bool Extend() {
        const size_t size = elements_.size();
        if (!HasRoom() && size < elements_.capacity()) {
            const size_t ready = pages_.Ready((size + 1 - begin_) * sizeof(Element) - 1);
            end_ = std::min(begin_ + ready / sizeof(Element), elements_.capacity());
        }
        return HasRoom();
    }

    /// Room for so many elements in all, if it is not there yet.
    void Reserve(size_t count) {
        pages_.Stop();
        begin_ = elements_.size();
        elements_.reserve(count);
        pages_.Start(elements_.data() + begin_, (elements_.capacity() - begin_) * sizeof(Element));
        end_ = begin_;
        (void)Extend();
    }

    /// Room for one more, and as many others as make the next ones rare.
    void MakeRoom() {
        if (!Extend()) {
            Reserve(elements_.size() + elements_.size() / 2 + 1);
        }
    }

private:
    std::vector<Element>& elements_;
    size_t begin_ = 0;  // index of the first element whose page was prepared
    size_t end_;        // elements there can be by now
    FreshPages pages_;
};

}  // namespace rl
