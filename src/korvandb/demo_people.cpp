#include "korvandb/demo_world.h"

#include <fmt/format.h>

namespace zel::korvandb {

namespace {

using ado::Currency;
using ado::Value;

/// What a person's row says of pay.
struct Pay {
    std::string fedCode;
    Value area, payClass;
    Currency rate;
};

/// A member or operator hangs on the resource of the crew or equipment.
struct Member {
    int resource = 0;
    int leader = 0; ///< 0: this one
    int account = 0;
    std::string requestNumber, kind, agency;
    Pay pay;
};

/// Numbers that nobody has: they begin with 9.
std::string ssnOf(int person) {
    if (person % 20 == 11)
        return "999999999";
    return std::to_string(900'000'000 + static_cast<int>(std::int64_t{person + 1} * 7919 % 99'999'989));
}

Pay payPlan(DemoWorld& world, int person) {
    const DemoRow& chosen = world.random.of(world.payPlan);
    Currency rate = chosen.money("Rate");
    if (rate == Currency()) // AD-5: by hand
        rate = Currency::fromTicks(300'000 + person % 40 * 2'500);
    return {"AD", chosen.cell("Area"), chosen.cell("Class"), rate};
}

Pay payOf(DemoWorld& world, int person) {
    if (person % 5 < 2)
        return payPlan(world, person);
    if (person % 5 < 4)
        return {"FED", "", "", {}};
    return {"OTHER", "", "", Currency::fromTicks(180'000 + person % 60 * 2'500)};
}

Value statusOf(int person) {
    if (person == 28) // not yet checked in
        return {};
    if (person % 30 == 17)
        return "D";
    if (person % 30 == 22)
        return "P";
    return person % 9 == 1 ? "A" : "C";
}

int writePerson(DemoWorld& world, const Member& member, const Value& status, const std::string& first,
                const std::string& last) {
    const int key = world.persons.nextKey();
    const DemoRow& town = world.random.of(world.towns);
    const bool overhead = member.requestNumber.starts_with('O');
    const bool ad = member.pay.fedCode == "AD";
    world.persons.rows().add({key,
                              member.resource,
                              first,
                              last,
                              ssnOf(key - 1),
                              member.requestNumber,
                              member.agency,
                              overhead ? Value() : Value(member.leader == 0 ? key : member.leader),
                              overhead ? Value(member.resource) : Value(),
                              status,
                              member.pay.fedCode,
                              member.kind,
                              member.account,
                              fmt::format("{} {} ROAD", world.random.below(900) + 1, town.text("City")),
                              town.cell("City"),
                              town.cell("State"),
                              fmt::format("{}-{:04}", town.text("Zip"), world.random.below(10'000)),
                              fmt::format("({}) 555-{:04}", town.text("Phone"), world.random.below(10'000)),
                              member.pay.area,
                              member.pay.payClass,
                              member.pay.rate,
                              ad && key % 4 == 0,
                              ad && key % 6 == 0,
                              ad ? town.cell("City") : Value(""),
                              ad,
                              ad});
    return key;
}

int invoiceFor(DemoWorld& world, int person) {
    if (person % 10 != 5 && person % 10 != 7)
        return 0;
    const bool deleted = person % 10 == 7;
    const int key = world.personsInvoices.nextKey();
    world.personsInvoices.rows().add({key, world.persons.lastKey(), DemoWorld::day(world.invoicedDays() - 1), deleted});
    return deleted ? 0 : key;
}

std::vector<std::string> positionsOf(const DemoWorld& world) {
    std::vector<std::string> kinds;
    for (const DemoRow& row : world.texts.rows("L_Kind"))
        if (row.text("RequestCat") == "O")
            kinds.push_back(row.text("KindCode"));
    return kinds;
}

void writeMembers(DemoWorld& world, Member member, int count, int shift) {
    const std::string crewNumber = member.requestNumber;
    for (int i = 1; i <= count; ++i) {
        member.requestNumber = fmt::format("{}.{}", crewNumber, i);
        member.kind = i == 1 ? "CRWB" : i <= 3 ? "FFT1" : "FFT2";
        if (member.pay.fedCode == "AD")
            member.pay = payPlan(world, i);
        // Drawn one after the other: the order of arguments is the compiler's own.
        const std::string firstName = world.random.of(world.firstNames), lastName = world.random.of(world.lastNames);
        const int key = writePerson(world, member, "C", firstName, lastName);
        if (i == 1)
            member.leader = key;
        if (shift >= 0)
            world.workers.push_back({key, member.account, 0, shift, member.pay.fedCode == "AD", member.kind,
                                     member.pay.payClass.isNull() ? "" : member.pay.payClass.as<std::string>(),
                                     member.pay.rate});
    }
}

} // namespace

void writeIndividuals(DemoWorld& world, const Progress& progress) {
    const std::vector<std::string> positions = positionsOf(world);
    const std::vector<std::string> agencies = {"FORS", "FLND", "STFO", "CNTY", "TRIB", "CITY"};
    for (int person = 0; person < world.size.persons; ++person) {
        if (person % 1'000 == 0)
            progress("persons", person, world.size.persons);
        const DemoIncident& incident = world.incidentList[person % 3 == 2 ? 1 : 0];
        Member member{world.resources.nextKey(),
                      0,
                      incident.accounts[person % 6 == 3 ? 1 : 0],
                      fmt::format("O-{}", person + 1),
                      world.random.of(positions),
                      world.random.of(agencies),
                      payOf(world, person)};
        const std::string firstName = world.random.of(world.firstNames), lastName = world.random.of(world.lastNames);
        const Value status = statusOf(person);
        const bool contractedHere = person % 10 == 4;
        world.resources.rows().add({member.resource, incident.id, fmt::format("{},{}", lastName, firstName),
                                    member.requestNumber, member.agency, Value(), member.kind, DemoWorld::day(-1),
                                    Value(), Value(), Value(), status, 1, false, member.account, Value(), Value(),
                                    contractedHere, false});
        const int key = writePerson(world, member, status, firstName, lastName);
        world.workers.push_back({key, member.account, invoiceFor(world, person), person % 12,
                                 member.pay.fedCode == "AD", member.kind, member.pay.payClass.as<std::string>(),
                                 member.pay.rate});
    }
}

void writeCrews(DemoWorld& world) {
    int number = 0;
    for (const DemoRow& row : world.texts.rows("Crews")) {
        const DemoIncident& incident = world.incidentList[static_cast<std::size_t>(row.number("Incident") - 1)];
        Member member{world.resources.nextKey(),        0,  incident.accounts[0],
                      fmt::format("C-{}", ++number),    "", row.text("Agency"),
                      {row.text("FedCode"), "", "", {}}};
        world.resources.rows().add({member.resource, incident.id, row.cell("Name"), member.requestNumber, member.agency,
                                    Value(), row.cell("Kind"), DemoWorld::day(-1), Value(), Value(), Value(), "C",
                                    row.number("Members"), true, member.account, Value(), Value(), false, false});
        // The second crew works nights.
        writeMembers(world, member, row.number("Members"), number == 2 ? 0 : 6);
    }
}

void writeOperators(DemoWorld& world, int resource, int account, const std::string& requestNumber, int count) {
    writeMembers(world, {resource, 0, account, requestNumber, "", "PVT", {"OTHER", "", "", {}}}, count, -1);
}

} // namespace zel::korvandb
