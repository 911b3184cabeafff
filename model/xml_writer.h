// The text of a document with its edits spliced in; all else stays unit for unit as it was.
#pragma once

#include <string>

#include "model/xml_document.h"

namespace rl {

/// What XmlDocument::Serialize answers.
[[nodiscard]] std::wstring WriteXml(const XmlDocument& document);

}  // namespace rl
