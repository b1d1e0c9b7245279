#pragma once

#include "ado/engine.h"
#include "korvandb/progress.h"

namespace zel::korvandb {

/// How much demo data: individuals, and days of postings from 2005-07-01 on.
struct DemoSize {
    int persons = 60;
    int days = 14;
};

/// Fills the tables of a new database with two incidents and their people, contracts, postings, debits and invoices.
/// The same size always gives the same rows, on both engines. All or nothing.
void fillDemo(ado::Engine& engine, const DemoSize& size, const Progress& progress);

} // namespace zel::korvandb
