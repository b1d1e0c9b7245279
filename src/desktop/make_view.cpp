#include "desktop/control_view.h"
#include "desktop/edit_view.h"
#include "desktop/grid_view.h"
#include "desktop/list_combo.h"
#include "desktop/memo_view.h"
#include "desktop/plain_views.h"
#include "desktop/report_view.h"
#include "desktop/rows_view.h"
#include "forms/buttons.h"
#include "forms/label.h"
#include "forms/progress_bar.h"
#include "forms/tdb_grid.h"
#include "forms/text_box.h"
#include "forms/toolbar.h"
#include "forms/vs_index_tab.h"
#include "reports/report_viewer.h"

#include <QAbstractButton>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QTabWidget>
#include <QTableView>

namespace zel::desktop {

namespace {

/// A view when control and widget are of the kinds that belong together.
template <typename View, typename Kind, typename Face>
std::unique_ptr<ControlView> viewIf(forms::Control& control, QWidget& widget, Desk& desk) {
    auto* kind = dynamic_cast<Kind*>(&control);
    auto* face = dynamic_cast<Face*>(&widget);
    if (kind == nullptr || face == nullptr)
        return nullptr;
    return std::make_unique<View>(*kind, *face, desk);
}

using Maker = std::unique_ptr<ControlView> (*)(forms::Control&, QWidget&, Desk&);

constexpr Maker makers[] = {
    viewIf<LabelView, forms::Label, QLabel>,
    viewIf<ButtonView, forms::CommandButton, QAbstractButton>,
    viewIf<ButtonView, forms::CheckBox, QAbstractButton>,
    viewIf<ButtonView, forms::OptionButton, QAbstractButton>,
    viewIf<EditView, forms::TextEdit, QLineEdit>,
    viewIf<EditView, forms::TextEdit, ListCombo>,
    viewIf<MemoView, forms::TextBox, QPlainTextEdit>,
    viewIf<GridView, forms::TDBGrid, QTableView>,
    viewIf<ProgressView, forms::ProgressBar, QProgressBar>,
    viewIf<TabView, forms::vsIndexTab, QTabWidget>,
    viewIf<ReportView, reports::ReportViewer, QWidget>,
    viewIf<RowsView, forms::Control, QTableView>,
    viewIf<GroupView, forms::Frame, QWidget>,
    viewIf<GroupView, forms::vsElastic, QWidget>,
};

} // namespace

std::unique_ptr<ControlView> makeView(forms::Control& control, QWidget& widget, Desk& desk) {
    for (const Maker make : makers) {
        if (auto view = make(control, widget, desk))
            return view;
    }
    return nullptr;
}

} // namespace zel::desktop
