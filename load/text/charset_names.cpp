// One row for each name. Names that are absent still work when they hold a code-page number.
#include "load/text/charset_names.h"

#include <algorithm>

#include "load/text/ascii_case.h"

namespace rl {

namespace {

struct Charset {
    std::wstring_view name;
    uint32_t codePage;
};

constexpr Charset kCharsets[] = {
    {L"utf-8", 65001},       {L"utf8", 65001},        {L"us-ascii", 20127},
    {L"ascii", 20127},       {L"iso-8859-1", 28591},  {L"latin1", 28591},
    {L"iso-8859-2", 28592},  {L"latin2", 28592},      {L"iso-8859-5", 28595},
    {L"iso-8859-7", 28597},  {L"iso-8859-9", 28599},  {L"iso-8859-15", 28605},
    {L"windows-1250", 1250}, {L"cp1250", 1250},       {L"windows-1251", 1251},
    {L"cp1251", 1251},       {L"windows-1252", 1252}, {L"cp1252", 1252},
    {L"windows-1253", 1253}, {L"windows-1254", 1254}, {L"windows-1255", 1255},
    {L"windows-1256", 1256}, {L"windows-1257", 1257}, {L"windows-1258", 1258},
    {L"cp852", 852},         {L"ibm852", 852},        {L"cp866", 866},
    {L"ibm866", 866},        {L"koi8-r", 20866},      {L"koi8-u", 21866},
    {L"shift_jis", 932},     {L"sjis", 932},          {L"euc-jp", 20932},
    {L"euc-kr", 51949},      {L"gb2312", 936},        {L"gbk", 936},
    {L"gb18030", 54936},     {L"big5", 950},
};

constexpr uint32_t kSmallestPage = 37;
constexpr uint32_t kLargestPage = 65001;

constexpr bool IsDigit(wchar_t unit) {
    return unit >= L'0' && unit <= L'9';
}

/// The number that the first run of digits writes, or 0 when it is out of range or absent.
uint32_t FirstNumber(std::wstring_view name) {
    const auto* digit = std::find_if(name.begin(), name.end(), IsDigit);
    uint32_t number = 0;
    for (; digit != name.end() && IsDigit(*digit) && number <= kLargestPage; ++digit) {
        number = number * 10 + static_cast<uint32_t>(*digit - L'0');
    }
    return number >= kSmallestPage && number <= kLargestPage ? number : 0;
}

}  // namespace

uint32_t CodePageForCharset(std::wstring_view name) {
    const auto* found = std::ranges::find_if(
        kCharsets, [name](const Charset& row) { return EqualAsciiCase(row.name, name); });
    return found == std::end(kCharsets) ? 0 : found->codePage;
}

uint32_t CodePageForDeclaration(std::wstring_view name) {
    const uint32_t known = CodePageForCharset(name);
    return known != 0 ? known : FirstNumber(name);
}

}  // namespace rl
