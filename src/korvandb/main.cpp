#include "ado/error.h"
#include "korvandb/arguments.h"
#include "korvandb/check.h"
#include "korvandb/create.h"
#include "korvandb/info.h"
#include "korvandb/progress_line.h"
#include "korvandb/rows.h"
#include "korvandb/target.h"

#include <fmt/format.h>

#include <stdexcept>
#include <vector>

namespace zel::korvandb {

namespace {

enum ExitStatus { done = 0, faultsFound = 1, notUnderstood = 2, failed = 3 };

int create(const Arguments& arguments) {
    const Target target(arguments.target);
    target.create(createTables, arguments.force);
    fmt::print("Made {}.\n", target.text());
    return done;
}

int demo(const Arguments& arguments) {
    const Target target(arguments.target);
    ProgressLine line;
    std::int64_t persons = 0, postings = 0;
    target.create(
        [&](ado::Engine& engine) {
            createTables(engine);
            fillDemo(engine, arguments.size, line.progress());
            persons = Rows(engine, "SELECT count(*) FROM Persons").number(0, 0);
            postings = Rows(engine, "SELECT count(*) FROM PersonsPost").number(0, 0);
        },
        arguments.force);
    fmt::print("Made {} with {} persons and {} postings.\n", target.text(), persons, postings);
    return done;
}

int check(const Arguments& arguments) {
    const auto engine = Target(arguments.target).open();
    std::vector<std::string> faults;
    {
        ProgressLine line;
        faults = checkDatabase(*engine, line.progress());
    }
    for (const std::string& fault : faults)
        fmt::print("{}\n", fault);
    if (faults.empty())
        fmt::print("{} is sound.\n", arguments.target);
    return faults.empty() ? done : faultsFound;
}

int info(const Arguments& arguments) {
    fmt::print("{}", describe(*Target(arguments.target).open()));
    return done;
}

int run(const Arguments& arguments) {
    switch (arguments.command) {
    case Arguments::Command::Create:
        return create(arguments);
    case Arguments::Command::Demo:
        return demo(arguments);
    case Arguments::Command::Check:
        return check(arguments);
    case Arguments::Command::Info:
        return info(arguments);
    case Arguments::Command::Version:
        fmt::print("korvan-db {}\n", ZEL_VERSION);
        return done;
    case Arguments::Command::Help:
        break;
    }
    fmt::print("{}", helpText());
    return done;
}

int guarded(const std::vector<std::string_view>& words) {
    try {
        return run(parseArguments(words));
    } catch (const std::invalid_argument& failure) {
        fmt::print(stderr, "korvan-db: {}\n", failure.what());
        return notUnderstood;
    } catch (const Interrupted&) {
        fmt::print(stderr, "korvan-db: stopped; nothing was changed\n");
        return failed;
    } catch (const std::exception& failure) {
        fmt::print(stderr, "korvan-db: {}\n", failure.what());
        return failed;
    }
}

} // namespace

} // namespace zel::korvandb

int main(int count, char** words) {
    return zel::korvandb::guarded({words + 1, words + count});
}
