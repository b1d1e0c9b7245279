#include "korvandb/arguments.h"

#include <fmt/format.h>

#include <charconv>
#include <map>
#include <stdexcept>

namespace zel::korvandb {

namespace {

using Command = Arguments::Command;

[[noreturn]] void fail(const std::string& what) {
    throw std::invalid_argument(what);
}

Command commandOf(std::string_view word) {
    static const std::map<std::string_view, Command> commands = {
        {"create", Command::Create}, {"demo", Command::Demo}, {"check", Command::Check}, {"info", Command::Info}};
    const auto found = commands.find(word);
    if (found == commands.end())
        fail(fmt::format("there is no command '{}'", word));
    return found->second;
}

int numberOf(std::string_view option, std::string_view word, int most) {
    int number = 0;
    const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), number);
    if (error != std::errc() || end != word.data() + word.size() || number < 1 || number > most)
        fail(fmt::format("{} takes a number from 1 to {}, not '{}'", option, most, word));
    return number;
}

/// Reads the words behind the command.
class Reader {
public:
    Reader(std::span<const std::string_view> words, Arguments& arguments) : words_(words), arguments_(arguments) {}

    void read() {
        while (next_ < words_.size())
            take(words_[next_++]);
        if (arguments_.target.empty())
            fail("which database? Name a file, or server/catalog");
    }

private:
    void take(std::string_view word) {
        const bool makes = arguments_.command == Command::Create || arguments_.command == Command::Demo;
        const bool sized = arguments_.command == Command::Demo;
        if (word == "--force" && makes)
            arguments_.force = true;
        else if (word == "--persons" && sized)
            arguments_.size.persons = numberOf(word, value(word), 1'000'000);
        else if (word == "--days" && sized)
            arguments_.size.days = numberOf(word, value(word), 1'000);
        else if (word.starts_with('-'))
            fail(fmt::format("there is no option '{}' here", word));
        else if (!arguments_.target.empty())
            fail(fmt::format("one database at a time: '{}' is one too many", word));
        else
            arguments_.target = word;
    }

    std::string_view value(std::string_view option) {
        if (next_ == words_.size())
            fail(fmt::format("{} takes a number", option));
        return words_[next_++];
    }

    std::span<const std::string_view> words_;
    Arguments& arguments_;
    std::size_t next_ = 0;
};

} // namespace

Arguments parseArguments(std::span<const std::string_view> words) {
    Arguments arguments;
    if (words.empty())
        fail("what shall be done? See 'korvan-db --help'");
    for (const std::string_view word : words)
        if (word == "--help" || word == "-h" || word == "help")
            return arguments;
    if (words[0] == "--version") {
        arguments.command = Command::Version;
        return arguments;
    }
    arguments.command = commandOf(words[0]);
    Reader(words.subspan(1), arguments).read();
    return arguments;
}

std::string_view helpText() {
    return R"(NAME
    korvan-db - make, fill and check databases of the Korvan suite

SYNOPSIS
    korvan-db create TARGET [--force]
    korvan-db demo TARGET [--persons N] [--days D] [--force]
    korvan-db check TARGET
    korvan-db info TARGET
    korvan-db --help | --version

TARGET
    A file, such as Korvan.mdb, or server/catalog for a shared PostgreSQL database. The server is a host with an
    optional :port, or a socket folder: /run/postgresql/korvan is the catalog "korvan" there. The last "/" parts the
    two. A name with an ending (.mdb), without "/", or beginning with "." is a file. User and password of a server
    are taken from PGUSER, PGPASSWORD and the password file ~/.pgpass.

COMMANDS
    create  Makes a database with all tables and lookups and no incidents.
    demo    Makes a database and fills it: 2 incidents, 60 individuals, 4 crews, 12 pieces of equipment, 3 contract
            crews, 6 contractors, two weeks of postings, debits and invoices. The rows are always the same.
    check   Looks through the database and prints a line for each fault: a damaged file, missing tables, key numbers
            that are in use, rows that hang on nothing, flags, dates and money in a wrong form. Changes nothing.
    info    Prints where the database is, its version, its incidents and how many rows it holds.

OPTIONS
    --persons N   demo: so many individuals (60), each posted every day
    --days D      demo: so many days of postings (14) from July 1, 2005
    --force       create, demo: replaces a database of that name, though never a file that is something else. Without
                  it an existing one is left as it is. The new one is made beside the old and takes its name when whole.

EXIT STATUS
    0  done; check found nothing
    1  check found faults
    2  the command line was not understood
    3  the database could not be made, opened or read; an existing one is as it was
)";
}

} // namespace zel::korvandb
