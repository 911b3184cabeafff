// Reading and hashing for tests over the shared collection; see the header.
#include "tests/support/corpus.h"

#include <fstream>
#include <iterator>
#include <stdexcept>

namespace rl::test {

namespace {

/// The code point at `at`, and in `length` how many units it takes.
uint32_t CodePointAt(std::wstring_view text, size_t at, size_t& length) {
    const auto unit = static_cast<uint32_t>(text[at]);
    length = 1;
    if (unit < 0xD800 || unit > 0xDBFF || at + 1 == text.size()) {
        return unit;
    }
    const auto low = static_cast<uint32_t>(text[at + 1]);
    if (low < 0xDC00 || low > 0xDFFF) {
        return unit;
    }
    length = 2;
    return 0x10000 + ((unit - 0xD800) << 10) + (low - 0xDC00);
}

char Tail(uint32_t point, int shift) {
    return static_cast<char>(0x80 | (point >> shift & 0x3F));
}

}  // namespace

std::string ReadBytes(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        throw std::runtime_error("cannot read " + path.string());
    }
    return {std::istreambuf_iterator<char>(file), {}};
}

std::vector<JsonValue> ReadJsonLines(const std::filesystem::path& path) {
    const std::string bytes = ReadBytes(path);
    std::vector<JsonValue> out;
    for (size_t start = 0; start < bytes.size();) {
        const size_t end = std::min(bytes.find('\n', start), bytes.size());
        if (end > start) {
            out.push_back(ParseJson(std::string_view(bytes).substr(start, end - start)));
        }
        start = end + 1;
    }
    return out;
}

std::vector<JsonValue> ExpectedAnswers(std::string_view folder) {
    return ReadJsonLines(CorpusRoot() / folder / "expected.jsonl");
}

std::string Utf8(std::wstring_view text) {
    std::string out;
    for (size_t at = 0, length = 0; at < text.size(); at += length) {
        const uint32_t point = CodePointAt(text, at, length);
        if (point < 0x80) {
            out += static_cast<char>(point);
        } else if (point < 0x800) {
            out += static_cast<char>(0xC0 | point >> 6);
            out += Tail(point, 0);
        } else if (point < 0x10000) {
            out += static_cast<char>(0xE0 | point >> 12);
            out += Tail(point, 6);
            out += Tail(point, 0);
        } else {
            out += static_cast<char>(0xF0 | point >> 18);
            out += Tail(point, 12);
            out += Tail(point, 6);
            out += Tail(point, 0);
        }
    }
    return out;
}

std::string Utf16LeBytes(std::wstring_view text) {
    std::string out;
    for (const wchar_t unit : text) {
        out += static_cast<char>(unit & 0xFF);
        out += static_cast<char>(unit >> 8 & 0xFF);
    }
    return out;
}

std::string Readable(std::wstring_view text) {
    std::string out;
    for (const wchar_t unit : text.substr(0, 200)) {
        if (unit >= L' ' && unit < 0x7F) {
            out += static_cast<char>(unit);
            continue;
        }
        out += "\\u";
        for (int shift = 12; shift >= 0; shift -= 4) {
            out += "0123456789abcdef"[static_cast<uint32_t>(unit) >> shift & 0xF];
        }
    }
    return out;
}

}  // namespace rl::test
