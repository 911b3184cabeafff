// Recursive descent over trusted text: these files are ours, a deep one cannot come by accident.
#include "tests/support/json_value.h"

#include <charconv>
#include <stdexcept>

namespace rl::test {

namespace {

template <typename T, typename Value>
const T& Get(const Value& value, const char* type) {
    static const T empty{};
    if (std::holds_alternative<std::monostate>(value)) {
        return empty;
    }
    const T* found = std::get_if<T>(&value);
    if (found == nullptr) {
        throw std::runtime_error(std::string("JSON value is not a ") + type);
    }
    return *found;
}

class Reader {
public:
    explicit Reader(std::string_view text) : text_(text) {}

    JsonValue ReadAll() {
        JsonValue value = ReadValue();
        SkipBlanks();
        if (position_ != text_.size()) {
            Refuse("end expected");
        }
        return value;
    }

private:
    [[noreturn]] void Refuse(const char* why) const {
        throw std::runtime_error(std::string(why) + " at " + std::to_string(position_));
    }

    void SkipBlanks() {
        position_ = std::min(text_.find_first_not_of(" \t\r\n", position_), text_.size());
    }

    char Peek() {
        SkipBlanks();
        return position_ < text_.size() ? text_[position_] : '\0';
    }

    bool TakeIf(char wanted) {
        const bool found = Peek() == wanted;
        position_ += found ? 1 : 0;
        return found;
    }

    void Expect(char wanted) {
        if (!TakeIf(wanted)) {
            Refuse("other character expected");
        }
    }

    bool TakeWord(std::string_view word) {
        const bool found = text_.substr(position_).starts_with(word);
        position_ += found ? word.size() : 0;
        return found;
    }

    JsonValue ReadValue() {
        switch (Peek()) {
            case '{': return ReadObject();
            case '[': return ReadArray();
            case '"': return JsonValue(ReadString());
            default: return ReadWordOrNumber();
        }
    }

    JsonValue ReadWordOrNumber() {
        if (TakeWord("null")) {
            return {};
        }
        if (TakeWord("true")) {
            return JsonValue(true);
        }
        if (TakeWord("false")) {
            return JsonValue(false);
        }
        double number = 0;
        const char* end = text_.data() + text_.size();
        const auto result = std::from_chars(text_.data() + position_, end, number);
        if (result.ec != std::errc()) {
            Refuse("value expected");
        }
        position_ = static_cast<size_t>(result.ptr - text_.data());
        return JsonValue(number);
    }

    JsonValue ReadObject() {
        JsonValue::Object members;
        Expect('{');
        while (!TakeIf('}')) {
            const std::string name = JsonValue(ReadString()).AsAscii();
            Expect(':');
            members.insert_or_assign(name, ReadValue());
            if (Peek() != '}') {
                Expect(',');
            }
        }
        return JsonValue(std::move(members));
    }

    JsonValue ReadArray() {
        JsonValue::Array items;
        Expect('[');
        while (!TakeIf(']')) {
            items.push_back(ReadValue());
            if (Peek() != ']') {
                Expect(',');
            }
        }
        return JsonValue(std::move(items));
    }

    std::wstring ReadString() {
        std::wstring out;
        Expect('"');
        for (;;) {
            if (position_ >= text_.size()) {
                Refuse("string without end");
            }
            const char unit = text_[position_++];
            if (unit == '"') {
                return out;
            }
            if (static_cast<unsigned char>(unit) >= 0x80) {
                Refuse("ASCII expected");
            }
            out += unit == '\\' ? ReadEscape() : static_cast<wchar_t>(unit);
        }
    }

    wchar_t ReadEscape() {
        constexpr std::string_view kLetters = "\"\\/bfnrt";
        constexpr std::wstring_view kMeanings = L"\"\\/\b\f\n\r\t";
        const char letter = position_ < text_.size() ? text_[position_++] : '\0';
        if (letter == 'u') {
            return ReadHexUnit();
        }
        const size_t index = kLetters.find(letter);
        if (index == std::string_view::npos) {
            Refuse("unknown escape");
        }
        return kMeanings[index];
    }

    wchar_t ReadHexUnit() {
        unsigned unit = 0;
        const std::string_view digits = text_.substr(position_, 4);
        const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), unit, 16);
        if (digits.size() != 4 || result.ptr != digits.data() + 4) {
            Refuse("four hexadecimal digits expected");
        }
        position_ += 4;
        return static_cast<wchar_t>(unit);
    }

    std::string_view text_;
    size_t position_ = 0;
};

}  // namespace

bool JsonValue::AsBool() const {
    return Get<bool>(value_, "boolean");
}

int64_t JsonValue::AsInt() const {
    return static_cast<int64_t>(Get<double>(value_, "number"));
}

std::wstring JsonValue::AsText() const {
    return Get<std::wstring>(value_, "string");
}

std::string JsonValue::AsAscii() const {
    std::string out;
    for (const wchar_t unit : AsText()) {
        if (unit >= 0x80) {
            throw std::runtime_error("JSON string is not ASCII");
        }
        out += static_cast<char>(unit);
    }
    return out;
}

const JsonValue::Array& JsonValue::Items() const {
    return Get<Array>(value_, "array");
}

bool JsonValue::Has(std::string_view name) const {
    const Object* members = std::get_if<Object>(&value_);
    return members != nullptr && members->contains(name);
}

const JsonValue& JsonValue::operator[](std::string_view name) const {
    static const JsonValue null;
    const Object* members = std::get_if<Object>(&value_);
    if (members == nullptr) {
        return null;
    }
    const auto found = members->find(name);
    return found == members->end() ? null : found->second;
}

JsonValue ParseJson(std::string_view text) {
    return Reader(text).ReadAll();
}

}  // namespace rl::test
