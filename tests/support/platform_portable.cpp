// The seam for native builds: the code pages that tests need, ASCII and Latin-1 folding, and an
// order that treats digits as numbers.
//
// It stands in for Windows only as far as tests on Linux ask: pages beyond Latin-1, 1252 and UTF-8
// go through iconv. The system's own page is 1252 here.
#include <iconv.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <memory>
#include <vector>

#include "load/text/platform.h"
#include "load/text/utf.h"

namespace rl::platform {

namespace {

constexpr uint32_t kSystemPage = 1252;

/// 80 to 9F of Windows-1252; bytes that the page leaves undefined stand for themselves.
constexpr std::array<wchar_t, 32> kWestern{
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

struct Codec {
    uint32_t page;
    const char* name;
    bool undefinedAsControl;  // Windows gives such bytes the control character of their number
};

constexpr Codec kCodecs[] = {
    {437, "IBM437", false},       {850, "IBM850", false},      {852, "IBM852", false},
    {866, "IBM866", false},       {874, "CP874", true},        {932, "CP932", false},
    {936, "CP936", false},        {949, "UHC", false},         {950, "BIG5", false},
    {1250, "CP1250", true},       {1251, "CP1251", true},      {1253, "CP1253", true},
    {1254, "CP1254", true},       {1255, "CP1255", true},      {1256, "CP1256", true},
    {1257, "CP1257", true},       {1258, "CP1258", true},      {20866, "KOI8-R", false},
    {20932, "EUC-JP", false},     {21866, "KOI8-U", false},    {28592, "ISO-8859-2", true},
    {28595, "ISO-8859-5", true},  {28597, "ISO-8859-7", true}, {28599, "ISO-8859-9", true},
    {28605, "ISO-8859-15", true},
};

struct CloseIconv {
    void operator()(iconv_t* handle) const {
        iconv_close(*handle);
        std::default_delete<iconv_t>()(handle);
    }
};
using UniqueIconv = std::unique_ptr<iconv_t, CloseIconv>;

UniqueIconv OpenIconv(const char* to, const char* from) {
    const iconv_t handle = iconv_open(to, from);
    // The documented failure value of iconv_open.
    if (handle == reinterpret_cast<iconv_t>(-1)) {
        return nullptr;
    }
    return UniqueIconv(std::make_unique<iconv_t>(handle).release());
}

const Codec* CodecFor(uint32_t page) {
    const auto* found = std::ranges::find(kCodecs, page, &Codec::page);
    return found == std::end(kCodecs) ? nullptr : found;
}

/// Converts as much as iconv takes; returns how much of the input that was.
size_t Convert(iconv_t handle, std::string_view in, std::string& out) {
    std::vector<char> buffer(in.size() * 4 + 16);
    std::string copy(in);
    char* from = copy.data();
    size_t left = copy.size();
    char* to = buffer.data();
    size_t room = buffer.size();
    iconv(handle, &from, &left, &to, &room);
    out.append(buffer.data(), buffer.size() - room);
    return in.size() - left;
}

std::wstring UnitsOf(std::string_view utf16le) {
    std::wstring text(utf16le.size() / 2, L'\0');
    utf::BytesToUnits(utf16le, utf::ByteOrder::Little, text.data());
    return text;
}

std::optional<std::wstring> DecodeWithIconv(std::string_view bytes, const Codec& codec) {
    const UniqueIconv handle = OpenIconv("UTF-16LE", codec.name);
    if (!handle) {
        return std::nullopt;
    }
    std::string units;
    while (!bytes.empty()) {
        bytes.remove_prefix(Convert(*handle, bytes, units));
        if (!bytes.empty()) {
            units += codec.undefinedAsControl ? bytes.front() : '?';
            units += '\0';
            bytes.remove_prefix(1);
        }
    }
    return UnitsOf(units);
}

std::optional<std::string> EncodeWithIconv(std::wstring_view text, const Codec& codec) {
    const UniqueIconv handle = OpenIconv(codec.name, "UTF-16LE");
    if (!handle) {
        return std::nullopt;
    }
    std::string units(text.size() * 2, '\0');
    utf::UnitsToBytes(text, utf::ByteOrder::Little, units.data());
    std::string bytes;
    for (std::string_view rest = units; !rest.empty();) {
        rest.remove_prefix(Convert(*handle, rest, bytes));
        if (rest.empty()) {
            break;
        }
        const auto low = static_cast<uint8_t>(rest[0]);
        if (!codec.undefinedAsControl || rest[1] != '\0' || low < 0x80 || low > 0x9F) {
            return std::nullopt;
        }
        bytes += static_cast<char>(low);
        rest.remove_prefix(2);
    }
    return bytes;
}

wchar_t WesternUnit(uint8_t byte) {
    return byte >= 0x80 && byte < 0xA0 ? kWestern[byte - 0x80u] : static_cast<wchar_t>(byte);
}

std::optional<char> WesternByte(wchar_t unit) {
    const auto* found = std::ranges::find(kWestern, unit);
    if (found != kWestern.end()) {
        return static_cast<char>(0x80 + (found - kWestern.begin()));
    }
    if (unit > 0xFF || (unit >= 0x80 && unit < 0xA0)) {
        return std::nullopt;
    }
    return static_cast<char>(unit);
}

/// How many bytes one replacement character stands for: the longest beginning of a sequence that
/// could have become well formed, counted as the system counts it, or a single byte.
size_t IllFormedLength(std::string_view bytes) {
    const auto lead = static_cast<uint8_t>(bytes[0]);
    if (lead < 0xC2 || lead > 0xF4) {
        return 1;
    }
    const size_t announced = lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    const auto isTail = [](char byte) { return (static_cast<uint8_t>(byte) & 0xC0) == 0x80; };
    if (bytes.size() < 2 || !isTail(bytes[1])) {
        return 1;
    }
    const auto second = static_cast<uint8_t>(bytes[1]);
    const bool impossible = (lead == 0xE0 && second < 0xA0) || (lead == 0xED && second > 0x9F) ||
                            (lead == 0xF0 && second < 0x90) || (lead == 0xF4 && second > 0x8F);
    if (impossible) {
        return 1;
    }
    size_t length = 2;
    while (length < announced - 1 && length < bytes.size() && isTail(bytes[length])) {
        ++length;
    }
    return length;
}

std::wstring DecodeUtf8(std::string_view bytes) {
    std::wstring text(bytes.size(), L'\0');
    size_t length = 0;
    while (!bytes.empty()) {
        const std::span<wchar_t> room(text.data() + length, text.size() - length);
        const utf::Progress done = utf::Utf8ToUnits(bytes, room);
        length += done.written;
        bytes.remove_prefix(done.read);
        if (!bytes.empty()) {
            text[length++] = 0xFFFD;
            bytes.remove_prefix(IllFormedLength(bytes));
        }
    }
    text.resize(length);
    return text;
}

}  // namespace

std::optional<std::wstring> DecodeCodePage(std::string_view bytes, uint32_t codePage) {
    const uint32_t page = codePage == 0 ? kSystemPage : codePage;
    if (page == 65001) {
        return DecodeUtf8(bytes);
    }
    if (page == 1252 || page == 28591) {
        std::wstring text;
        for (const char byte : bytes) {
            const auto value = static_cast<uint8_t>(byte);
            text += page == 1252 ? WesternUnit(value) : static_cast<wchar_t>(value);
        }
        return text;
    }
    const Codec* codec = CodecFor(page);
    return codec == nullptr ? std::nullopt : DecodeWithIconv(bytes, *codec);
}

std::optional<std::string> EncodeCodePage(std::wstring_view text, uint32_t codePage) {
    const uint32_t page = codePage == 0 ? kSystemPage : codePage;
    std::string bytes;
    if (page == 65001) {
        bytes.resize(utf::CountUtf8(text));
        utf::UnitsToUtf8(text, bytes.data());
        return bytes;
    }
    if (page == 1252 || page == 28591) {
        for (const wchar_t unit : text) {
            const std::optional<char> byte = page == 1252 ? WesternByte(unit)
                                             : unit <= 0xFF
                                                 ? std::optional<char>(static_cast<char>(unit))
                                                 : std::nullopt;
            if (!byte) {
                return std::nullopt;
            }
            bytes += *byte;
        }
        return bytes;
    }
    const Codec* codec = CodecFor(page);
    return codec == nullptr ? std::nullopt : EncodeWithIconv(text, *codec);
}

void FoldCase(std::span<wchar_t> text) {
    for (wchar_t& unit : text) {
        const bool ascii = unit >= L'A' && unit <= L'Z';
        const bool latin1 = unit >= 0xC0 && unit <= 0xDE && unit != 0xD7;
        const bool greek = unit >= 0x391 && unit <= 0x3A9 && unit != 0x3A2;
        const bool cyrillic = unit >= 0x410 && unit <= 0x42F;
        const bool wide = unit >= 0xFF21 && unit <= 0xFF3A;
        if (ascii || latin1 || greek || cyrillic || wide) {
            unit = static_cast<wchar_t>(unit + 0x20);
        } else if (unit >= 0x400 && unit <= 0x40F) {
            unit = static_cast<wchar_t>(unit + 0x50);
        }
    }
}

std::string CollationKey(std::wstring_view text) {
    std::wstring folded(text);
    FoldCase(folded);
    std::string key;
    const auto put = [&key](uint32_t unit) {
        key += static_cast<char>(unit >> 8 & 0xFF);
        key += static_cast<char>(unit & 0xFF);
    };
    const auto isDigit = [](wchar_t unit) { return unit >= L'0' && unit <= L'9'; };
    for (size_t at = 0; at < folded.size();) {
        if (!isDigit(folded[at])) {
            put(static_cast<uint32_t>(folded[at++]));
            continue;
        }
        while (at + 1 < folded.size() && folded[at] == L'0' && isDigit(folded[at + 1])) {
            ++at;
        }
        size_t end = at;
        while (end < folded.size() && isDigit(folded[end])) {
            ++end;
        }
        put(L'0');
        put(static_cast<uint32_t>(std::min<size_t>(end - at, 0xFFFF)));
        for (; at < end; ++at) {
            put(static_cast<uint32_t>(folded[at]));
        }
    }
    return key;
}

int Collate(std::wstring_view left, std::wstring_view right) {
    const int order = CollationKey(left).compare(CollationKey(right));
    return order < 0 ? -1 : order > 0 ? 1 : 0;
}

}  // namespace rl::platform
