// Generators of benchmark inputs; see the header.
#include "bench/support/inputs.h"

#include <array>
#include <cstdint>
#include <string_view>

namespace rl::bench {

namespace {

/// Small and the same everywhere, unlike the standard distributions.
class Dice {
public:
    /// 0 to sides - 1.
    uint32_t Roll(uint32_t sides) {
        state_ = state_ * 6364136223846793005u + 1442695040888963407u;
        return static_cast<uint32_t>((state_ >> 33) % sides);
    }

private:
    uint64_t state_ = 20240229;
};

constexpr std::array<std::string_view, 24> kWords{
    "Berlin",  "delivered", "north",       "invoice",     "Anna",   "blue",   "open",   "quarterly",
    "Tromso",  "service",   "Meadow",      "pending",     "Otto",   "silver", "closed", "warehouse",
    "station", "Lyon",      "K\xC3\xB6ln", "caf\xC3\xA9", "return", "large",  "Jon",    "harbour"};

template <size_t N>
std::string_view Pick(Dice& dice, const std::array<std::string_view, N>& words) {
    return words[dice.Roll(N)];
}

void PutNumber(std::string& out, Dice& dice) {
    out += std::to_string(dice.Roll(100'000));
    if (dice.Roll(2) == 0) {
        out += '.';
        out += std::to_string(10 + dice.Roll(90));
    }
}

void PutField(std::string& out, Dice& dice) {
    if (dice.Roll(10) == 0) {
        out += '"';
        out += Pick(dice, kWords);
        out += ", ";
        out += Pick(dice, kWords);
        out += '"';
    } else if (dice.Roll(2) == 0) {
        PutNumber(out, dice);
    } else {
        out += Pick(dice, kWords);
    }
}

void PutUtf8(std::string& out, uint32_t point) {
    if (point < 0x800) {
        out += static_cast<char>(0xC0 | point >> 6);
    } else {
        out += static_cast<char>(0xE0 | point >> 12);
        out += static_cast<char>(0x80 | (point >> 6 & 0x3F));
    }
    out += static_cast<char>(0x80 | (point & 0x3F));
}

}  // namespace

std::string CsvBytes(size_t size) {
    constexpr int kColumns = 12;
    Dice dice;
    std::string out;
    out.reserve(size);
    out = "c1,c2,c3,c4,c5,c6,c7,c8,c9,c10,c11,c12\n";
    std::string row;
    for (;;) {
        row.clear();
        for (int column = 0; column < kColumns; ++column) {
            PutField(row, dice);
            row += column + 1 < kColumns ? ',' : '\n';
        }
        if (out.size() + row.size() > size) {
            return out;
        }
        out += row;
    }
}

std::string JsonBytes(size_t size) {
    Dice dice;
    std::string out;
    out.reserve(size + 256);
    out = "[\n";
    while (out.size() < size) {
        out += "  {\n    \"id\": ";
        PutNumber(out, dice);
        out += ",\n    \"name\": \"";
        out += Pick(dice, kWords);
        out += "\",\n    \"tags\": [\"";
        out += kWords[dice.Roll(16)];
        out += "\", \"";
        out += kWords[dice.Roll(16)];
        out += "\"],\n    \"value\": ";
        PutNumber(out, dice);
        out += "\n  },\n";
    }
    out += "  null\n]\n";
    return out;
}

std::string CyrillicBytes(size_t size) {
    Dice dice;
    std::string out;
    out.reserve(size + 256);
    while (out.size() < size) {
        for (uint32_t letters = 2 + dice.Roll(9); letters > 0; --letters) {
            PutUtf8(out, 0x430 + dice.Roll(32));
        }
        const uint32_t after = dice.Roll(12);
        out += after == 0 ? ", " : after == 1 ? ".\n" : " ";
    }
    return out;
}

std::string ChineseBytes(size_t size) {
    Dice dice;
    std::string out;
    out.reserve(size + 256);
    while (out.size() < size) {
        for (uint32_t characters = 4 + dice.Roll(16); characters > 0; --characters) {
            PutUtf8(out, 0x4E00 + dice.Roll(0x5000));
        }
        const uint32_t after = dice.Roll(12);
        PutUtf8(out, after % 2 == 0 ? 0x3002 : 0xFF0C);
        if (after == 0) {
            out += '\n';
        } else if (after == 1) {
            out += kWords[dice.Roll(16)];
        }
    }
    return out;
}

std::string JsonEventBytes(size_t size) {
    std::string out = "[";
    for (uint32_t i = 0; out.size() < size; ++i) {
        const std::string number = std::to_string(1'000'000 + i * 7919U % 900'000);
        out += (i == 0 ? "" : ",\n") + ("{\"id\":" + number) +
               ",\"user\":{\"name\":\"customer of the northern warehouse beside the old "
               "harbour, second gate\",\"verified\":true}," +
               "\"duration\":12.25,\"path\":\"/catalogue/section/garden/furniture/" + number +
               "/details/and/reviews/of/the/latest/season.html\",\"tags\":[\"web "
               "browser\",\"returning "
               "visitor\"],\"referrer\":null}";
    }
    return out += "]\n";
}

std::string XmlEventBytes(size_t size) {
    std::string out = "<?xml version=\"1.0\"?>\n<events>\n";
    for (uint32_t i = 0; out.size() < size; ++i) {
        const std::string number = std::to_string(1'000'000 + i * 7919U % 900'000);
        out += "  <event id=\"" + number + "\" kind=\"page view\">\n    <user verified=\"yes\">" +
               "customer of the northern warehouse beside the old harbour</user>\n    "
               "<duration>12.25</duration>\n" +
               "    <path>/catalogue/section/garden/furniture/" + number +
               "/details/and/reviews/latest.html</path>\n  </event>\n";
    }
    return out += "</events>\n";
}

}  // namespace rl::bench
