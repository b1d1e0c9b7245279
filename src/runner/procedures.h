#pragma once

#include "runner/json.h"

#include <string>
#include <string_view>
#include <vector>

namespace zel::core {
class Session;
}

namespace zel::runner {

/// A call of a helper procedure, with what it gives.
struct Call {
    Call(core::Session& running, std::vector<std::string> given) : session(running), arguments(std::move(given)) {}

    core::Session& session;
    std::vector<std::string> arguments;
    Json result;
    /// By-reference arguments after the call, by name.
    Json byref = Json(Json::Object{});

    [[nodiscard]] const std::string& text(std::size_t index) const { return arguments.at(index); }
    /// An argument that may be left out.
    [[nodiscard]] std::string textOr(std::size_t index, std::string_view fallback) const;
    /// These throw CommandError for a text that is none.
    [[nodiscard]] std::int32_t number(std::size_t index) const;
    [[nodiscard]] std::int32_t numberOr(std::size_t index, std::int32_t fallback) const;
    [[nodiscard]] bool flag(std::size_t index) const;
    [[nodiscard]] bool flagOr(std::size_t index, bool fallback) const;
    [[nodiscard]] float single(std::size_t index) const;
    [[nodiscard]] ado::Currency money(std::size_t index) const;
    [[nodiscard]] ado::DateTime moment(std::size_t index) const;
    /// "24:00" is the end of the day, the time value 0.
    [[nodiscard]] ado::DateTime timeOfDay(std::size_t index) const;
    /// "Null" is Null; everything else is text.
    [[nodiscard]] ado::Value value(std::size_t index) const;
};

/// For procedures that take as many as they are given.
inline constexpr std::size_t anyCount = 1'000'000;

/// A procedure of the program that `call` knows by name.
struct Procedure {
    std::string name;
    /// "text type", with brackets around what may be left out.
    std::string arguments;
    std::size_t least = 0, most = 0;
    void (*run)(Call& call) = nullptr;
};

/// All of them, sorted by name.
[[nodiscard]] const std::vector<Procedure>& procedures();
/// By name, letters ignored; throws CommandError.
[[nodiscard]] const Procedure& findProcedure(std::string_view name);

/// The procedures of each part of the program. A part adds its own here.
using Procedures = std::vector<Procedure>;
void addCoreProcedures(Procedures& table);
void addDataProcedures(Procedures& table);
void addPostingProcedures(Procedures& table);
void addReportsProcedures(Procedures& table);
void addServicesProcedures(Procedures& table);

} // namespace zel::runner
