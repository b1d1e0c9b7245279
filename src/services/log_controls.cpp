#include "services/log_controls.h"

#include "ado/convert.h"
#include "forms/form.h"

#include <vector>

namespace zel::services {

namespace {

struct TypeValues {
    std::string_view type;
    std::vector<std::string_view> names;
};

/// What is worth knowing of each type of control.
const std::vector<TypeValues>& knownTypes() {
    static const std::vector<TypeValues> types{
        {"Button", {"Caption"}},
        {"CommandButton", {"Caption"}},
        {"Form", {"Caption"}},
        {"Frame", {"Caption"}},
        {"Label", {"Caption"}},
        {"MDIForm", {"Caption"}},
        {"Menu", {"Caption"}},
        {"vsElastic", {"Caption"}},
        {"ProgressBar", {"value"}},
        {"CheckBox", {"value"}},
        {"HScrollbar", {"value"}},
        {"VScrollbar", {"value"}},
        {"OptionButton", {"Caption", "value"}},
        {"ComboBox", {"Text", "ListIndex"}},
        {"ListBox", {"ListIndex", "Columns"}},
        {"CommonDialog", {"Filename"}},
        {"Coolbar", {"Visible"}},
        {"Image", {"Visible"}},
        {"DBCombo", {"BoundColumn", "BoundText", "Text"}},
        {"DBList", {"BoundColumn", "BoundText", "Text"}},
        {"MaskEdBox", {"Mask", "Text", "FormattedText"}},
        {"TDBDropDown", {"Text"}},
        {"TDBGrid", {"Text"}},
        {"TextBox", {"Text"}},
        {"Timer", {"Enabled"}},
        {"Toolbar", {"Buttons"}},
        {"vsIndexTab", {"CurrTab", "TabCaption"}},
        {"Line", {}},
        {"PictureBox", {}},
        {"Shape", {}},
        {"UserControl", {}},
    };
    return types;
}

std::string valueOf(const forms::Control& control, std::string_view name) {
    const auto value = control.property(name);
    return value ? ado::toText(*value) : std::string();
}

} // namespace

std::string controlLine(const forms::Control& control) {
    const std::string type(control.typeName());
    if (type.ends_with("()"))
        return control.Name() + ":\tArray Of Objects";
    std::string line = control.fullName() + '\t' + type;
    const auto add = [&](std::string_view name, const std::string& value) {
        line.append("\t").append(name).append("=").append(value);
    };
    for (const TypeValues& known : knownTypes()) {
        if (known.type != type)
            continue;
        for (const std::string_view name : known.names)
            add(name, valueOf(control, name));
        return line;
    }
    add("value", valueOf(control, control.defaultProperty()));
    line += "\t->";
    add("LowerBound", valueOf(control, "LowerBound"));
    add("UpperBound", valueOf(control, "UpperBound"));
    return line;
}

std::string LogControls(const forms::Form& form) {
    std::string text;
    for (const forms::Control* control : form.controls())
        text += controlLine(*control) + "\r\n";
    return text;
}

} // namespace zel::services
