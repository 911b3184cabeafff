// Writes JSON piece by piece, two blanks a level: brackets know how deep they stand and whether a
// comma is due.
#pragma once

#include <cstddef>
#include <string_view>

#include "model/limited_text.h"

namespace rl {

class JsonTextWriter {
public:
    explicit JsonTextWriter(LimitedText& out) : out_(out) {}

    void Begin(wchar_t bracket) {
        out_.Append({&bracket, 1});
        ++level_;
        first_ = true;
    }

    void End(wchar_t bracket) {
        --level_;
        if (!first_) {
            StartLine();
        }
        out_.Append({&bracket, 1});
        first_ = false;
    }

    /// Comes before each element of an array and, through `Key`, each member.
    void Item() {
        if (!first_) {
            out_.Append(L",");
        }
        StartLine();
        first_ = false;
    }

    void Key(std::wstring_view key) {
        Item();
        String(key);
        out_.Append(L": ");
    }

    void String(std::wstring_view text);
    void Raw(std::wstring_view text) { out_.Append(text); }
    [[nodiscard]] bool IsOver() const { return out_.IsOver(); }

private:
    void StartLine() {
        out_.Append(L"\r\n");
        out_.AppendBlanks(2 * level_);
    }

    LimitedText& out_;
    size_t level_ = 0;
    bool first_ = true;
};

}  // namespace rl
