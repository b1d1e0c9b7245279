#pragma once

#include "korvandb/demo.h"

#include <span>
#include <string>
#include <string_view>

namespace zel::korvandb {

/// A command line of korvan-db, taken apart.
struct Arguments {
    enum class Command { Help, Version, Create, Demo, Check, Info };

    Command command = Command::Help;
    std::string target;
    bool force = false;
    DemoSize size;
};

/// Throws std::invalid_argument with what is wrong, in words for the user.
[[nodiscard]] Arguments parseArguments(std::span<const std::string_view> words);

[[nodiscard]] std::string_view helpText();

} // namespace zel::korvandb
