// qd480 capabilities, convert, can-print, upgrade, event
#include <gtest/gtest.h>

#include "tests/program/program.h"

namespace {

constexpr char First[] = "Ordana Quillet 4820E";

TEST(Entries, ACapabilityStandsUnderItsNameOrItsNumber)
{
    Program run;
    EXPECT_EQ(run({"--platform", "country=49", "capabilities", First, "--only", "DC_MEDIAREADY", "--only", "31",
                   "--only", "19"}),
              Done("{\"DC_MEDIAREADY\": {\"code\": 29, \"answer\": 1, \"withoutOutput\": 3, \"output\": [\"A4\"]}, "
                   "\"DC_PRINTRATEPPM\": {\"code\": 31, \"answer\": 20, \"withoutOutput\": 20}, "
                   "\"19\": {\"code\": 19, \"answer\": -1, \"withoutOutput\": -1}}\n"));
}

// 27 and 65509 papers are 0 in the 16 bits that count the names.
TEST(Entries, MorePapersThanCanBeCountedAreNotListed)
{
    Program run;
    run({"printer", "data", First, "CustomPaperDataSize", "--dword", "3668504"});
    run({"printer", "data", First, "CustomPaperData", "--hex", "00"});
    EXPECT_EQ(run({"capabilities", First, "--only", "DC_PAPERNAMES"}),
              Done("{\"DC_PAPERNAMES\": {\"code\": 16, \"answer\": 0, \"withoutOutput\": 0, \"output\": []}}\n"));
}

TEST(Entries, ARecordIsConvertedIntoTheOldForm)
{
    Program run;
    EXPECT_EQ(run({"convert", First, "--mode", "4", "--room", "2000", "-o", "{}/default"}).status, 0);
    EXPECT_EQ(run.Contents("default").size(), 2000u);
    EXPECT_EQ(run({"convert", First, "--mode", "2", "--room", "299", "--in", "{}/default"}),
              Done("{\"result\": false, \"lastError\": 122, \"needed\": 300}\n"));
    EXPECT_EQ(run({"convert", First, "--mode", "2", "--room", "300", "--in", "{}/default", "-o", "{}/old"}),
              Done("{\"result\": true, \"lastError\": 0, \"needed\": 300}\n"));
    EXPECT_EQ(run.Contents("old").size(), 300u);
    EXPECT_EQ(run({"convert", First, "--mode", "1", "--room", "299", "--in", "{}/default", "--template", "{}/old"}),
              Done("{\"result\": false, \"lastError\": 87, \"needed\": 299}\n"));
    EXPECT_EQ(run({"can-print", First, "{}/old"}), Done("{\"result\": 1}\n"));
    EXPECT_EQ(run({"--platform", "fail=GlobalAlloc", "can-print", First, "{}/old"}),
              Done("{\"result\": 0, \"message\": \"Memory allocation failed\", \"needed\": 25}\n"));
}

TEST(Entries, ACapabilityThatFailsWithoutOutputMayBeAnsweredWithOne)
{
    Program run;
    EXPECT_EQ(run({"capabilities", First, "--only", "DC_BINNAMES", "--platform", "fail=GlobalAlloc:1"}),
              Done("{\"DC_BINNAMES\": {\"code\": 12, \"answer\": 4, \"withoutOutput\": -1, \"output\": "
                   "[\"Auto\", \"Tray1\", \"Tray2\", \"Manual Feed\"]}}\n"));
}

TEST(Entries, ThePrinterOfAConversionIsTheEntrysToFind)
{
    Program run;
    EXPECT_EQ(run({"convert", "Nowhere", "--mode", "4", "--room", "1848"}),
              Done("{\"result\": false, \"lastError\": 1801, \"needed\": 1848}\n"));
    EXPECT_EQ(run({"convert", First, "--mode", "4", "--room", "0x738", "--no-output", "-o", "{}/zeros"}),
              Done("{\"result\": false, \"lastError\": 122, \"needed\": 1848}\n"));
    EXPECT_EQ(run.Contents("zeros"), std::string(1848, '\0'));
}

TEST(Entries, NumbersAreDecimalAndFilesHaveNames)
{
    Program run;
    EXPECT_EQ(run({"convert", First, "--mode", "2", "--room", "0454"}),
              Done("{\"result\": false, \"lastError\": 87, \"needed\": 454}\n"));
    const std::vector<std::string> refused[] = {
        {"convert",  First, "--mode",  "2",    "--room",      "16777217"      },
        {"convert",  First, "--mode",  "2",    "--room",      "300",            "--in", ""},
        {"convert",        First,             "--mode",              "2",        "--room", "300", "--in", "-", "--template", "-"},
        {"can-print",     First,    ""         },
        {"event", First, "5th"},
        {"upgrade",  First, "--level", "-1"   },
        {"capabilities",  First,   "--only",          "+2"},
        {"printer", "data",  First,           "X",   "--dword",              "-1"                             },
    };
    for (const auto& words : refused) EXPECT_EQ(run(words).status, 2) << testing::PrintToString(words);
}

TEST(Entries, AnUpgradeWritesTheBlockAndWantsSizes)
{
    Program run;
    run({"printer", "data", First, "PrinterData", "--hex", "20030400FFFFFFFF"});
    run({"printer", "data", First, "PrinterDataSize", "--dword", "8"});
    run({"printer", "data", First, "CustomPaperDataSize", "--dword", "30"});
    run({"printer", "data", First, "CustomPaperData", "--hex", ""});
    EXPECT_EQ(run({"upgrade", First}), Done("{\"result\": true, \"lastError\": 0}\n"));
    EXPECT_EQ(run({"printer", "data", First, "PrinterData"}),
              Done("{\"PrinterData\": {\"type\": \"REG_BINARY\", \"hex\": \"0004080000000000\"}}\n"));
    EXPECT_EQ(run({"upgrade", First, "--level", "2"}), Done("{\"result\": false, \"lastError\": 87}\n"));
}

TEST(Entries, AnEventNeedsNoPrinterButARefreshTheHelpers)
{
    Program run;
    EXPECT_EQ(run({"event", "Nowhere", "3"}), Done("{\"result\": true}\n"));
    EXPECT_EQ(run({"--platform", "missing=spoolss.dll", "event", First, "5"}), Done("{\"result\": false}\n"));
}

}  // namespace
