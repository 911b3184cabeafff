// Values that need no making: most stand in the document just as they are shown.
#include <emmintrin.h>

#include "model/outline_tree.h"

namespace rl {

namespace {

/// Whether no unit is a control character or `escape`: then nothing is decoded or folded.
bool HasNothingToMake(std::wstring_view text, wchar_t escape) {
    size_t at = 0;
    if constexpr (sizeof(wchar_t) == 2) {
        const __m128i escapes = _mm_set1_epi16(static_cast<int16_t>(escape));
        const __m128i lastControl = _mm_set1_epi16(31);
        const __m128i none = _mm_setzero_si128();
        for (; at + 8 <= text.size(); at += 8) {
            const __m128i units =
                _mm_loadu_si128(reinterpret_cast<const __m128i*>(text.data() + at));
            const __m128i controls = _mm_cmpeq_epi16(_mm_subs_epu16(units, lastControl), none);
            if (_mm_movemask_epi8(_mm_or_si128(controls, _mm_cmpeq_epi16(units, escapes))) != 0) {
                return false;
            }
        }
    }
    for (; at < text.size(); ++at) {
        if (text[at] < L' ' || text[at] == escape) {
            return false;
        }
    }
    return true;
}

std::optional<std::wstring_view> PlainOrNothing(std::wstring_view text, wchar_t escape) {
    return HasNothingToMake(text, escape) ? std::optional(text) : std::nullopt;
}

std::optional<std::wstring_view> PlainJson(const JsonDocument& document, int32_t node) {
    const JsonNode& at = document.nodes[static_cast<size_t>(node)];
    if (at.IsContainer()) {
        return std::wstring_view();
    }
    const auto token = std::wstring_view(document.text).substr(at.valueOffset, at.valueLength);
    return at.kind == JsonKind::String ? PlainOrNothing(token.substr(1, token.size() - 2), L'\\')
                                       : std::optional(token);
}

/// Only elements of one text: the others' texts are put together, or none are shown.
std::optional<std::wstring_view> PlainXml(const XmlDocument& document, int32_t node) {
    const XmlNode& at = document.nodes[static_cast<size_t>(node)];
    if (at.kind != XmlKind::Element || at.childCount != 1) {
        return std::nullopt;
    }
    const XmlNode& child = document.nodes[static_cast<size_t>(at.firstChild)];
    if (child.kind != XmlKind::Text) {
        return std::nullopt;
    }
    return PlainOrNothing(
        std::wstring_view(document.text).substr(child.valueOffset, child.valueLength), L'&');
}

}  // namespace

size_t FindUnit(std::wstring_view text, size_t from, wchar_t unit) {
    size_t at = from;
    if constexpr (sizeof(wchar_t) == 2) {
        const __m128i wanted = _mm_set1_epi16(static_cast<int16_t>(unit));
        for (; at + 8 <= text.size(); at += 8) {
            const __m128i units =
                _mm_loadu_si128(reinterpret_cast<const __m128i*>(text.data() + at));
            if (_mm_movemask_epi8(_mm_cmpeq_epi16(units, wanted)) != 0) {
                break;
            }
        }
    }
    for (; at < text.size(); ++at) {
        if (text[at] == unit) {
            return at;
        }
    }
    return std::wstring_view::npos;
}

std::optional<std::wstring_view> OutlineTree::PlainValue(int32_t node) const {
    if (json_ != nullptr) {
        return json_->edits.empty() ? PlainJson(*json_, node) : std::nullopt;
    }
    return xml_->nodeEdits.empty() ? PlainXml(*xml_, node) : std::nullopt;
}

std::optional<std::wstring_view> OutlineTree::PlainAttributeValue(int32_t attribute) const {
    if (xml_ == nullptr || !xml_->attributeEdits.empty()) {
        return std::nullopt;
    }
    const XmlAttribute& at = xml_->attributes[static_cast<size_t>(attribute)];
    return PlainOrNothing(std::wstring_view(xml_->text).substr(at.valueOffset, at.valueLength),
                          L'&');
}

}  // namespace rl
