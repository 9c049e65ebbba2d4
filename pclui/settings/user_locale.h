// The one question about the user's country that paper defaults hang on.
#pragma once

// False in the countries that use Letter (country codes 1, 2, 50 to 59, 500 to 599) and where the country
// can't be found out; true in every other.
bool LocaleUsesA4();
