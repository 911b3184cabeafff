#include "model/json_document.h"

#include <cmath>
#include <cwchar>
#include <limits>
#include <utility>

#include "model/json_parser.h"
#include "model/json_recovery.h"
#include "model/json_text.h"

namespace rl {

namespace {

/// Why a text cannot stand for a value of this kind; empty when it can.
std::wstring_view RefusalOf(JsonKind kind, const std::wstring& text) {
    switch (kind) {
        case JsonKind::Null: return text == L"null" ? L"" : L"USE null";
        case JsonKind::Boolean:
            return text == L"true" || text == L"false" ? L"" : L"USE true OR false";
        case JsonKind::Number:
            return IsValidJsonNumber(text) && std::isfinite(std::wcstod(text.c_str(), nullptr))
                       ? L""
                       : L"INVALID NUMBER";
        case JsonKind::String: return L"";
        default: return L"READ ONLY";
    }
}

}  // namespace

std::wstring_view TypeName(JsonKind kind) {
    static constexpr std::wstring_view kNames[] = {L"NULL",   L"BOOLEAN", L"NUMBER",
                                                   L"STRING", L"ARRAY",   L"OBJECT"};
    const auto index = static_cast<size_t>(kind);
    return index < std::size(kNames) ? kNames[index] : std::wstring_view();
}

bool JsonDocument::Parse(std::wstring newText, bool newLines, bool allowRecovery,
                         const AbandonCheck& abandoned) {
    text = std::move(newText);
    nodes.clear();
    edits.clear();
    root = -1;
    salvaged = false;
    modified = false;
    lines = newLines;
    if (text.size() > std::numeric_limits<uint32_t>::max()) {
        return false;
    }
    if (lines) {
        root = ParseJsonLines(text, nodes, abandoned) ? 0 : -1;
    } else {
        root = ParseJsonValue(text, {0, text.size()}, -1, nodes, abandoned);
        if (root < 0 && allowRecovery && !IsAbandoned(abandoned)) {
            root = RecoverJsonBlocks(text, nodes, abandoned);
            salvaged = root >= 0;
        }
    }
    if (IsAbandoned(abandoned)) {
        root = -1;
    }
    if (root < 0) {
        std::vector<JsonNode>().swap(nodes);
    }
    return root >= 0;
}

std::wstring_view JsonDocument::TypeName(int32_t node) const {
    return rl::TypeName(nodes[static_cast<size_t>(node)].kind);
}

std::wstring JsonDocument::KeyText(int32_t node) const {
    std::wstring key;
    ReadKey(node, key);
    return key;
}

void JsonDocument::ReadKey(int32_t node, std::wstring& out) const {
    const JsonNode& at = nodes[static_cast<size_t>(node)];
    out.clear();
    if (at.hasKey != 0) {
        DecodeJsonString(std::wstring_view(text).substr(at.keyOffset, at.keyLength), out);
    }
}

std::wstring JsonDocument::ValueText(int32_t node) const {
    const auto edit = edits.find(node);
    if (edit != edits.end()) {
        return edit->second;
    }
    const JsonNode& at = nodes[static_cast<size_t>(node)];
    return text.substr(at.valueOffset, at.valueLength);
}

std::wstring JsonDocument::DisplayText(int32_t node) const {
    std::wstring shown;
    ReadDisplay(node, shown);
    return shown;
}

void JsonDocument::ReadDisplay(int32_t node, std::wstring& out) const {
    const JsonNode& at = nodes[static_cast<size_t>(node)];
    if (at.IsContainer()) {
        out = at.kind == JsonKind::Array ? L"[Array]" : L"[Object]";
        return;
    }
    if (!edits.empty()) {
        const auto edit = edits.find(node);
        if (edit != edits.end()) {
            out = edit->second;
            return;
        }
    }
    const std::wstring_view token = std::wstring_view(text).substr(at.valueOffset, at.valueLength);
    if (at.kind == JsonKind::String) {
        out.clear();
        DecodeJsonString(token, out);
    } else {
        out = token;
    }
}

std::vector<int32_t> JsonDocument::ChildIndices(int32_t node) const {
    std::vector<int32_t> children;
    if (node < 0) {
        return children;
    }
    children.reserve(nodes[static_cast<size_t>(node)].childCount);
    for (int32_t child = nodes[static_cast<size_t>(node)].firstChild; child >= 0;
         child = nodes[static_cast<size_t>(child)].nextSibling) {
        children.push_back(child);
    }
    return children;
}

std::wstring JsonDocument::DecodeString(uint32_t offset, uint32_t length) const {
    std::wstring decoded;
    DecodeJsonString(std::wstring_view(text).substr(offset, length), decoded);
    return decoded;
}

bool JsonDocument::SetValue(int32_t node, std::wstring_view newText, std::wstring* errorText) {
    std::wstring value(newText);
    const std::wstring_view refusal = RefusalOf(nodes[static_cast<size_t>(node)].kind, value);
    if (!refusal.empty()) {
        if (errorText != nullptr) {
            *errorText = refusal;
        }
        return false;
    }
    if (value != DisplayText(node)) {
        edits[node] = std::move(value);
        modified = true;
    }
    return true;
}

}  // namespace rl
