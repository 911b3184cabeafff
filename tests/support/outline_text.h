// Outlines from literals, and what they show as one text that a test can compare.
#pragma once

#include <memory>
#include <stdexcept>
#include <string>

#include "model/json_document.h"
#include "model/outline_model.h"
#include "model/xml_document.h"

namespace rl::test {

enum class JsonMode { Whole, Lines, Recover };

/// Throws when the text does not parse.
inline std::unique_ptr<JsonDocument> JsonOf(std::wstring text, JsonMode mode = JsonMode::Whole) {
    auto document = std::make_unique<JsonDocument>();
    if (!document->Parse(std::move(text), mode == JsonMode::Lines, mode == JsonMode::Recover)) {
        throw std::runtime_error("not a JSON document");
    }
    return document;
}

inline std::unique_ptr<XmlDocument> XmlOf(std::wstring text) {
    auto document = std::make_unique<XmlDocument>();
    if (!document->Parse(std::move(text))) {
        throw std::runtime_error("not an XML document");
    }
    return document;
}

/// One line for each row: a blank for each level, "-" open, "+" closed or "." for what does not
/// open, the name, and "=" with the value unless that is empty.
inline std::wstring Shown(const TreeTableView& outline) {
    std::wstring text;
    for (int32_t row = 0; row < outline.RowCount(); ++row) {
        const OutlineRow& shown = outline.Row(row);
        text.append(shown.depth, L' ');
        text += shown.expanded ? L'-' : shown.hasChildren ? L'+' : L'.';
        text += outline.NameText(row);
        const std::wstring value = outline.ValueText(row);
        text += value.empty() ? value : L"=" + value;
        text += L'\n';
    }
    return text;
}

/// The first row of that name; -1 when there is none.
inline int32_t RowNamed(const TreeTableView& outline, std::wstring_view name) {
    for (int32_t row = 0; row < outline.RowCount(); ++row) {
        if (outline.NameText(row) == name) {
            return row;
        }
    }
    return -1;
}

}  // namespace rl::test
