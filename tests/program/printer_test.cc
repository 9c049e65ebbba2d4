// qd480 printer
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/program/program.h"

namespace {

constexpr char First[] = "Ordana Quillet 4820E";

TEST(Printer, TheFirstOneIsThere)
{
    Program run;
    const std::string first =
        "{\"name\": \"Ordana Quillet 4820E\", \"driverName\": \"Ordana Quillet 4820E\", \"mayChange\": true, "
        "\"values\": {}, \"recordLength\": 0}";
    EXPECT_EQ(run({"printer", "list"}), Done("[" + first + "]\n"));
    EXPECT_EQ(run({"printer", "show", First}), Done(first + "\n"));
}

TEST(Printer, AreAddedAndRemoved)
{
    Program run;
    EXPECT_EQ(run({"printer", "add", "Büro \"2\"", "--driver-name", "Treiber", "--read-only"}), Done());
    EXPECT_EQ(run({"printer", "show", "Büro \"2\""}),
              Done("{\"name\": \"Büro \\\"2\\\"\", \"driverName\": \"Treiber\", \"mayChange\": false, \"values\": {}, "
                   "\"recordLength\": 0}\n"));
    EXPECT_EQ(run({"printer", "add", First}),
              (Result{3, "", "qd480: there is a printer \"Ordana Quillet 4820E\" already\n"}));
    EXPECT_EQ(run({"printer", "remove", First}), Done());
    EXPECT_EQ(run({"printer", "remove", First}),
              (Result{3, "", "qd480: there is no printer \"Ordana Quillet 4820E\" in the store\n"}));
}

TEST(Printer, DataIsSetShownAndDeleted)
{
    Program run;
    EXPECT_EQ(run({"printer", "data", First}), Done("{}\n"));
    EXPECT_EQ(run({"printer", "data", First, "PrinterDataSize", "--dword", "8"}), Done());
    EXPECT_EQ(run({"printer", "data", First, "PrinterData", "--hex", "0004080003000000"}), Done());
    EXPECT_EQ(run({"printer", "data", First, "None", "--hex", ""}), Done());
    EXPECT_EQ(run({"printer", "data", First, "None", "--hex="}), Done());
    EXPECT_EQ(run({"printer", "data", First}),
              Done("{\"None\": {\"type\": \"REG_BINARY\", \"hex\": \"\"}, "
                   "\"PrinterData\": {\"type\": \"REG_BINARY\", \"hex\": \"0004080003000000\"}, "
                   "\"PrinterDataSize\": {\"type\": \"REG_DWORD\", \"value\": 8}}\n"));
    EXPECT_EQ(run({"printer", "data", First, "PrinterDataSize"}),
              Done("{\"PrinterDataSize\": {\"type\": \"REG_DWORD\", \"value\": 8}}\n"));
    EXPECT_EQ(run({"printer", "data", First, "PrinterData", "--delete"}), Done());
    EXPECT_EQ(run({"printer", "data", First, "PrinterData"}),
              (Result{3, "", "qd480: the printer \"Ordana Quillet 4820E\" has no value \"PrinterData\"\n"}));
    EXPECT_EQ(
        run({"printer", "show", First}),
        Done("{\"name\": \"Ordana Quillet 4820E\", \"driverName\": \"Ordana Quillet 4820E\", \"mayChange\": true, "
             "\"values\": {\"None\": {\"type\": \"REG_BINARY\", \"length\": 0}, "
             "\"PrinterDataSize\": {\"type\": \"REG_DWORD\", \"length\": 4}}, \"recordLength\": 0}\n"));
}

TEST(Printer, RegistryStandsApartFromData)
{
    Program run;
    EXPECT_EQ(run({"printer", "registry", First, "tray2", "--hex", "01"}), Done());
    EXPECT_EQ(run({"printer", "registry", First}), Done("{\"tray2\": {\"type\": \"REG_BINARY\", \"hex\": \"01\"}}\n"));
    EXPECT_EQ(run({"printer", "data", First}), Done("{}\n"));
    EXPECT_EQ(run({"printer", "registry", First, "tray2", "--delete"}), Done());
    EXPECT_EQ(run({"printer", "registry", First}), Done("{}\n"));
}

TEST(Printer, ReadOnlyBindsTheModuleAndNotTheCommands)
{
    Program run;
    run({"printer", "add", "R", "--read-only"});
    EXPECT_EQ(run({"printer", "data", "R", "V", "--dword", "4294967295"}), Done());
    EXPECT_EQ(run({"printer", "data", "R"}), Done("{\"V\": {\"type\": \"REG_DWORD\", \"value\": 4294967295}}\n"));
}

TEST(Printer, RecordIsSetWrittenOutAndCleared)
{
    Program run;
    const std::string bytes("any\0bytes", 9);
    run.Put("r", bytes);
    EXPECT_EQ(run({"printer", "record", First, "--set", "r"}), Done());
    EXPECT_EQ(run({"printer", "record", First}), Done(bytes));
    EXPECT_EQ(run({"printer", "record", First, "-o", "out"}), Done());
    EXPECT_EQ(run.Contents("out"), bytes);
    EXPECT_EQ(run({"printer", "record", First, "--clear"}), Done());
    EXPECT_EQ(run({"printer", "record", First}), Done());
    EXPECT_EQ(run({"printer", "record", First, "--set", "-"}, "typed"), Done());
    EXPECT_EQ(run({"printer", "record", First}), Done("typed"));
}

TEST(Printer, WhatDoesNotGoTogetherIsWrongUsage)
{
    Program run;
    const std::vector<std::vector<std::string>> lines = {
        {"printer",     "data",   First,       "V", "--dword", "1", "--hex", "00"},
        {"printer",    "data",         First,             "V", "--dword", "1", "--delete"},
        {"printer",             "data",             First,               "--dword", "1"},
        {"printer",          "data",         First,     "V", "--dword", "4294967296"},
        {"printer",             "data",             First,      "V", "--dword", "-1"},
        {"printer",    "data",         First,      "V", "--hex", "0"},
        {"printer","data",First,"V", "--hex", "0g"},
        {"printer", "registry",         First,            "V", "--dword", "1"},
        {"printer",        "record", First,"--clear", "--set", "r"},
        {"printer",             "add",             ""              },
    };
    for (const auto& words : lines) EXPECT_EQ(run(words).status, 2) << testing::PrintToString(words);
    EXPECT_EQ(run({"printer", "data", First}), Done("{}\n"));
}

}  // namespace
