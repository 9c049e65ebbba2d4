#include "host/json.h"

using host::FromHex;
using host::Text;
using host::ToLine;

namespace {

TEST(JsonLine, KeepsEveryCharacterAndEscapesWhatJsonWantsEscaped)
{
    EXPECT_EQ(ToLine(Text(u"a\"b\\c\n\t\r\b\f\x01\x1f\x7f")), "\"a\\\"b\\\\c\\n\\t\\r\\b\\f\\u0001\\u001f\x7f\"");
    EXPECT_EQ(ToLine(Text(u"\u00e4\u20ac\ud7ff\U0001F5A8")), "\"\u00e4\u20ac\ud7ff\U0001F5A8\"");
    EXPECT_EQ(ToLine(Text(std::u16string{0xD800, u'x', 0xDFFF})), "\"\\ud800x\\udfff\"") << "lone surrogates";
}

TEST(Hex, GoesBothWays)
{
    const std::vector<std::uint8_t> bytes = {0, 0x7F, 0xA0, 0xFF};
    EXPECT_EQ(host::Hex(bytes), "007fa0ff");
    EXPECT_EQ(FromHex("007fA0Ff"), bytes);
    EXPECT_EQ(FromHex(""), std::vector<std::uint8_t>{});
    for (const char* bad : {"0", "0g", "g0", " 0", "0x"}) EXPECT_EQ(FromHex(bad), std::nullopt) << bad;
}

}  // namespace
