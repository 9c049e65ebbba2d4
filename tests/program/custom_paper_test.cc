// A custom size on its way through the program: made by typing, chosen, stored with the printer, and found again.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/program/program.h"

using testing::AllOf;
using testing::HasSubstr;

namespace {

constexpr char Printer[] = "Ordana Quillet 4820E";

std::vector<std::string> Sheet(std::vector<std::string> more = {})
{
    std::vector<std::string> words = {"sheet", Printer, "--platform", "country=1", "--strict", "--script", "-"};
    words.insert(words.end(), more.begin(), more.end());
    return words;
}

// 5 8/16 by 9 1/16 inches; typing is limited at once, and put right when a field is left.
constexpr char Make[] = R"(page "Paper"
click IDC_EDIT_CUSTOM
click IDC_CP_NEW
type IDC_CP_NAME "Invitation"
type IDC_CP_WIDTH_INCH "5"
type IDC_CP_WIDTH_SIXTEENTHS "8"
type IDC_CP_HEIGHT_INCH "9"
type IDC_CP_HEIGHT_SIXTEENTHS "1"
ok
ok
)";

TEST(CustomPaper, IsMadeChosenAndFoundAgain)
{
    Program run;
    EXPECT_EQ(run(Sheet({"--store-default"}), Make).status, 0);

    const Result again = run(Sheet({"-o", "r"}), "page \"Paper\"\ndump\nok");
    EXPECT_THAT(again.out, HasSubstr("\"text\": \"Invitation (5.50x9.06 inch)\""));
    EXPECT_THAT(run({"record", "show", "r"}).out,
                AllOf(HasSubstr("\"dmPaperSize\": 257"), HasSubstr("\"dmPaperWidth\": 1650"),
                      HasSubstr("\"dmPaperLength\": 2718")));
    EXPECT_THAT(run({"capabilities", Printer, "--only", "DC_PAPERNAMES"}).out, HasSubstr("Invitation"));
}

TEST(CustomPaper, IsNotMadeWithoutPermission)
{
    Program run;
    EXPECT_EQ(run(Sheet({"--no-permission"}), "page \"Paper\"\nclick IDC_EDIT_CUSTOM\nok").status, 3);
}

TEST(CustomPaper, OfARecordMadeElsewhereIsShownByItsCode)
{
    Program run;
    run(Sheet({"-o", "r"}), Make);
    run({"printer", "data", Printer, "CustomPaperDataSize", "--delete"});
    const Result gone = run(Sheet({"--in", "r", "-o", "s"}), "page \"Paper\"\ndump\nok");
    EXPECT_THAT(gone.out, HasSubstr("\"text\": \"Letter (8.5 x 11 inch)\""));
    EXPECT_THAT(run({"record", "show", "s"}).out, HasSubstr("\"dmPaperSize\": 257"));
}

}  // namespace
