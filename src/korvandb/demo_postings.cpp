#include "korvandb/demo_world.h"

#include <array>

namespace zel::korvandb {

namespace {

using ado::Currency;
using ado::DateTime;
using ado::Value;

/// The end of a day, and the start of what goes on from the day before: the conventions of all postings.
constexpr DateTime midnight{};
DateTime oneAfterMidnight() {
    return DateTime::fromTime(0, 1);
}

/// A posting apart from whose it is.
struct Stretch {
    DateTime start;
    Value stop;
    double hours = 0;
    std::string premium = " ";
    bool hasAmount = false; ///< only the halves of a posting across midnight carry one
};

Currency amountOf(double units, Currency rate) {
    return Currency::fromDouble(units * rate.toDouble());
}

/// Night work is posted as two rows, one up to 24:00 and one from 00:01 of the next day.
Stretch nightShift(int day) {
    if (day % 2 == 0)
        return {DateTime::fromTime(18, 0), midnight, 6, " ", true};
    return {oneAfterMidnight(), DateTime::fromTime(6, 0), 6, " ", true};
}

Stretch dayShift(int worker, int day) {
    const int quarters = (worker * 7 + day * 5) % 17;
    const int start = 6 * 60, stop = 16 * 60 + quarters * 15;
    return {DateTime::fromTime(6, 0), DateTime::fromTime(stop / 60, stop % 60), (stop - start) / 60.0};
}

/// A day that is paid or counted whatever the times were.
Stretch guaranteed(const DemoWorker& worker, const char* premium) {
    const bool eight = worker.ad && std::string_view(premium) != "DAY OFF";
    return {DateTime::fromTime(8, 0), DateTime::fromTime(16, 0), eight ? 8.0 : 0.0, premium};
}

Stretch stretchOf(const DemoWorker& worker, int number, int day, int days) {
    switch (worker.shift) {
    case 0:
        return nightShift(day);
    case 1:
        return day % 7 == 6 ? guaranteed(worker, "GUAR") : dayShift(number, day);
    case 3:
        return day % 7 == 5 ? guaranteed(worker, "COP") : dayShift(number, day);
    case 5:
        return day % 14 == 13 ? guaranteed(worker, "DAY OFF") : dayShift(number, day);
    case 9: // the way home has a start alone
        if (day == days - 1)
            return {DateTime::fromTime(8, 0), Value(), static_cast<double>(1.0F / 60.0F), "TRAVEL"};
        return dayShift(number, day);
    case 2:
    case 8: {
        Stretch shift = dayShift(number, day);
        if (worker.payClass.empty() && day % 3 == 1)
            shift.premium = "HP";
        return shift;
    }
    default:
        return dayShift(number, day);
    }
}

void writePosting(DemoWorld& world, const DemoWorker& worker, int number, int day) {
    const Stretch shift = stretchOf(worker, number, day, world.size.days);
    const bool invoiced = worker.invoice != 0 && day < world.invoicedDays();
    world.personsPosts.rows().add({world.personsPosts.nextKey(), worker.id, DemoWorld::day(day), shift.start,
                                   shift.stop, worker.kind, worker.payClass, worker.rate, shift.premium, shift.hours,
                                   shift.hasAmount ? amountOf(shift.hours, worker.rate) : Currency(), worker.account,
                                   invoiced ? Value(worker.invoice) : Value()});
}

/// One side of a row of ContractorPost: StartNum, StopNum, StartTime, StopTime and Units.
struct Use {
    Value startNumber, stopNumber, startTime, stopTime;
    double units = 0;
};

Use useOf(const std::string& rateType, int thing, int day, bool special) {
    if (rateType == "Hourly") {
        if (thing == 4 && !special) // the dozer works until midnight
            return {Value(), Value(), DateTime::fromTime(14, 0), midnight, 10};
        const int start = special ? 15 : 7, hours = special ? 2 : 9 + (thing + day) % 5;
        return {Value(), Value(), DateTime::fromTime(start, 0), DateTime::fromTime(start + hours, 30), hours + 0.5};
    }
    if (rateType == "Daily")
        return {Value(), Value(), Value(), Value(), 1};
    const int miles = rateType == "Mileage" ? 40 + (thing * 11 + day * 7) % 90 : 4 + (thing + day * 3) % 9;
    const int from = rateType == "Mileage" ? 12'000 + day * 140 : 0;
    return {static_cast<double>(from), static_cast<double>(from + miles), Value(), Value(), static_cast<double>(miles)};
}

void writeUse(DemoWorld& world, const DemoContracted& thing, int day) {
    const DemoRateLine& primary = thing.lines.front();
    const DemoRateLine* special = thing.lines.size() > 1 && day % 3 == 0 ? &thing.lines[1] : nullptr;
    const Use use = useOf(primary.type, thing.equipment, day, false);
    const Use more = special != nullptr ? useOf(special->type, thing.equipment, day, true) : Use();
    const auto ofSpecial = [&](const auto& value) { return special != nullptr ? Value(value) : Value(); };
    world.contractorPosts.rows().add(
        {world.contractorPosts.nextKey(),
         thing.equipment,
         thing.resource,
         DemoWorld::day(day),
         primary.type,
         use.startNumber,
         use.stopNumber,
         use.startTime,
         use.stopTime,
         use.units,
         primary.rate,
         amountOf(use.units, primary.rate),
         primary.guarantee,
         special != nullptr ? Value(special->type) : Value(),
         more.startNumber,
         more.stopNumber,
         more.startTime,
         more.stopTime,
         ofSpecial(more.units),
         special != nullptr ? Value(special->rate) : Value(),
         special != nullptr ? Value(amountOf(more.units, special->rate)) : Value(),
         thing.account,
         thing.invoice != 0 && day < world.invoicedDays() ? Value(thing.invoice) : Value()});
}

} // namespace

// Day by day, as time comes in: a person's rows lie far apart in the table.
void writePersonPostings(DemoWorld& world, const Progress& progress) {
    const auto total = static_cast<std::int64_t>(world.workers.size()) * world.size.days;
    for (int day = 0; day < world.size.days; ++day)
        for (std::size_t number = 0; number < world.workers.size(); ++number) {
            writePosting(world, world.workers[number], static_cast<int>(number), day);
            if (world.personsPosts.lastKey() % 20'000 == 0)
                progress("postings", world.personsPosts.lastKey(), total);
        }
    progress("postings", total, total);
}

void writeContractPostings(DemoWorld& world) {
    for (int day = 0; day < world.size.days; ++day)
        for (const DemoContracted& thing : world.contracted)
            writeUse(world, thing, day);
}

void writeDebits(DemoWorld& world) {
    const std::vector<std::string> commodities = world.texts.list("Commodities", "Name");
    for (std::size_t number = 0; number < world.workers.size(); number += 2) {
        const DemoWorker& worker = world.workers[number];
        const int quarters = 8 + world.random.below(200);
        world.debits.rows().add(
            {world.debits.nextKey(), worker.id, DemoWorld::day(static_cast<int>(number) % world.size.days),
             world.random.of(commodities), worker.account, Currency::fromTicks(std::int64_t{quarters} * 2'500)});
    }
    for (const DemoRow& row : world.texts.rows("Adjustments")) {
        const DemoContracted& thing = world.contracted[static_cast<std::size_t>(row.number("Equipment") - 1)];
        const int day = (row.number("Day") - 1) % world.size.days;
        world.adjustments.rows().add(
            {world.adjustments.nextKey(), thing.contractor, thing.equipment, thing.resource, DemoWorld::day(day),
             row.cell("Description"), row.money("Amount"), thing.account,
             thing.invoice != 0 && day < world.invoicedDays() ? Value(thing.invoice) : Value()});
    }
}

} // namespace zel::korvandb
