#include "desktop/rows_view.h"

#include "desktop/qt_text.h"
#include "forms/list_box.h"
#include "forms/list_view.h"
#include "forms/tdb_list.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QTableView>

#include <set>

namespace zel::desktop {

using forms::Property;

RowsView::RowsView(forms::Control& list, QTableView& widget, Desk& desk)
    : ControlView(list, widget, desk), table_(widget), model_(list) {
    prepareTable(widget);
    widget.setModel(&model_);
    if (hasMultiSelect())
        widget.setSelectionMode(QAbstractItemView::ExtendedSelection);
    connect(widget.selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] { rowsMarked(); });
    connect(&widget, &QTableView::doubleClicked, this,
            [this] { act([](forms::User& user, forms::Control& rows) { return user.doubleClick(rows); }); });
    connect(widget.horizontalHeader(), &QHeaderView::sectionClicked, this, [this](int column) {
        const auto caption = model_.headerData(column, Qt::Horizontal, Qt::DisplayRole).toString();
        act([&](forms::User& user, forms::Control& rows) { return user.headClick(rows, fromQt(caption)); });
    });
}

void RowsView::detach() {
    drawing_ = true;
    model_.detach();
    model_.reset();
    ControlView::detach();
}

bool RowsView::hasMultiSelect() const {
    if (const auto* list = dynamic_cast<const forms::TDBList*>(control()))
        return list->MultiSelect();
    const auto* box = dynamic_cast<const forms::ListBox*>(control());
    return box != nullptr && box->MultiSelect();
}

void RowsView::settled() {
    if (control() == nullptr || !table_.isVisible())
        return;
    if (model_.rowCount() != rows_)
        draw(Property::Items);
    else
        table_.viewport()->update();
}

void RowsView::draw(Property property) {
    ControlView::draw(property);
    if (property == Property::Items || property == Property::Columns) {
        drawing_ = true;
        model_.reset();
        rows_ = model_.rowCount();
        (void)model_.layOut(table_);
        table_.horizontalHeader()->setVisible(model_.columnCount() > 1);
        drawing_ = false;
        drawSelection();
    } else if (property == Property::Selection) {
        drawSelection();
    }
}

void RowsView::drawSelection() {
    if (drawing_)
        return;
    drawing_ = true;
    QItemSelection marks;
    const auto mark = [&](int row) {
        if (row >= 0 && row < model_.rowCount())
            marks.select(model_.index(row, 0), model_.index(row, std::max(model_.columnCount() - 1, 0)));
    };
    const auto* list = dynamic_cast<const forms::TDBList*>(control());
    const auto* box = dynamic_cast<const forms::ListBox*>(control());
    if (list != nullptr && list->MultiSelect() && list->source() != nullptr) {
        for (int i = 0; i < list->SelBookmarks.Count(); ++i)
            mark(static_cast<int>(list->source()->rowOf(list->SelBookmarks(i))));
    } else if (box != nullptr && box->MultiSelect()) {
        for (int row = 0; row < box->ListCount(); ++row) {
            if (box->Selected(row))
                mark(row);
        }
    } else {
        mark(chosenRow(*control()));
    }
    table_.selectionModel()->select(marks, QItemSelectionModel::ClearAndSelect);
    if (const int row = chosenRow(*control()); row >= 0 && row < model_.rowCount()) {
        table_.selectionModel()->setCurrentIndex(model_.index(row, 0), QItemSelectionModel::NoUpdate);
        table_.scrollTo(model_.index(row, 0));
    }
    drawing_ = false;
}

void RowsView::rowsMarked() {
    if (drawing_ || control() == nullptr)
        return;
    std::vector<std::int64_t> rows;
    for (const QModelIndex& index : table_.selectionModel()->selectedRows(0))
        rows.push_back(index.row());
    const bool several = hasMultiSelect();
    if (!several && rows.empty())
        return;
    const QPointer<RowsView> self(this);
    drawing_ = true;
    act([&](forms::User& user, forms::Control& list) {
        return several ? user.selectRows(list, rows) : user.pickRow(list, rows.front());
    });
    if (self == nullptr)
        return;
    drawing_ = false;
    if (control() != nullptr)
        drawSelection();
}

bool RowsView::keyPressed(const QKeyEvent& event) {
    return isScreenKey(event) && ControlView::keyPressed(event);
}

} // namespace zel::desktop
