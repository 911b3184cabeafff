// How a document's bytes became text, and how text becomes bytes again.
//
// Plain data, kept with each document from its load to its save.
#pragma once

#include <cstdint>
#include <string>

namespace rl {

/// What the caller of `DecodeText` asks for.
struct EncodingRequest {
    std::wstring name = {};             // label forced by the user; empty: find it
    uint32_t ansiCodePage = 0;          // what "ANSI" means; 0: the system's own code page
    bool honourXmlDeclaration = false;  // only while loading XML

    bool operator==(const EncodingRequest&) const = default;
};

/// What `DecodeText` found.
struct TextEncoding {
    std::wstring name = {};  // "UTF-8", "UTF-16LE", "UTF-16BE", "ANSI", or a forced name as given
    bool hasBom = false;     // the bytes began with this encoding's mark, and it was skipped
    uint32_t codePage = 0;   // for "ANSI": the page used; 0: the system's own

    bool operator==(const TextEncoding&) const = default;
};

}  // namespace rl
