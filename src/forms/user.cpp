#include "forms/user.h"

#include "ado/convert.h"
#include "forms/buttons.h"
#include "forms/combo_box.h"
#include "forms/form.h"
#include "forms/form_registry.h"
#include "forms/menu.h"
#include "forms/tdb_combo.h"
#include "forms/tdb_grid.h"
#include "forms/toolbar.h"
#include "forms/vs_index_tab.h"

#include <map>

namespace zel::forms {

namespace {

const std::map<std::string, int, std::less<>>& keyNames() {
    static const std::map<std::string, int, std::less<>> names{{"enter", keys::enter},
                                                               {"tab", keys::tab},
                                                               {"backtab", keys::backTab},
                                                               {"backspace", keys::backspace},
                                                               {"delete", keys::del},
                                                               {"escape", keys::escape},
                                                               {"left", keys::left},
                                                               {"right", keys::right},
                                                               {"up", keys::up},
                                                               {"down", keys::down},
                                                               {"home", keys::home},
                                                               {"end", keys::end},
                                                               {"pageup", keys::pageUp},
                                                               {"pagedown", keys::pageDown},
                                                               {"f4", keys::f4},
                                                               {"space", keys::space},
                                                               {"{", '{'},
                                                               {"}", '}'}};
    return names;
}

/// The keys of a text with names in braces; the refusal of a name that is none.
Outcome parseKeys(std::string_view text, std::vector<int>& parsed) {
    while (!text.empty()) {
        const auto close = text.front() == '{' ? text.find('}', 2) : std::string_view::npos;
        if (close == std::string_view::npos) {
            parsed.push_back(static_cast<int>(utf8::decode(utf8::middle(text, 0, 1)).front()));
            text.remove_prefix(utf8::offset(text, 1));
            continue;
        }
        const auto name = keyNames().find(ado::lowerCase(text.substr(1, close - 1)));
        if (name == keyNames().end())
            return {"there is no key " + std::string(text.substr(0, close + 1))};
        parsed.push_back(name->second);
        text.remove_prefix(close + 1);
    }
    return {};
}

CommandButton* buttonWhere(const Form& form, bool (CommandButton::*is)() const noexcept) {
    for (Control* control : form.controls()) {
        auto* button = dynamic_cast<CommandButton*>(control);
        if (button != nullptr && (button->*is)() && button->shown() && button->usable())
            return button;
    }
    return nullptr;
}

Outcome lockedText(const Control& target) {
    const auto* box = dynamic_cast<const TextEdit*>(&target);
    return box != nullptr && box->Locked() ? Outcome{target.fullName() + " is locked"} : Outcome{};
}

/// A caption without its mnemonic signs.
std::string plainCaption(std::string_view caption) {
    std::string plain;
    for (std::size_t i = 0; i < caption.size(); ++i) {
        if (caption[i] == '&' && i + 1 < caption.size())
            ++i;
        plain += caption[i];
    }
    return plain;
}

Menu* findEntry(const Menu& menu, std::string_view wanted) {
    for (Menu* entry : menu.entries()) {
        if (ado::equalIgnoringCase(entry->fullName(), wanted) ||
            ado::equalIgnoringCase(plainCaption(entry->Caption()), wanted))
            return entry;
        if (Menu* deeper = findEntry(*entry, wanted))
            return deeper;
    }
    return nullptr;
}

} // namespace

Outcome User::ready(const Control& target) const {
    const Form* modal = forms_.modalForm();
    if (modal != nullptr && modal != &target.form())
        return {modal->Name() + " has to be closed first"};
    if (!target.form().Visible())
        return {target.form().Name() + " is not shown"};
    if (!target.shown())
        return {target.fullName() + " is hidden"};
    if (!target.usable())
        return {target.fullName() + " is disabled"};
    return {};
}

Outcome User::enter(Control& target) {
    if (auto refused = ready(target); !refused)
        return refused;
    target.form().SetFocus();
    if (!target.canTakeFocus() || target.hasFocus())
        return {};
    Control* before = target.form().ActiveControl();
    if (!target.form().moveFocus(&target))
        return {before->fullName() + " keeps the focus"};
    // What happened on the way may have closed the door.
    return ready(target);
}

Outcome User::moveFocus(Control& target) {
    const FormRegistry::Action action(forms_);
    if (!target.canTakeFocus())
        return {target.fullName() + " cannot take the focus"};
    return enter(target);
}

Outcome User::leave(Control& control) {
    const FormRegistry::Action action(forms_);
    if (!control.hasFocus())
        return {control.fullName() + " does not have the focus"};
    if (!control.form().moveFocus(nullptr))
        return {control.fullName() + " keeps the focus"};
    return {};
}

Outcome User::tab(Form& form, bool backwards) {
    const FormRegistry::Action action(forms_);
    Control* before = form.ActiveControl();
    Control* next = form.tabStop(before, backwards);
    if (next != nullptr && !form.moveFocus(next))
        return {before->fullName() + " keeps the focus"};
    // What is typed next replaces what stands there.
    if (auto* box = dynamic_cast<TextEdit*>(form.ActiveControl()); box != nullptr && box != before)
        box->selectAll();
    return {};
}

Outcome User::type(Control& target, std::string_view text) {
    const FormRegistry::Action action(forms_);
    auto* box = dynamic_cast<TextEdit*>(&target);
    if (box == nullptr)
        return {target.fullName() + " cannot be typed into"};
    if (auto refused = enter(target); !refused)
        return refused;
    if (auto refused = lockedText(target); !refused)
        return refused;
    box->selectAll();
    if (text.empty())
        send(target, keys::backspace);
    for (char32_t character : utf8::decode(text)) {
        if (Control* now = target.form().ActiveControl())
            send(*now, static_cast<int>(character));
    }
    return {};
}

Outcome User::key(Control& target, int key) {
    const FormRegistry::Action action(forms_);
    if (auto refused = enter(target); !refused)
        return refused;
    send(target, key);
    return {};
}

Outcome User::keys(Control& target, std::string_view text) {
    const FormRegistry::Action action(forms_);
    std::vector<int> parsed;
    if (auto refused = parseKeys(text, parsed); !refused)
        return refused;
    if (auto refused = enter(target); !refused)
        return refused;
    for (int key : parsed) {
        Control* now = target.form().ActiveControl();
        if (now == nullptr || !target.form().Visible())
            break;
        send(*now, key);
    }
    return {};
}

void User::send(Control& target, int key) {
    if (key != keys::tab && key < keys::first) {
        Control::raise(target.form().KeyPress, key);
        if (key != 0)
            Control::raise(target.KeyPress, key);
        if (key == 0)
            return;
    }
    if (target.takeKey(key))
        return;
    if (key == keys::tab || key == keys::backTab) {
        tab(target.form(), key == keys::backTab);
    } else if (key == keys::enter) {
        if (CommandButton* button = buttonWhere(target.form(), &CommandButton::Default))
            click(*button);
    } else if (key == keys::escape) {
        if (CommandButton* button = buttonWhere(target.form(), &CommandButton::Cancel))
            click(*button);
    }
}

Outcome User::paste(Control& target, std::string_view text) {
    const FormRegistry::Action action(forms_);
    auto* box = dynamic_cast<TextEdit*>(&target);
    if (box == nullptr)
        return {target.fullName() + " cannot be typed into"};
    if (auto refused = enter(target); !refused)
        return refused;
    if (auto refused = lockedText(target); !refused)
        return refused;
    box->insert(text);
    return {};
}

Outcome User::click(Control& target) {
    const FormRegistry::Action action(forms_);
    if (auto* entry = dynamic_cast<Menu*>(&target))
        return choose(*entry);
    if (auto refused = enter(target); !refused)
        return refused;
    if (auto* box = dynamic_cast<CheckBox*>(&target))
        box->setValue(box->isChecked() ? CheckBox::unchecked : CheckBox::checked);
    else if (auto* option = dynamic_cast<OptionButton*>(&target))
        option->setValue(true);
    else
        Control::raise(target.Click);
    return {};
}

Outcome User::doubleClick(Control& target) {
    const FormRegistry::Action action(forms_);
    if (auto refused = enter(target); !refused)
        return refused;
    Control::raise(target.DblClick);
    return {};
}

Outcome User::check(Control& box, bool on) {
    const FormRegistry::Action action(forms_);
    auto* checkBox = dynamic_cast<CheckBox*>(&box);
    if (checkBox == nullptr)
        return {box.fullName() + " is not a check box"};
    if (auto refused = enter(box); !refused)
        return refused;
    checkBox->setValue(on ? CheckBox::checked : CheckBox::unchecked);
    return {};
}

Outcome User::open(Control& combo, bool open) {
    const FormRegistry::Action action(forms_);
    if (auto refused = enter(combo); !refused)
        return refused;
    if (auto refused = lockedText(combo); !refused)
        return refused;
    if (auto* bound = dynamic_cast<TDBCombo*>(&combo))
        bound->setOpen(open);
    else if (auto* plain = dynamic_cast<ComboBox*>(&combo))
        plain->setOpen(open);
    else
        return {combo.fullName() + " has no list to pull down"};
    return {};
}

Outcome User::selectTab(Control& strip, int page) {
    const FormRegistry::Action action(forms_);
    auto* tabs = dynamic_cast<vsIndexTab*>(&strip);
    if (tabs == nullptr)
        return {strip.fullName() + " has no pages"};
    if (auto refused = ready(strip); !refused)
        return refused;
    if (page < 0 || page >= tabs->NumTabs() || !tabs->TabVisible(page))
        return {strip.fullName() + " has no page " + std::to_string(page)};
    if (!tabs->TabEnabled(page))
        return {"page " + std::to_string(page) + " of " + strip.fullName() + " is disabled"};
    if (auto refused = enter(strip); !refused)
        return refused;
    tabs->setCurrTab(page);
    return {};
}

Outcome User::toolbar(Control& bar, std::string_view key) {
    const FormRegistry::Action action(forms_);
    auto* buttons = dynamic_cast<Toolbar*>(&bar);
    const Toolbar::Button* button = buttons == nullptr ? nullptr : buttons->button(key);
    if (button == nullptr)
        return {bar.fullName() + " has no button " + std::string(key)};
    if (auto refused = ready(bar); !refused)
        return refused;
    if (!button->enabled || !button->visible)
        return {"button " + button->key + " of " + bar.fullName() + " is disabled"};
    buttons->press(button->key);
    return {};
}

Outcome User::rightClick(Control& target) {
    const FormRegistry::Action action(forms_);
    if (auto refused = enter(target); !refused)
        return refused;
    (void)forms_.takePopup();
    Menu* menu = dynamic_cast<TDBGrid*>(&target) == nullptr ? nullptr : forms_.gridPopup();
    if (menu != nullptr && !target.RightClick)
        forms_.PopupMenu(*menu);
    Control::raise(target.RightClick);
    return {};
}

Outcome User::popup(Control& target, std::string_view entry) {
    const FormRegistry::Action action(forms_);
    if (auto refused = rightClick(target); !refused)
        return refused;
    const Menu* menu = forms_.takePopup();
    if (menu == nullptr)
        return {target.fullName() + " has no pop-up menu"};
    Menu* chosen = findEntry(*menu, entry);
    if (chosen == nullptr)
        return {menu->Name() + " has no entry " + std::string(entry)};
    return choose(*chosen);
}

Outcome User::choose(Menu& entry) {
    const FormRegistry::Action action(forms_);
    const Form* modal = forms_.modalForm();
    if (modal != nullptr && modal != &entry.form())
        return {modal->Name() + " has to be closed first"};
    if (!entry.available())
        return {entry.fullName() + " is disabled"};
    Control::raise(entry.Click);
    return {};
}

Outcome User::close(Form& form) {
    const FormRegistry::Action action(forms_);
    const Form* modal = forms_.modalForm();
    if (modal != nullptr && modal != &form)
        return {modal->Name() + " has to be closed first"};
    form.Unload();
    return {};
}

} // namespace zel::forms
