// Numbers the distinct names of a table's columns in the order in which they first appear.
//
// Made for records that are alike: the next name is first compared with the one that followed last
// time, so that most look-ups cost one comparison and no hash.
#pragma once

#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace rl {

class KeyColumns {
public:
    /// The column of a name; a new one when there is none yet. The name must stay where it is.
    int32_t Add(std::wstring_view name) {
        const int32_t known = Find(name);
        if (known >= 0) {
            return known;
        }
        const auto column = static_cast<int32_t>(names_.size());
        names_.push_back(name);
        byName_.emplace(name, column);
        expected_ = column + 1;
        return column;
    }

    /// The same for a name that is about to go: it is kept here.
    int32_t AddCopy(const std::wstring& name) {
        const int32_t known = Find(name);
        return known >= 0 ? known : Add(copies_.emplace_back(name));
    }

    /// The column of a name, -1 when it has none.
    [[nodiscard]] int32_t Find(std::wstring_view name) {
        const auto next = static_cast<size_t>(expected_);
        if (next < names_.size() && names_[next] == name) {
            return expected_++;
        }
        const auto found = byName_.find(name);
        if (found == byName_.end()) {
            return -1;
        }
        expected_ = found->second + 1;
        return found->second;
    }

    /// A record begins: its first name is likely the first column's.
    void StartRecord() { expected_ = 0; }

    [[nodiscard]] int32_t Count() const { return static_cast<int32_t>(names_.size()); }
    [[nodiscard]] std::wstring_view Name(int32_t column) const {
        return names_[static_cast<size_t>(column)];
    }

private:
    std::vector<std::wstring_view> names_;
    std::deque<std::wstring> copies_;  // whose texts stay where they are while it grows
    std::unordered_map<std::wstring_view, int32_t> byName_;
    int32_t expected_ = 0;
};

}  // namespace rl
