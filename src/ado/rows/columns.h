#pragma once

#include "ado/engine.h"

#include <optional>
#include <span>
#include <string_view>

namespace zel::ado::sql {
struct Translation;
}

namespace zel::ado {

/// The first column of that name, whatever its letters' case. "Resources.IncidentID" prefers a column that comes from
/// that table and falls back on the bare name.
[[nodiscard]] std::optional<std::size_t> findColumn(std::span<const ResultColumn> columns, std::string_view name);

/// As findColumn; throws Error 3265 when there is none.
[[nodiscard]] std::size_t columnIndex(std::span<const ResultColumn> columns, std::string_view name);

/// Spells the names of a statement's columns as its aliases and the views it reads do. A server that folds names to
/// lower case would show them so at the head of every grid; its engine has spelled those that are columns of tables.
void spellNames(std::span<ResultColumn> columns, const sql::Translation& statement, const Catalog& catalog);

/// An identifier as both engines quote it.
[[nodiscard]] std::string quotedName(std::string_view name);

/// The placeholder of the parameter with that number, from 1.
[[nodiscard]] std::string placeholder(EngineKind engine, std::size_t number);

} // namespace zel::ado
