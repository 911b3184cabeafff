#include "model/xml_text_writer.h"

#include <algorithm>
#include <optional>

#include "model/name_units.h"
#include "model/xml_document.h"

namespace rl {

namespace {

constexpr size_t kDeepestIndent = 64;
constexpr std::wstring_view kBlanks = L" \t\r\n";

void ReplaceAll(std::wstring& text, std::wstring_view from, std::wstring_view to) {
    if (text.find(from) == std::wstring::npos) {
        return;
    }
    std::wstring out;
    size_t start = 0;
    for (size_t at = text.find(from); at != std::wstring::npos; at = text.find(from, start)) {
        out.append(text, start, at - start);
        out += to;
        start = at + from.size();
    }
    text = out.append(text, start);
}

/// The part of a DOCTYPE before its subset, read from the front.
class DoctypeReader {
public:
    explicit DoctypeReader(std::wstring_view rest) : rest_(rest) {}

    /// Blanks and then a word up to a blank or what ends the part.
    std::wstring_view TakeWord() {
        if (!TakeBlanks()) {
            return {};
        }
        const std::wstring_view word = rest_.substr(0, rest_.find_first_of(L" \t\r\n[>"));
        rest_.remove_prefix(word.size());
        return word;
    }

    /// Blanks and then a text between quotes, returned with them; empty for anything else.
    std::wstring_view TakeLiteral() {
        if (!TakeBlanks() || rest_.empty() || (rest_.front() != L'"' && rest_.front() != L'\'')) {
            return {};
        }
        const size_t end = rest_.find(rest_.front(), 1);
        if (end == std::wstring_view::npos) {
            return {};
        }
        const std::wstring_view literal = rest_.substr(0, end + 1);
        rest_.remove_prefix(literal.size());
        return literal;
    }

private:
    bool TakeBlanks() {
        const size_t count = std::min(rest_.find_first_not_of(kBlanks), rest_.size());
        rest_.remove_prefix(count);
        return count > 0;
    }

    std::wstring_view rest_;
};

bool IsPublicId(std::wstring_view literal) {
    constexpr std::wstring_view kMarks = L" \r\n-'()+,./:=?;!*#@$_%";
    const std::wstring_view text = literal.substr(1, literal.size() - 2);
    return std::ranges::all_of(text, [&](wchar_t unit) {
        return (unit < 0x80 && IsAlphanumeric(unit)) ||
               kMarks.find(unit) != std::wstring_view::npos;
    });
}

/// "SYSTEM" or "PUBLIC" with what belongs to it; empty when there is none or it is broken.
std::wstring ExternalId(DoctypeReader& reader) {
    const std::wstring_view word = reader.TakeWord();
    std::wstring id;
    if (word == L"PUBLIC") {
        const std::wstring_view publicId = reader.TakeLiteral();
        if (publicId.empty() || !IsPublicId(publicId)) {
            return {};
        }
        id = L" PUBLIC ";
        id += publicId;
        id += L' ';
    } else if (word == L"SYSTEM") {
        id = L" SYSTEM ";
    } else {
        return {};
    }
    const std::wstring_view systemId = reader.TakeLiteral();
    return systemId.empty() ? std::wstring() : id + XmlCharacters(systemId);
}

}  // namespace

void XmlTextWriter::StartLine() {
    if (!first_ && spaced_ == level_) {
        out_.Append(L"\r\n");
        out_.AppendBlanks(2 * level_);
    }
    first_ = false;
}

void XmlTextWriter::BeginElement(std::wstring_view name) {
    StartLine();
    out_.Append(L"<");
    out_.Append(name);
}

void XmlTextWriter::Attribute(std::wstring_view name, std::wstring_view value, wchar_t quote) {
    out_.Append(L" ");
    out_.Append(name);
    out_.Append(L"=");
    out_.Append({&quote, 1});
    out_.Append(EscapeAttribute(XmlCharacters(value), quote));
    out_.Append({&quote, 1});
}

void XmlTextWriter::BeginContent(bool isSpaced) {
    out_.Append(L">");
    if (isSpaced && spaced_ == level_ && level_ < kDeepestIndent) {
        ++spaced_;
    }
    ++level_;
}

void XmlTextWriter::EndElement(std::wstring_view name) {
    --level_;
    if (spaced_ > level_) {
        spaced_ = level_;
        StartLine();
    }
    out_.Append(L"</");
    out_.Append(name);
    out_.Append(L">");
}

void XmlTextWriter::Text(std::wstring_view text) {
    first_ = false;
    out_.Append(EscapeText(XmlCharacters(text)));
}

void XmlTextWriter::Comment(std::wstring_view text) {
    StartLine();
    std::wstring content = XmlCharacters(text);
    ReplaceAll(content, L"--", L"- -");
    ReplaceAll(content, L"--", L"- -");  // of three in a row
    if (content.ends_with(L'-')) {
        content += L' ';
    }
    out_.Append(L"<!--");
    out_.Append(content);
    out_.Append(L"-->");
}

void XmlTextWriter::Cdata(std::wstring_view text) {
    first_ = false;
    std::wstring content = XmlCharacters(text);
    ReplaceAll(content, L"]]>", L"]]]]><![CDATA[>");
    out_.Append(L"<![CDATA[");
    out_.Append(content);
    out_.Append(L"]]>");
}

void XmlTextWriter::Instruction(std::wstring_view target, std::wstring_view data) {
    StartLine();
    std::wstring content = XmlCharacters(data);
    ReplaceAll(content, L"?>", L"? >");
    out_.Append(L"<?");
    out_.Append(target);
    if (!content.empty()) {
        out_.Append(L" ");
        out_.Append(content);
    }
    out_.Append(L"?>");
}

void XmlTextWriter::Doctype(std::wstring_view source) {
    constexpr std::wstring_view kStart = L"<!DOCTYPE";
    if (!source.starts_with(kStart)) {
        return;
    }
    DoctypeReader reader(source.substr(kStart.size()));
    const std::wstring_view name = reader.TakeWord();
    if (!IsXmlName(name)) {
        return;
    }
    StartLine();
    out_.Append(kStart);
    out_.Append(L" ");
    out_.Append(name);
    out_.Append(ExternalId(reader));
    out_.Append(L">");
}

std::wstring XmlCharacters(std::wstring_view text) {
    std::wstring out(text);
    for (size_t i = 0; i < out.size(); ++i) {
        const wchar_t unit = out[i];
        const bool isHigh = unit >= 0xD800 && unit <= 0xDBFF;
        if (isHigh && i + 1 < out.size() && out[i + 1] >= 0xDC00 && out[i + 1] <= 0xDFFF) {
            ++i;
            continue;
        }
        const bool isControl = unit < 0x20 && unit != L'\t' && unit != L'\n' && unit != L'\r';
        if (isControl || (unit >= 0xD800 && unit <= 0xDFFF) || unit >= 0xFFFE) {
            out[i] = 0xFFFD;
        }
    }
    return out;
}

}  // namespace rl
