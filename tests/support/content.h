#pragma once

#include "ado/fill_database.h"

namespace zel::test {

/// What a database of a test holds beside the tables, views and lookups.
enum class Content { WithoutIncidents, Demo };

[[nodiscard]] ado::FillDatabase filling(Content content);

} // namespace zel::test
