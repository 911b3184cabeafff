// What the grid shows of a document: delimited text as it is, JSON and XML as an outline or as the
// table of the node selected in the tree pane; and the way from one to the other.
#include "host/store/settings.h"
#include "view/control.h"
#include "view/viewer.h"
#include "view/wait_cursor.h"

namespace rl {

namespace {

/// The node whose table is shown first: the largest record set, else the top.
int32_t FirstTableNode(const Document& document) {
    const RecordSet records = document.Records();
    if (records.node >= 0) {
        return records.node;
    }
    return document.json != nullptr ? document.json->root : document.xml->FirstElement();
}

}  // namespace

// A view begins unsorted and without filters.
std::unique_ptr<RowView> Viewer::MakeRows(const ITableModel& model, bool header) const {
    auto rows = std::make_unique<RowView>(model, header);
    rows->SetCaseSensitive(settings::IsOn(settings::kFilterCaseSensitive));
    return rows;
}

/// What the grid shows of a document that has just been read.
void Viewer::MakeContent(Document& document) const {
    if (document.csv != nullptr) {
        document.rows = MakeRows(*document.csv, settings_.headerRow);
    } else if (settings_.outline) {
        MakeOutline(document, document);
    } else {
        MakeTable(document, document, FirstTableNode(document));
    }
}

void Viewer::MakeOutline(const Document& of, Document& into) const {
    const int expandMax = settings::Get(settings::kOutlineExpandMax);
    into.outline = of.json != nullptr ? std::make_unique<TreeTableView>(*of.json, expandMax)
                                      : std::make_unique<TreeTableView>(*of.xml, expandMax);
    into.rows = MakeRows(*into.outline, false);
}

// Row 0 of these models names their columns, whatever the setting for delimited text says.
void Viewer::MakeTable(const Document& of, Document& into, int32_t node) const {
    into.tableNode = node;
    if (of.json != nullptr) {
        into.jsonTable = std::make_unique<JsonTableView>(
            of.json.get(), node, settings::Get(settings::kMissingAttributeValue),
            settings::IsOn(settings::kSkipAttributesScan));
        into.rows = MakeRows(*into.jsonTable, true);
    } else {
        into.xmlTable = std::make_unique<XmlTableView>(of.xml.get(), node, L"");
        into.rows = MakeRows(*into.xmlTable, true);
    }
}

/// After another document or layout came: the tree lists it, or is empty.
void Viewer::FillTree() {
    if (document_.csv != nullptr || tree_.Window() == nullptr) {
        return;
    }
    if (document_.outline != nullptr) {
        tree_.Clear();
        return;
    }
    tree_.Show(document_.json != nullptr ? TreeItems(*document_.json) : TreeItems(*document_.xml));
    (void)tree_.Select(document_.tableNode);
}

/// The outline begins at the document's root element, JSON at its root.
void Viewer::SelectFirstOutlineRow() {
    if (!document_.ShowsOutline()) {
        return;
    }
    const int row =
        document_.xml != nullptr ? document_.outline->RowOf(document_.xml->FirstElement(), -1) : 0;
    const int viewRow = document_.rows->ViewRowOf(row);
    grid_.SelectOnly(viewRow);
    grid_.BringIntoView({viewRow, -1});
}

void Viewer::OnToggleOutline(Command) {
    ShowOutline(document_.outline == nullptr);
}

void Viewer::ShowOutline(bool outline) {
    if (!loaded_ || document_.csv != nullptr || outline == (document_.outline != nullptr) ||
        !EndCellEdit(true)) {
        return;
    }
    const WaitCursor waiting;
    Document made;
    if (outline) {
        MakeOutline(document_, made);
    } else {
        MakeTable(document_, made, FirstTableNode(document_));
    }
    ShowContent(made);
    settings_.outline = outline;
    settings::Set(settings::kTreeOutline, outline ? 1 : 0);
    FillTree();
    SelectFirstOutlineRow();
    RescueFocus();
}

// The hidden columns of another table are not this one's.
void Viewer::ShowContent(Document& made) {
    ShowInstead({}, [&] {
        document_.SwapContent(made);
        grid_.RestoreColumns({});
    });
    finder_.Reset();
}

void Viewer::OnTreeNodeSelected(int32_t node) {
    if (!loaded_ || document_.csv != nullptr || document_.outline != nullptr ||
        node == document_.tableNode) {
        return;
    }
    CloseCellEdit();
    const WaitCursor waiting;
    try {
        Document made;
        MakeTable(document_, made, node);
        ShowContent(made);
    } catch (const std::exception&) {  // no memory: the tree goes back to what is still shown
        (void)tree_.Select(document_.tableNode);
        throw;
    }
}

Answer Viewer::OnTreeNotify(NMHDR& note) {
    return loaded_ ? tree_.OnNotify(note) : std::nullopt;
}

}  // namespace rl
