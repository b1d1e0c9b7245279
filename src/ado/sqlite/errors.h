#pragma once

#include "ado/error.h"

#include <string>

struct sqlite3;

namespace zel::ado::sqlite {

/// The error the engine reported last, in the words and numbers the screens know.
[[nodiscard]] Error errorOf(sqlite3* database, int code, const std::string& statement);

} // namespace zel::ado::sqlite
