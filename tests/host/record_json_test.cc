#include "host/record_json.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "host/errors.h"

using host::Assignment;
using host::Json;
using host::RecordFromJson;
using host::RecordToJson;
using Bytes = std::vector<std::uint8_t>;

namespace {

Bytes Zeros() { return Bytes(1848); }

Bytes With(const std::string& assignment)
{
    Bytes record = Zeros();
    Assignment(assignment).ApplyTo(record);
    return record;
}

struct Placed {
    const char* assignment;
    std::size_t offset;
    Bytes bytes;
};

TEST(RecordAssignment, WritesTheFieldsBytesAlone)
{
    const Placed rows[] = {
        {"dmSize=220",                          68,   {0xDC, 0}               },
        {"dmFields=4294967295",                 72,   {0xFF, 0xFF, 0xFF, 0xFF}},
        {"dmModelParam1=-5240",                 252,  {0x88, 0xEB}            },
        {"dmSmoothtone=3",                      711,  {3}                     },
        {"dmWatermark.wmAngle=-180",            680,  {0x4C, 0xFF}            },
        {"dmWatermark.wmRemovable=-2147483648", 592,  {0, 0, 0, 0x80}         },
        {"dmOverlayIndex=0x7fff",               1846, {0xFF, 0x7F}            },
        {"dmFormName=A4",                       102,  {'A', 0, '4', 0}        },
        {"dmWatermark.wmText=\u20ac",           444,  {0xAC, 0x20}            },
    };
    for (const Placed& row : rows) {
        Bytes expected = Zeros();
        std::ranges::copy(row.bytes, expected.begin() + static_cast<std::ptrdiff_t>(row.offset));
        EXPECT_EQ(With(row.assignment), expected) << row.assignment;
    }
}

TEST(RecordAssignment, FillsUpBehindAText)
{
    Bytes record(1848, 0xEE);
    Assignment("dmFormName=A4").ApplyTo(record);
    EXPECT_EQ(record[106], 0);
    EXPECT_EQ(record[165], 0);
    EXPECT_EQ(record[166], 0xEE);
}

TEST(RecordAssignment, RefusesWhatDoesNotFit)
{
    const std::string long73(73, 'x'), long74(74, 'x');
    EXPECT_NO_THROW(Assignment("dmWatermark.wmText=" + long73));
    for (const std::string& bad :
         {std::string("dmZoom=70000"), std::string("dmZoom="), std::string("dmZoom= 1"), std::string("dmZoom=0x"),
          std::string("dmSize=-1"), std::string("dmSize=65536"), std::string("dmNupOn=256"),
          std::string("dmFields=4294967296"), std::string("dmWatermark.wmRemovable=2147483648"),
          "dmWatermark.wmText=" + long74, std::string("dmFormName=\xff"), std::string("dmReserved228=0"),
          std::string("=1"), std::string("wmText=x"), std::string("dmZoom.wmText=1"), std::string("dmWatermark.=1")}) {
        EXPECT_THROW(Assignment{bad}, host::UsageError) << bad;
    }
}

TEST(RecordAssignment, NeedsARecordThatReachesTheField)
{
    Bytes record(268);
    EXPECT_NO_THROW(Assignment("dmZoom=1").ApplyTo(record));
    record.pop_back();
    EXPECT_THROW(Assignment("dmZoom=1").ApplyTo(record), host::Failure);
}

TEST(RecordJson, ShowsNumbersBySignAndTextsUpToTheirTerminator)
{
    Bytes record(1848, 0xFF);
    record[102] = 'A', record[103] = 0, record[104] = 0, record[105] = 0;
    const Json json = RecordToJson(record);
    EXPECT_EQ(json["dmSize"], 65535);
    EXPECT_EQ(json["dmZoom"], -1);
    EXPECT_EQ(json["dmFields"], 4294967295);
    EXPECT_EQ(json["dmWatermark"]["wmListHandle"], -1);
    EXPECT_EQ(json["dmNupOn"], 255);
    EXPECT_EQ(json["dmFormName"], "A");
}

TEST(RecordJson, ShowsTheFieldsInTheirOrder)
{
    std::vector<std::string> names;
    const Json json = RecordToJson(Zeros());
    for (const auto& [name, value] : json.items()) names.push_back(name);
    EXPECT_EQ(names.front(), "dmDeviceName");
    EXPECT_EQ(names.back(), "dmOverlayIndex");
    EXPECT_EQ(names.size(), 92u);
}

TEST(RecordJson, ShowsWhatAShortRecordReaches)
{
    EXPECT_EQ(host::ToLine(RecordToJson({})), "{}");
    EXPECT_EQ(host::ToLine(RecordToJson(Bytes(63))), "{}");
    EXPECT_EQ(RecordToJson(Bytes(66)).size(), 2u);
    EXPECT_FALSE(RecordToJson(Bytes(297)).contains("dmWatermark"));
    EXPECT_EQ(RecordToJson(Bytes(299))["dmWatermark"], (Json{
                                                           {"wmId", 0}
    }));
}

TEST(RecordJson, ComesBackAsTheSameBytes)
{
    Bytes record = Zeros();
    for (const char* assignment : {"dmDeviceName=Drucker", "dmZoom=-3", "dmFields=4026531840", "dmWatermark.wmId=30",
                                   "dmWatermark.wmText=ENTWURF \U0001F5A8", "dmOverlayFile=/srv/a.oxl"}) {
        Assignment(assignment).ApplyTo(record);
    }
    EXPECT_EQ(RecordFromJson(Json::parse(host::ToLine(RecordToJson(record)))), record);
}

TEST(RecordJson, RefusesWhatIsNoRecord)
{
    for (const char* bad :
         {"[]", "1", R"({"dmZom": 1})", R"({"dmZoom": "1"})", R"({"dmZoom": 1.0})", R"({"dmZoom": true})",
          R"({"dmZoom": null})", R"({"dmZoom": 18446744073709551615})", R"({"dmZoom": -9223372036854775808})",
          R"({"dmFormName": 1})", R"({"dmFormName": "a\u0000b"})", R"({"dmWatermark": 1})",
          R"({"dmWatermark": {"dmZoom": 1}})", R"({"dmWatermark.wmId": {}})"}) {
        EXPECT_THROW(RecordFromJson(Json::parse(bad)), host::Failure) << bad;
    }
}

TEST(RecordDifferences, GiveBothValuesAndNullWhereThereIsNone)
{
    Bytes a = Zeros(), b = With("dmZoom=150");
    Assignment("dmWatermark.wmAngle=45").ApplyTo(b);
    EXPECT_EQ(host::ToLine(host::RecordDifferences(a, b)), R"({"dmZoom": [0, 150], "dmWatermark.wmAngle": [0, 45]})");
    EXPECT_EQ(host::ToLine(host::RecordDifferences(Bytes(66), Bytes(64))), R"({"dmSpecVersion": [0, null]})");
}

}  // namespace
