// Reads JSON values into flat nodes, with a stack of its own of bounded depth.
//
// Strict grammar but for comments, trailing commas and escapes, of which only "\u" is looked at.
// Node memory is taken once: when the first few thousand nodes are full, the rest of the text is
// counted and exactly that much room reserved. A text that breaks off early therefore costs little.
//
// Works on `wchar_t`, and on `char16_t` for those who measure it on another system.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "load/memory/prepared_room.h"
#include "load/text/abandon_check.h"
#include "model/json_node.h"
#include "model/json_node_count.h"
#include "model/json_scan.h"
#include "model/json_tokens.h"

namespace rl {

inline constexpr uint32_t kMaxJsonDepth = 512;  // of a value below the top

template <typename Unit, typename Scan = detail::JsonScan<Unit>>
class JsonParser {
public:
    /// `lines`: the text holds one value a line. Text, nodes and check outlive the parser.
    JsonParser(std::basic_string_view<Unit> text, bool lines, std::vector<JsonNode>& nodes,
               const AbandonCheck& abandoned);

    /// Reads the whole of a stretch of the text as one value and appends its nodes. Answers with
    /// the index of its top node; -1, and no nodes, when it is none.
    [[nodiscard]] int32_t Parse(size_t from, size_t to, int32_t parent);

    /// Reads the whole of a text of lines, as children of node 0, which is there. False when one of
    /// them is neither blank nor a value.
    [[nodiscard]] bool ParseLines();

    /// Whether the check ended the last parse.
    [[nodiscard]] bool WasAbandoned() const { return isAbandoned_; }

private:
    /// Where the parse is. Apart from the rest, so that it can be kept in registers.
    struct Place {
        const Unit* base;      // of the text
        const uint32_t* next;  // position of the next token
        uint32_t end;          // of the text
        uint32_t token = 0;    // position of this one
        uint32_t keyOffset = 0;
        uint32_t keyLength = 0;
        uint32_t depth = 0;   // containers open
        int32_t parent = -1;  // innermost container that is open
        uint32_t count = 0;   // its children so far
        Unit closer = 0;      // its closing bracket; 0 outside all
        int32_t size = 0;     // nodes there are
        int32_t last = -1;    // node of the value read last
    };

    Place Start(const Unit* at, const Unit* end, int32_t parent);
    bool ReadValue(Place& place);
    bool ReadKey(Place& place);
    bool ReadString(Place& place);
    bool ReadWord(Place& place);
    bool Open(Place& place);
    bool LeaveValue(Place& place);
    void Close(Place& place, uint32_t token);
    void Append(Place& place, JsonKind kind, uint32_t length, int32_t child);
    const uint32_t* Refill(const uint32_t* next);
    void Grow(const Unit* at);
    [[nodiscard]] size_t LikelyRest(const Unit* at) const;
    void AskWhetherAbandoned(const Unit* at);

    const Unit* const base_;
    const Unit* end_;
    const Unit* const textEnd_;
    const Unit* askAt_;
    std::vector<JsonNode>& nodes_;
    PreparedRoom<JsonNode> room_;
    const AbandonCheck& abandoned_;
    const bool lines_;
    bool isAbandoned_ = false;
    bool isCounted_ = false;
    detail::JsonTokens<Unit, Scan> tokens_;
};

}  // namespace rl
