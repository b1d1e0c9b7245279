#include "services/request_number.h"

#include <gtest/gtest.h>

namespace zel::services {
namespace {

TEST(TrimRequestNumber, DropsLeadingZerosOfEachGroup) {
    EXPECT_EQ(TrimRequestNumber("E-007.02"), "E-7.2");
    EXPECT_EQ(TrimRequestNumber("E-7"), "E-7");
    EXPECT_EQ(TrimRequestNumber("O-0100.10.001"), "O-100.10.1");
    EXPECT_EQ(TrimRequestNumber("E-  7. 02"), "E-7.2");
    EXPECT_EQ(TrimRequestNumber("E-0 0 7"), "E-7");
}

TEST(TrimRequestNumber, NothingButZerosLeavesTheHead) {
    EXPECT_EQ(TrimRequestNumber("E-000"), "E-");
    EXPECT_EQ(TrimRequestNumber("E-"), "E-");
    EXPECT_EQ(TrimRequestNumber("E-   "), "E-");
    EXPECT_EQ(TrimRequestNumber("E-0.5"), "E-.5");
    EXPECT_EQ(TrimRequestNumber("E-7.0"), "E-7.");
    EXPECT_EQ(TrimRequestNumber(""), "");
}

TEST(TrimRequestNumber, OnlyTheFirstHyphenEndsTheHead) {
    EXPECT_EQ(TrimRequestNumber("E-0-07"), "E--07");
    EXPECT_EQ(TrimRequestNumber("007"), "7");
}

TEST(RequestNumber, GetsItsHyphen) {
    EXPECT_EQ(requestNumber("E12"), "E-12");
    EXPECT_EQ(requestNumber("E-12"), "E-12");
    EXPECT_EQ(requestNumber("e007.02"), "e-7.2");
    EXPECT_EQ(requestNumber("E"), "E-");
    EXPECT_EQ(requestNumber("E-"), "E-");
    EXPECT_EQ(requestNumber(""), "");
    EXPECT_EQ(requestNumber("Ñ12"), "Ñ-12");
}

TEST(RequestNumber, OnlyDigitsPointsAndBlanksStandBehindTheHyphen) {
    EXPECT_EQ(requestNumber("E-7 2"), "E-7 2");
    EXPECT_EQ(requestNumber("E-7.2.1"), "E-7.2.1");
    for (const char* text : {"E-7A", "E-A", "EE7", "E--7", "E-7-2", "E-7,2", "E-___7", "E-7é"})
        EXPECT_EQ(requestNumber(text), std::nullopt) << text;
}

class RequestNumberKey : public testing::Test {
protected:
    static int key(char typed, bool first) { return requestNumberKey(typed, first, "A,C,E,O,S,"); }
};

TEST_F(RequestNumberKey, ANumberDoesNotComeFirst) {
    for (const char typed : {'0', '5', '9', '-', '.'}) {
        EXPECT_EQ(key(typed, true), 0) << typed;
        EXPECT_EQ(key(typed, false), typed) << typed;
    }
}

TEST_F(RequestNumberKey, LettersAreCategoriesOfPersonsInUpperCase) {
    EXPECT_EQ(key('O', true), 'O');
    EXPECT_EQ(key('o', true), 'O');
    EXPECT_EQ(key('a', false), 'A');
    for (const char typed : {'C', 'c', 'E', 'e', 'B', 'z'})
        EXPECT_EQ(key(typed, true), 0) << typed;
}

TEST_F(RequestNumberKey, BackspaceAlwaysPasses) {
    EXPECT_EQ(key(8, true), 8);
    EXPECT_EQ(key(8, false), 8);
}

TEST_F(RequestNumberKey, OtherKeysAreLeftToTheMask) {
    EXPECT_EQ(key(' ', true), ' ');
}

} // namespace
} // namespace zel::services
