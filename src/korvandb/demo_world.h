#pragma once

#include "korvandb/demo.h"
#include "korvandb/demo_random.h"
#include "korvandb/demo_texts.h"
#include "korvandb/row_writer.h"

#include <string>
#include <vector>

namespace zel::korvandb {

/// A table of the demo with the keys given out for it, from 1 on.
class DemoTable {
public:
    DemoTable(ado::Engine& engine, const std::string& table, const std::string& columns)
        : name_(table), writer_(engine, table, columns) {}

    [[nodiscard]] int nextKey() noexcept { return ++lastKey_; }
    [[nodiscard]] int lastKey() const noexcept { return lastKey_; }
    [[nodiscard]] const std::string& name() const noexcept { return name_; }
    [[nodiscard]] RowWriter& rows() noexcept { return writer_; }

private:
    std::string name_;
    RowWriter writer_;
    int lastKey_ = 0;
};

struct DemoIncident {
    int id = 0;
    std::vector<int> accounts; ///< the default first
};

struct DemoAgreement {
    int id = 0;
    int contractor = 0;
    int incident = 0; ///< from 0
    std::string contractorName;
};

/// Someone whose hours are posted.
struct DemoWorker {
    int id = 0;
    int account = 0;
    int invoice = 0; ///< 0 for none
    int shift = 0;   ///< which of the shift patterns
    bool ad = false;
    std::string kind;
    std::string payClass;
    ado::Currency rate;
};

struct DemoRateLine {
    bool primary = false;
    std::string type;
    ado::Currency rate;
    ado::Currency guarantee;
};

/// A piece of equipment or a contract crew.
struct DemoContracted {
    int equipment = 0;
    int resource = 0;
    int contractor = 0;
    int account = 0;
    int invoice = 0; ///< 0 for none
    std::vector<DemoRateLine> lines;
};

/// What the parts of the demo hand to each other while they write it.
struct DemoWorld {
    DemoWorld(ado::Engine& engine, const DemoSize& demoSize);

    /// Days count from 0.
    [[nodiscard]] static ado::DateTime day(int number);
    /// The last day on the invoices there are: the seventh, or the last of a shorter demo.
    [[nodiscard]] int invoicedDays() const { return size.days < 7 ? size.days : 7; }
    [[nodiscard]] std::vector<DemoTable*> tables();
    /// Writes the rows that wait and the key numbers.
    void finish();

    ado::Engine& engine;
    DemoSize size;
    DemoTexts texts;
    std::vector<std::string> firstNames, lastNames;
    std::vector<DemoRow> towns, payPlan;
    DemoRandom random{20050701};

    DemoTable incidents, accounts, resources, persons, equipment, rateLines, contractors, agreements, offices;
    DemoTable personsPosts, contractorPosts, debits, adjustments, personsInvoices, equipInvoices;

    std::vector<DemoIncident> incidentList;
    std::vector<int> officeList;
    std::vector<DemoAgreement> agreementList;
    std::vector<DemoWorker> workers;
    std::vector<DemoContracted> contracted;
};

void writeIncidents(DemoWorld& world);
void writeIndividuals(DemoWorld& world, const Progress& progress);
void writeCrews(DemoWorld& world);
/// People of a piece of equipment or a contract crew: the contractor is paid for them.
void writeOperators(DemoWorld& world, int resource, int account, const std::string& requestNumber, int count);
void writeContracts(DemoWorld& world);
void writePersonPostings(DemoWorld& world, const Progress& progress);
void writeContractPostings(DemoWorld& world);
void writeDebits(DemoWorld& world);

} // namespace zel::korvandb
