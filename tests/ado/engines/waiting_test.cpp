#include "engine_fixture.h"

#include <chrono>

namespace zel::ado {
namespace {

using namespace std::chrono_literals;
using testing::HasSubstr;

/// Another clerk holds a row (on a file, the whole of it) while the engine wants to write it.
class WaitingTest : public EngineFixture {
protected:
    static constexpr const char* write = "UPDATE Version SET Version = '5.02.00' WHERE Module = 'Database'";

    void SetUp() override {
        EngineFixture::SetUp();
        holder_ = database().open();
        holder_->begin();
        run(*holder_, "UPDATE Version SET Version = '5.01.01' WHERE Module = 'Database'");
    }
    void release() { holder_->rollback(); }

private:
    std::unique_ptr<Engine> holder_;
};
ZEL_ON_BOTH_ENGINES(WaitingTest);

TEST_P(WaitingTest, AfterItsPatienceTheClerkIsToldWhy) {
    const auto impatient = database().open(300ms);
    const auto since = std::chrono::steady_clock::now();
    const Error error = errorFrom([&] { run(*impatient, write); });
    const auto waited = std::chrono::steady_clock::now() - since;
    EXPECT_EQ(error.kind(), ErrorKind::Busy);
    EXPECT_THAT(error.description(), HasSubstr("in use by another user"));
    EXPECT_GE(waited, 290ms);
    EXPECT_LT(waited, 5s);
    release();
    EXPECT_EQ(run(*impatient, write), 1);
}

TEST_P(WaitingTest, TheWindowLivesMeanwhile) {
    const auto impatient = database().open(400ms);
    int rounds = 0;
    impatient->onWait([&] { ++rounds; });
    EXPECT_EQ(errorFrom([&] { run(*impatient, write); }).kind(), ErrorKind::Busy);
    EXPECT_GE(rounds, 3);
}

TEST_P(WaitingTest, WhenTheOtherIsDoneTheWriteGoesOn) {
    int rounds = 0;
    engine().onWait([&] {
        if (++rounds == 2)
            release();
    });
    EXPECT_EQ(run(engine(), write), 1);
    EXPECT_GE(rounds, 2);
    EXPECT_EQ(one(engine(), "SELECT Version FROM Version WHERE Module = 'Database'"), Value("5.02.00"));
}

TEST_P(WaitingTest, ASecondStatementMeanwhileIsRefused) {
    ErrorKind inner = ErrorKind::State;
    bool asked = false;
    engine().onWait([&] {
        if (!std::exchange(asked, true)) {
            inner = errorFrom([&] { one(engine(), "SELECT Version FROM Version"); }).kind();
            release();
        }
    });
    EXPECT_EQ(run(engine(), write), 1);
    EXPECT_EQ(inner, ErrorKind::Busy);
}

TEST_P(WaitingTest, AWindowThatFailsMeanwhileDoesNotSpoilTheConnection) {
    engine().onWait([] { throw Error(ErrorKind::State, 1, "closed"); });
    EXPECT_THROW(run(engine(), write), Error);
    engine().onWait({});
    release();
    EXPECT_EQ(run(engine(), write), 1);
}

TEST_P(WaitingTest, ReadersDoNotWait) {
    EXPECT_NE(one(engine(), "SELECT Version FROM Version WHERE Module = 'Database'"), Value("5.01.01"));
}

} // namespace
} // namespace zel::ado
