// Makes the viewer's fonts from a choice and the dots per inch.
#include "view/fonts.h"

#include "view/logic/geometry.h"

namespace rl {

namespace {

UniqueFont MakeFont(const std::wstring& face, int height, int weight, bool italic, DWORD pitch) {
    return UniqueFont(CreateFontW(height, 0, 0, 0, weight, italic ? TRUE : FALSE, FALSE, FALSE,
                                  DEFAULT_CHARSET, OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS,
                                  DEFAULT_QUALITY, pitch, face.c_str()));
}

}  // namespace

ViewerFonts MakeViewerFonts(const FontChoice& choice, int dpi) {
    constexpr DWORD kAnyPitch = DEFAULT_PITCH | FF_DONTCARE;
    constexpr DWORD kSourcePitch = FIXED_PITCH | FF_MODERN;
    const int height = FontHeight(choice.points, dpi);
    return {.normal = MakeFont(choice.face, height, choice.weight, false, kAnyPitch),
            .bold = MakeFont(choice.face, height, FW_BOLD, false, kAnyPitch),
            .italic = MakeFont(choice.face, height, choice.weight, true, kAnyPitch),
            .source = MakeFont(choice.sourceFace, height, 0, false, kSourcePitch)};
}

}  // namespace rl
