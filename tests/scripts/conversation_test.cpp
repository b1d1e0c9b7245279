#include "scripts/program_run.h"

#include <gmock/gmock.h>

#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdio>

namespace zel::test {
namespace {

using testing::HasSubstr;

/// zel-run as another program talks to it: a line there, a line back.
class Conversation {
public:
    explicit Conversation(const std::string& home) {
        std::array<int, 2> there{}, back{};
        if (::pipe(there.data()) != 0 || ::pipe(back.data()) != 0)
            throw std::runtime_error("no pipes");
        process_ = ::fork();
        if (process_ == 0) {
            ::dup2(there[0], 0);
            ::dup2(back[1], 1);
            for (const int end : {there[0], there[1], back[0], back[1]})
                ::close(end);
            ::execl(ZEL_RUN, ZEL_RUN, "--home", home.c_str(), static_cast<char*>(nullptr));
            ::_exit(127);
        }
        ::close(there[0]);
        ::close(back[1]);
        to_ = ::fdopen(there[1], "w");
        from_ = ::fdopen(back[0], "r");
    }
    ~Conversation() { end(); }
    Conversation(const Conversation&) = delete;
    Conversation& operator=(const Conversation&) = delete;

    std::string ask(const std::string& command) {
        std::fputs((command + "\n").c_str(), to_);
        std::fflush(to_);
        std::string line;
        for (int c = std::fgetc(from_); c != EOF && c != '\n'; c = std::fgetc(from_))
            line += static_cast<char>(c);
        return line;
    }
    /// Closes its input and gives the exit status.
    int end() {
        if (process_ <= 0)
            return status_;
        std::fclose(to_);
        int ended = 0;
        ::waitpid(process_, &ended, 0);
        std::fclose(from_);
        process_ = 0;
        return status_ = WIFEXITED(ended) ? WEXITSTATUS(ended) : -1;
    }

private:
    pid_t process_ = 0;
    std::FILE* to_ = nullptr;
    std::FILE* from_ = nullptr;
    int status_ = -1;
};

class ConversationTest : public testing::Test {
protected:
    ProgramRun program{ado::EngineKind::Sqlite};
};

TEST_F(ConversationTest, An_answer_comes_before_the_next_command_is_sent) {
    Conversation talk(program.home());
    EXPECT_THAT(talk.ask("start False"), HasSubstr(R"("cmd":"start","ok":true)"));
    EXPECT_THAT(talk.ask("get dbcIncident(0)"), HasSubstr(R"("value":"COLD CREEK")"));
    EXPECT_THAT(talk.ask("quit"), HasSubstr(R"("cmd":"quit","ok":true)"));
    EXPECT_EQ(talk.end(), 0);
}

TEST_F(ConversationTest, The_end_of_its_input_ends_it) {
    Conversation talk(program.home());
    talk.ask("start False");
    EXPECT_EQ(talk.end(), 0);
}

TEST_F(ConversationTest, A_second_program_from_the_same_folder_does_not_start) {
    Conversation first(program.home()), second(program.home());
    first.ask("start False");
    EXPECT_THAT(second.ask("start False"), HasSubstr(R"("ok":false,"error":"the program runs already from )"));
    EXPECT_THAT(first.ask("get dbcIncident(0)"), HasSubstr("COLD CREEK"));
    EXPECT_EQ(second.end(), 1);
}

TEST_F(ConversationTest, A_program_that_finds_no_database_says_so) {
    Conversation talk(program.home());
    program.removeDatabase();
    const auto answer = talk.ask("start False");
    EXPECT_THAT(answer, HasSubstr(R"("kind":"file","title":"Select the Network Korvan database")"));
    EXPECT_THAT(answer, HasSubstr("Can not find or make a connection to the database!"));
    EXPECT_THAT(answer, HasSubstr(R"("ok":false,"error":"the program ended while it started")"));
    EXPECT_EQ(talk.end(), 1);
}

/// Status and first line of a zel-run that is started with these words.
std::pair<int, std::string> started(const std::string& words) {
    std::FILE* pipe = ::popen((ZEL_RUN " " + words + " </dev/null 2>&1").c_str(), "r");
    std::array<char, 512> line{};
    const char* read = std::fgets(line.data(), line.size(), pipe);
    std::string first = read == nullptr ? "" : read;
    while (std::fgetc(pipe) != EOF)
        continue;
    const int ended = ::pclose(pipe);
    return {WIFEXITED(ended) ? WEXITSTATUS(ended) : -1, first};
}

TEST_F(ConversationTest, Started_wrongly_it_ends_with_status_2) {
    EXPECT_THAT(started("--fly"), testing::Pair(2, "zel-run: unknown option --fly\n"));
    EXPECT_THAT(started("--home /nowhere/zel"), testing::Pair(2, "zel-run: there is no program folder /nowhere/zel\n"));
    EXPECT_THAT(started("--home " + program.home() + " --now noon"),
                testing::Pair(2, "zel-run: --now noon is no time, as 2005-07-04T08:00:00\n"));
    EXPECT_THAT(started("/nowhere/day.zel"), testing::Pair(2, "zel-run: cannot read /nowhere/day.zel\n"));
    EXPECT_EQ(started("--help").first, 0);
}

TEST_F(ConversationTest, A_database_named_at_the_start_goes_into_the_settings) {
    EXPECT_EQ(started("--home " + program.home() + " --db other.mdb").first, 0);
    EXPECT_THAT(program.settings(), HasSubstr("/other.mdb\r\n"));
}

} // namespace
} // namespace zel::test
