#pragma once

#include "ado/engine.h"
#include "korvandb/schema.h"

#include <string>
#include <vector>

namespace zel::korvandb {

/// What a column's values must not be, as a condition in one engine's words, and as a person reads it.
struct ValueRule {
    std::string condition;
    std::string complaint; ///< "are neither 0 nor 1"
};

/// `column` is the quoted name. Empty condition: the engine itself sees to the column's type.
[[nodiscard]] ValueRule valueRule(const Column& column, const std::string& quotedName, ado::EngineKind engine);

} // namespace zel::korvandb
