#include "events/language_codes.h"

#include "platform/kernel.h"

// clang-format off
constexpr LanguageCode LanguageCodeTable[131] = {
    {u"0000", u"OTH"}, {u"0436", u"AFK"}, {u"041c", u"SQI"}, {u"0401", u"ARA"}, {u"3001", u"ARB"},
    {u"0801", u"ARI"}, {u"0c01", u"ARE"}, {u"1401", u"ARG"}, {u"2c01", u"ARJ"}, {u"3801", u"ARK"},
    {u"1001", u"ARL"}, {u"1801", u"ARM"}, {u"2001", u"ARO"}, {u"4001", u"ARQ"}, {u"2801", u"ARS"},
    {u"1c01", u"ART"}, {u"3c01", u"ARU"}, {u"2401", u"ARY"}, {u"042b", u"HYE"}, {u"082c", u"AZC"},
    {u"042c", u"AZL"}, {u"042d", u"EUQ"}, {u"0423", u"BEL"}, {u"0402", u"BGR"}, {u"0403", u"CAT"},
    {u"0804", u"CHS"}, {u"0404", u"CHT"}, {u"0c04", u"ZHH"}, {u"1004", u"ZHI"}, {u"0c04", u"ZHM"},
    {u"041a", u"HRV"}, {u"0405", u"CSY"}, {u"0406", u"DAN"}, {u"0813", u"NLB"}, {u"0413", u"NLD"},
    {u"0c09", u"ENA"}, {u"2809", u"ENB"}, {u"1009", u"ENC"}, {u"0809", u"ENG"}, {u"1809", u"ENI"},
    {u"2009", u"ENJ"}, {u"2809", u"ENL"}, {u"3409", u"ENP"}, {u"1c09", u"ENS"}, {u"2c09", u"ENT"},
    {u"0409", u"ENU"}, {u"3009", u"ENW"}, {u"1409", u"ENZ"}, {u"0425", u"ETI"}, {u"0438", u"FOS"},
    {u"0429", u"FAR"}, {u"040b", u"FIN"}, {u"040c", u"FRA"}, {u"080c", u"FRB"}, {u"0c0c", u"FRC"},
    {u"140c", u"FRL"}, {u"180c", u"FRM"}, {u"100c", u"FRS"}, {u"0456", u"GLC"}, {u"0437", u"KAT"},
    {u"0c07", u"DEA"}, {u"0407", u"DEU"}, {u"0408", u"ELL"}, {u"0447", u"GUJ"}, {u"040d", u"HEB"},
    {u"0439", u"HIN"}, {u"040e", u"HUN"}, {u"040f", u"ISL"}, {u"0421", u"IND"}, {u"0410", u"ITA"},
    {u"0810", u"ITS"}, {u"0411", u"JPN"}, {u"044b", u"KAN"}, {u"4001", u"KKZ"}, {u"0457", u"KNK"},
    {u"0412", u"KOR"}, {u"0440", u"KYR"}, {u"0426", u"LVI"}, {u"0427", u"LTH"}, {u"042f", u"MKI"},
    {u"083e", u"MSB"}, {u"043e", u"MSL"}, {u"044e", u"MAR"}, {u"0450", u"MON"}, {u"0814", u"NON"},
    {u"0414", u"NOR"}, {u"0415", u"PLK"}, {u"0416", u"PTB"}, {u"0816", u"PTG"}, {u"0446", u"PAN"},
    {u"0418", u"ROM"}, {u"0419", u"RUS"}, {u"044f", u"SAN"}, {u"0c1a", u"SRB"}, {u"081a", u"SRL"},
    {u"041b", u"SKY"}, {u"0424", u"SLV"}, {u"180a", u"ESA"}, {u"400a", u"ESB"}, {u"140a", u"ESC"},
    {u"1c0a", u"ESD"}, {u"440a", u"ESE"}, {u"300a", u"ESF"}, {u"100a", u"ESG"}, {u"480a", u"ESH"},
    {u"4c0a", u"ESI"}, {u"340a", u"ESL"}, {u"080a", u"ESM"}, {u"040a", u"ESN"}, {u"240a", u"ESO"},
    {u"040a", u"ESP"}, {u"280a", u"ESR"}, {u"2c0a", u"ESS"}, {u"500a", u"ESU"}, {u"200a", u"ESV"},
    {u"380a", u"ESY"}, {u"3c0a", u"ESZ"}, {u"0441", u"SWK"}, {u"041d", u"SVE"}, {u"081d", u"SVF"},
    {u"045a", u"SYR"}, {u"0449", u"TAM"}, {u"0444", u"TTT"}, {u"044a", u"TEL"}, {u"041e", u"THA"},
    {u"041f", u"TRK"}, {u"0422", u"UKR"}, {u"0820", u"URD"}, {u"0843", u"UZC"}, {u"0443", u"UZL"},
    {u"042a", u"VIT"},
};
// clang-format on

const WCHAR* LanguageCodeOf(const WCHAR* key)
{
    for (const LanguageCode& row : LanguageCodeTable)
        if (lstrcmpW(row.key, key) == 0) return row.code;
    return LanguageCodeTable[0].code;
}
