#pragma once

#include "forms/row_list.h"
#include "forms/text_edit.h"

namespace zel::forms {

/// A combo over the rows of a list or record set, shown in columns.
///
/// Typing looks the text up: with AutoCompletion the first row that begins with it is put into the box, the part not
/// typed marked. The row is chosen (ItemChange) when the text is left, confirmed with Enter, or picked from the list.
class TDBCombo : public TextEdit, public RowList {
public:
    TDBCombo(Place place, std::string name, int index = noIndex)
        : TextEdit(place, std::move(name), index), RowList(static_cast<Control&>(*this)) {}
    [[nodiscard]] std::string_view typeName() const noexcept override { return "TDBCombo"; }

    /// A text that a row shows chooses that row, without ItemChange; any other text leaves no row chosen.
    void setText(std::string text) override;
    [[nodiscard]] bool AutoCompletion() const noexcept { return autoCompletion_; }
    void setAutoCompletion(bool on) { autoCompletion_ = on; }
    /// Width of the pulled-down list in twips, 0 for that of the columns.
    [[nodiscard]] int DropDownWidth() const noexcept { return dropDownWidth_; }
    void setDropDownWidth(int twips);

    [[nodiscard]] bool isOpen() const noexcept { return open_; }
    void OpenCombo() { setOpen(true); }
    void CloseCombo() { setOpen(false); }
    /// Raises Open or Close.
    void setOpen(bool open);
    /// A row chosen by the clerk: its text in the box, the list closed, ItemChange and Click raised.
    void pick(std::int64_t row);

    bool insert(std::string_view text) override;
    bool erase(bool forward = false) override;
    bool takeKey(int key) override;
    void focusGoes() override;
    [[nodiscard]] std::optional<Value> property(std::string_view name) const override;

    std::function<void()> Open, Close;

protected:
    void rowChosen() override;
    [[nodiscard]] bool followsSource() const noexcept override { return false; }

private:
    void chooseTypedRow();

    bool autoCompletion_ = true, open_ = false, typed_ = false;
    int dropDownWidth_ = 0;
};

} // namespace zel::forms
