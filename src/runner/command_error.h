#pragma once

#include <stdexcept>

namespace zel::runner {

/// A command that cannot be carried out, in words for whoever wrote the script. Caught where the command was read.
class CommandError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

} // namespace zel::runner
