#pragma once

#include "ado/engine.h"
#include "korvandb/progress.h"

#include <string>
#include <vector>

namespace zel::korvandb {

/// Looks through a whole database for what no screen would write: a damaged file, missing tables or indexes, key
/// numbers that would be given twice, rows that hang on rows that are gone, flags, dates and money in another form than
/// the one at rest, incidents with two default account codes or none. A line for each fault, none for a sound database.
/// Nothing is changed.
[[nodiscard]] std::vector<std::string> checkDatabase(ado::Engine& engine, const Progress& progress);

} // namespace zel::korvandb
