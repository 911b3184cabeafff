#include "load/document_loaders.h"

#include <string_view>
#include <utility>

#include "load/files/file_reader.h"
#include "load/text/decode_text.h"
#include "load/text/messages.h"

namespace rl {
namespace {

/// Reads and decodes. The bytes are gone before the text is returned: the largest document that can
/// be opened is decided by what exists at the same time.
bool ReadText(const std::wstring& path, int64_t sizeLimit, const EncodingRequest& request,
              const AbandonCheck& abandoned, std::wstring& text, TextEncoding& found,
              std::wstring& error) {
    std::string bytes;
    if (!ReadFileLimited(path, sizeLimit, bytes, error, abandoned)) {
        return false;
    }
    text = DecodeText(bytes, request, found, abandoned);
    return true;
}

}  // namespace

std::unique_ptr<CsvModel> LoadCsv(const std::wstring& path, int64_t sizeLimit,
                                  const CsvOptions& options, const EncodingRequest& request,
                                  std::wstring& error, const AbandonCheck& abandoned) {
    auto model = std::make_unique<CsvModel>();
    std::wstring text;
    if (!ReadText(path, sizeLimit, request, abandoned, text, model->encoding, error) ||
        IsAbandoned(abandoned)) {
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

}  // namespace rl
