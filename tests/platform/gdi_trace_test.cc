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
    EXPECT_THAT(trace->Take(),
                ElementsAre(testing::MatchesRegex("7 GetDC \\[\\] = [0-9]+"), "7 GetClientRect [] = [0,0,50,30]",
                            "7 Rectangle [4,4,120,156] = 1", "7 ReleaseDC [] = 1"));
}

TEST_F(Trace, ShowsObjectsByWhatTheyAre)
{
    const HDC screen = Context(nullptr), memory = CreateCompatibleDC(screen);
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
    Own(CreateSolidBrush(0x404040));
    Own(CreateFontIndirectW(&font));
    const HGDIOBJ bitmap = Own(CreateBitmap(8, 4, 1, 1, nullptr)), plain = SelectObject(memory, bitmap);
    const HRGN region = Own(CreateRectRgn(1, 2, 3, 4)), empty = Own(CreateRectRgn(5, 5, 5, 5));
    SelectObject(screen, region);
    SelectClipRgn(screen, empty);
    SelectClipRgn(screen, nullptr);
    SelectObject(screen, before);
    SelectObject(memory, plain);
    DeleteObject(pen);
    EXPECT_THAT(
        trace->Take(),
        ElementsAre("- CreatePen [0,1,16777215] = {pen:{style:0,width:1,color:16777215}}",
                    "- SelectObject [{pen:{style:0,width:1,color:16777215}}] = {stock:7}",
                    "- CreateSolidBrush [4210752] = {brush:{color:4210752}}",
                    "- CreateFontIndirectW [" + shownFont + "] = " + shownFont,
                    "- CreateBitmap [8,4,1,1,null] = {bitmap:{id:null,width:8,height:4,bits:1}}",
                    "- SelectObject [{bitmap:{id:null,width:8,height:4,bits:1}}] = "
                    "{bitmap:{id:null,width:1,height:1,bits:1}}",
                    "- CreateRectRgn [1,2,3,4] = {region:[1,2,3,4]}", "- CreateRectRgn [5,5,5,5] = {region:[]}",
                    "- SelectObject [{region:[1,2,3,4]}] = 2", "- SelectClipRgn [{region:[]}] = 1",
                    "- SelectClipRgn [null] = 2", "- SelectObject [{stock:7}] = {pen:{style:0,width:1,color:16777215}}",
                    "- SelectObject [{bitmap:{id:null,width:1,height:1,bits:1}}] = "
                    "{bitmap:{id:null,width:8,height:4,bits:1}}",
                    "- DeleteObject [{pen:{style:0,width:1,color:16777215}}] = 1"));
    DeleteDC(memory);
}

TEST_F(Trace, AnOutputArgumentIsTheResult)
{
    const HDC screen = Context(nullptr);
    trace->Take();
    POINT point{};
    SIZE size{};
    LOGFONTW font{};
    SetViewportOrgEx(screen, 5, 6, &point);
    SetWindowOrgEx(screen, 7, 8, nullptr);
    SetWindowOrgEx(screen, 0, 0, &point);
    SetMapMode(screen, MM_ANISOTROPIC);
    SetWindowExtEx(screen, 10, -20, &size);
    SetWindowExtEx(screen, 0, 0, &size);
    MoveToEx(screen, 1, 2, &point);
    MoveToEx(screen, 3, 4, &point);
    MoveToEx(screen, 3, 4, nullptr);
    GetTextExtentPointW(screen, u"CONFIDENTIAL", 4, &size);
    GetObjectW(GetStockObject(SYSTEM_FONT), 0, &font);
    EXPECT_THAT(trace->Take(), ElementsAre("- SetViewportOrgEx [5,6] = [0,0]", "- SetWindowOrgEx [7,8,null] = 1",
                                           "- SetWindowOrgEx [0,0] = [7,8]", "- SetMapMode [8] = 1",
                                           "- SetWindowExtEx [10,-20] = [1,1]", "- SetWindowExtEx [0,0] = null",
                                           "- MoveToEx [1,2] = [0,0]", "- MoveToEx [3,4] = [1,2]",
                                           "- MoveToEx [3,4,null] = 1", "- GetTextExtentPointW [\"CONF\",4] = [32,18]",
                                           "- GetStockObject [13] = {stock:13}", "- GetObjectW [{stock:13},0] = null"));
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
    const HDC job = Job(&target), screen = Context(nullptr);
    trace->Take();
    std::array<CHAR, 2> output{};
    EXPECT_EQ(ExtEscape(job, 20736, 2, "05", 0, nullptr), 0);
    EXPECT_EQ(target.inputBytes, 2u);
    EXPECT_EQ(ExtEscape(job, 5001, 0, nullptr, 2, output.data()), 1);
    EXPECT_EQ(ExtEscape(job, 99, 0, nullptr, 2, output.data()), -3);
    EXPECT_EQ(ExtEscape(job, 5001, 4, nullptr, 0, nullptr), -1);
    EXPECT_EQ(ExtEscape(screen, 5001, 0, nullptr, 0, nullptr), 0);
    EXPECT_THAT(trace->Take(),
                ElementsAre("job ExtEscape [20736,2,x3035,0,null] = 0", "job ExtEscape [5001,0,null,2] = xabab",
                            "job ExtEscape [99,0,null,2] = null", "job ExtEscape [5001,4,null,0,null] = -1",
                            "- ExtEscape [5001,0,null,0,null] = 0"));
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

}  // namespace
}  // namespace gdi_test
