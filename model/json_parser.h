// Reads JSON values into flat nodes, with a stack of its own of bounded depth.
//
// Strict grammar but for comments, trailing commas and escapes, of which only "\u" is looked at.
// Node memory is taken once: when the first few thousand nodes are full, the rest of the text is
// counted and exactly that much room reserved. A text that breaks off early therefore costs little.
//
// Works on `wchar_t`, and on `char16_t` for those who measure it on another system.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>
#include <vector>

#include "load/text/abandon_check.h"
#include "model/json_node.h"
#include "model/json_scan.h"

namespace rl {

inline constexpr uint32_t kMaxJsonDepth = 512;  // of a value below the top

template <typename Unit, typename Scan = detail::JsonScan<Unit>>
class JsonParser {
public:
    /// `lines`: no comment crosses the end of its line. Text, nodes and check outlive the parser.
    JsonParser(std::basic_string_view<Unit> text, bool lines, std::vector<JsonNode>& nodes,
               const AbandonCheck& abandoned);

    /// Reads the whole of a stretch of the text as one value and appends its nodes. -1 when it is
    /// none, with some nodes perhaps left behind; else the index of its top node.
    [[nodiscard]] int32_t Parse(size_t from, size_t to, int32_t parent);

    /// Whether the check ended the last parse.
    [[nodiscard]] bool WasAbandoned() const { return isAbandoned_; }

private:
    struct Frame {
        int32_t node;
        int32_t last;  // child read last
        uint32_t count;
        Unit closer;
    };
    struct Key {
        uint32_t offset = 0;
        uint32_t length = 0;
    };

    const Unit* PastGap(const Unit* at) const;
    const Unit* PastString(const Unit* at) const;
    const Unit* Member(const Unit* at);
    const Unit* Scalar(const Unit* at);
    const Unit* Open(const Unit* at);
    const Unit* AfterValue(const Unit* at);
    void Append(JsonKind kind, const Unit* at, const Unit* past);
    void Close(const Unit* past);
    void Grow(const Unit* at);
    void AskWhetherAbandoned(const Unit* at);

    const Unit* const base_;
    const Unit* end_;
    const Unit* const textEnd_;
    const Unit* askAt_;
    std::vector<JsonNode>& nodes_;
    const AbandonCheck& abandoned_;
    const bool lines_;
    bool isAbandoned_ = false;
    bool isCounted_ = false;
    int32_t parent_ = -1;
    uint32_t depth_ = 0;  // containers open
    Key key_;
    std::array<Frame, kMaxJsonDepth> frames_;
};

/// How many nodes a valid text makes; any number for another. `at` lies outside strings.
template <typename Unit, typename Scan = detail::JsonScan<Unit>>
[[nodiscard]] size_t CountJsonNodes(const Unit* at, const Unit* end, bool lines);

}  // namespace rl
