#pragma once

#include "ado/value.h"
#include "raw_kept.h"

#include <deque>
#include <string>
#include <vector>

namespace zel::bench {

/// Parameters as a C program has them: numbers as numbers, anything else as text.
class RawParameters {
public:
    explicit RawParameters(const std::vector<ado::Value>& values);
    RawParameters(RawParameters&&) = default;
    RawParameters(const RawParameters&) = delete;
    RawParameters& operator=(const RawParameters&) = delete;
    [[nodiscard]] const raw_parameter* data() const noexcept { return raw_.data(); }
    [[nodiscard]] int count() const noexcept { return static_cast<int>(raw_.size()); }

private:
    [[nodiscard]] raw_parameter rawOf(const ado::Value& value);

    std::deque<std::string> texts_; // what is in it stays where it is
    std::vector<raw_parameter> raw_;
};

/// The raw program's statements, prepared once and kept.
class KeptStatements {
public:
    explicit KeptStatements(sqlite3* database) : sqlite_(database) {}
    explicit KeptStatements(pg_conn* connection) : postgres_(connection) {}
    ~KeptStatements();
    KeptStatements(const KeptStatements&) = delete;
    KeptStatements& operator=(const KeptStatements&) = delete;

    /// Gives the place of the statement; a text that is kept already has its place.
    [[nodiscard]] std::size_t keep(const std::string& text);
    /// Whether a run copies every cell into a block of its own, or only reads it.
    enum class Cells { Read, Copied };
    /// Gives the whole number in the first cell, 0 without one.
    long long run(std::size_t place, const RawParameters& parameters, Cells cells);
    [[nodiscard]] long rowsRead() const noexcept { return rowsRead_; }

private:
    struct Kept {
        std::string text, name;
        sqlite3_stmt* statement = nullptr;
    };
    sqlite3* sqlite_ = nullptr;
    pg_conn* postgres_ = nullptr;
    std::vector<Kept> kept_;
    long rowsRead_ = 0;
};

} // namespace zel::bench
