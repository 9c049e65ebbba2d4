#include "platform/seams/environment.h"

#include "platform/seams/system_facts.h"

namespace platform {

Environment& CurrentEnvironment()
{
    // Never destroyed: modules that are unloaded while the process ends still ask for it.
    static Environment* environment = [] {
        auto* made = new Environment;
        made->facts = MakeFixedFacts({});
        return made;
    }();
    return *environment;
}

}  // namespace platform
