#include "korvandb/demo_world.h"

namespace zel::korvandb {

namespace {

void writeAccounts(DemoWorld& world) {
    for (const DemoRow& row : world.texts.rows("Accounts")) {
        DemoIncident& incident = world.incidentList[static_cast<std::size_t>(row.number("Incident") - 1)];
        const int key = world.accounts.nextKey();
        world.accounts.rows().add({key, incident.id, row.cell("Code"), row.cell("Agency"), row.flag("Default")});
        incident.accounts.push_back(key);
    }
}

} // namespace

void writeIncidents(DemoWorld& world) {
    for (const DemoRow& row : world.texts.rows("Incidents")) {
        const int key = world.incidents.nextKey();
        world.incidents.rows().add({key, row.cell("Number"), row.cell("Name"), row.cell("Location"), row.cell("State"),
                                    DemoWorld::day(-3), row.cell("Office"), row.cell("Addr1"), row.cell("City"),
                                    row.cell("State"), row.cell("Zip")});
        world.incidentList.push_back({key, {}});
    }
    writeAccounts(world);
    for (const DemoRow& row : world.texts.rows("AdminOffices")) {
        const int key = world.offices.nextKey();
        world.offices.rows().add({key, row.cell("Name"), row.cell("Addr1"), row.cell("Addr2"), row.cell("City"),
                                  row.cell("State"), row.cell("Zip")});
        world.officeList.push_back(key);
    }
}

} // namespace zel::korvandb
