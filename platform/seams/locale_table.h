// What a locale name of this machine (de_AT.UTF-8, sr_RS@latin) means to the platform: the telephone
// country code of its territory and the language identifier of its language.
#pragma once

#include <string_view>

#include "platform/types.h"

namespace platform {

// "C", "POSIX" and names that are not in the tables give the United States: 1 and 0x0409. A name without
// a territory stands for the territory that speaks the language first of all.
QD_API int TelephoneCountry(std::string_view locale);
QD_API LANGID LanguageIdentifier(std::string_view locale);

}  // namespace platform
