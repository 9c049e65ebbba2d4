// qd480 printer
#include "tests/program/program.h"

namespace {

const std::string First = "Ordana Quillet 4820E";
std::string Shown(const std::string& name, const std::string& driver, const std::string& more)
{
    return R"({"name": ")" + name + R"(", "driverName": ")" + driver + R"(", "mayChange": )" + more + "}";
}

using Printer = ProgramTest;

TEST_F(Printer, AreAddedAndRemoved)
{
    EXPECT_EQ(run("printer list"),
              Answered("[" + Shown(First, First, R"(true, "values": {}, "recordLength": 0)") + "]"));
    EXPECT_EQ(run(R"(printer add 'Büro "2"' --driver-name Treiber --read-only)"), Done());
    EXPECT_EQ(run(R"(printer show 'Büro "2"')"),
              Answered(Shown("Büro \\\"2\\\"", "Treiber", R"(false, "values": {}, "recordLength": 0)")));
    EXPECT_EQ(run("printer add NAME"), Failed("there is a printer \"" + First + "\" already"));
    EXPECT_EQ(run("printer remove NAME"), Done());
    EXPECT_EQ(run("printer remove NAME"), Failed("there is no printer \"" + First + "\" in the store"));
}

TEST_F(Printer, DataIsSetShownAndDeleted)
{
    EXPECT_EQ(run("printer data NAME"), Answered("{}"));
    EXPECT_EQ(run("printer data NAME PrinterDataSize --dword 4294967295"), Done());
    EXPECT_EQ(run("printer data NAME PrinterData --hex 0004080003000000"), Done());
    EXPECT_EQ(run("printer data NAME None --hex ''"), Done());
    EXPECT_EQ(run("printer data NAME None --hex="), Done());
    const std::string size = R"("PrinterDataSize": {"type": "REG_DWORD", "value": 4294967295}})";
    EXPECT_EQ(run("printer data NAME"),
              Answered(R"({"None": {"type": "REG_BINARY", "hex": ""}, )"
                       R"("PrinterData": {"type": "REG_BINARY", "hex": "0004080003000000"}, )" +
                       size));
    EXPECT_EQ(run("printer data NAME PrinterDataSize"), Answered("{" + size));
    EXPECT_EQ(run("printer data NAME PrinterData --delete"), Done());
    EXPECT_EQ(run("printer data NAME PrinterData"),
              Failed("the printer \"" + First + R"(" has no value "PrinterData")"));
    const std::string shown = R"(true, "values": {"None": {"type": "REG_BINARY", "length": 0}, )"
                              R"("PrinterDataSize": {"type": "REG_DWORD", "length": 4}}, "recordLength": 0)";
    EXPECT_EQ(run("printer show NAME"), Answered(Shown(First, First, shown)));
}

// Reading only binds the module, not the commands.
TEST_F(Printer, RegistryStandsApartFromData)
{
    run("printer add R --read-only");
    EXPECT_EQ(run("printer registry R tray2 --hex 01"), Done());
    EXPECT_EQ(run("printer registry R"), Answered(R"({"tray2": {"type": "REG_BINARY", "hex": "01"}})"));
    EXPECT_EQ(run("printer data R"), Answered("{}"));
    EXPECT_EQ(run("printer data R V --hex 00"), Done());
    EXPECT_EQ(run("printer registry R tray2 --delete"), Done());
    EXPECT_EQ(run("printer registry R"), Answered("{}"));
}

TEST_F(Printer, RecordIsSetWrittenOutAndCleared)
{
    const std::string bytes("any\0bytes", 9);
    run.Put("r", bytes);
    EXPECT_EQ(run("printer record NAME --set r"), Done());
    EXPECT_EQ(run("printer record NAME"), Done(bytes));
    EXPECT_EQ(run("printer record NAME -o out"), Done());
    EXPECT_EQ(run.Contents("out"), bytes);
    EXPECT_EQ(run("printer record NAME --clear"), Done());
    EXPECT_EQ(run("printer record NAME"), Done());
    EXPECT_EQ(run("printer record NAME --set -", "typed"), Done());
    EXPECT_EQ(run("printer record NAME"), Done("typed"));
}

TEST_F(Printer, WhatDoesNotGoTogetherIsWrongUsage)
{
    for (const std::string words :
         {"data NAME V --dword 1 --hex 00", "data NAME V --dword 1 --delete", "data NAME --dword 1",
          "data NAME V --dword 4294967296", "data NAME V --dword -1", "data NAME V --hex 0", "data NAME V --hex 0g",
          "registry NAME V --dword 1", "record NAME --clear --set r", "add ''"})
        ExpectRefused(run, 2, "printer " + words);
    EXPECT_EQ(run("printer data NAME"), Answered("{}"));
}

}  // namespace
