#pragma once

#include "forms/control.h"

#include <initializer_list>
#include <map>
#include <memory>
#include <stdexcept>
#include <type_traits>

namespace zel::forms {

/// Controls of one name, told apart by number; holes in the numbering are allowed.
///
///     ControlArray<CommandButton> cmdSave{*this, "cmdSave", 3};          // cmdSave(0) to cmdSave(2)
///     ControlArray<MaskEdBox> mskIncident{*this, "mskIncident", {0, 1, 10, 11}};
///     cmdSave.on(&CommandButton::Click, [this](int index) { ... });
template <typename T>
class ControlArray {
public:
    /// Empty; the members are added one by one where they stand in different places.
    explicit ControlArray(std::string name) : name_(std::move(name)) {}
    ControlArray(Place place, std::string name, int count) : name_(std::move(name)) {
        for (int index = 0; index < count; ++index)
            add(place, index);
    }
    ControlArray(Place place, std::string name, std::initializer_list<int> indexes) : name_(std::move(name)) {
        for (int index : indexes)
            add(place, index);
    }

    T& add(Place place, int index) {
        auto& slot = controls_[index];
        if (!slot)
            slot = std::make_unique<T>(place, name_, index);
        return *slot;
    }

    /// Throws std::out_of_range in a hole.
    [[nodiscard]] T& operator()(int index) const {
        if (T* control = find(index))
            return *control;
        throw std::out_of_range(name_ + "(" + std::to_string(index) + ") does not exist");
    }
    [[nodiscard]] T* find(int index) const {
        auto at = controls_.find(index);
        return at == controls_.end() ? nullptr : at->second.get();
    }
    [[nodiscard]] bool has(int index) const { return find(index) != nullptr; }
    [[nodiscard]] const std::string& Name() const noexcept { return name_; }
    [[nodiscard]] int Count() const noexcept { return static_cast<int>(controls_.size()); }
    [[nodiscard]] int LBound() const { return controls_.begin()->first; }
    [[nodiscard]] int UBound() const { return controls_.rbegin()->first; }

    /// In the order of the numbers.
    template <typename Visitor>
    void each(Visitor&& visitor) const {
        for (const auto& [index, control] : controls_)
            visitor(*control);
    }

    /// One handler for the same event of all members that exist; it gets the index first.
    template <typename Owner, typename... Args>
    void on(std::function<void(Args...)> Owner::*event,
            std::type_identity_t<std::function<void(int, Args...)>> handler) {
        for (auto& [index, control] : controls_) {
            control.get()->*event = [handler, number = index](Args... args) {
                handler(number, std::forward<Args>(args)...);
            };
        }
    }

private:
    std::string name_;
    std::map<int, std::unique_ptr<T>> controls_;
};

} // namespace zel::forms
