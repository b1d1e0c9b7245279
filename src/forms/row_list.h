#pragma once

#include "forms/bookmark_set.h"
#include "forms/control.h"
#include "forms/row_source.h"
#include "forms/value_items.h"

#include <deque>
#include <memory>

namespace zel::forms {

class RowList;

/// A column of a bound list. Without a DataField it shows the field of its caption.
class ListColumn {
public:
    ListColumn(RowList& list, std::string caption, std::string dataField);

    [[nodiscard]] const std::string& Caption() const noexcept { return caption_; }
    void setCaption(std::string caption);
    [[nodiscard]] const std::string& DataField() const noexcept { return dataField_; }
    void setDataField(std::string field);
    [[nodiscard]] bool Visible() const noexcept { return visible_; }
    void setVisible(bool visible);
    /// In twips, 1440 to the inch.
    [[nodiscard]] int Width() const noexcept { return width_; }
    void setWidth(int twips);
    [[nodiscard]] const std::string& NumberFormat() const noexcept { return numberFormat_; }
    void setNumberFormat(std::string format);
    forms::ValueItems ValueItems;
    bool ButtonHeader = false, AllowSizing = true;

    /// Of the chosen row; Null when none is chosen.
    [[nodiscard]] Value value() const;
    /// As shown, of the chosen row.
    [[nodiscard]] std::string Text() const;
    /// As shown, of any row from 0.
    [[nodiscard]] std::string cellText(std::int64_t row) const;
    /// Whether it shows values otherwise than as their default text.
    [[nodiscard]] bool isPlain() const noexcept { return !ValueItems.Translate && numberFormat_.empty(); }
    /// A value as the column shows it.
    [[nodiscard]] std::string shown(const Value& value) const;

private:
    RowList& list_;
    std::string caption_, dataField_, numberFormat_;
    bool visible_ = true;
    int width_ = 1440;
};

/// What bound combos, bound lists and drop-downs of grids share: rows of a source shown in columns, one of them chosen.
/// A mix-in of their control; the control is what observers are told through.
class RowList {
public:
    explicit RowList(Control& face) : face_(face) {}
    virtual ~RowList() = default;

    /// Binds the rows. Columns that were added stay; where there are none, each column of the source becomes one.
    /// Nothing is read before it is asked for.
    void bind(ValueArray& array);
    void bind(ado::Recordset& records);
    void bind(Adodc& control);
    void unbind();
    [[nodiscard]] bool isBound() const noexcept { return source_ != nullptr; }
    [[nodiscard]] RowSource* source() const noexcept { return source_.get(); }
    [[nodiscard]] std::int64_t rowCount() const;

    ListColumn& addColumn(std::string caption, std::string dataField = {});
    void removeColumns();
    [[nodiscard]] int columnCount();
    /// By number, or by caption or field without regard to case. A field of the source that has no column gets a hidden
    /// one. Throws ado::Error 3265 for one that is none.
    [[nodiscard]] ListColumn& Columns(int index);
    [[nodiscard]] ListColumn& Columns(std::string_view captionOrField);
    /// -1 for one that is none.
    [[nodiscard]] int columnIndex(std::string_view captionOrField);

    /// The field whose value is the text of the list; the first column when empty.
    [[nodiscard]] const std::string& ListField() const noexcept { return listField_; }
    void setListField(std::string field);
    /// The field whose value BoundText gives; the list field when empty.
    [[nodiscard]] const std::string& BoundColumn() const noexcept { return boundColumn_; }
    void setBoundColumn(std::string field) { boundColumn_ = std::move(field); }

    /// The chosen row by bookmark, 0 for none. Setting it chooses the row, moves a bound record set there and raises
    /// ItemChange when it is another one.
    [[nodiscard]] Bookmark bookmark() const;
    void setBookmark(Bookmark row);
    /// The same by number from 0, -1 for none.
    [[nodiscard]] std::int64_t SelectedItem() const;
    void setSelectedItem(std::int64_t row);
    /// Value of the bound column in the chosen row as text, "" without one. Setting it chooses the first row with that
    /// value, or none when there is no such row.
    [[nodiscard]] std::string BoundText() const;
    /// What BoundText gave when the row was chosen, whatever has become of the rows since; "" when none is chosen.
    [[nodiscard]] std::string chosenBoundText() const { return chosen_ == 0 ? std::string() : chosenValue_; }
    void setBoundText(std::string_view value);

    /// Reads the source anew after it changed. The chosen row stays if it is still there.
    void ReBind();
    void Refresh() { ReBind(); }
    /// Keeps the columns as they are through the next ReBind; lists here always do, so that this is a courtesy.
    void HoldFields() {}

    /// Text as shown and value as held, of any row and field.
    [[nodiscard]] std::string listText(std::int64_t row) const;
    [[nodiscard]] Value fieldValue(std::int64_t row, std::string_view captionOrField) const;
    /// First row whose column (the list field when empty) reads exactly so, or begins so, letters ignored; -1 for none.
    /// Among 50,000 rows within a frame.
    [[nodiscard]] std::int64_t findText(std::string_view text, std::string_view column = {}) const;
    [[nodiscard]] std::int64_t findPrefix(std::string_view text, std::string_view column = {}) const;

    std::function<void()> ItemChange;
    std::function<void(int column)> HeadClick;

protected:
    [[nodiscard]] Control& face() const noexcept { return face_; }
    /// Chooses without an event. False when the row was the chosen one.
    bool choose(std::int64_t row);
    void chooseAndTell(std::int64_t row);
    /// Called when another row was chosen, before ItemChange.
    virtual void rowChosen() {}
    virtual void sourceChanged() {}
    /// A list that is always open stands where its record set stands; a combo keeps its own choice.
    [[nodiscard]] virtual bool followsSource() const noexcept { return true; }

private:
    friend class ListColumn;
    void setSource(std::unique_ptr<RowSource> source);
    void ensureColumns();
    /// Columns made from a source that has other ones now are made anew.
    void renewColumns();
    [[nodiscard]] int namedColumn(std::string_view captionOrField) const noexcept;
    [[nodiscard]] int sourceColumn(std::string_view captionOrField) const;
    [[nodiscard]] int listFieldColumn() const;
    [[nodiscard]] int boundFieldColumn() const;
    [[nodiscard]] const ListColumn* columnShowing(int column) const;
    [[nodiscard]] std::string shownText(std::int64_t row, int column, const ListColumn* shownBy) const;
    template <typename Matches>
    [[nodiscard]] std::int64_t firstRow(std::string_view column, Matches&& matches) const;

    Control& face_;
    std::unique_ptr<RowSource> source_;
    Subscription sourceWatch_;
    std::deque<ListColumn> columns_;
    bool ownColumns_ = false; // made from the source, not by the screen
    std::string listField_, boundColumn_;
    // The chosen row and what its bound column held: bookmarks of a source that was opened anew name other rows.
    mutable Bookmark chosen_ = 0;
    mutable bool doubtful_ = false;
    std::string chosenValue_;
};

} // namespace zel::forms
