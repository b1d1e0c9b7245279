#pragma once

#include "ado/catalog.h"

namespace zel::ado {
class Engine;
}

namespace zel::ado::sqlite {

[[nodiscard]] Catalog readCatalog(Engine& engine);

} // namespace zel::ado::sqlite
