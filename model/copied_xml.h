// Nodes of an outline as XML text: always well-formed, whatever the document holds.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "model/json_document.h"
#include "model/limited_text.h"
#include "model/xml_document.h"

namespace rl {

/// The node with all below it. Where a document has several elements at its top, or text beside
/// its element, an element named "root" is put around them.
void WriteCopiedXml(const XmlDocument& document, int32_t node, LimitedText& out);
/// Name, "=", and the value between the quotes it stands in.
void WriteCopiedXmlAttribute(const XmlDocument& document, int32_t attribute, LimitedText& out);
/// An element named after the key; "item" without one, "root" for the document's root.
void WriteCopiedXml(const JsonDocument& document, int32_t node, LimitedText& out);

/// An element name made from a JSON key.
[[nodiscard]] std::wstring XmlSafeName(std::wstring_view key);

}  // namespace rl
