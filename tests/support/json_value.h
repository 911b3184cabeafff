// A small JSON reader for the expected answers that lie beside the test documents.
//
// Strings come out as UTF-16 units, unpaired surrogates included: the answers speak of such texts,
// and general-purpose readers refuse them. Built for our own files, so it trusts them: anything
// malformed throws std::runtime_error and fails the test. Any thread.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace rl::test {

/// One JSON value. A missing member reads as null, and null reads as empty, 0 or false, so that
/// `answer["bom"].AsBool()` needs no question before it.
class JsonValue {
public:
    using Array = std::vector<JsonValue>;
    using Object = std::map<std::string, JsonValue, std::less<>>;

    JsonValue() = default;
    explicit JsonValue(bool value) : value_(value) {}
    explicit JsonValue(double value) : value_(value) {}
    explicit JsonValue(std::wstring value) : value_(std::move(value)) {}
    explicit JsonValue(Array value) : value_(std::move(value)) {}
    explicit JsonValue(Object value) : value_(std::move(value)) {}

    [[nodiscard]] bool IsNull() const { return std::holds_alternative<std::monostate>(value_); }
    [[nodiscard]] bool IsString() const { return std::holds_alternative<std::wstring>(value_); }
    [[nodiscard]] bool IsObject() const { return std::holds_alternative<Object>(value_); }
    [[nodiscard]] bool IsArray() const { return std::holds_alternative<Array>(value_); }

    /// Each of these throws std::runtime_error when the value is neither of that type nor null.
    [[nodiscard]] bool AsBool() const;
    [[nodiscard]] int64_t AsInt() const;
    [[nodiscard]] std::wstring AsText() const;  // UTF-16 units
    [[nodiscard]] std::string AsAscii() const;  // throws for anything but ASCII
    [[nodiscard]] const Array& Items() const;

    [[nodiscard]] bool Has(std::string_view name) const;
    /// The member of that name, or null when this is no object or has none.
    [[nodiscard]] const JsonValue& operator[](std::string_view name) const;

private:
    std::variant<std::monostate, bool, double, std::wstring, Array, Object> value_;
};

/// Reads one value; `text` is ASCII, everything else written as \u escapes.
[[nodiscard]] JsonValue ParseJson(std::string_view text);

}  // namespace rl::test
