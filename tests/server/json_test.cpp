#include "server/json.h"

#include "server/rpc_error.h"

#include <gtest/gtest.h>

#include <string>

namespace krv::server {

namespace {

std::string nested(int levels) {
    return std::string(static_cast<std::size_t>(levels), '[') +
           std::string(static_cast<std::size_t>(levels), ']');
}

int code_of(const std::string& text) {
    try {
        parse_message(text);
        return 0;
    } catch (const RpcError& error) {
        return error.code();
    }
}

TEST(Json, is_read_down_to_200_levels) {
    EXPECT_EQ(code_of(nested(200)), 0);
    EXPECT_EQ(code_of(nested(201)), RpcError::parse_error);
    EXPECT_EQ(code_of(nested(1000000)), RpcError::parse_error);
}

TEST(Json, counts_no_brackets_in_texts) {
    const std::string brackets(300, '[');
    EXPECT_EQ(parse_message("[\"" + brackets + "\"]"), Json::array({brackets}));
    EXPECT_EQ(parse_message("[\"\\\"" + brackets + "\"]"), Json::array({'"' + brackets}));
    EXPECT_EQ(code_of("[\"\\\\\"," + nested(200) + "]"), RpcError::parse_error);
}

TEST(Json, that_is_none_is_a_parse_error) {
    for (const std::string text : {"",
                                   " ",
                                   "{",
                                   "}",
                                   "{]",
                                   "nul",
                                   "[1,]",
                                   "{\"a\"}",
                                   "\"",
                                   "1 2",
                                   "\xff",
                                   "\"\xc3\x28\"",
                                   "\"\\ud800\"",
                                   "{\"a\":\x01}"}) {
        EXPECT_EQ(code_of(text), RpcError::parse_error) << text;
    }
}

TEST(Json, is_written_on_one_line_whatever_the_texts_hold) {
    EXPECT_EQ(to_text({{"a", "x\ny\t\"\xc3\xa8"}}), "{\"a\":\"x\\ny\\t\\\"\xc3\xa8\"}");
    EXPECT_EQ(to_text("a\xff"
                      "b"),
              "\"a\xef\xbf\xbd"
              "b\"");
}

} // namespace

} // namespace krv::server
