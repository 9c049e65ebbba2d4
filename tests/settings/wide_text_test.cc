#include "settings/wide_text.h"

#include "settings/narrow_number.h"
#include "tests/support/machine.h"

namespace {

using namespace testing_support;

TEST(CopyBounded, CutsTerminatesAndLeavesNothingStale)
{
    WCHAR field[6] = u"#####";
    CopyBounded(field, u"0123456789", 6);
    EXPECT_EQ(std::u16string(field, 6), std::u16string(u"01234") + u'\0');
    CopyBounded(field, u"ab", 6);
    EXPECT_EQ(std::u16string(field, 6), (std::u16string{u'a', u'b', 0, 0, 0, 0}));
    CopyBounded(field, u"x", 0);
    EXPECT_EQ(field[0], u'a');
}

TEST(NarrowToWide, StopsAtTheLimit)
{
    const Machine machine;
    const std::tuple<const char*, int, std::u16string> rows[] = {
  // '#' where nothing was written
        {"abc",  0, {u'a', u'b', u'c', 0, u'#', u'#'}     },
        {"abc",  3, {u'a', u'b', 0, u'#', u'#', u'#'}     },
        {"abc",  6, {u'a', u'b', u'c', 0, u'#', 0}        },
        {"",     0, {0, u'#', u'#', u'#', u'#', u'#'}     },
        {"\x80", 0, {u'\u20AC', 0, u'#', u'#', u'#', u'#'}},
    };
    for (const auto& [narrow, chars, wide] : rows) {
        std::u16string field(6, u'#');
        NarrowToWide(field.data(), narrow, chars);
        EXPECT_EQ(field, wide) << narrow << ' ' << chars;
    }
}

TEST(WideToNarrow, StopsAtTheLimit)
{
    const Machine machine;
    const std::tuple<const char16_t*, int, std::string> rows[] = {
        {u"abc",    0, {'a', 'b', 'c', 0, '#', '#'}   },
        {u"abc",    2, {'a', 0, '#', '#', '#', '#'}   },
        {u"abc",    6, {'a', 'b', 'c', 0, '#', 0}     },
        {u"\u20AC", 0, {'\x80', 0, '#', '#', '#', '#'}},
    };
    for (const auto& [wide, chars, narrow] : rows) {
        std::string field(6, '#');
        WideToNarrow(field.data(), wide, chars);
        EXPECT_EQ(field, narrow) << chars;
    }
}

TEST(DecimalNumber, EndsAtTheFirstCharacterThatIsNoDigit)
{
    EXPECT_EQ(DecimalNumber("44"), 44);
    EXPECT_EQ(DecimalNumber("-12x"), -12);
    EXPECT_EQ(DecimalNumber("x"), 0);
    EXPECT_EQ(DecimalNumber(""), 0);
    EXPECT_EQ(DecimalNumber("99999999999"), 0);
}

}  // namespace
