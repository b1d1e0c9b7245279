#include "runner/procedures.h"

#include "ado/convert.h"
#include "ado/error.h"
#include "runner/command_error.h"

#include <fmt/format.h>

#include <algorithm>

namespace zel::runner {

namespace {

template <typename Convert>
auto converted(const std::string& text, std::string_view what, Convert convert) {
    try {
        return convert(ado::Value(text));
    } catch (const ado::Error&) {
        throw CommandError(fmt::format("'{}' is no {}", text, what));
    }
}

Procedures makeTable() {
    Procedures table;
    addCoreProcedures(table);
    addDataProcedures(table);
    addPostingProcedures(table);
    addReportsProcedures(table);
    addServicesProcedures(table);
    std::ranges::sort(table, {}, [](const Procedure& procedure) { return ado::lowerCase(procedure.name); });
    return table;
}

} // namespace

std::string Call::textOr(std::size_t index, std::string_view fallback) const {
    return index < arguments.size() ? arguments[index] : std::string(fallback);
}

std::int32_t Call::number(std::size_t index) const {
    return converted(text(index), "number", ado::toLong);
}

std::int32_t Call::numberOr(std::size_t index, std::int32_t fallback) const {
    return index < arguments.size() ? number(index) : fallback;
}

bool Call::flag(std::size_t index) const {
    return converted(text(index), "flag (True or False)", ado::toBoolean);
}

bool Call::flagOr(std::size_t index, bool fallback) const {
    return index < arguments.size() ? flag(index) : fallback;
}

float Call::single(std::size_t index) const {
    return converted(text(index), "number", ado::toSingle);
}

ado::Currency Call::money(std::size_t index) const {
    return converted(text(index), "amount", ado::toCurrency);
}

ado::DateTime Call::moment(std::size_t index) const {
    return converted(text(index), "date or time", ado::toDateTime);
}

ado::DateTime Call::timeOfDay(std::size_t index) const {
    return text(index) == "24:00" ? ado::DateTime(0.0) : moment(index).time();
}

ado::Value Call::value(std::size_t index) const {
    return ado::equalIgnoringCase(text(index), "Null") ? ado::Value() : ado::Value(text(index));
}

const std::vector<Procedure>& procedures() {
    static const Procedures table = makeTable();
    return table;
}

const Procedure& findProcedure(std::string_view name) {
    for (const auto& procedure : procedures()) {
        if (ado::equalIgnoringCase(procedure.name, name))
            return procedure;
    }
    throw CommandError(fmt::format("there is no procedure {}; `call` alone lists them", name));
}

} // namespace zel::runner
