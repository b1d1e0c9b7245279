#pragma once

#include "ado/engine.h"

#include <cstdint>
#include <functional>
#include <string_view>

namespace zel::korvandb {

/// How much demo data: individuals, and days of postings from 2005-07-01 on.
struct DemoSize {
    int persons = 60;
    int days = 14;
};

/// Told now and then how far long work has come.
using Progress = std::function<void(std::string_view work, std::int64_t done, std::int64_t total)>;

/// Fills the tables of a new database with two incidents and their people, contracts, postings, debits and invoices.
/// The same size always gives the same rows, on both engines. All or nothing.
void fillDemo(ado::Engine& engine, const DemoSize& size, const Progress& progress);

} // namespace zel::korvandb
