#pragma once

#include <functional>

namespace zel::ado {

class Engine;

/// Puts tables and rows into a new, empty database. Begins and commits as it likes: a database that could not be filled
/// is thrown away whole.
using FillDatabase = std::function<void(Engine&)>;

} // namespace zel::ado
