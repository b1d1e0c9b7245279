#include "ado/currency.h"

#include "ado/error.h"

#include <cmath>
#include <functional>
#include <gtest/gtest.h>
#include <limits>

namespace zel::ado {
namespace {

constexpr std::int64_t most = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t least = std::numeric_limits<std::int64_t>::min();

std::int32_t errorOf(const std::function<void()>& work) {
    try {
        work();
    } catch (const Error& error) {
        return error.number();
    }
    return 0;
}

TEST(Currency, KeepsFourDecimalsOfADouble) {
    EXPECT_EQ(Currency::fromDouble(18.2).ticks(), 182'000);
    EXPECT_EQ(Currency::fromDouble(-0.0001).ticks(), -1);
    EXPECT_EQ(Currency::fromDouble(1234567.8912).ticks(), 12'345'678'912);
}

TEST(Currency, RoundsHalfATickToTheEvenOne) {
    EXPECT_EQ(Currency::fromDouble(0.00005).ticks(), 0);
    EXPECT_EQ(Currency::fromDouble(0.00015).ticks(), 2);
    EXPECT_EQ(Currency::fromDouble(-0.00025).ticks(), -2);
    EXPECT_EQ(Currency::fromDecimal("0.00005").ticks(), 0);
    EXPECT_EQ(Currency::fromDecimal("0.00015").ticks(), 2);
    EXPECT_EQ(Currency::fromDecimal("0.0000500000001").ticks(), 1);
    EXPECT_EQ(Currency::fromDecimal("-18.20004").ticks(), -182'000);
}

TEST(Currency, EveryHalfTickUpToAThousandGoesToTheEvenOne) {
    for (std::int64_t tick = 0; tick < 10'000'000; tick += 37) {
        const double half = (static_cast<double>(tick) + 0.5) / 10'000;
        ASSERT_EQ(Currency::fromDouble(half).ticks(), tick + tick % 2) << tick;
        ASSERT_EQ(Currency::fromDouble(-half).ticks(), -(tick + tick % 2)) << tick;
    }
}

TEST(Currency, ReadsDecimalTexts) {
    EXPECT_EQ(Currency::fromDecimal("-12.5").ticks(), -125'000);
    EXPECT_EQ(Currency::fromDecimal("+7").ticks(), 70'000);
    EXPECT_EQ(Currency::fromDecimal(".25").ticks(), 2'500);
    EXPECT_EQ(Currency::fromDecimal("25.").ticks(), 250'000);
}

TEST(Currency, TextThatIsNoDecimalIsATypeMismatch) {
    for (const char* text : {"", ".", "-", "1,000", "$5", "1e3", " 1", "1 ", "1.2.3", "--1", "abc"})
        EXPECT_EQ(errorOf([&] { (void)Currency::fromDecimal(text); }), errors::typeMismatch) << text;
}

TEST(Currency, HoldsTheWholeRangeExactly) {
    EXPECT_EQ(Currency::fromDecimal("922337203685477.5807").ticks(), most);
    EXPECT_EQ(Currency::fromDecimal("-922337203685477.5808").ticks(), least);
    EXPECT_EQ(Currency::fromTicks(least).toFixedText(), "-922337203685477.5808");
    EXPECT_EQ(Currency::fromTicks(most).toText(), "922337203685477.5807");
}

TEST(Currency, OutsideTheRangeIsAnOverflow) {
    EXPECT_EQ(errorOf([] { (void)Currency::fromDecimal("922337203685477.5808"); }), errors::overflow);
    EXPECT_EQ(errorOf([] { (void)Currency::fromDecimal("-922337203685477.5809"); }), errors::overflow);
    EXPECT_EQ(errorOf([] { (void)Currency::fromDecimal("99999999999999999999999"); }), errors::overflow);
    EXPECT_EQ(errorOf([] { (void)Currency::fromDouble(1e15); }), errors::overflow);
    EXPECT_EQ(errorOf([] { (void)Currency::fromDouble(-1e300); }), errors::overflow);
    EXPECT_EQ(errorOf([] { (void)Currency::fromDouble(std::nan("")); }), errors::overflow);
    EXPECT_EQ(errorOf([] { (void)Currency::fromDouble(INFINITY); }), errors::overflow);
}

TEST(Currency, AddsAndSubtractsExactly) {
    Currency sum;
    for (int i = 0; i < 10; ++i)
        sum = sum + Currency::fromDecimal("0.1");
    EXPECT_EQ(sum, Currency::fromDecimal("1"));
    EXPECT_EQ((sum - Currency::fromDecimal("1.0001")).ticks(), -1);
    EXPECT_EQ(errorOf([] { (void)(Currency::fromTicks(most) + Currency::fromTicks(1)); }), errors::overflow);
    EXPECT_EQ(errorOf([] { (void)(Currency::fromTicks(least) - Currency::fromTicks(1)); }), errors::overflow);
}

TEST(Currency, ShowsTheShortestTextAndTheTextAtRest) {
    EXPECT_EQ(Currency::fromTicks(182'000).toText(), "18.2");
    EXPECT_EQ(Currency::fromTicks(0).toText(), "0");
    EXPECT_EQ(Currency::fromTicks(-1).toText(), "-0.0001");
    EXPECT_EQ(Currency::fromTicks(1'000'000).toText(), "100");
    EXPECT_EQ(Currency::fromTicks(182'000).toFixedText(), "18.2000");
    EXPECT_EQ(Currency::fromTicks(0).toFixedText(), "0.0000");
    EXPECT_EQ(Currency::fromTicks(-50).toFixedText(), "-0.0050");
}

TEST(Currency, ComparesByAmount) {
    EXPECT_LT(Currency::fromDecimal("-1"), Currency::fromDecimal("0.5"));
    EXPECT_GT(Currency::fromDecimal("100.01"), Currency::fromDecimal("100"));
    EXPECT_EQ(Currency::fromDecimal("18.20"), Currency::fromDouble(18.2));
}

} // namespace
} // namespace zel::ado
