#pragma once

#include "forms/control.h"

namespace zel::forms {

/// Asks for a file through the program's dialogs and keeps what was chosen.
class CommonDialog : public Control {
public:
    using Control::Control;
    [[nodiscard]] std::string_view typeName() const noexcept override { return "CommonDialog"; }

    std::string DialogTitle, Filter, InitDir, FileName;
    /// False on Cancel, with FileName as it was.
    bool ShowOpen() { return ask(false); }
    bool ShowSave() { return ask(true); }
    [[nodiscard]] std::optional<Value> property(std::string_view name) const override;
    [[nodiscard]] std::string_view defaultProperty() const noexcept override { return "Filename"; }

private:
    bool ask(bool save);
};

} // namespace zel::forms
