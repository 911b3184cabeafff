// Nodes of an outline as JSON text: two blanks a level, always valid, whatever the document holds.
#pragma once

#include <cstdint>

#include "model/json_document.h"
#include "model/limited_text.h"
#include "model/xml_document.h"

namespace rl {

/// The value; with a key, an object of that one member.
void WriteCopiedJson(const JsonDocument& document, int32_t node, LimitedText& out);
/// An object of one member: the node's name and its value. The document node stands for itself.
void WriteCopiedJson(const XmlDocument& document, int32_t node, LimitedText& out);
/// An object of one member, "@" before its name.
void WriteCopiedJsonAttribute(const XmlDocument& document, int32_t attribute, LimitedText& out);

}  // namespace rl
