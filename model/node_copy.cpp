#include "model/node_copy.h"

#include "model/copied_json.h"
#include "model/copied_xml.h"
#include "model/limited_text.h"
#include "model/node_paths.h"

namespace rl {

namespace {

void WriteAsJson(const TreeTableView& outline, const OutlineRow& row, LimitedText& out) {
    if (const JsonDocument* json = outline.Json()) {
        WriteCopiedJson(*json, row.node, out);
    } else if (row.IsAttribute()) {
        WriteCopiedJsonAttribute(*outline.Xml(), row.aux, out);
    } else {
        WriteCopiedJson(*outline.Xml(), row.node, out);
    }
}

void WriteAsXml(const TreeTableView& outline, const OutlineRow& row, LimitedText& out) {
    if (const JsonDocument* json = outline.Json()) {
        WriteCopiedXml(*json, row.node, out);
    } else if (row.IsAttribute()) {
        WriteCopiedXmlAttribute(*outline.Xml(), row.aux, out);
    } else {
        WriteCopiedXml(*outline.Xml(), row.node, out);
    }
}

/// The texts of some rows, as `write` writes each of them.
template <typename Write>
std::optional<std::wstring> Joined(const TreeTableView& outline, std::span<const int32_t> rows,
                                   size_t maxUnits, const Write& write) {
    LimitedText out(maxUnits);
    for (const int32_t row : rows) {
        const OutlineRow& shown = outline.Row(row);
        if (shown.node < 0) {
            continue;
        }
        out.Separate(L"\r\n");
        write(shown, out);
        if (out.IsOver()) {
            return std::nullopt;
        }
    }
    return out.Take();
}

std::wstring PathOf(const TreeTableView& outline, const OutlineRow& row) {
    if (const JsonDocument* json = outline.Json()) {
        return JsonPathOf(*json, row.node);
    }
    const XmlDocument& xml = *outline.Xml();
    return row.IsAttribute() ? XPathOfAttribute(xml, row.node, row.aux) : XPathOf(xml, row.node);
}

std::optional<std::wstring> JoinedPaths(const TreeTableView& outline, std::span<const int32_t> rows,
                                        size_t maxUnits) {
    if (rows.size() == 1) {
        return Joined(outline, rows, maxUnits, [&](const OutlineRow& row, LimitedText& out) {
            out.Append(PathOf(outline, row));
        });
    }
    if (const JsonDocument* json = outline.Json()) {
        JsonPaths paths(*json);
        return Joined(outline, rows, maxUnits, [&](const OutlineRow& row, LimitedText& out) {
            out.Append(paths.Of(row.node));
        });
    }
    XmlPaths paths(*outline.Xml());
    return Joined(outline, rows, maxUnits, [&](const OutlineRow& row, LimitedText& out) {
        out.Append(row.IsAttribute() ? paths.OfAttribute(row.node, row.aux) : paths.Of(row.node));
    });
}

}  // namespace

std::optional<std::wstring> NodeTextAs(const TreeTableView& outline, int32_t row, CopyFormat format,
                                       size_t maxUnits) {
    return NodeTextsAs(outline, {&row, 1}, format, maxUnits);
}

std::optional<std::wstring> NodeTextsAs(const TreeTableView& outline, std::span<const int32_t> rows,
                                        CopyFormat format, size_t maxUnits) {
    switch (format) {
        case CopyFormat::Json:
            return Joined(outline, rows, maxUnits, [&](const OutlineRow& row, LimitedText& out) {
                WriteAsJson(outline, row, out);
            });
        case CopyFormat::Xml:
            return Joined(outline, rows, maxUnits, [&](const OutlineRow& row, LimitedText& out) {
                WriteAsXml(outline, row, out);
            });
        case CopyFormat::Path: return JoinedPaths(outline, rows, maxUnits);
    }
    return std::wstring();
}

}  // namespace rl
