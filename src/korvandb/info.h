#pragma once

#include "ado/engine.h"

#include <string>

namespace zel::korvandb {

/// What a database holds, in lines for a person: where it is, its versions, its incidents, its rows and next keys.
[[nodiscard]] std::string describe(ado::Engine& engine);

} // namespace zel::korvandb
