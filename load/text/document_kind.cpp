#include "load/text/document_kind.h"

#include <algorithm>
#include <string>

#include "load/text/platform.h"

namespace rl {
namespace {

struct Suffix {
    std::wstring_view name;
    DocumentKind kind;
};

constexpr Suffix kSuffixes[] = {
    {L"csv", DocumentKind::Csv},         {L"tsv", DocumentKind::Csv},
    {L"tab", DocumentKind::Csv},

    {L"json", DocumentKind::Json},       {L"jsonl", DocumentKind::Json},
    {L"ndjson", DocumentKind::Json},     {L"geojson", DocumentKind::Json},
    {L"har", DocumentKind::Json},        {L"jsonc", DocumentKind::Json},
    {L"json5", DocumentKind::Json},

    {L"xml", DocumentKind::Xml},         {L"gpx", DocumentKind::Xml},
    {L"svg", DocumentKind::Xml},         {L"xsd", DocumentKind::Xml},
    {L"xsl", DocumentKind::Xml},         {L"xslt", DocumentKind::Xml},
    {L"rss", DocumentKind::Xml},         {L"osm", DocumentKind::Xml},
    {L"kml", DocumentKind::Xml},         {L"manifest", DocumentKind::Xml},
    {L"nuspec", DocumentKind::Xml},      {L"resx", DocumentKind::Xml},
    {L"xaml", DocumentKind::Xml},        {L"csproj", DocumentKind::Xml},
    {L"vbproj", DocumentKind::Xml},      {L"vcxproj", DocumentKind::Xml},
    {L"props", DocumentKind::Xml},       {L"targets", DocumentKind::Xml},
    {L"wsdl", DocumentKind::Xml},        {L"plist", DocumentKind::Xml},
    {L"atom", DocumentKind::Xml},        {L"dgml", DocumentKind::Xml},
    {L"xlf", DocumentKind::Xml},         {L"xliff", DocumentKind::Xml},
    {L"runsettings", DocumentKind::Xml},
};

}  // namespace

bool KindFromName(std::wstring_view path, DocumentKind& kind) {
    const size_t dot = path.rfind(L'.');
    if (dot == std::wstring_view::npos) {
        return false;
    }
    std::wstring name(path.substr(dot + 1));
    platform::FoldCase(name);
    const auto* const found = std::ranges::find(kSuffixes, std::wstring_view(name), &Suffix::name);
    if (found == std::end(kSuffixes)) {
        return false;
    }
    kind = found->kind;
    return true;
}

DocumentKind KindFromHead(std::wstring_view head) {
    const size_t first = head.find_first_not_of(L"\t\n\r \xFEFF");
    if (first == std::wstring_view::npos) {
        return DocumentKind::Csv;
    }
    switch (head[first]) {
        case L'<': return DocumentKind::Xml;
        case L'{':
        case L'[': return DocumentKind::Json;
        case L'/': {
            const wchar_t next = first + 1 < head.size() ? head[first + 1] : L'\0';
            return next == L'/' || next == L'*' ? DocumentKind::Json : DocumentKind::Csv;
        }
        default: return DocumentKind::Csv;
    }
}

}  // namespace rl
