#include "korvandb/demo_world.h"

#include <fmt/format.h>

namespace zel::korvandb {

namespace {

using ado::Currency;
using ado::Value;

void writeAgreement(DemoWorld& world, const DemoRow& row, int contractor, int incident, const std::string& name) {
    const int key = world.agreements.nextKey();
    world.agreements.rows().add({key, contractor, row.cell("Agreement"), row.date("Begin"), row.date("Expires"),
                                 "SADDLE GAP", world.officeList[static_cast<std::size_t>(row.number("Office") - 1)]});
    world.agreementList.push_back({key, contractor, incident, name});
}

void writeContractors(DemoWorld& world) {
    for (const DemoRow& row : world.texts.rows("Contractors")) {
        const int key = world.contractors.nextKey();
        const int incident = row.number("Incident") - 1;
        const DemoRow& town = world.towns[static_cast<std::size_t>(row.number("Town") - 1)];
        world.contractors.rows().add({key, world.incidentList[static_cast<std::size_t>(incident)].id, row.cell("Name"),
                                      row.cell("Number"), row.cell("Addr"), town.cell("City"), town.cell("State"),
                                      fmt::format("{}-{:04}", town.text("Zip"), 100 + key),
                                      fmt::format("({}) 555-{:04}", town.text("Phone"), 2000 + key)});
        writeAgreement(world, row, key, incident, row.text("Name"));
    }
    for (const DemoRow& row : world.texts.rows("Agreements")) {
        const DemoAgreement first = world.agreementList[static_cast<std::size_t>(row.number("Contractor") - 1)];
        writeAgreement(world, row, first.contractor, first.incident, first.contractorName);
    }
}

void writeRateLine(DemoWorld& world, DemoContracted& thing, const DemoRateLine& line, const std::string& description) {
    world.rateLines.rows().add({world.rateLines.nextKey(), thing.equipment, line.rate, line.primary, line.guarantee,
                                line.type, thing.resource, description});
    thing.lines.push_back(line);
}

/// Every fifth one is on an invoice that counts, so that its first postings are locked.
void writeInvoice(DemoWorld& world, DemoContracted& thing) {
    if (thing.equipment % 5 != 1 && thing.equipment % 5 != 3)
        return;
    const bool deleted = thing.equipment % 5 == 3;
    const int key = world.equipInvoices.nextKey();
    world.equipInvoices.rows().add({key, thing.equipment, DemoWorld::day(world.invoicedDays() - 1), deleted});
    thing.invoice = deleted ? 0 : key;
}

/// The Resources and Equipment rows of one contracted thing.
DemoContracted writeThing(DemoWorld& world, const DemoRow& row, const DemoAgreement& agreement,
                          const std::string& requestNumber, bool crew, int people) {
    const DemoIncident& incident = world.incidentList[static_cast<std::size_t>(agreement.incident)];
    DemoContracted thing;
    thing.resource = world.resources.nextKey();
    thing.equipment = world.equipment.nextKey();
    thing.contractor = agreement.contractor;
    thing.account = incident.accounts[0];
    const bool released = requestNumber == "E-12";
    const bool supplies = !crew && row.flag("GovtSupplies");
    const std::string name = crew ? row.text("Name") : row.text("Kind") + "-" + agreement.contractorName;
    world.resources.rows().add(
        {thing.resource, incident.id, name, requestNumber, "PVT", Value(), row.cell("Kind"), DemoWorld::day(0),
         ado::DateTime::fromTime(7, 0), released ? Value(DemoWorld::day(world.size.days)) : Value(),
         released ? Value(ado::DateTime::fromTime(12, 0)) : Value(), released ? "D" : "C", people, crew || people > 0,
         thing.account, agreement.id,
         ado::DateTime(DemoWorld::day(0).serial() + ado::DateTime::fromTime(7, 0).serial()), true, supplies});
    world.equipment.rows().add({thing.equipment, thing.resource, agreement.id, thing.account,
                                crew ? row.cell("Name") : row.cell("UniqueName"), crew ? Value() : row.cell("Make"),
                                crew ? Value() : row.cell("Model"), !crew && row.flag("GovtOperator"), supplies});
    writeInvoice(world, thing);
    return thing;
}

const DemoAgreement& agreementOf(const DemoWorld& world, const DemoRow& row) {
    return world.agreementList[static_cast<std::size_t>(row.number("Agreement") - 1)];
}

void writeEquipment(DemoWorld& world) {
    int number = 0;
    for (const DemoRow& row : world.texts.rows("Equipment")) {
        const std::string requestNumber = fmt::format("E-{}", ++number);
        const int operators = row.number("Operators");
        DemoContracted thing = writeThing(world, row, agreementOf(world, row), requestNumber, false, operators);
        for (const DemoRow& rate : world.texts.rows("EquipmentRates"))
            if (rate.number("Equipment") == number)
                writeRateLine(
                    world, thing,
                    {rate.flag("Primary"), rate.text("RateType"), rate.money("Rate"), rate.money("Guarantee")},
                    rate.text("Description"));
        writeOperators(world, thing.resource, thing.account, requestNumber, operators);
        world.contracted.push_back(std::move(thing));
    }
}

void writeContractCrews(DemoWorld& world) {
    int number = 20;
    for (const DemoRow& row : world.texts.rows("ContractCrews")) {
        const std::string requestNumber = fmt::format("C-{}", ++number);
        const int members = row.number("Members");
        DemoContracted thing = writeThing(world, row, agreementOf(world, row), requestNumber, true, members);
        writeRateLine(world, thing, {true, "Hourly", row.money("Rate"), row.money("Guarantee")}, "");
        writeOperators(world, thing.resource, thing.account, requestNumber, members);
        world.contracted.push_back(std::move(thing));
    }
}

} // namespace

void writeContracts(DemoWorld& world) {
    writeContractors(world);
    writeEquipment(world);
    writeContractCrews(world);
}

} // namespace zel::korvandb
