#pragma once

#include <functional>
#include <memory>
#include <vector>

namespace zel::forms {

/// What of a control or form has changed; a front end reads the named side anew and draws it.
enum class Property {
    Caption,
    Text,      ///< shown text, mask or value
    Selection, ///< caret and marked text, current row, selected rows
    Visible,
    Enabled, ///< also Locked
    Look,    ///< colours, tool tip, font weight, row styles
    Items,   ///< the rows or entries of a list, grid, menu or toolbar
    Columns,
    Page,
    Open, ///< a pulled-down list
    Focus,
};

/// Ends its subscription when it goes away; may outlive what it observes.
class Subscription {
public:
    Subscription() = default;
    explicit Subscription(std::shared_ptr<void> hold) : hold_(std::move(hold)) {}
    void end() { hold_.reset(); }

private:
    std::shared_ptr<void> hold_;
};

/// Those who want to hear of changes. For front ends: a screen never observes, it has events.
class Observers {
public:
    using Callback = std::function<void(Property)>;

    [[nodiscard]] Subscription add(Callback callback);
    /// Observers may come and go meanwhile.
    void notify(Property property);

private:
    std::vector<std::weak_ptr<Callback>> callbacks_;
};

} // namespace zel::forms
