#include "model/json_text_writer.h"

#include <string>

#include "model/json_document.h"
#include "model/json_text.h"

namespace rl {

void JsonTextWriter::String(std::wstring_view text) {
    std::wstring literal = EscapeString(text);
    EscapeLoneSurrogates(literal);
    out_.Append(literal);
}

}  // namespace rl
