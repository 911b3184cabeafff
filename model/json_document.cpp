#include "model/json_document.h"

#include <algorithm>
#include <cmath>
#include <cwchar>
#include <limits>

#include "model/json_parser.h"
#include "model/json_recovery.h"
#include "model/json_text.h"

namespace rl {

namespace {

/// What is wrong with a text as the value of such a node; empty when nothing is.
std::wstring_view Objection(JsonKind kind, std::wstring_view text) {
    switch (kind) {
        case JsonKind::Null: return text == L"null" ? L"" : L"USE null";
        case JsonKind::Boolean:
            return text == L"true" || text == L"false" ? L"" : L"USE true OR false";
        case JsonKind::Number:
            return IsValidJsonNumber(text) &&
                           std::isfinite(std::wcstod(std::wstring(text).c_str(), nullptr))
                       ? L""
                       : L"INVALID NUMBER";
        case JsonKind::String: return L"";
        default: return L"READ ONLY";
    }
}

}  // namespace

std::wstring_view TypeName(JsonKind kind) {
    switch (kind) {
        case JsonKind::Null: return L"NULL";
        case JsonKind::Boolean: return L"BOOLEAN";
        case JsonKind::Number: return L"NUMBER";
        case JsonKind::String: return L"STRING";
        case JsonKind::Array: return L"ARRAY";
        case JsonKind::Object: return L"OBJECT";
    }
    return L"";
}

bool JsonDocument::Parse(std::wstring newText, bool newLines, bool allowRecovery,
                         const AbandonCheck& abandoned) {
    text = std::move(newText);
    nodes = {};
    root = -1;
    salvaged = false;
    lines = newLines;
    modified = false;
    edits.clear();
    if (text.size() > std::numeric_limits<uint32_t>::max()) {
        return false;
    }
    if (lines) {
        root = ParseJsonLines<wchar_t>(text, nodes, abandoned);
    } else {
        JsonParser<wchar_t> parser(text, false, nodes, abandoned);
        root = parser.Parse(0, text.size(), -1);
        if (root < 0 && allowRecovery && !parser.WasAbandoned()) {
            root = SalvageJson(text, nodes, abandoned);
            salvaged = root >= 0;
        }
    }
    if (root < 0) {
        nodes = {};
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

std::wstring JsonDocument::ValueText(int32_t node) const {
    if (const auto edit = edits.find(node); edit != edits.end()) {
        return edit->second;
    }
    const JsonNode& entry = nodes[static_cast<size_t>(node)];
    return text.substr(entry.valueOffset, entry.valueLength);
}

std::wstring JsonDocument::DisplayText(int32_t node) const {
    std::wstring shown;
    ReadDisplay(node, shown);
    return shown;
}

void JsonDocument::ReadKey(int32_t node, std::wstring& out) const {
    const JsonNode& entry = nodes[static_cast<size_t>(node)];
    out.clear();
    if (entry.hasKey != 0) {
        AppendDecoded(std::wstring_view(text).substr(entry.keyOffset, entry.keyLength), out);
    }
}

void JsonDocument::ReadDisplay(int32_t node, std::wstring& out) const {
    const JsonNode& entry = nodes[static_cast<size_t>(node)];
    if (entry.IsContainer()) {
        out = entry.kind == JsonKind::Array ? L"[Array]" : L"[Object]";
        return;
    }
    if (!edits.empty()) {
        if (const auto edit = edits.find(node); edit != edits.end()) {
            out = edit->second;
            return;
        }
    }
    const auto value = std::wstring_view(text).substr(entry.valueOffset, entry.valueLength);
    if (entry.kind == JsonKind::String) {
        out.clear();
        AppendDecoded(value, out);
    } else {
        out = value;
    }
}

std::vector<int32_t> JsonDocument::ChildIndices(int32_t node) const {
    std::vector<int32_t> children;
    if (node >= 0) {
        const JsonNode& entry = nodes[static_cast<size_t>(node)];
        children.reserve(entry.childCount);
        for (int32_t child = entry.firstChild; child >= 0;
             child = nodes[static_cast<size_t>(child)].nextSibling) {
            children.push_back(child);
        }
    }
    return children;
}

std::wstring JsonDocument::DecodeString(uint32_t offset, uint32_t length) const {
    std::wstring decoded;
    if (offset < text.size()) {
        AppendDecoded(std::wstring_view(text).substr(offset, length), decoded);
    }
    return decoded;
}

bool JsonDocument::SetValue(int32_t node, std::wstring_view newText, std::wstring* errorText) {
    const std::wstring_view objection = Objection(nodes[static_cast<size_t>(node)].kind, newText);
    if (!objection.empty()) {
        if (errorText != nullptr) {
            *errorText = objection;
        }
        return false;
    }
    if (newText != DisplayText(node)) {
        edits.insert_or_assign(node, std::wstring(newText));
        modified = true;
    }
    return true;
}

}  // namespace rl
