// UTF-8 that arrives in pieces, converted as it comes: a file never stands in memory beside its
// text.
//
// Takes only what is plainly well formed and says so otherwise; the caller then reads the whole
// file and lets `DecodeText` judge it. What it takes, it converts exactly as `DecodeText` would.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "load/memory/fresh_pages.h"
#include "load/text/text_encoding.h"

namespace rl {

class Utf8Stream {
public:
    /// `totalBytes` of the file, so that the text's memory is asked for once.
    explicit Utf8Stream(size_t totalBytes) : expected_(totalBytes) {}

    /// Whether a file that begins like this is to be taken as UTF-8 as long as it looks like it.
    /// `head` holds at least its first three bytes, if it has them. Fills `found`.
    [[nodiscard]] static bool MayBegin(std::string_view head, const EncodingRequest& request,
                                       TextEncoding& found);

    /// The next bytes, without a byte-order mark. False from the first that are not well formed on.
    [[nodiscard]] bool Feed(std::string_view bytes);
    /// False when the last sequence is cut.
    [[nodiscard]] bool Finish();
    /// The text; the stream is then empty.
    [[nodiscard]] std::wstring TakeText();

private:
    void EnsureRoom(std::string_view part);
    void PreparePages(size_t units);
    [[nodiscard]] std::string_view Convert(std::string_view bytes);
    [[nodiscard]] std::string_view FinishCutSequence(std::string_view bytes);

    size_t expected_;  // bytes not yet converted
    std::wstring text_ = {};
    std::string cut_ = {};  // the beginning of a sequence that goes on in the next piece
    size_t prepared_ = 0;   // the first unit whose memory was prepared
    FreshPages pages_;
};

}  // namespace rl
