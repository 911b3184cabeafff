// What the host is told about the files we want, in its own notation.
//
// A literal of its own, not made from the lists of document kinds: the order of its suffixes is the
// order in which they were published, and CONFIG is offered without being listed as any kind (its
// content decides).
#pragma once

#include <string_view>

namespace rl {

inline constexpr std::wstring_view kLongDetectString =
    LR"(MULTIMEDIA & (ext="CSV" | ext="TSV" | ext="TAB" | ext="JSON" | ext="JSONL" | )"
    LR"(ext="NDJSON" | ext="GEOJSON" | ext="JSONC" | ext="JSON5" | ext="HAR" | ext="XML" | )"
    LR"(ext="GPX" | ext="SVG" | ext="XSD" | ext="XSL" | ext="XSLT" | ext="RSS" | ext="OSM" | )"
    LR"(ext="KML" | ext="CONFIG" | ext="MANIFEST" | ext="NUSPEC" | ext="RESX" | ext="XAML" | )"
    LR"(ext="CSPROJ" | ext="VBPROJ" | ext="VCXPROJ" | ext="PROPS" | ext="TARGETS" | )"
    LR"(ext="WSDL" | ext="PLIST" | ext="ATOM" | ext="DGML" | ext="XLF" | ext="XLIFF" | )"
    LR"(ext="RUNSETTINGS"))";
static_assert(kLongDetectString.size() == 503);

/// For a caller whose buffer is too small for the long one.
inline constexpr std::wstring_view kShortDetectString =
    LR"(MULTIMEDIA & (ext="CSV" | ext="JSON" | ext="XML"))";

}  // namespace rl
