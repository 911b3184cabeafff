// How delimited text is to be read: captured once, by value, when a load starts.
#pragma once

#include <cstdint>

namespace rl {

/// The `skip-comments` setting.
enum class CommentMode : int32_t {
    Parse = 0,       // comment lines are data like others
    DoNotParse = 1,  // shown whole, never split into fields
    Hide = 2,        // not shown, wherever they stand
    Auto = 3,        // not shown above the first data row
};

struct CsvOptions {
    wchar_t delimiter = 0;  // 0: find it
    wchar_t quoteChar = L'"';
    CommentMode commentMode = CommentMode::Parse;
    bool trimValues = true;     // blanks and tabs around unquoted fields do not count
    int32_t sampleRows = 1000;  // records looked at to find titles above the table

    bool operator==(const CsvOptions&) const = default;
};

}  // namespace rl
