// The platform's system libraries, which the layer answers for itself.
#pragma once

#include <string_view>

#include "platform/types.h"

namespace platform::modules {

struct SystemLibrary {
    std::u16string_view fileName;
};

// By file name, case does not count, ".dll" may be missing; null: it is none.
const SystemLibrary* FindSystemLibrary(std::u16string_view fileName);
bool IsLoadable(const SystemLibrary& library);
void* LibraryFunction(const SystemLibrary& library, std::string_view name);  // null: there is none

}  // namespace platform::modules
