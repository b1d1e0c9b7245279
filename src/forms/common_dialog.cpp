#include "forms/common_dialog.h"

#include "ado/convert.h"
#include "forms/form.h"
#include "forms/form_registry.h"

namespace zel::forms {

bool CommonDialog::ask(bool save) {
    std::string chosen = form().forms().dialogs().file(
        {.save = save, .title = DialogTitle, .filter = Filter, .folder = InitDir, .fileName = FileName});
    if (chosen.empty())
        return false;
    FileName = std::move(chosen);
    return true;
}

std::optional<Value> CommonDialog::property(std::string_view name) const {
    if (ado::equalIgnoringCase(name, "Filename"))
        return Value(FileName);
    return Control::property(name);
}

} // namespace zel::forms
