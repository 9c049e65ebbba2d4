#include <array>
#include <functional>

#include "gdi_fixture.h"
#include "platform/gdi/paint.h"

namespace gdi_test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Trace : public Drawing {
  protected:
    Trace() { platform::CurrentEnvironment().trace = trace; }
};

TEST_F(Trace, OfAControlNamesItsNumber)
{
    RECT client{};
    const HDC context = GetDC(control);
    GetClientRect(control, &client);
    Rectangle(context, 4, 4, 120, 156);
    ReleaseDC(control, context);
    EXPECT_THAT(trace->Take(), ElementsAre(testing::MatchesRegex("dc on 7: GetDC \\[\\] = [0-9]+"),
                                           "no dc on 7: GetClientRect [] = [0,0,50,30]",
                                           "dc on 7: Rectangle [4,4,120,156] = 1", "dc on 7: ReleaseDC [] = 1"));
}

TEST_F(Trace, OfADialogItselfSaysZeroAndOfTheScreenNothing)
{
    ReleaseDC(dialog, GetDC(dialog));
    ReleaseDC(nullptr, GetDC(nullptr));
    EXPECT_THAT(trace->Take(), ElementsAre(testing::StartsWith("dc on 0: GetDC"), "dc on 0: ReleaseDC [] = 1",
                                           testing::StartsWith("dc: GetDC"), "dc: ReleaseDC [] = 1"));
}

TEST_F(Trace, ContextsAreNumberedOneAfterTheOther)
{
    const auto numberOfNext = [&] {
        trace->Take();
        const HDC context = GetDC(nullptr);
        const std::string line = trace->Take().front();
        ReleaseDC(nullptr, context);
        return std::stoi(line.substr(line.rfind(' ')));
    };
    const int first = numberOfNext();
    EXPECT_EQ(numberOfNext(), first + 1);
}

TEST_F(Trace, ShowsObjectsByWhatTheyAre)
{
    const HDC screen = GetDC(nullptr), memory = CreateCompatibleDC(screen);
    trace->Take();
    LOGFONTW font{};
    font.lfHeight = -600;
    font.lfEscapement = 530;
    font.lfWeight = 700;
    font.lfItalic = 1;
    font.lfOutPrecision = 7;
    std::copy_n(u"Arial", 6, font.lfFaceName);
    const std::string shownFont =
        "{font:{lfHeight:-600,lfWidth:0,lfEscapement:530,lfOrientation:0,lfWeight:700,lfItalic:1,lfUnderline:0,"
        "lfStrikeOut:0,lfCharSet:0,lfOutPrecision:7,lfClipPrecision:0,lfQuality:0,lfPitchAndFamily:0,"
        "lfFaceName:\"Arial\"}}";
    const HGDIOBJ pen = CreatePen(PS_SOLID, 1, 0xFFFFFF), before = SelectObject(screen, pen);
    const HGDIOBJ brush = CreateSolidBrush(0x404040), made = CreateFontIndirectW(&font);
    const HGDIOBJ bitmap = CreateBitmap(8, 4, 1, 1, nullptr), plain = SelectObject(memory, bitmap);
    const HRGN region = CreateRectRgn(1, 2, 3, 4), empty = CreateRectRgn(5, 5, 5, 5);
    SelectObject(screen, region);
    SelectClipRgn(screen, empty);
    SelectClipRgn(screen, nullptr);
    SelectObject(screen, before);
    SelectObject(memory, plain);
    for (const HGDIOBJ object : {pen, brush, made, bitmap, HGDIOBJ{region}, HGDIOBJ{empty}}) DeleteObject(object);
    EXPECT_THAT(
        trace->Take(),
        ElementsAre("no dc: CreatePen [0,1,16777215] = {pen:{style:0,width:1,color:16777215}}",
                    "dc: SelectObject [{pen:{style:0,width:1,color:16777215}}] = {stock:7}",
                    "no dc: CreateSolidBrush [4210752] = {brush:{color:4210752}}",
                    "no dc: CreateFontIndirectW [" + shownFont + "] = " + shownFont,
                    "no dc: CreateBitmap [8,4,1,1,null] = {bitmap:{id:null,width:8,height:4,bits:1}}",
                    "dc: SelectObject [{bitmap:{id:null,width:8,height:4,bits:1}}] = "
                    "{bitmap:{id:null,width:1,height:1,bits:1}}",
                    "no dc: CreateRectRgn [1,2,3,4] = {region:[1,2,3,4]}",
                    "no dc: CreateRectRgn [5,5,5,5] = {region:[]}", "dc: SelectObject [{region:[1,2,3,4]}] = 2",
                    "dc: SelectClipRgn [{region:[]}] = 1", "dc: SelectClipRgn [null] = 2",
                    "dc: SelectObject [{stock:7}] = {pen:{style:0,width:1,color:16777215}}",
                    "dc: SelectObject [{bitmap:{id:null,width:1,height:1,bits:1}}] = "
                    "{bitmap:{id:null,width:8,height:4,bits:1}}",
                    "no dc: DeleteObject [{pen:{style:0,width:1,color:16777215}}] = 1",
                    "no dc: DeleteObject [{brush:{color:4210752}}] = 1", "no dc: DeleteObject [" + shownFont + "] = 1",
                    "no dc: DeleteObject [{bitmap:{id:null,width:8,height:4,bits:1}}] = 1",
                    "no dc: DeleteObject [{region:[1,2,3,4]}] = 1", "no dc: DeleteObject [{region:[]}] = 1"));
    DeleteDC(memory);
    ReleaseDC(nullptr, screen);
}

TEST_F(Trace, AnOutputArgumentIsTheResult)
{
    const HDC screen = GetDC(nullptr);
    trace->Take();
    POINT point{};
    SIZE size{};
    LOGFONTW font{};
    SetViewportOrgEx(screen, 5, 6, &point);
    SetWindowOrgEx(screen, 7, 8, nullptr);
    SetMapMode(screen, MM_ANISOTROPIC);
    SetWindowExtEx(screen, 10, -20, &size);
    SetWindowExtEx(screen, 0, 0, &size);
    MoveToEx(screen, 1, 2, &point);
    MoveToEx(screen, 3, 4, &point);
    MoveToEx(screen, 3, 4, nullptr);
    GetTextExtentPointW(screen, u"CONFIDENTIAL", 4, &size);
    GetObjectW(GetStockObject(SYSTEM_FONT), 0, &font);
    EXPECT_THAT(
        trace->Take(),
        ElementsAre("dc: SetViewportOrgEx [5,6] = [0,0]", "dc: SetWindowOrgEx [7,8,null] = 1", "dc: SetMapMode [8] = 1",
                    "dc: SetWindowExtEx [10,-20] = [1,1]", "dc: SetWindowExtEx [0,0] = null",
                    "dc: MoveToEx [1,2] = [0,0]", "dc: MoveToEx [3,4] = [1,2]", "dc: MoveToEx [3,4,null] = 1",
                    "dc: GetTextExtentPointW [\"CONF\",4] = [32,18]", "no dc: GetStockObject [13] = {stock:13}",
                    "no dc: GetObjectW [{stock:13},0] = null"));
    ReleaseDC(nullptr, screen);
}

TEST_F(Trace, ShapesAndTextsStandAsTheyWereCalled)
{
    const HDC screen = GetDC(nullptr);
    trace->Take();
    const std::array points{
        POINT{1, 2},
        POINT{3, 4}
    };
    const RECT box{1, 2, 3, 4};
    Polygon(screen, points.data(), 2);
    FillRect(screen, &box, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
    TextOutW(screen, 5, 6, u"abc", 2);
    ExtTextOutW(screen, 5, 6, ETO_CLIPPED, &box, u"1", 1, nullptr);
    ExtTextOutW(screen, 0, 0, 0, nullptr, nullptr, 0, nullptr);
    SetBkColor(screen, 0xFFFFFF);
    EXPECT_THAT(trace->Take(),
                ElementsAre("dc: Polygon [[[1,2],[3,4]],2] = 1", "no dc: GetStockObject [0] = {stock:0}",
                            "dc: FillRect [[1,2,3,4],{stock:0}] = 1", "dc: TextOutW [5,6,\"ab\",2] = 1",
                            "dc: ExtTextOutW [5,6,4,[1,2,3,4],\"1\",1,null] = 1",
                            "dc: ExtTextOutW [0,0,0,null,null,0,null] = 1", "dc: SetBkColor [16777215] = 16777215"));
    ReleaseDC(nullptr, screen);
}

class EchoTarget : public platform::gdi::EscapeTarget {
  public:
    int Escape(int code, std::span<const std::uint8_t> input, std::span<std::uint8_t> output) override
    {
        inputBytes = input.size();
        std::fill(output.begin(), output.end(), std::uint8_t{0xAB});
        return code == 5001 ? 1 : code == 99 ? -3 : 0;
    }
    std::size_t inputBytes = 0;
};

TEST_F(Trace, EscapesShowTheirInputAndWhatComesBack)
{
    EchoTarget target;
    const HDC job = Job(&target), screen = GetDC(nullptr);
    trace->Take();
    std::array<CHAR, 2> output{};
    EXPECT_EQ(ExtEscape(job, 20736, 2, "05", 0, nullptr), 0);
    EXPECT_EQ(target.inputBytes, 2u);
    EXPECT_EQ(ExtEscape(job, 5001, 0, nullptr, 2, output.data()), 1);
    EXPECT_EQ(ExtEscape(job, 99, 0, nullptr, 2, output.data()), -3);
    EXPECT_EQ(ExtEscape(job, 5001, 4, nullptr, 0, nullptr), -1);
    EXPECT_EQ(ExtEscape(screen, 5001, 0, nullptr, 0, nullptr), 0);
    EXPECT_THAT(
        trace->Take(),
        ElementsAre("dc on job: ExtEscape [20736,2,x3035,0,null] = 0", "dc on job: ExtEscape [5001,0,null,2] = xabab",
                    "dc on job: ExtEscape [99,0,null,2] = null", "dc on job: ExtEscape [5001,4,null,0,null] = -1",
                    "dc: ExtEscape [5001,0,null,0,null] = 0"));
    platform::gdi::DeleteJobContext(job);
    ReleaseDC(nullptr, screen);
}

TEST_F(Trace, ColoursRectanglesAndTheLayersOwnPaintingAreNoPartOfIt)
{
    RECT copy{};
    const RECT source{1, 2, 3, 4};
    EXPECT_EQ(GetSysColor(COLOR_BTNFACE), RGB(240, 240, 240));
    EXPECT_TRUE(CopyRect(&copy, &source));
    EXPECT_EQ(copy.bottom, 4);
    EXPECT_FALSE(CopyRect(&copy, nullptr));
    const HDC own = platform::gdi::OpenWindowContext(control);
    platform::gdi::CloseWindowContext(own);
    platform::gdi::PaintStatic(control);
    EXPECT_THAT(trace->Take(), IsEmpty());
}

// Every function that can be planned to fail, and what the trace then shows of it.
struct FaultRow {
    const char* function;
    std::function<void(HDC, HWND)> call;
    const char* traced;
};
RECT sharedBox{0, 0, 1, 1};
POINT sharedPoint{};
SIZE sharedSize{};

const FaultRow FaultRows[] = {
    {"GetDC",               [](HDC,   HWND w) { GetDC(w); },                                              "no dc on 7: GetDC [] = null"              },
    {"ReleaseDC",           [](HDC c, HWND w) { ReleaseDC(w, c); },                                       "dc on 7: ReleaseDC [] = 0"                },
    {"GetClientRect",       [](HDC,   HWND w) { GetClientRect(w, &sharedBox); },                          "no dc on 7: GetClientRect [] = null"      },
    {"FillRect",            [](HDC c, HWND) { FillRect(c, &sharedBox, nullptr); },                        "dc on 7: FillRect [[0,0,1,1],null] = 0"   },
    {"DrawIcon",            [](HDC c, HWND) { DrawIcon(c, 1, 2, nullptr); },                              "dc on 7: DrawIcon [1,2,null] = 0"         },
    {"LoadIconW",           [](HDC,   HWND) { LoadIconW(nullptr, ResourceName(5)); },                     "no dc: LoadIconW [5] = null"              },
    {"LoadBitmapW",         [](HDC,   HWND) { LoadBitmapW(nullptr, ResourceName(5)); },                   "no dc: LoadBitmapW [5] = null"            },
    {"CreateCompatibleDC",  [](HDC c, HWND) { CreateCompatibleDC(c); },                                   "dc on 7: CreateCompatibleDC [] = null"    },
    {"DeleteDC",            [](HDC c, HWND) { DeleteDC(c); },                                             "dc on 7: DeleteDC [] = 0"                 },
    {"GetDeviceCaps",       [](HDC c, HWND) { GetDeviceCaps(c, 90); },                                    "dc on 7: GetDeviceCaps [90] = 0"          },
    {"CreatePen",           [](HDC,   HWND) { CreatePen(0, 1, 0); },                                      "no dc: CreatePen [0,1,0] = null"          },
    {"CreateSolidBrush",    [](HDC,   HWND) { CreateSolidBrush(1); },                                     "no dc: CreateSolidBrush [1] = null"       },
    {"CreateFontIndirectW", [](HDC,   HWND) { CreateFontIndirectW(nullptr); },
     "no dc: CreateFontIndirectW [null] = null"                                                                                                      },
    {"CreateRectRgn",       [](HDC,   HWND) { CreateRectRgn(1, 2, 3, 4); },                               "no dc: CreateRectRgn [1,2,3,4] = null"    },
    {"CreateBitmap",        [](HDC,   HWND) { CreateBitmap(1, 1, 1, 1, nullptr); },                       "no dc: CreateBitmap [1,1,1,1,null] = null"},
    {"GetStockObject",      [](HDC,   HWND) { GetStockObject(0); },                                       "no dc: GetStockObject [0] = null"         },
    {"SelectObject",        [](HDC c, HWND) { SelectObject(c, nullptr); },                                "dc on 7: SelectObject [null] = null"      },
    {"DeleteObject",        [](HDC,   HWND) { DeleteObject(nullptr); },                                   "no dc: DeleteObject [null] = 0"           },
    {"GetObjectW",          [](HDC,   HWND) { GetObjectW(nullptr, 8, &sharedBox); },                      "no dc: GetObjectW [null,8] = null"        },
    {"SetBkMode",           [](HDC c, HWND) { SetBkMode(c, 1); },                                         "dc on 7: SetBkMode [1] = 0"               },
    {"SetBkColor",          [](HDC c, HWND) { SetBkColor(c, 1); },                                        "dc on 7: SetBkColor [1] = 4294967295"     },
    {"SetTextColor",        [](HDC c, HWND) { SetTextColor(c, 1); },                                      "dc on 7: SetTextColor [1] = 4294967295"   },
    {"SetTextAlign",        [](HDC c, HWND) { SetTextAlign(c, 0); },                                      "dc on 7: SetTextAlign [0] = 4294967295"   },
    {"GetTextAlign",        [](HDC c, HWND) { GetTextAlign(c); },                                         "dc on 7: GetTextAlign [] = 4294967295"    },
    {"SetROP2",             [](HDC c, HWND) { SetROP2(c, 13); },                                          "dc on 7: SetROP2 [13] = 0"                },
    {"SetMapMode",          [](HDC c, HWND) { SetMapMode(c, 7); },                                        "dc on 7: SetMapMode [7] = 0"              },
    {"SetWindowOrgEx",      [](HDC c, HWND) { SetWindowOrgEx(c, 1, 2, &sharedPoint); },
     "dc on 7: SetWindowOrgEx [1,2] = null"                                                                                                          },
    {"SetViewportOrgEx",    [](HDC c, HWND) { SetViewportOrgEx(c, 1, 2, &sharedPoint); },
     "dc on 7: SetViewportOrgEx [1,2] = null"                                                                                                        },
    {"SetWindowExtEx",      [](HDC c, HWND) { SetWindowExtEx(c, 1, 2, &sharedSize); },
     "dc on 7: SetWindowExtEx [1,2] = null"                                                                                                          },
    {"SetViewportExtEx",    [](HDC c, HWND) { SetViewportExtEx(c, 1, 2, nullptr); },
     "dc on 7: SetViewportExtEx [1,2,null] = 0"                                                                                                      },
    {"SelectClipRgn",       [](HDC c, HWND) { SelectClipRgn(c, nullptr); },                               "dc on 7: SelectClipRgn [null] = 0"        },
    {"Rectangle",           [](HDC c, HWND) { Rectangle(c, 1, 2, 3, 4); },                                "dc on 7: Rectangle [1,2,3,4] = 0"         },
    {"Polygon",             [](HDC c, HWND) { Polygon(c, &sharedPoint, 1); },                             "dc on 7: Polygon [[[0,0]],1] = 0"         },
    {"MoveToEx",            [](HDC c, HWND) { MoveToEx(c, 1, 2, &sharedPoint); },                         "dc on 7: MoveToEx [1,2] = null"           },
    {"LineTo",              [](HDC c, HWND) { LineTo(c, 1, 2); },                                         "dc on 7: LineTo [1,2] = 0"                },
    {"Arc",                 [](HDC c, HWND) { Arc(c, 1, 2, 3, 4, 5, 6, 7, 8); },                          "dc on 7: Arc [1,2,3,4,5,6,7,8] = 0"       },
    {"FillRgn",             [](HDC c, HWND) { FillRgn(c, nullptr, nullptr); },                            "dc on 7: FillRgn [null,null] = 0"         },
    {"PaintRgn",            [](HDC c, HWND) { PaintRgn(c, nullptr); },                                    "dc on 7: PaintRgn [null] = 0"             },
    {"GetPixel",            [](HDC c, HWND) { GetPixel(c, 1, 2); },                                       "dc on 7: GetPixel [1,2] = 4294967295"     },
    {"TextOutW",            [](HDC c, HWND) { TextOutW(c, 1, 2, u"ab", 2); },                             "dc on 7: TextOutW [1,2,\"ab\",2] = 0"     },
    {"ExtTextOutW",         [](HDC c, HWND) { ExtTextOutW(c, 1, 2, 0, nullptr, u"a", 1, nullptr); },
     "dc on 7: ExtTextOutW [1,2,0,null,\"a\",1,null] = 0"                                                                                            },
    {"GetTextExtentPointW", [](HDC c, HWND) { GetTextExtentPointW(c, u"ab", 2, &sharedSize); },
     "dc on 7: GetTextExtentPointW [\"ab\",2] = null"                                                                                                },
    {"EnumFontsW",          [](HDC c, HWND) { EnumFontsW(c, u"Arial", nullptr, 0); },                     "dc on 7: EnumFontsW [\"Arial\"] = 0"      },
    {"StretchBlt",          [](HDC c, HWND) { StretchBlt(c, 1, 2, 3, 4, nullptr, 5, 6, 7, 8, SRCCOPY); },
     "dc on 7: StretchBlt [1,2,3,4,null,5,6,7,8,13369376] = 0"                                                                                       },
    {"ExtEscape",           [](HDC c, HWND) { ExtEscape(c, 5, 0, nullptr, 0, nullptr); },
     "dc on 7: ExtEscape [5,0,null,0,null] = -1"                                                                                                     },
};

class Faults : public Trace, public testing::WithParamInterface<FaultRow> {};

TEST_P(Faults, FailOnceSetTheLastErrorAndStandInTheTrace)
{
    const FaultRow& row = GetParam();
    const HDC context = GetDC(control);
    trace->Take();
    platform::CurrentEnvironment().faults.Add(row.function, 1, false);
    SetLastError(0);
    row.call(context, control);
    EXPECT_THAT(trace->Take(), ElementsAre(row.traced));
    EXPECT_NE(GetLastError(), 0u);
    EXPECT_THAT(picture->Take(), IsEmpty());
    EXPECT_EQ(ReleaseDC(control, context), 1);
}

INSTANTIATE_TEST_SUITE_P(Gdi, Faults, testing::ValuesIn(FaultRows),
                         [](const auto& test) { return std::string(test.param.function); });

TEST_F(Trace, UntracedFunctionsFailByPlanToo)
{
    platform::FaultPlan& faults = platform::CurrentEnvironment().faults;
    faults.Add("GetSysColor", 1, false);
    faults.Add("CopyRect", 1, false);
    EXPECT_EQ(GetSysColor(COLOR_WINDOW), 0u);
    EXPECT_EQ(GetSysColor(COLOR_WINDOW), 0xFFFFFFu);
    EXPECT_FALSE(CopyRect(&sharedBox, &sharedBox));
}

TEST_F(Trace, ThePlanCountsNoneOfTheLayersOwnCalls)
{
    platform::CurrentEnvironment().faults.Add("GetDC", 1, false);
    const HDC own = platform::gdi::OpenWindowContext(control);
    EXPECT_NE(own, nullptr);
    platform::gdi::CloseWindowContext(own);
    EXPECT_EQ(GetDC(control), nullptr);
}

}  // namespace
}  // namespace gdi_test
