// Giving back what was borrowed and restoring what was set. A refusal is asked once more, so that one failing
// call neither leaves an object behind nor lets the next drawing go by a stranger's settings.
#pragma once

// call gives true if it succeeded.
template <class Call>
void PutBack(Call call)
{
    if (!call()) call();
}
