#include "runner/json.h"

#include <gtest/gtest.h>

namespace zel::runner {
namespace {

using ado::Value;
using namespace std::string_literals;

TEST(Json, Members_keep_their_order_on_one_line) {
    Json json;
    json.set("line", 3);
    json.set("cmd", "press");
    json.set("ok", true);
    Json boxes(Json::Array{});
    boxes.append("a");
    boxes.append(Json());
    json.set("boxes", std::move(boxes));
    EXPECT_EQ(json.dump(), R"({"line":3,"cmd":"press","ok":true,"boxes":["a",null]})");
}

TEST(Json, Empty_lists_and_objects_stay_what_they_are) {
    EXPECT_EQ(Json(Json::Array{}).dump(), "[]");
    EXPECT_EQ(Json(Json::Object{}).dump(), "{}");
}

TEST(Json, Line_ends_tabs_quotes_and_control_characters_are_escaped) {
    EXPECT_EQ(Json("a\r\n\t\"\\\x01\0b\x7f"s.substr(0, 7)).dump(), R"("a\r\n\t\"\\\u0001")");
    EXPECT_EQ(Json("\0\x1f\x7f"s).dump(), R"("\u0000\u001f\u007f")");
}

TEST(Json, Utf8_passes_and_other_bytes_are_replaced) {
    EXPECT_EQ(Json("Zo\xC3\xAB \xF0\x9F\x94\xA5").dump(), "\"Zo\xC3\xAB \xF0\x9F\x94\xA5\"");
    EXPECT_EQ(Json("a\xFF"
                   "b\xC3")
                  .dump(),
              "\"a\xEF\xBF\xBD"
              "b\xEF\xBF\xBD\"");
    EXPECT_EQ(Json("\xED\xA0\x80").dump(), "\"\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD\""); // a surrogate is no character
    EXPECT_EQ(Json("\xC0\x80").dump(), "\"\xEF\xBF\xBD\xEF\xBF\xBD\"");                 // nor is an overlong NUL
}

TEST(Json, Values_have_the_form_of_their_type) {
    EXPECT_EQ(Json(Value()).dump(), "null");
    EXPECT_EQ(Json(Value(true)).dump(), "true");
    EXPECT_EQ(Json(Value(-7)).dump(), "-7");
    EXPECT_EQ(Json(Value(12.25)).dump(), "12.25");
    EXPECT_EQ(Json(Value(0.1F)).dump(), "0.1");
    EXPECT_EQ(Json(Value("x")).dump(), "\"x\"");
    EXPECT_EQ(Json(Value(1.0 / 0.0)).dump(), "null");
}

TEST(Json, Money_is_written_to_its_last_ten_thousandth) {
    EXPECT_EQ(Json(Value(ado::Currency::fromTicks(182000))).dump(), "18.2");
    EXPECT_EQ(Json(Value(ado::Currency::fromTicks(9223372036854775807))).dump(), "922337203685477.5807");
}

TEST(Json, A_date_is_its_default_text) {
    EXPECT_EQ(Json(Value(ado::DateTime::fromDate(2005, 7, 4))).dump(), "\"7/4/2005\"");
    EXPECT_EQ(Json(Value(ado::DateTime::fromTime(13, 30))).dump(), "\"1:30:00 PM\"");
}

} // namespace
} // namespace zel::runner
