#include "forms/observers.h"

namespace zel::forms {

Subscription Observers::add(Callback callback) {
    auto kept = std::make_shared<Callback>(std::move(callback));
    callbacks_.push_back(kept);
    return Subscription(kept);
}

void Observers::notify(Property property) {
    const auto callbacks = callbacks_;
    for (const auto& weak : callbacks) {
        if (auto callback = weak.lock())
            (*callback)(property);
    }
    std::erase_if(callbacks_, [](const auto& weak) { return weak.expired(); });
}

} // namespace zel::forms
