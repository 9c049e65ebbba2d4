#include "platform/seams/locale_table.h"

#include <algorithm>
#include <iterator>

namespace platform {

namespace {

struct TerritoryRow {
    std::string_view territory;  // ISO 3166
    int telephoneCode;           // ITU-T E.164
};

// clang-format off
constexpr TerritoryRow Territories[] = {
    {"AD", 376}, {"AE", 971}, {"AF",  93}, {"AG",   1}, {"AI",   1}, {"AL", 355}, {"AM", 374}, {"AO", 244},
    {"AR",  54}, {"AS",   1}, {"AT",  43}, {"AU",  61}, {"AW", 297}, {"AX", 358}, {"AZ", 994}, {"BA", 387},
    {"BB",   1}, {"BD", 880}, {"BE",  32}, {"BF", 226}, {"BG", 359}, {"BH", 973}, {"BI", 257}, {"BJ", 229},
    {"BM",   1}, {"BN", 673}, {"BO", 591}, {"BR",  55}, {"BS",   1}, {"BT", 975}, {"BW", 267}, {"BY", 375},
    {"BZ", 501}, {"CA",   1}, {"CD", 243}, {"CF", 236}, {"CG", 242}, {"CH",  41}, {"CI", 225}, {"CK", 682},
    {"CL",  56}, {"CM", 237}, {"CN",  86}, {"CO",  57}, {"CR", 506}, {"CU",  53}, {"CV", 238}, {"CW", 599},
    {"CY", 357}, {"CZ", 420}, {"DE",  49}, {"DJ", 253}, {"DK",  45}, {"DM",   1}, {"DO",   1}, {"DZ", 213},
    {"EC", 593}, {"EE", 372}, {"EG",  20}, {"ER", 291}, {"ES",  34}, {"ET", 251}, {"FI", 358}, {"FJ", 679},
    {"FK", 500}, {"FM", 691}, {"FO", 298}, {"FR",  33}, {"GA", 241}, {"GB",  44}, {"GD",   1}, {"GE", 995},
    {"GF", 594}, {"GG",  44}, {"GH", 233}, {"GI", 350}, {"GL", 299}, {"GM", 220}, {"GN", 224}, {"GP", 590},
    {"GQ", 240}, {"GR",  30}, {"GT", 502}, {"GU",   1}, {"GW", 245}, {"GY", 592}, {"HK", 852}, {"HN", 504},
    {"HR", 385}, {"HT", 509}, {"HU",  36}, {"ID",  62}, {"IE", 353}, {"IL", 972}, {"IM",  44}, {"IN",  91},
    {"IQ", 964}, {"IR",  98}, {"IS", 354}, {"IT",  39}, {"JE",  44}, {"JM",   1}, {"JO", 962}, {"JP",  81},
    {"KE", 254}, {"KG", 996}, {"KH", 855}, {"KI", 686}, {"KM", 269}, {"KN",   1}, {"KP", 850}, {"KR",  82},
    {"KW", 965}, {"KY",   1}, {"KZ",   7}, {"LA", 856}, {"LB", 961}, {"LC",   1}, {"LI", 423}, {"LK",  94},
    {"LR", 231}, {"LS", 266}, {"LT", 370}, {"LU", 352}, {"LV", 371}, {"LY", 218}, {"MA", 212}, {"MC", 377},
    {"MD", 373}, {"ME", 382}, {"MG", 261}, {"MH", 692}, {"MK", 389}, {"ML", 223}, {"MM",  95}, {"MN", 976},
    {"MO", 853}, {"MP",   1}, {"MQ", 596}, {"MR", 222}, {"MS",   1}, {"MT", 356}, {"MU", 230}, {"MV", 960},
    {"MW", 265}, {"MX",  52}, {"MY",  60}, {"MZ", 258}, {"NA", 264}, {"NC", 687}, {"NE", 227}, {"NG", 234},
    {"NI", 505}, {"NL",  31}, {"NO",  47}, {"NP", 977}, {"NR", 674}, {"NU", 683}, {"NZ",  64}, {"OM", 968},
    {"PA", 507}, {"PE",  51}, {"PF", 689}, {"PG", 675}, {"PH",  63}, {"PK",  92}, {"PL",  48}, {"PM", 508},
    {"PR",   1}, {"PS", 970}, {"PT", 351}, {"PW", 680}, {"PY", 595}, {"QA", 974}, {"RE", 262}, {"RO",  40},
    {"RS", 381}, {"RU",   7}, {"RW", 250}, {"SA", 966}, {"SB", 677}, {"SC", 248}, {"SD", 249}, {"SE",  46},
    {"SG",  65}, {"SH", 290}, {"SI", 386}, {"SK", 421}, {"SL", 232}, {"SM", 378}, {"SN", 221}, {"SO", 252},
    {"SR", 597}, {"SS", 211}, {"ST", 239}, {"SV", 503}, {"SX",   1}, {"SY", 963}, {"SZ", 268}, {"TC",   1},
    {"TD", 235}, {"TG", 228}, {"TH",  66}, {"TJ", 992}, {"TL", 670}, {"TM", 993}, {"TN", 216}, {"TO", 676},
    {"TR",  90}, {"TT",   1}, {"TV", 688}, {"TW", 886}, {"TZ", 255}, {"UA", 380}, {"UG", 256}, {"US",   1},
    {"UY", 598}, {"UZ", 998}, {"VA",  39}, {"VC",   1}, {"VE",  58}, {"VG",   1}, {"VI",   1}, {"VN",  84},
    {"VU", 678}, {"WF", 681}, {"WS", 685}, {"XK", 383}, {"YE", 967}, {"YT", 262}, {"ZA",  27}, {"ZM", 260},
    {"ZW", 263},
};

struct LanguageRow {
    std::string_view language;   // ISO 639
    std::string_view territory;
    LANGID identifier;
    std::string_view modifier = {};  // of the locale's name, where the script differs
};

// The first row of a language stands for it where the territory is missing or has no row.
constexpr LanguageRow Languages[] = {
    {"af", "ZA", 0x0436}, {"am", "ET", 0x045E},
    {"ar", "SA", 0x0401}, {"ar", "AE", 0x3801}, {"ar", "BH", 0x3C01}, {"ar", "DZ", 0x1401}, {"ar", "EG", 0x0C01},
    {"ar", "IQ", 0x0801}, {"ar", "JO", 0x2C01}, {"ar", "KW", 0x3401}, {"ar", "LB", 0x3001}, {"ar", "LY", 0x1001},
    {"ar", "MA", 0x1801}, {"ar", "OM", 0x2001}, {"ar", "QA", 0x4001}, {"ar", "SY", 0x2801}, {"ar", "TN", 0x1C01},
    {"ar", "YE", 0x2401},
    {"as", "IN", 0x044D}, {"az", "AZ", 0x042C}, {"az", "AZ", 0x082C, "cyrillic"}, {"be", "BY", 0x0423},
    {"bg", "BG", 0x0402}, {"bn", "BD", 0x0845}, {"bn", "IN", 0x0445}, {"bo", "CN", 0x0451}, {"br", "FR", 0x047E},
    {"bs", "BA", 0x141A}, {"bs", "BA", 0x201A, "cyrillic"}, {"ca", "ES", 0x0403}, {"ca", "ES", 0x0803, "valencia"},
    {"co", "FR", 0x0483}, {"cs", "CZ", 0x0405}, {"cy", "GB", 0x0452}, {"da", "DK", 0x0406},
    {"de", "DE", 0x0407}, {"de", "AT", 0x0C07}, {"de", "CH", 0x0807}, {"de", "LI", 0x1407}, {"de", "LU", 0x1007},
    {"dsb", "DE", 0x082E}, {"dv", "MV", 0x0465}, {"el", "GR", 0x0408},
    {"en", "US", 0x0409}, {"en", "AU", 0x0C09}, {"en", "BZ", 0x2809}, {"en", "CA", 0x1009}, {"en", "GB", 0x0809},
    {"en", "HK", 0x3C09}, {"en", "IE", 0x1809}, {"en", "IN", 0x4009}, {"en", "JM", 0x2009}, {"en", "MY", 0x4409},
    {"en", "NZ", 0x1409}, {"en", "PH", 0x3409}, {"en", "SG", 0x4809}, {"en", "TT", 0x2C09}, {"en", "ZA", 0x1C09},
    {"en", "ZW", 0x3009},
    {"es", "ES", 0x0C0A}, {"es", "AR", 0x2C0A}, {"es", "BO", 0x400A}, {"es", "CL", 0x340A}, {"es", "CO", 0x240A},
    {"es", "CR", 0x140A}, {"es", "CU", 0x5C0A}, {"es", "DO", 0x1C0A}, {"es", "EC", 0x300A}, {"es", "GT", 0x100A},
    {"es", "HN", 0x480A}, {"es", "MX", 0x080A}, {"es", "NI", 0x4C0A}, {"es", "PA", 0x180A}, {"es", "PE", 0x280A},
    {"es", "PR", 0x500A}, {"es", "PY", 0x3C0A}, {"es", "SV", 0x440A}, {"es", "US", 0x540A}, {"es", "UY", 0x380A},
    {"es", "VE", 0x200A},
    {"et", "EE", 0x0425}, {"eu", "ES", 0x042D}, {"fa", "IR", 0x0429}, {"fi", "FI", 0x040B}, {"fil", "PH", 0x0464},
    {"fo", "FO", 0x0438},
    {"fr", "FR", 0x040C}, {"fr", "BE", 0x080C}, {"fr", "CA", 0x0C0C}, {"fr", "CD", 0x240C}, {"fr", "CH", 0x100C},
    {"fr", "CI", 0x300C}, {"fr", "CM", 0x2C0C}, {"fr", "HT", 0x3C0C}, {"fr", "LU", 0x140C}, {"fr", "MA", 0x380C},
    {"fr", "MC", 0x180C}, {"fr", "ML", 0x340C}, {"fr", "RE", 0x200C}, {"fr", "SN", 0x280C},
    {"fy", "NL", 0x0462}, {"ga", "IE", 0x083C}, {"gd", "GB", 0x0491}, {"gl", "ES", 0x0456}, {"gn", "PY", 0x0474},
    {"gsw", "FR", 0x0484}, {"gu", "IN", 0x0447}, {"ha", "NG", 0x0468}, {"haw", "US", 0x0475}, {"he", "IL", 0x040D},
    {"hi", "IN", 0x0439}, {"hr", "HR", 0x041A}, {"hr", "BA", 0x101A}, {"hsb", "DE", 0x042E}, {"hu", "HU", 0x040E},
    {"hy", "AM", 0x042B}, {"id", "ID", 0x0421}, {"ig", "NG", 0x0470}, {"is", "IS", 0x040F},
    {"it", "IT", 0x0410}, {"it", "CH", 0x0810}, {"iu", "CA", 0x085D}, {"iw", "IL", 0x040D}, {"ja", "JP", 0x0411},
    {"ka", "GE", 0x0437}, {"kk", "KZ", 0x043F}, {"kl", "GL", 0x046F}, {"km", "KH", 0x0453}, {"kn", "IN", 0x044B},
    {"ko", "KR", 0x0412}, {"kok", "IN", 0x0457}, {"ks", "IN", 0x0860}, {"ku", "IQ", 0x0492}, {"ky", "KG", 0x0440},
    {"lb", "LU", 0x046E}, {"lo", "LA", 0x0454}, {"lt", "LT", 0x0427}, {"lv", "LV", 0x0426}, {"mi", "NZ", 0x0481},
    {"mk", "MK", 0x042F}, {"ml", "IN", 0x044C}, {"mn", "MN", 0x0450}, {"mn", "CN", 0x0850}, {"mr", "IN", 0x044E},
    {"ms", "MY", 0x043E}, {"ms", "BN", 0x083E}, {"mt", "MT", 0x043A}, {"my", "MM", 0x0455},
    {"nb", "NO", 0x0414}, {"ne", "NP", 0x0461}, {"ne", "IN", 0x0861}, {"nl", "NL", 0x0413}, {"nl", "BE", 0x0813},
    {"nn", "NO", 0x0814}, {"no", "NO", 0x0414}, {"nso", "ZA", 0x046C}, {"oc", "FR", 0x0482}, {"om", "ET", 0x0472},
    {"or", "IN", 0x0448}, {"pa", "IN", 0x0446}, {"pa", "PK", 0x0846}, {"pl", "PL", 0x0415}, {"ps", "AF", 0x0463},
    {"pt", "PT", 0x0816}, {"pt", "BR", 0x0416}, {"qu", "BO", 0x046B}, {"qu", "EC", 0x086B}, {"qu", "PE", 0x0C6B},
    {"rm", "CH", 0x0417}, {"ro", "RO", 0x0418}, {"ro", "MD", 0x0818}, {"ru", "RU", 0x0419}, {"ru", "MD", 0x0819},
    {"rw", "RW", 0x0487}, {"sa", "IN", 0x044F}, {"sah", "RU", 0x0485}, {"sd", "PK", 0x0859}, {"sd", "IN", 0x0459},
    {"se", "NO", 0x043B}, {"se", "SE", 0x083B}, {"se", "FI", 0x0C3B}, {"si", "LK", 0x045B}, {"sk", "SK", 0x041B},
    {"sl", "SI", 0x0424}, {"so", "SO", 0x0477}, {"sq", "AL", 0x041C},
    {"sr", "RS", 0x0C1A}, {"sr", "RS", 0x081A, "latin"}, {"sr", "BA", 0x1C1A}, {"sr", "BA", 0x181A, "latin"},
    {"sr", "ME", 0x0C1A}, {"sr", "ME", 0x081A, "latin"},
    {"st", "ZA", 0x0430}, {"sv", "SE", 0x041D}, {"sv", "FI", 0x081D}, {"sw", "KE", 0x0441}, {"syr", "SY", 0x045A},
    {"ta", "IN", 0x0449},
    {"ta", "LK", 0x0849}, {"te", "IN", 0x044A}, {"tg", "TJ", 0x0428}, {"th", "TH", 0x041E}, {"ti", "ET", 0x0473},
    {"ti", "ER", 0x0873}, {"tk", "TM", 0x0442}, {"tn", "ZA", 0x0432}, {"tn", "BW", 0x0832}, {"tr", "TR", 0x041F},
    {"ts", "ZA", 0x0431}, {"tt", "RU", 0x0444}, {"ug", "CN", 0x0480}, {"uk", "UA", 0x0422}, {"ur", "PK", 0x0420},
    {"ur", "IN", 0x0820}, {"uz", "UZ", 0x0443}, {"uz", "UZ", 0x0843, "cyrillic"}, {"ve", "ZA", 0x0433},
    {"vi", "VN", 0x042A}, {"wo", "SN", 0x0488}, {"xh", "ZA", 0x0434}, {"yi", "001", 0x043D}, {"yo", "NG", 0x046A},
    {"zh", "CN", 0x0804}, {"zh", "HK", 0x0C04}, {"zh", "MO", 0x1404}, {"zh", "SG", 0x1004}, {"zh", "TW", 0x0404},
    {"zu", "ZA", 0x0435},
};
// clang-format on

constexpr bool TerritoriesAscend()
{
    for (std::size_t i = 1; i < std::size(Territories); ++i)
        if (Territories[i - 1].territory >= Territories[i].territory) return false;
    return true;
}
static_assert(TerritoriesAscend());

constexpr bool LanguagesAscendAndAreUnique()
{
    for (std::size_t i = 1; i < std::size(Languages); ++i) {
        const LanguageRow& row = Languages[i];
        if (Languages[i - 1].language > row.language) return false;
        for (std::size_t j = i; j-- > 0 && Languages[j].language == row.language;)
            if (Languages[j].territory == row.territory && Languages[j].modifier == row.modifier) return false;
    }
    return true;
}
static_assert(LanguagesAscendAndAreUnique());

constexpr int UnitedStates = 1;
constexpr LANGID AmericanEnglish = 0x0409;

// language_TERRITORY.codeset@modifier
struct LocaleName {
    std::string_view language, territory, modifier;
};

LocaleName Split(std::string_view locale)
{
    LocaleName name;
    if (const std::size_t at = locale.find('@'); at != locale.npos) {
        name.modifier = locale.substr(at + 1);
        locale = locale.substr(0, at);
    }
    locale = locale.substr(0, locale.find('.'));
    const std::size_t under = locale.find('_');
    name.language = locale.substr(0, under);
    if (under != locale.npos) name.territory = locale.substr(under + 1);
    return name;
}

const LanguageRow* FirstOf(std::string_view language)
{
    const auto row = std::ranges::find(Languages, language, &LanguageRow::language);
    return row == std::end(Languages) ? nullptr : row;
}

}  // namespace

int TelephoneCountry(std::string_view locale)
{
    const LocaleName name = Split(locale);
    std::string_view territory = name.territory;
    if (territory.empty()) {
        const LanguageRow* row = FirstOf(name.language);
        if (row != nullptr) territory = row->territory;
    }
    const auto row = std::ranges::lower_bound(Territories, territory, {}, &TerritoryRow::territory);
    return row != std::end(Territories) && row->territory == territory ? row->telephoneCode : UnitedStates;
}

LANGID LanguageIdentifier(std::string_view locale)
{
    const LocaleName name = Split(locale);
    const LanguageRow* best = FirstOf(name.language);
    if (best == nullptr) return AmericanEnglish;
    const std::string_view territory = name.territory.empty() ? best->territory : name.territory;
    bool territoryKnown = false;
    for (const LanguageRow& row : Languages) {
        if (row.language != name.language || row.territory != territory) continue;
        if (row.modifier == name.modifier) return row.identifier;
        if (!territoryKnown) best = &row;  // another modifier (euro) says nothing about the language
        territoryKnown = true;
    }
    return best->identifier;
}

}  // namespace platform
