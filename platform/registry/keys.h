// Open registry keys, for leak tests.
#pragma once

#include "platform/registry.h"

namespace platform::registry {

QD_API std::size_t OpenCount();  // keys that are not closed

}  // namespace platform::registry
