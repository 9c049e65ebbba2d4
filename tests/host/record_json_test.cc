#include "host/record_json.h"

#include <algorithm>

#include "host/errors.h"

using host::Assignment;
using host::Json;
using host::RecordFromJson;
using host::RecordToJson;
using host::ToLine;
using Bytes = std::vector<std::uint8_t>;

namespace {

Bytes With(std::initializer_list<const char*> assignments, Bytes record = Bytes(1848))
{
    for (const char* assignment : assignments) Assignment(assignment).ApplyTo(record);
    return record;
}

TEST(RecordAssignment, WritesTheFieldsBytesAlone)
{
    struct Placed {
        const char* assignment;
        std::ptrdiff_t offset;
        Bytes bytes;
    };
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
        Bytes expected(1848);
        std::ranges::copy(row.bytes, expected.begin() + row.offset);
        EXPECT_EQ(With({row.assignment}), expected) << row.assignment;
    }
    const Bytes filled = With({"dmFormName=A4"}, Bytes(1848, 0xEE));
    EXPECT_EQ(filled[106], 0) << "behind a text";
    EXPECT_EQ(filled[165], 0);
    EXPECT_EQ(filled[166], 0xEE);
}

// The messages are told by the program's tests.
TEST(RecordAssignment, RefusesWhatDoesNotFit)
{
    const std::string text = "dmWatermark.wmText=" + std::string(73, 'x');
    EXPECT_NO_THROW(Assignment{text});
    const std::string rows[] = {text + "x",
                                "dmZoom=",
                                "dmZoom= 1",
                                "dmZoom=0x",
                                "dmZoom=-32769",
                                "dmSize=-1",
                                "dmSize=65536",
                                "dmNupOn=256",
                                "dmFields=4294967296",
                                "dmFormName=\xff",
                                "dmReserved228=0",
                                "dmWatermark.wmRemovable=2147483648",
                                "=1",
                                "wmText=x",
                                "dmZoom.wmText=1",
                                "dmWatermark.=1"};
    for (const std::string& bad : rows) EXPECT_THROW(Assignment{bad}, host::UsageError) << bad;
}

TEST(RecordAssignment, NeedsARecordThatReachesTheField)
{
    EXPECT_NO_THROW(With({"dmZoom=1"}, Bytes(268)));
    EXPECT_THROW(With({"dmZoom=1"}, Bytes(267)), host::Failure);
}

TEST(RecordJson, ShowsNumbersBySignAndTextsUpToTheirTerminatorInTheirOrder)
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
    EXPECT_EQ(json.begin().key(), "dmDeviceName");
    EXPECT_EQ(std::prev(json.end()).key(), "dmOverlayIndex");
    EXPECT_EQ(json.size(), 92u);
}

TEST(RecordJson, ShowsWhatAShortRecordReaches)
{
    EXPECT_EQ(ToLine(RecordToJson({})), "{}");
    EXPECT_EQ(ToLine(RecordToJson(Bytes(63))), "{}");
    EXPECT_EQ(RecordToJson(Bytes(66)).size(), 2u);
    EXPECT_FALSE(RecordToJson(Bytes(297)).contains("dmWatermark"));
    EXPECT_EQ(ToLine(RecordToJson(Bytes(299))["dmWatermark"]), R"({"wmId": 0})");
}

TEST(RecordJson, ComesBackAsTheSameBytes)
{
    const Bytes record = With({"dmDeviceName=Drucker", "dmZoom=-3", "dmFields=4026531840", "dmWatermark.wmId=30",
                               "dmWatermark.wmText=ENTWURF \U0001F5A8", "dmOverlayFile=/srv/a.oxl"});
    EXPECT_EQ(RecordFromJson(Json::parse(ToLine(RecordToJson(record)))), record);
}

TEST(RecordJson, RefusesWhatIsNoRecord)
{
    for (const char* bad :
         {"[]", "1", R"({"dmZom": 1})", R"({"dmZoom": "1"})", R"({"dmZoom": 1.0})", R"({"dmZoom": true})",
          R"({"dmZoom": null})", R"({"dmZoom": 18446744073709551615})", R"({"dmZoom": -9223372036854775808})",
          R"({"dmFormName": 1})", R"({"dmFormName": "a\u0000b"})", R"({"dmWatermark": 1})",
          R"({"dmWatermark": {"dmZoom": 1}})", R"({"dmWatermark.wmId": {}})"})
        EXPECT_THROW(RecordFromJson(Json::parse(bad)), host::Failure) << bad;
}

TEST(RecordDifferences, GiveBothValuesAndNullWhereThereIsNone)
{
    EXPECT_EQ(ToLine(host::RecordDifferences(Bytes(1848), With({"dmZoom=150", "dmWatermark.wmAngle=45"}))),
              R"({"dmZoom": [0, 150], "dmWatermark.wmAngle": [0, 45]})");
    EXPECT_EQ(ToLine(host::RecordDifferences(Bytes(66), Bytes(64))), R"({"dmSpecVersion": [0, null]})");
}

}  // namespace
