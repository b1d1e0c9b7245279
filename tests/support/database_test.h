#pragma once

#include "ado/convert.h"
#include "support/test_database.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>

namespace zel::ado {

inline void PrintTo(EngineKind kind, std::ostream* stream) {
    *stream << (kind == EngineKind::Sqlite ? "Sqlite" : "Postgres");
}

/// A value that is not the expected one is shown with its type, as a clerk would read it.
inline void PrintTo(const Value& value, std::ostream* stream) {
    static constexpr const char* types[] = {"Null",   "Boolean",  "Integer", "Double",
                                            "Single", "Currency", "Text",    "DateTime"};
    *stream << types[static_cast<std::size_t>(value.type())] << " '" << toText(value) << "'";
}

} // namespace zel::ado

namespace zel::test {

inline std::string engineName(const ::testing::TestParamInfo<ado::EngineKind>& info) {
    return ::testing::PrintToString(info.param);
}

/// A test that runs on both engines, each time with a fresh database:
///
///     class AccountTest : public zel::test::DatabaseTest {};
///     ZEL_ON_BOTH_ENGINES(AccountTest);
///     TEST_P(AccountTest, ASecondDefaultTakesTheFirstOnesPlace) { connection().Execute("..."); }
class DatabaseTest : public ::testing::TestWithParam<ado::EngineKind> {
protected:
    explicit DatabaseTest(Content content = Content::WithoutIncidents) : database_(GetParam(), content) {}
    [[nodiscard]] TestDatabase& database() noexcept { return database_; }
    [[nodiscard]] ado::Connection& connection() { return database_.connection(); }
    [[nodiscard]] bool onSqlite() const noexcept { return GetParam() == ado::EngineKind::Sqlite; }

private:
    TestDatabase database_;
};

} // namespace zel::test

#define ZEL_ON_BOTH_ENGINES(Suite)                                                                                     \
    INSTANTIATE_TEST_SUITE_P(Engines, Suite,                                                                           \
                             ::testing::Values(::zel::ado::EngineKind::Sqlite, ::zel::ado::EngineKind::Postgres),      \
                             ::zel::test::engineName)
