// One JSON or JSON Lines document: its text, the nodes that point into it, and the edits beside it.
//
// Strict JSON (RFC 8259) with comments, trailing commas and unchecked escapes. Nothing is copied
// out of the text when it is parsed; keys and strings are decoded when a view asks for them.
//
// Knows nothing of files or windows. A document belongs to one thread at a time.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "load/text/abandon_check.h"
#include "load/text/text_encoding.h"
#include "model/json_node.h"

namespace rl {

class JsonDocument {
public:
    JsonDocument() = default;
    JsonDocument(const JsonDocument&) = delete;
    JsonDocument& operator=(const JsonDocument&) = delete;

    /// Takes the text over and builds everything anew. `lines`: one value a line. `allowRecovery`:
    /// a text that is no document is searched for balanced blocks (never together with `lines`).
    /// False when nothing could be read, or when `abandoned` said so; the text stays either way.
    [[nodiscard]] bool Parse(std::wstring newText, bool newLines, bool allowRecovery,
                             const AbandonCheck& abandoned = {});
    /// The text just as `Parse` would take it over: for a second try in another mode.
    [[nodiscard]] std::wstring TakeText() { return std::move(text); }

    // Nodes given to these must be in the document.
    [[nodiscard]] std::wstring_view TypeName(int32_t node) const;
    /// The decoded key; empty for a value without one.
    [[nodiscard]] std::wstring KeyText(int32_t node) const;
    /// The edit when there is one, else the value as it stands in the text, quotes included.
    [[nodiscard]] std::wstring ValueText(int32_t node) const;
    /// What a cell shows: a string decoded, "[Array]", "[Object]", else the value as it stands.
    [[nodiscard]] std::wstring DisplayText(int32_t node) const;
    /// The same texts put into `out`, whose room is used again.
    void ReadKey(int32_t node, std::wstring& out) const;
    void ReadDisplay(int32_t node, std::wstring& out) const;

    /// Children in document order; empty for -1.
    [[nodiscard]] std::vector<int32_t> ChildIndices(int32_t node) const;
    /// The text of a string token, its quotes included in the span.
    [[nodiscard]] std::wstring DecodeString(uint32_t offset, uint32_t length) const;

    /// Appends the value and all below it, without blanks.
    void WriteCompact(int32_t node, std::wstring& out) const;
    /// Appends the value and all below it, two blanks a level, lines ended by CR LF.
    void WritePretty(int32_t node, std::wstring& out, int32_t level) const;
    /// `WritePretty` from level 0; empty for -1.
    [[nodiscard]] std::wstring PrettyText(int32_t node) const;
    /// The whole document as saving writes it: lines as lines, all else indented.
    [[nodiscard]] std::wstring Serialize() const;
    /// Serialises, encodes and replaces the file; see load/document_saver.cpp.
    [[nodiscard]] bool Save(const std::wstring& path);

    /// Stores an edit. False, and the reason in `errorText` when given, when the text does not fit
    /// the node's kind. A text equal to the shown one is accepted and changes nothing.
    bool SetValue(int32_t node, std::wstring_view newText, std::wstring* errorText = nullptr);

    std::wstring text;            // never changes after the parse
    std::vector<JsonNode> nodes;  // in document order, containers first
    int32_t root = -1;            // -1: nothing was read
    bool salvaged = false;        // built from the balanced blocks of a broken text
    bool lines = false;           // read, and written back, one value a line
    bool modified = false;
    TextEncoding encoding{.name = L"UTF-8"};
    std::unordered_map<int32_t, std::wstring> edits;  // by node
};

/// The literal for a text, with quotes. Lone surrogates are kept as they are.
[[nodiscard]] std::wstring EscapeString(std::wstring_view text);
/// Whether the whole text is one number (RFC 8259, section 6).
[[nodiscard]] bool IsValidJsonNumber(std::wstring_view text);

}  // namespace rl
