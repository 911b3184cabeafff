#include "load/document_loaders.h"

#include <optional>
#include <string_view>
#include <utility>

#include "load/files/file_reader.h"
#include "load/text/decode_text.h"
#include "load/text/detect_encoding.h"
#include "load/text/messages.h"
#include "load/text/utf8_stream.h"
#include "model/csv_scan.h"

namespace rl {
namespace {

/// What became of the attempt to read a file as UTF-8.
enum class Utf8Outcome { Done, NotUtf8, Failed };

/// Nearly every file: converted piece by piece while it is read, its bytes never whole in memory.
Utf8Outcome ReadUtf8(const std::wstring& path, int64_t sizeLimit, const EncodingRequest& request,
                     const AbandonCheck& abandoned, std::wstring& text, TextEncoding& found,
                     std::wstring& error, std::optional<FileStamp>* stamp) {
    std::optional<Utf8Stream> stream;
    bool fits = true;
    const auto take = [&](std::string_view piece, size_t fileSize) {
        if (!stream) {
            fits = Utf8Stream::MayBegin(piece, request, found);
            stream.emplace(fileSize);
            piece.remove_prefix(found.hasBom ? LeadingMark(piece).bytes.size() : 0);
        }
        fits = fits && stream->Feed(piece);
        return fits;
    };
    if (!ReadFileInPieces(path, sizeLimit, take, error, abandoned, stamp)) {
        return fits ? Utf8Outcome::Failed : Utf8Outcome::NotUtf8;
    }
    if (!stream || !stream->Finish()) {
        return Utf8Outcome::NotUtf8;
    }
    text = stream->TakeText();
    return Utf8Outcome::Done;
}

/// Reads and decodes. The bytes are gone before the text is returned: the largest document that can
/// be opened is decided by what exists at the same time.
bool ReadText(const std::wstring& path, int64_t sizeLimit, const EncodingRequest& request,
              const AbandonCheck& abandoned, std::wstring& text, TextEncoding& found,
              std::wstring& error, std::optional<FileStamp>* stamp) {
    switch (ReadUtf8(path, sizeLimit, request, abandoned, text, found, error, stamp)) {
        case Utf8Outcome::Done: return true;
        case Utf8Outcome::Failed: return false;
        case Utf8Outcome::NotUtf8: break;
    }
    std::string bytes;
    if (!ReadFileLimited(path, sizeLimit, bytes, error, abandoned, stamp)) {
        return false;
    }
    text = DecodeText(bytes, request, found, abandoned);
    return true;
}

/// Whether a file is meant to hold one value a line, by its name alone.
bool IsNamedLines(std::wstring_view path) {
    const size_t dot = path.rfind(L'.');
    if (dot == std::wstring_view::npos) {
        return false;
    }
    std::wstring suffix(path.substr(dot));
    for (wchar_t& unit : suffix) {
        if (unit >= L'A' && unit <= L'Z') {
            unit = static_cast<wchar_t>(unit - L'A' + L'a');
        }
    }
    return suffix == L".jsonl" || suffix == L".ndjson";
}

}  // namespace

std::unique_ptr<CsvModel> LoadCsv(const std::wstring& path, int64_t sizeLimit,
                                  const CsvOptions& options, const EncodingRequest& request,
                                  std::wstring& error, const AbandonCheck& abandoned,
                                  std::optional<FileStamp>* stamp) {
    auto model = std::make_unique<CsvModel>();
    std::wstring text;
    if (!ReadText(path, sizeLimit, request, abandoned, text, model->encoding, error, stamp) ||
        IsAbandoned(abandoned)) {
        return nullptr;
    }
    if (text.size() > kMaxCsvUnits) {
        error = messages::kTooLong;
        return nullptr;
    }
    if (model->Parse(std::move(text), options, abandoned)) {
        return model;
    }
    if (!IsAbandoned(abandoned)) {
        error = messages::kUnbalancedQuotes;
    }
    return nullptr;
}

std::unique_ptr<JsonDocument> LoadJsonDocument(const std::wstring& path, int64_t sizeLimit,
                                               int32_t parseMode, const EncodingRequest& request,
                                               std::wstring& error, const AbandonCheck& abandoned,
                                               std::optional<FileStamp>* stamp) {
    auto document = std::make_unique<JsonDocument>();
    std::wstring text;
    if (!ReadText(path, sizeLimit, request, abandoned, text, document->encoding, error, stamp) ||
        IsAbandoned(abandoned)) {
        return nullptr;
    }
    const bool lines = IsNamedLines(path);
    const bool recover = parseMode != 0;
    // A file that says it holds lines is never tried as one document; any other is tried as both.
    if (document->Parse(std::move(text), lines, recover, abandoned) ||
        (!lines && !IsAbandoned(abandoned) &&
         document->Parse(document->TakeText(), true, recover, abandoned))) {
        return document;
    }
    if (!IsAbandoned(abandoned)) {
        error = messages::kNotJson;
    }
    return nullptr;
}

std::unique_ptr<XmlDocument> LoadXmlDocument(const std::wstring& path, int64_t sizeLimit,
                                             const EncodingRequest& request, std::wstring& error,
                                             const AbandonCheck& abandoned,
                                             std::optional<FileStamp>* stamp) {
    auto document = std::make_unique<XmlDocument>();
    std::wstring text;
    if (!ReadText(path, sizeLimit, request, abandoned, text, document->encoding, error, stamp) ||
        IsAbandoned(abandoned)) {
        return nullptr;
    }
    if (document->Parse(std::move(text), abandoned)) {
        return document;
    }
    if (!IsAbandoned(abandoned)) {
        error = messages::kNotXml;
    }
    return nullptr;
}

}  // namespace rl
