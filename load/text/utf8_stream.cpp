#include "load/text/utf8_stream.h"

#include <algorithm>
#include <utility>

#include "load/text/ascii_case.h"
#include "load/text/detect_encoding.h"
#include "load/text/utf.h"

namespace rl {

namespace {

constexpr size_t kLongestSequence = 4;

/// How many bytes the sequence has that `lead` begins, as far as its shape tells.
size_t SequenceLength(char lead) {
    const auto byte = static_cast<unsigned char>(lead);
    return byte < 0xC0 ? 1 : byte < 0xE0 ? 2 : byte < 0xF0 ? 3 : 4;
}

}  // namespace

bool Utf8Stream::MayBegin(std::string_view head, const EncodingRequest& request,
                          TextEncoding& found) {
    found = TextEncoding();
    found.codePage = request.ansiCodePage;
    const ByteOrderMark mark = LeadingMark(head);
    found.hasBom = EqualAsciiCase(mark.label, labels::kUtf8);
    if (!request.name.empty()) {
        found.name = request.name;
        return EqualAsciiCase(request.name, labels::kUtf8);
    }
    found.name = labels::kUtf8;
    return mark.bytes.empty() ? LabelFromNulByte(head).empty() : found.hasBom;
}

// The share of the first piece is a good guess for a text that is alike all over. Where it is not,
// the rest gets the most it can need: growing step by step would hold the text twice each time.
void Utf8Stream::EnsureRoom(std::string_view part) {
    const size_t needed = text_.size() + part.size();
    if (needed <= text_.capacity()) {
        return;
    }
    size_t room = text_.size() + std::max(expected_, part.size());
    size_t likely = room;
    if (text_.empty() && part.size() < expected_) {
        const double share =
            static_cast<double>(utf::CountUnits(part)) / static_cast<double>(part.size());
        const auto guess = static_cast<size_t>(static_cast<double>(expected_) * share);
        room = std::max(needed, std::min(room, guess + guess / 128 + part.size()));
        likely = std::min(guess, room);
    }
    pages_.Stop();
    std::wstring larger;
    larger.reserve(room);
    larger = text_;
    text_ = std::move(larger);
    PreparePages(likely);
}

/// Those behind the text, which ends with a unit of the string's own, up to so many units.
void Utf8Stream::PreparePages(size_t units) {
    prepared_ = text_.size() + 1;
    if (units > prepared_) {
        pages_.Start(text_.data() + prepared_, (units - prepared_) * sizeof(wchar_t));
    }
}

/// Converts what is whole and well formed; answers the rest.
std::string_view Utf8Stream::Convert(std::string_view bytes) {
    EnsureRoom(bytes);
    const size_t held = text_.size();
    utf::Progress done;
    const size_t room = held + bytes.size();
    (void)pages_.Ready((room + 1 - std::min(room, prepared_)) * sizeof(wchar_t));
    text_.resize_and_overwrite(room, [&](wchar_t* out, size_t) {
        done = utf::Utf8ToUnits(bytes, {out + held, room - held});
        return held + done.written;
    });
    expected_ -= std::min(expected_, done.read);
    return bytes.substr(done.read);
}

/// The sequence that the piece before left open; answers what follows it.
std::string_view Utf8Stream::FinishCutSequence(std::string_view bytes) {
    const size_t wanted = SequenceLength(cut_.front()) - cut_.size();
    const size_t taken = std::min(wanted, bytes.size());
    cut_ += bytes.substr(0, taken);
    if (taken == wanted && Convert(cut_).empty()) {
        cut_.clear();
    }
    return bytes.substr(taken);
}

bool Utf8Stream::Feed(std::string_view bytes) {
    if (!cut_.empty()) {
        bytes = FinishCutSequence(bytes);
        if (!cut_.empty()) {
            return bytes.empty() && cut_.size() < SequenceLength(cut_.front());
        }
    }
    if (bytes.empty()) {
        return true;
    }
    const std::string_view rest = Convert(bytes);
    if (rest.size() >= kLongestSequence) {
        return false;
    }
    cut_ = rest;
    return cut_.empty() || cut_.size() < SequenceLength(cut_.front());
}

bool Utf8Stream::Finish() {
    pages_.Stop();
    if (text_.capacity() - text_.size() > text_.size() / 100) {
        text_.shrink_to_fit();
    }
    return cut_.empty();
}

std::wstring Utf8Stream::TakeText() {
    pages_.Stop();
    return std::move(text_);
}

}  // namespace rl
