#include "load/load_options.h"

#include <windows.h>

#include "host/config/settings.h"
#include "host/store/settings.h"
#include "host/store/settings_store.h"
#include "load/files/file_reader.h"
#include "load/text/byte_size.h"
#include "load/text/decode_text.h"
#include "load/text/loading_text.h"

namespace rl {
namespace {

constexpr uint32_t kHeadBytes = 4096;  // what a file without a telling name is judged by

CommentMode CaptureCommentMode() {
    const int32_t value = settings::Get(settings::kSkipComments);
    const bool known = value >= static_cast<int32_t>(CommentMode::Parse) &&
                       value <= static_cast<int32_t>(CommentMode::Auto);
    return known ? static_cast<CommentMode>(value) : CommentMode::Parse;
}

CsvOptions CaptureCsvOptions() {
    using namespace settings;
    return {.delimiter = DelimiterFromSetting(Get(kDefaultColumnDelimiter)),
            .quoteChar = QuoteFromSetting(Get(kQuoteChar)),
            .commentMode = CaptureCommentMode(),
            .trimValues = IsOn(kTrimValues),
            .sampleRows = Get(kMaxColumnSamples)};
}

uint32_t CaptureAnsiCodePage() {
    const int32_t value = SettingsStore::Instance().GetInt(settings::kAnsiCodepage.key, 0);
    return value < 0 ? 0 : static_cast<uint32_t>(value);
}

}  // namespace

LoadOptions CaptureLoadOptions(DocumentKind kind) {
    LoadOptions options;
    options.sizeLimit = MaxFileSize();
    options.parseMode = settings::Get(settings::kParseMode);
    options.csv = CaptureCsvOptions();
    options.encoding.ansiCodePage = CaptureAnsiCodePage();
    options.encoding.honourXmlDeclaration = kind == DocumentKind::Xml;
    options.delimiterDetected = options.csv.delimiter == 0;
    return options;
}

int64_t MaxFileSize() {
    const std::optional<int64_t> configured =
        SizeLimitFromSetting(settings::Get(settings::kMaxFileSize));
    return configured ? *configured : static_cast<int64_t>(DefaultMaxFileSize());
}

uint64_t DefaultMaxFileSize() {
    MEMORYSTATUSEX memory{};
    memory.dwLength = sizeof(memory);
    return GlobalMemoryStatusEx(&memory) ? DefaultSizeLimit(memory.ullTotalPhys)
                                         : kLargestDefaultLimit;
}

DocumentKind DecideDocumentKind(const std::wstring& path) {
    DocumentKind kind = DocumentKind::Csv;
    if (KindFromName(path, kind)) {
        return kind;
    }
    TextEncoding found;
    return KindFromHead(DecodeText(ReadFileHead(path, kHeadBytes), EncodingRequest{}, found));
}

std::wstring LoadingTextFor(const std::wstring& path) {
    return LoadingText(path, FileSizeOf(path));
}

}  // namespace rl
