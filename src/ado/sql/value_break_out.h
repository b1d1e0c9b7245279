#pragma once

#include "ado/sql.h"
#include "ado/sql/lexer.h"

namespace zel::ado {

/// As valueBreaksOut(statement), for a statement that is taken apart already, as far as it could be.
[[nodiscard]] bool valueBreaksOut(const Sql& statement, const sql::Tokens& tokens, sql::LexFault fault);

} // namespace zel::ado
