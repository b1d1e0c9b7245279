#pragma once

#include "forms/form_registry.h"

namespace zel::forms {

/// The waiting pointer for the length of a scope.
class Hourglass {
public:
    explicit Hourglass(FormRegistry& forms) : forms_(forms) { forms_.setHourglass(true); }
    ~Hourglass() { forms_.setHourglass(false); }
    Hourglass(const Hourglass&) = delete;
    Hourglass& operator=(const Hourglass&) = delete;

private:
    FormRegistry& forms_;
};

} // namespace zel::forms
